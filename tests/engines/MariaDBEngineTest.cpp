// The family on a private MariaDB server, printed by the MySQL parser (back-quoted names,
// the server's default sql_mode); then the prints MariaDB refuses or takes otherwise, each
// with the reason it stays.

#include "tests/engines/EngineMeaning.h"
#include "tests/engines/EngineSuite.h"

#include "core/VdError.h"
#include "dialects/VdMyParser.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::MariaDB;

VD_ENGINE_FAMILY(MariaDB);

namespace {

std::string PrintedOrFail(const TFamilyStatement& entry)
{
    std::string printed;
    EXPECT_TRUE(PrintFor(TEngine::MariaDB, entry, printed));
    return printed;
}

} // namespace

// MariaDB has no FULL OUTER JOIN; the join kind is the model's, printed as every other
// dialect prints it (a host for this engine leaves that kind out of its link menu).
TEST(MariaDBRefuses, FullOuterJoin)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("FullOuterJoin");
    const std::string printed = PrintedOrFail(entry);
    EXPECT_NE(printed.find("FULL OUTER JOIN `SUPPLIERS` `S`"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "You have an error in your SQL syntax"));
}

// MariaDB has no procedure that FROM can name; the diagram offers procedures where the
// host's engine has them.
TEST(MariaDBRefuses, StoredProcedureInFrom)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltStoredProcedure");
    const std::string printed = PrintedOrFail(entry);
    EXPECT_NE(printed.find("`ORDERS_OF`(:CUST) `G`"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "You have an error in your SQL syntax"));
}

// TRUE is no keyword of the MySQL dialect's list: in a condition it is a name and prints
// back-quoted, a column MariaDB does not have. Compare booleans with 1 on this engine.
TEST(MariaDBRefuses, TrueIsAName)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("WhereBoolean");
    const std::string printed = PrintedOrFail(entry);
    EXPECT_NE(printed.find("(`C`.`ENABLED` = `TRUE`)"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "Unknown column 'TRUE'"));
}

// GROUP BY is rebuilt from the plain columns of the select list; an expression beside an
// aggregate is not grouped. MariaDB's default mode runs it and returns one row per
// ORDER_ID (4) instead of one per ORDER_ID and amount (6).
TEST(MariaDBDeliberate, GroupByListsPlainColumnsOnly)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltExpressionBesideAggregate");
    const std::string printed = PrintedOrFail(entry);
    EXPECT_NE(printed.find("GROUP BY\r\n  `L`.`ORDER_ID`\r\n"), std::string::npos) << printed;
    EXPECT_TRUE(RowCounts(entry, printed, 4, 6));
}

// A word of the dialect's keyword list is no name unless quoted: MariaDB takes S.STATUS,
// the parser refuses it at the word; S.`STATUS` reads, prints and runs.
TEST(MariaDBDeliberate, KeywordOfTheListNamesAColumnOnlyQuoted)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    TFamilyStatement entry;
    entry.Text = "SELECT S.NAME FROM SUPPLIERS S WHERE (S.STATUS = 'active')";
    vd::TVdMySelectParser parser;
    try {
        parser.SetExpression(entry.Text);
        ADD_FAILURE() << "the parser took the keyword STATUS as a name";
    } catch (const vd::EVdParserError& e) {
        EXPECT_STREQ(e.what(), "Invalid token 'STATUS' at position 41 of line 1.");
    }
    TRows reference;
    ASSERT_TRUE(Runs(entry, entry.Text, reference));
    EXPECT_EQ(reference.size(), 2u);
    entry.Text = "SELECT S.NAME FROM SUPPLIERS S WHERE (S.`STATUS` = 'active')";
    const std::string printed = PrintedOrFail(entry);
    EXPECT_NE(printed.find("(`S`.`STATUS` = 'active')"), std::string::npos) << printed;
    TRows rows;
    ASSERT_TRUE(Runs(entry, printed, rows));
    EXPECT_EQ(rows, reference);
}

// The MySQL dialect holds a string in MySQL's own escapes, as the text had it: a value
// entered through the API is written between apostrophes as it is, so a backslash in it
// begins an escape (C:\temp is C, colon, tab, "emp"). Enter C:\\temp for C:\temp.
TEST(MariaDBDeliberate, ApiStringsAreInTheDialectsEscapes)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltBackslashString");
    const std::string printed = PrintedOrFail(entry);
    EXPECT_NE(printed.find(R"((`C`.`NOTES` = 'C:\temp'))"), std::string::npos) << printed;
    TRows rows;
    ASSERT_TRUE(Runs(entry, printed, rows));
    EXPECT_TRUE(rows.empty()) << rows.size() << " rows";

    vd::TVdMySelectParser parser;
    entry.Build(parser);
    vd::TVdFunctionDef& value = *parser.WhereItems().Items(0)->RightSide().Items(0);
    value.SetName(R"(C:\\temp)");
    const std::string escaped = parser.GetExpression();
    EXPECT_NE(escaped.find(R"((`C`.`NOTES` = 'C:\\temp'))"), std::string::npos) << escaped;
    ASSERT_TRUE(Runs(entry, escaped, rows));
    EXPECT_EQ(rows, TRows{"Carla"});
}

// The generic dialect's double-quoted names are strings to MariaDB's default mode; with
// ANSI_QUOTES in the session's sql_mode the generic print runs too.
TEST(MariaDBDeliberate, GenericDialectNeedsAnsiQuotes)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("InnerJoin");
    vd::TVdSelectParser parser;
    parser.SetExpression(entry.Text);
    const std::string printed = parser.GetExpression();
    EXPECT_TRUE(Refuses(entry, printed, "You have an error in your SQL syntax"));
    TEngineDatabase& db = SuiteDatabase();
    ASSERT_TRUE(db.Exec("SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',ANSI_QUOTES')"))
        << db.Error();
    TRows rows, reference;
    const bool ran = Runs(entry, printed, rows) && Runs(entry, entry.Text, reference);
    ASSERT_TRUE(db.Exec("SET SESSION sql_mode = REPLACE(@@SESSION.sql_mode, 'ANSI_QUOTES', '')"))
        << db.Error();
    ASSERT_TRUE(ran) << printed;
    EXPECT_EQ(rows, reference);
    EXPECT_EQ(rows.size(), 4u);
}

// Generated statements written as people write them, in the MySQL parser's dialect: what it
// accepts prints SQL that returns the same rows on MariaDB; what it cannot hold it refuses.
TEST(MariaDBMeaning, MySQLDialectOnMariaDB)
{
    EXPECT_TRUE(SuiteKeepsMeaning(vdmeaning::TDialect::MySQL, 400));
}

} // namespace vdengine
