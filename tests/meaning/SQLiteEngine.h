#pragma once

// The meaning runner's engine over SQLite in memory, through the C API.

#include "tests/meaning/MeaningRunner.h"

struct sqlite3;

namespace vdmeaning {

class TSQLiteEngine : public TEngine
{
public:
    TSQLiteEngine();
    ~TSQLiteEngine() override;
    TSQLiteEngine(const TSQLiteEngine&) = delete;
    TSQLiteEngine& operator=(const TSQLiteEngine&) = delete;

    bool Exec(const std::string& sql, std::string& error) override;
    bool Query(const std::string& sql, TRows& rows, std::string& error) override;

    // A statement returning more rows is stopped and counts as failed: a shrunk statement
    // that lost its join condition must not run for minutes.
    static constexpr size_t MaxRows = 200000;
    // The same for statements that work long without returning rows (a join without its
    // condition, grouped): about a second of work. The generated texts stay far below it.
    static constexpr long MaxSteps = 200000000;

private:
    sqlite3* FDb = nullptr;
    long FSteps = 0;
};

} // namespace vdmeaning
