// The family on a private PostgreSQL server, printed by the generic parser with
// QuoteIdentifiers off (the server folds unquoted names to lower case, the schema's and the
// printed ones alike); then the prints PostgreSQL refuses, each with the reason it stays.

#include "tests/engines/EngineSuite.h"

#include "dialects/VdMyParser.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::PostgreSQL;

VD_ENGINE_FAMILY(PostgreSQL);

// With the default setting the generic dialect quotes every name as the model holds it;
// PostgreSQL folds the unquoted names of the schema to lower case, so "CUSTOMERS" is
// another table. Quoting keeps names with blanks and keywords intact: it stays the
// default, and the README names the setting for this engine (QuoteIdentifiers off).
TEST(PostgreSQLRefuses, QuotedNamesOfTheDefaultSetting)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("InnerJoin");
    vd::TVdSelectParser parser;
    parser.SetExpression(entry.Text);
    const std::string printed = parser.GetExpression();
    EXPECT_NE(printed.find("\"CUSTOMERS\" C"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "relation \"CUSTOMERS\" does not exist"));
}

// Even a table created with a quoted upper-case name does not help while the statement has
// aliases: the generic dialect prints an alias as written ("CLIENTS" C, folded to c) and
// quotes it where it qualifies a column ("C"."NAME"). The table is one of this test's own:
// "CUSTOMERS" must stay missing for the test above, which may run before or after this one.
TEST(PostgreSQLRefuses, BareAliasBesideQuotedQualifier)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    TEngineDatabase& db = SuiteDatabase();
    ASSERT_TRUE(db.Exec("CREATE TABLE IF NOT EXISTS \"CLIENTS\" (\"ID\" INTEGER, \"NAME\" TEXT)"))
        << db.Error();
    TFamilyStatement entry;
    entry.Text = "SELECT C.ID, C.NAME FROM CLIENTS C";
    vd::TVdSelectParser parser;
    parser.SetExpression(entry.Text);
    const std::string printed = parser.GetExpression();
    EXPECT_NE(printed.find("\"CLIENTS\" C"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "missing FROM-clause entry for table \"C\""));
    TRows rows;
    EXPECT_TRUE(Runs(entry, "SELECT \"CLIENTS\".\"ID\" FROM \"CLIENTS\"", rows));
}

namespace {

// The MySQL dialect without identifier quotes: names print bare, LIMIT as MySQL writes it.
std::string MySQLPrint(const std::string& text)
{
    vd::TVdMySelectParser parser;
    parser.Scanner().SetQuoteIdentifiers(false);
    parser.SetExpression(text);
    return parser.GetExpression();
}

} // namespace

// PostgreSQL has LIMIT n but not MySQL's LIMIT offset, count: the MySQL dialect prints the
// clause its own servers read.
TEST(PostgreSQLRefuses, LimitWithOffsetAndCount)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("MySQLLimitOffset");
    const std::string printed = MySQLPrint(entry.Text);
    EXPECT_NE(printed.find("\r\nLIMIT 1, 2"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "LIMIT #,# syntax is not supported"));
}

// The same dialect's LIMIT n runs: measured, for the README's table of settings.
TEST(PostgreSQLRuns, LimitOfTheMySQLDialectWithoutOffset)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("MySQLLimit");
    const std::string printed = MySQLPrint(entry.Text);
    EXPECT_NE(printed.find("\r\nLIMIT 2"), std::string::npos) << printed;
    TRows rows;
    ASSERT_TRUE(Runs(entry, printed, rows));
    TRows reference;
    ASSERT_TRUE(Runs(entry, entry.Text, reference));
    EXPECT_EQ(rows, reference);
    EXPECT_EQ(rows.size(), 2u);
}

// T.* written in GROUP BY groups by the whole row, and PostgreSQL runs it. With names quoted
// (the default setting; lower-case names match what the server folded the schema to) the star
// stays bare: "s"."*" would name a column called *, which PostgreSQL refused.
TEST(PostgreSQLRuns, StarWrittenInGroupByWithNamesQuoted)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    TFamilyStatement entry;
    entry.Text = "SELECT s.*, COUNT(*) FROM suppliers s GROUP BY s.id, s.name, s.phone, s.opens, "
                 "s.rating, s.status, s.active, s.*";
    vd::TVdSelectParser parser;
    parser.SetExpression(entry.Text);
    const std::string printed = parser.GetExpression();
    EXPECT_NE(printed.find("\"s\".\"active\",\r\n  \"s\".*\r\n"), std::string::npos) << printed;
    TRows reference, rows;
    ASSERT_TRUE(Runs(entry, entry.Text, reference));
    ASSERT_TRUE(Runs(entry, printed, rows));
    EXPECT_EQ(rows, reference);
    EXPECT_FALSE(rows.empty());
}

// GROUP BY is rebuilt from the plain columns of the select list; an expression beside an
// aggregate is not grouped, which PostgreSQL refuses. Group by the expression's columns
// (tick them as fields) instead.
TEST(PostgreSQLRefuses, GroupByListsPlainColumnsOnly)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltExpressionBesideAggregate");
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::PostgreSQL, entry, printed));
    EXPECT_NE(printed.find("GROUP BY\r\n  L.ORDER_ID\r\n"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "must appear in the GROUP BY clause"));
}

} // namespace vdengine
