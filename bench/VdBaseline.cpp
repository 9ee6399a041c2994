// The yardsticks `vdsql bench` is read against, on the same file and in the same format:
//   vd_baseline [--repeat N] FILE
// prints
//   bare <statements> <bytes> <seconds> <MB/s> <statements/s>    one-pass tokenising scan
//   sqlite <statements> <bytes> <seconds> <MB/s> <statements/s>  sqlite3_prepare_v2
// The bare scan copies each statement and splits it into words, numbers, quoted texts and
// single characters with a class table: what any reader of the text must at least do.
#include <sqlite3.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct TRun {
    unsigned long long Statements = 0;
    unsigned long long Bytes = 0;
    unsigned long long Tokens = 0;
    double Seconds = 0;
};

std::vector<std::string> ReadLines(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

enum : unsigned char { cWord = 1, cDigit = 2, cBlank = 4, cQuote = 8 };

std::array<unsigned char, 256> MakeClasses()
{
    std::array<unsigned char, 256> classes{};
    for (int c = 0; c < 256; ++c) {
        if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 128)
            classes[size_t(c)] = cWord;
        else if (c >= '0' && c <= '9')
            classes[size_t(c)] = cDigit;
        else if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            classes[size_t(c)] = cBlank;
        else if (c == '\'' || c == '"')
            classes[size_t(c)] = cQuote;
    }
    return classes;
}

unsigned long long BareScan(const std::string& statement, std::string& copy)
{
    static const std::array<unsigned char, 256> classes = MakeClasses();
    copy.assign(statement);
    const char* p = copy.data();
    const char* const end = p + copy.size();
    unsigned long long tokens = 0;
    while (p < end) {
        const unsigned char cls = classes[static_cast<unsigned char>(*p)];
        const char* start = p++;
        if (cls & cBlank)
            continue;
        if (cls & (cWord | cDigit)) {
            while (p < end && (classes[static_cast<unsigned char>(*p)] & (cWord | cDigit)))
                ++p;
        } else if (cls & cQuote) {
            while (p < end && *p != *start)
                ++p;
            p += p < end;
        }
        ++tokens;
    }
    return tokens;
}

template <typename F> TRun Time(const std::vector<std::string>& statements, int rounds, F&& each)
{
    TRun run;
    const auto start = std::chrono::steady_clock::now();
    for (int round = 0; round < rounds; ++round)
        for (const std::string& statement : statements)
            run.Tokens += each(statement);
    run.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    for (const std::string& statement : statements)
        run.Bytes += statement.size();
    run.Bytes *= static_cast<unsigned long long>(rounds);
    run.Statements = statements.size() * static_cast<unsigned long long>(rounds);
    return run;
}

void Report(const char* label, const TRun& r)
{
    const double mbs = r.Seconds > 0 ? double(r.Bytes) / 1e6 / r.Seconds : 0;
    const double sps = r.Seconds > 0 ? double(r.Statements) / r.Seconds : 0;
    std::printf("%s %llu %llu %.6f %.2f %.2f\n", label, r.Statements, r.Bytes, r.Seconds, mbs, sps);
}

std::string Quoted(const std::string& name)
{
    std::string q = "\"";
    for (char c : name)
        q += c == '"' ? std::string("\"\"") : std::string(1, c);
    return q + '"';
}

bool Exec(sqlite3* db, const std::string& sql)
{
    return sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

// Creates the tables and columns the statements name, learnt from prepare's own complaints,
// so that prepare resolves every name instead of stopping at the first unknown one. Every
// table gets every column seen. Returns how many statements still fail.
int MakeSchema(sqlite3* db, const std::vector<std::string>& statements)
{
    std::vector<std::string> tables;
    std::vector<std::string> columns;
    int failing = 0;
    for (const std::string& s : statements) {
        bool ok = false;
        for (int attempt = 0; attempt < 200 && !ok; ++attempt) {
            sqlite3_stmt* stmt = nullptr;
            ok = sqlite3_prepare_v2(db, s.data(), int(s.size()), &stmt, nullptr) == SQLITE_OK;
            sqlite3_finalize(stmt);
            if (ok)
                break;
            const std::string message = sqlite3_errmsg(db);
            const std::string tablePrefix = "no such table: ";
            const std::string columnPrefix = "no such column: ";
            if (message.rfind(tablePrefix, 0) == 0) {
                std::string name = message.substr(tablePrefix.size());
                std::string ddl = "CREATE TABLE " + Quoted(name) + "(ID_ INTEGER";
                for (const std::string& c : columns)
                    ddl += ", " + Quoted(c);
                if (!Exec(db, ddl + ")"))
                    break;
                tables.push_back(name);
            } else if (message.rfind(columnPrefix, 0) == 0) {
                std::string name = message.substr(columnPrefix.size());
                const size_t dot = name.rfind('.');
                if (dot != std::string::npos)
                    name = name.substr(dot + 1);
                bool added = false;
                for (const std::string& t : tables)
                    added |= Exec(db, "ALTER TABLE " + Quoted(t) + " ADD COLUMN " + Quoted(name));
                if (!added)
                    break;
                columns.push_back(name);
            } else {
                break;
            }
        }
        if (!ok && failing < 3 && std::getenv("VD_BASELINE_VERBOSE"))
            std::cerr << sqlite3_errmsg(db) << '\n';
        failing += ok ? 0 : 1;
    }
    return failing;
}

} // namespace

int main(int argc, char** argv)
{
    int rounds = 1;
    std::string file;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--repeat" && i + 1 < argc)
            rounds = std::atoi(argv[++i]);
        else
            file = arg;
    }
    if (file.empty() || rounds < 1) {
        std::cerr << "usage: vd_baseline [--repeat N] FILE\n";
        return 2;
    }
    const std::vector<std::string> statements = ReadLines(file);

    std::string copy;
    const TRun bare =
        Time(statements, rounds, [&](const std::string& s) { return BareScan(s, copy); });
    Report("bare", bare);

    sqlite3* db = nullptr;
    if (sqlite3_open(":memory:", &db) != SQLITE_OK) {
        std::cerr << "vd_baseline: cannot open SQLite\n";
        return 1;
    }
    const int failing = MakeSchema(db, statements);
    const TRun prepared = Time(statements, rounds, [&](const std::string& s) {
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, s.data(), int(s.size()), &stmt, nullptr);
        sqlite3_finalize(stmt);
        return 1ull;
    });
    sqlite3_close(db);
    Report("sqlite", prepared);
    if (failing > 0)
        std::cerr << "sqlite: " << failing << " statements still fail to prepare\n";
    return 0;
}
