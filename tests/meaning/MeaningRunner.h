#pragma once

// Runs generated statements on an engine as written and as the parser prints them, and sorts
// each into accepted with the same rows, refused with a parser error, changed, or an internal
// error of the parser.

#include "tests/meaning/MeaningStatement.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vdmeaning {

using TRow = std::vector<std::string>;
using TRows = std::vector<TRow>;

// An engine the statements run on (SQLite through its C API, servers through QtSql).
class TEngine
{
public:
    virtual ~TEngine() = default;
    virtual bool Exec(const std::string& sql, std::string& error) = 0;
    // Values as text, NULL as "NULL".
    virtual bool Query(const std::string& sql, TRows& rows, std::string& error) = 0;
};

bool CreateSchema(TEngine& engine, TDialect dialect, std::uint32_t seed, std::string& error);

enum class TOutcome {
    Same,         // accepted, and the print returns the rows of the text
    Refused,      // the parser raised its positioned error
    Changed,      // accepted, and the print returns other rows, another order, or fails
    Internal,     // the parser or printer raised another exception
    OriginalFails // the engine refuses the text as written: a fault of the generator
};

const char* OutcomeName(TOutcome outcome);

struct TCheck {
    TOutcome Outcome = TOutcome::Same;
    std::string Text;
    std::string Printed;
    std::string Detail; // the refusal, the exception, or how the rows differ
};

TCheck CheckStatement(TEngine& engine, const TStatement& statement);

// An empty text when the rows agree as far as the ORDER BY fixes them.
std::string CompareRows(const TRows& original, const TRows& printed, const TOrderCheck& order);

struct TFailure {
    TStatement Statement;
    TCheck Check;
    // The smallest statement found that fails the same way, and its shape.
    bool Reduced = false;
    TStatement Small;
    TCheck SmallCheck;
    std::string Shape;
};

struct TRunOptions {
    TDialect Dialect = TDialect::Generic;
    std::uint32_t Seed = 20261124;
    int Count = 3000;
    int ReduceLimit = 20; // failures shrunk to a small example, in the order found
};

struct TSummary {
    int Tried = 0, Same = 0, Refused = 0, Changed = 0, Internal = 0, OriginalFails = 0;
    std::map<std::string, int> Refusals; // message with numbers blanked -> count
    std::map<std::string, std::vector<std::string>> RefusedTexts; // the first few of each
    std::vector<TFailure> Failures; // every statement that is not Same or Refused

    int Accepted() const { return Same + Changed; }
    double AcceptedPercent() const;
};

TSummary RunMeaning(TEngine& engine, const TRunOptions& options);

} // namespace vdmeaning
