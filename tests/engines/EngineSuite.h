#pragma once

#include "tests/engines/EngineDatabase.h"
#include "tests/engines/StatementFamily.h"

#include <gtest/gtest.h>

#include <string>

namespace vdengine {

// The engine this test executable runs on; each engine's test file defines it.
extern const TEngine SuiteEngine;

// The suite's connection, opened and filled with the business schema on first use; the
// failure to reach the engine or to create the schema is reported by every test using it.
TEngineDatabase& SuiteDatabase();
testing::AssertionResult SuiteDatabaseReady();

// The entry printed in the engine's dialect: parsed from its text or built through the
// API. Fails when the text is refused or the print does not read back to itself.
testing::AssertionResult PrintFor(TEngine engine, const TFamilyStatement& entry,
                                  std::string& printed);

// Runs SQL on the suite's engine, binding the entry's parameters.
testing::AssertionResult Runs(const TFamilyStatement& entry, const std::string& sql, TRows& rows);

// The engine refuses the SQL; the message must contain the given text.
testing::AssertionResult Refuses(const TFamilyStatement& entry, const std::string& sql,
                                 const std::string& messagePart);

// The engine runs both the print and the entry's reference, and they return these numbers
// of rows (for prints an engine takes otherwise than the reference means).
testing::AssertionResult RowCounts(const TFamilyStatement& entry, const std::string& printed,
                                   size_t printedRows, size_t referenceRows);

// The family for gtest: the test's name is the entry's name.
struct TEntryName {
    std::string operator()(const testing::TestParamInfo<TFamilyStatement>& info) const
    {
        return info.param.Name;
    }
};

class EngineStatement : public testing::TestWithParam<TFamilyStatement>
{
};

} // namespace vdengine

// Every engine's test file instantiates the family with this line.
#define VD_ENGINE_FAMILY(Engine)                                                                   \
    INSTANTIATE_TEST_SUITE_P(Engine, EngineStatement,                                              \
                             testing::ValuesIn(FamilyFor(TEngine::Engine)), TEntryName())
