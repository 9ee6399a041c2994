// The meaning of generated statements on SQLite: what the generic parser accepts prints SQL
// that returns the same rows; what it cannot hold it refuses with its positioned error.

#include "tests/meaning/MeaningCheck.h"
#include "tests/meaning/MeaningOptions.h"
#include "tests/meaning/SQLiteEngine.h"

#include <gtest/gtest.h>

namespace vdmeaning {

TEST(Meaning, GenericOnSQLite)
{
    TSQLiteEngine engine;
    const TRunOptions options = OptionsFromEnvironment(TDialect::Generic, 2000);
    std::string error;
    ASSERT_TRUE(CreateSchema(engine, options.Dialect, options.Seed, error)) << error;
    EXPECT_TRUE(MeaningKept(engine, options));
}

// The runner itself: a statement and a print that differ are told apart, and orders are
// checked as far as ORDER BY fixes them.
TEST(Meaning, CompareRowsSeesOtherRowsAndOrders)
{
    const TRows ab = {{"a", "1"}, {"b", "2"}};
    const TRows ba = {{"b", "2"}, {"a", "1"}};
    EXPECT_EQ(CompareRows(ab, ba, {}), "");
    EXPECT_NE(CompareRows(ab, ba, {TOrderCheck::Full, {}}), "");
    EXPECT_NE(CompareRows(ab, ba, {TOrderCheck::Keys, {1}}), "");
    const TRows tie1 = {{"a", "1"}, {"b", "1"}};
    const TRows tie2 = {{"b", "1"}, {"a", "1"}};
    EXPECT_EQ(CompareRows(tie1, tie2, {TOrderCheck::Keys, {1}}), "");
    EXPECT_NE(CompareRows(ab, {{"a", "1"}}, {}), "");
    EXPECT_NE(CompareRows(ab, {{"a", "1"}, {"a", "1"}}, {}), "");
}

TEST(Meaning, GeneratedTextsRunOnSQLite)
{
    TSQLiteEngine engine;
    std::string error;
    ASSERT_TRUE(CreateSchema(engine, TDialect::Generic, 7, error)) << error;
    TRows rows;
    ASSERT_TRUE(engine.Query("SELECT COUNT(*), COUNT(A), COUNT(DISTINCT A) FROM T", rows, error))
        << error;
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0], "300");
    EXPECT_LT(std::stoi(rows[0][1]), 300) << "NULLs in T.A";
    EXPECT_LE(std::stoi(rows[0][2]), 10) << "a small range of T.A";
}

} // namespace vdmeaning
