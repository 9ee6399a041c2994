#pragma once

#include "tests/engines/Engine.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace vd {
class TVdSelectParser;
}

namespace vdengine {

// One statement of the family the engines run: either parsed from Text or built through
// the model's API by Build, the way the views build it. Reference is SQL written by hand
// that must return the same rows on the engine (a parsed entry's own Text when empty), so
// a printed statement is checked for meaning, not only for being accepted.
struct TFamilyStatement {
    std::string Name;
    unsigned Engines = emAll;
    std::string Text;
    std::function<void(vd::TVdSelectParser&)> Build;
    std::string Reference;
    // Values of the statement's named parameters (":NAME"), bound before it runs.
    std::vector<std::pair<std::string, std::string>> Params;
    // Print the InterBase ROWS clause instead of Firebird's FIRST/SKIP.
    bool InterBaseServer = false;

    const std::string& ReferenceSql() const { return Reference.empty() ? Text : Reference; }
};

// gtest prints a failing entry by its name.
inline void PrintTo(const TFamilyStatement& entry, std::ostream* out) { *out << entry.Name; }

// Statements parsed from text, for every engine.
std::vector<TFamilyStatement> ParsedStatements();
// Statements built through the model's API, for every engine.
std::vector<TFamilyStatement> BuiltStatements();
// Statements with the clauses of one dialect (MySQL options and LIMIT; FIRST/SKIP, ROWS).
std::vector<TFamilyStatement> DialectStatements();

// The whole family for one engine, in a stable order.
std::vector<TFamilyStatement> FamilyFor(TEngine engine);

// Any entry by name, whatever engines it runs on (for the engines' own tests); throws
// std::out_of_range for an unknown name.
TFamilyStatement FamilyEntry(const std::string& name);

// The parser of the engine's settings, with the entry's own server choice applied.
std::unique_ptr<vd::TVdSelectParser> CreateParser(TEngine engine, const TFamilyStatement& entry);

} // namespace vdengine
