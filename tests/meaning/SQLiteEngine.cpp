#include "tests/meaning/SQLiteEngine.h"

#include <sqlite3.h>

#include <cmath>
#include <string>

namespace vdmeaning {

namespace {

// Called every 1000 virtual machine instructions; a non-zero result interrupts the statement.
int StopLongStatements(void* steps)
{
    return ++*static_cast<long*>(steps) > TSQLiteEngine::MaxSteps / 1000;
}

} // namespace

TSQLiteEngine::TSQLiteEngine()
{
    sqlite3_open(":memory:", &FDb);
    sqlite3_progress_handler(FDb, 1000, StopLongStatements, &FSteps);
}

TSQLiteEngine::~TSQLiteEngine() { sqlite3_close(FDb); }

bool TSQLiteEngine::Exec(const std::string& sql, std::string& error)
{
    TRows rows;
    return Query(sql, rows, error);
}

bool TSQLiteEngine::Query(const std::string& sql, TRows& rows, std::string& error)
{
    rows.clear();
    FSteps = 0;
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    if (sqlite3_prepare_v2(FDb, sql.c_str(), int(sql.size()), &statement, &tail) != SQLITE_OK) {
        error = sqlite3_errmsg(FDb);
        return false;
    }
    if (!statement) {
        error = "no statement";
        return false;
    }
    if (tail && *tail) {
        // Only blanks may follow: a second statement would not be checked.
        for (const char* p = tail; *p; ++p)
            if (*p != ' ' && *p != '\r' && *p != '\n' && *p != '\t' && *p != ';') {
                sqlite3_finalize(statement);
                error = "more than one statement";
                return false;
            }
    }
    const int columns = sqlite3_column_count(statement);
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(statement)) == SQLITE_ROW) {
        if (rows.size() == MaxRows) {
            sqlite3_finalize(statement);
            error = "more than " + std::to_string(MaxRows) + " rows";
            return false;
        }
        TRow row;
        for (int c = 0; c < columns; ++c) {
            // A real that holds a whole number is that number: MAX over 0 and 0.0 (equal
            // values) may give either, depending on the order the engine meets the rows in.
            if (sqlite3_column_type(statement, c) == SQLITE_FLOAT) {
                const double value = sqlite3_column_double(statement, c);
                if (std::nearbyint(value) == value && std::fabs(value) < 9.0e15) {
                    row.push_back(std::to_string(static_cast<long long>(value)));
                    continue;
                }
            }
            const unsigned char* text = sqlite3_column_text(statement, c);
            row.emplace_back(text ? reinterpret_cast<const char*>(text) : "NULL");
        }
        rows.push_back(std::move(row));
    }
    if (rc != SQLITE_DONE) {
        error = sqlite3_errmsg(FDb);
        sqlite3_finalize(statement);
        return false;
    }
    sqlite3_finalize(statement);
    return true;
}

} // namespace vdmeaning
