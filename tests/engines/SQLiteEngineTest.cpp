// The family on SQLite (embedded, in memory), printed by the generic parser with quoted
// identifiers; then the prints SQLite takes otherwise than written, each with the reason
// the print stays as it is.

#include "tests/engines/EngineSuite.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::SQLite;

VD_ENGINE_FAMILY(SQLite);

// A procedure in FROM prints as the procedure's call; SQLite has no stored procedures (it
// reads the call as a table-valued function it does not know), so
// a host offers none in its diagram for this engine.
TEST(SQLiteRefuses, StoredProcedureInFrom)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltStoredProcedure");
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::SQLite, entry, printed));
    EXPECT_NE(printed.find("\"ORDERS_OF\"(:CUST) G"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "no such table: ORDERS_OF"));
}

// TRUE is no keyword of the generic dialect, so in a condition it is a name and prints
// quoted; SQLite takes an unknown quoted name for a string and finds no row (the text itself
// finds 3). Compare booleans with 1 on this engine.
TEST(SQLiteDeliberate, TrueIsANameAndReadsAsAString)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("WhereBoolean");
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::SQLite, entry, printed));
    EXPECT_NE(printed.find("(\"C\".\"ENABLED\" = \"TRUE\")"), std::string::npos) << printed;
    EXPECT_TRUE(RowCounts(entry, printed, 0, 3));
}

// GROUP BY is rebuilt from the plain columns of the select list; an expression beside an
// aggregate is not grouped. SQLite runs it and returns one row per ORDER_ID (4) instead of
// one per ORDER_ID and amount (6).
TEST(SQLiteDeliberate, GroupByListsPlainColumnsOnly)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltExpressionBesideAggregate");
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::SQLite, entry, printed));
    EXPECT_NE(printed.find("GROUP BY\r\n  \"L\".\"ORDER_ID\"\r\n"), std::string::npos) << printed;
    EXPECT_TRUE(RowCounts(entry, printed, 4, 6));
}

// T.* beside an aggregate: SQLite runs it without a GROUP BY (one row), and the print adds
// none; a star is no column the derived GROUP BY could list ("T"."*" there named a column
// called *, and SQLite refused the print).
TEST(SQLiteKeeps, StarBesideAnAggregateRunsAsWritten)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    TFamilyStatement entry;
    entry.Text = "SELECT S.*, COUNT(*) FROM SUPPLIERS S";
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::SQLite, entry, printed));
    EXPECT_EQ(printed.find("GROUP BY"), std::string::npos) << printed;
    TRows reference, rows;
    ASSERT_TRUE(Runs(entry, entry.Text, reference));
    ASSERT_TRUE(Runs(entry, printed, rows));
    EXPECT_EQ(reference.size(), 1u);
    EXPECT_EQ(rows, reference);
}

} // namespace vdengine
