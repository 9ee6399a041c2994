// The InterBase/Firebird parser: the ROWS clause at the end, FIRST and SKIP after SELECT,
// quoting by dialect in the printed statement, and round trips per server and dialect.
#include "dialects/VdIBParser.h"

#include "tests/core/ModelCompare.h"
#include "tests/core/ParseErrorReport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace vd;

namespace {

using vdtest::ParseError;
using vdtest::TErrorReport;

std::string InvalidToken(const std::string& token, int position, int line = 1)
{
    return "Invalid token '" + token + "' at position " + std::to_string(position) + " of line " +
           std::to_string(line) + ".";
}

TVdIBScanner& IBScanner(TVdIBSelectParser& parser)
{
    return dynamic_cast<TVdIBScanner&>(parser.Scanner());
}

std::unique_ptr<TVdIBSelectParser> MakeParser(TVdIBSQLServer server,
                                              TVdSQLDialect dialect = qibDialect3)
{
    auto parser = std::make_unique<TVdIBSelectParser>();
    parser->SetSQLServer(server);
    IBScanner(*parser).SetDialect(dialect);
    return parser;
}

std::unique_ptr<TVdIBSelectParser> Parse(const std::string& text,
                                         TVdIBSQLServer server = qssInterBase,
                                         TVdSQLDialect dialect = qibDialect3)
{
    auto parser = MakeParser(server, dialect);
    parser->SetExpression(text);
    return parser;
}

std::string Print(const std::string& text, TVdIBSQLServer server = qssInterBase,
                  TVdSQLDialect dialect = qibDialect3, TVdFormatMode keywords = qfmAsIs)
{
    auto parser = MakeParser(server, dialect);
    parser->ScriptFormat().KeywordsFormat = keywords;
    parser->SetExpression(text);
    return parser->GetExpression();
}

TErrorReport Error(const std::string& text, TVdIBSQLServer server = qssInterBase,
                   TVdSQLDialect dialect = qibDialect3)
{
    auto parser = MakeParser(server, dialect);
    return ParseError(*parser, text);
}

void ExpectRows(const TVdIBOptions& rows, int from, int to, int by, bool percent, bool ties)
{
    EXPECT_EQ(rows.RowsFrom, from);
    EXPECT_EQ(rows.RowsTo, to);
    EXPECT_EQ(rows.RowsBy, by);
    EXPECT_EQ(rows.Percent, percent);
    EXPECT_EQ(rows.Ties, ties);
}

void ExpectNoRows(const TVdIBOptions& rows) { ExpectRows(rows, 0, 0, 0, false, false); }

const TVdFieldDef& Field(const TVdSelectParser& parser, int table, int field)
{
    return *parser.TableDefs().Items(table)->FieldDefs().Items(field);
}

} // namespace

// ---- construction, Clear, option setters ----

TEST(IBParser, DefaultsToInterBaseAndDialect3)
{
    TVdIBSelectParser parser;
    EXPECT_EQ(parser.SQLServer(), qssInterBase);
    auto* scanner = dynamic_cast<TVdIBScanner*>(&parser.Scanner());
    ASSERT_NE(scanner, nullptr);
    EXPECT_EQ(scanner->Dialect(), qibDialect3);
    ExpectNoRows(parser.IBOptions());
    EXPECT_EQ(parser.FBOptions().First, 0);
    EXPECT_EQ(parser.FBOptions().Skip, 0);
    EXPECT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.GetExpression(), "");
}

TEST(IBParser, CreateScannerMakesAnIBScanner)
{
    TVdIBSelectParser parser;
    std::unique_ptr<TVdSQLScanner> scanner = parser.CreateScanner();
    ASSERT_NE(dynamic_cast<TVdIBScanner*>(scanner.get()), nullptr);
    EXPECT_TRUE(scanner->IsKeyword("ROWS"));
}

TEST(IBParser, ClearResetsBothOptionObjectsAndKeepsServerAndDialect)
{
    TVdIBSelectParser parser;
    parser.SetSQLServer(qssFireBird);
    IBScanner(parser).SetDialect(qibDialect1);
    parser.IBOptions().RowsFrom = 10;
    parser.IBOptions().RowsTo = 20;
    parser.IBOptions().RowsBy = 2;
    parser.IBOptions().Percent = true;
    parser.IBOptions().Ties = true;
    parser.FBOptions().First = 5;
    parser.FBOptions().Skip = 10;
    parser.Clear();
    ExpectNoRows(parser.IBOptions());
    EXPECT_EQ(parser.FBOptions().First, 0);
    EXPECT_EQ(parser.FBOptions().Skip, 0);
    EXPECT_EQ(parser.SQLServer(), qssFireBird);
    EXPECT_EQ(IBScanner(parser).Dialect(), qibDialect1);
}

TEST(IBParser, EveryParseStartsWithEmptyOptions)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
    ExpectRows(parser.IBOptions(), 10, 20, 2, true, true);
    parser.SetExpression("SELECT A FROM T ROWS 7");
    ExpectRows(parser.IBOptions(), 7, 0, 0, false, false);
    parser.SetExpression("SELECT A FROM T");
    ExpectNoRows(parser.IBOptions());
    parser.SetSQLServer(qssFireBird);
    parser.SetExpression("SELECT FIRST 5 SKIP 10 A FROM T");
    EXPECT_EQ(parser.FBOptions().First, 5);
    parser.SetExpression("SELECT SKIP 3 A FROM T");
    EXPECT_EQ(parser.FBOptions().First, 0);
    EXPECT_EQ(parser.FBOptions().Skip, 3);
}

TEST(IBParser, EmptyTextClearsTheOptions)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T ROWS 10");
    parser.FBOptions().First = 4;
    parser.SetExpression("");
    ExpectNoRows(parser.IBOptions());
    EXPECT_EQ(parser.FBOptions().First, 0);
    EXPECT_EQ(parser.SQLServer(), qssInterBase);
}

TEST(IBParser, SetIBOptionsCopies)
{
    TVdIBSelectParser parser;
    TVdIBOptions rows;
    rows.RowsFrom = 10;
    rows.RowsTo = 20;
    rows.RowsBy = 2;
    rows.Percent = true;
    rows.Ties = true;
    parser.SetIBOptions(rows);
    EXPECT_NE(&parser.IBOptions(), &rows);
    ExpectRows(parser.IBOptions(), 10, 20, 2, true, true);
    rows.RowsFrom = 99;
    EXPECT_EQ(parser.IBOptions().RowsFrom, 10);
}

TEST(IBParser, SetFBOptionsCopies)
{
    TVdIBSelectParser parser;
    TVdFBOptions options;
    options.First = 5;
    options.Skip = 10;
    parser.SetFBOptions(options);
    EXPECT_NE(&parser.FBOptions(), &options);
    EXPECT_EQ(parser.FBOptions().First, 5);
    EXPECT_EQ(parser.FBOptions().Skip, 10);
    options.First = 99;
    EXPECT_EQ(parser.FBOptions().First, 5);
}

TEST(IBParser, SettingTheOwnedOptionObjectsIsHarmless)
{
    TVdIBSelectParser parser;
    parser.IBOptions().RowsFrom = 10;
    parser.IBOptions().Ties = true;
    parser.FBOptions().First = 5;
    parser.FBOptions().Skip = 10;
    parser.SetIBOptions(parser.IBOptions());
    parser.SetFBOptions(parser.FBOptions());
    ExpectRows(parser.IBOptions(), 10, 0, 0, false, true);
    EXPECT_EQ(parser.FBOptions().First, 5);
    EXPECT_EQ(parser.FBOptions().Skip, 10);
}

TEST(IBParser, SetOptionsAreWhatThePrintShows)
{
    auto parser = Parse("SELECT A FROM T");
    TVdIBOptions rows;
    rows.RowsFrom = 3;
    rows.RowsTo = 4;
    parser->SetIBOptions(rows);
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nROWS 3 TO 4");
}

// ---- ROWS (InterBase) ----

TEST(IBParser, RowsAlone)
{
    auto parser = Parse("SELECT A FROM T ROWS 10");
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->State(), ssEnd);
    ExpectRows(parser->IBOptions(), 10, 0, 0, false, false);
}

TEST(IBParser, RowsTo)
{
    auto parser = Parse("SELECT A FROM T ROWS 10 TO 20");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 20, 0, false, false);
}

TEST(IBParser, RowsBy)
{
    auto parser = Parse("SELECT A FROM T ROWS 10 BY 2");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 0, 2, false, false);
}

TEST(IBParser, RowsPercent)
{
    auto parser = Parse("SELECT A FROM T ROWS 10 PERCENT");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 0, 0, true, false);
}

TEST(IBParser, RowsWithTies)
{
    auto parser = Parse("SELECT A FROM T ROWS 10 WITH TIES");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 0, 0, false, true);
}

TEST(IBParser, RowsAllParts)
{
    auto parser = Parse("SELECT A FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->State(), ssEnd);
    ExpectRows(parser->IBOptions(), 10, 20, 2, true, true);
}

TEST(IBParser, RowsPartsSkippingSome)
{
    ExpectRows(Parse("SELECT A FROM T ROWS 1 TO 5 PERCENT")->IBOptions(), 1, 5, 0, true, false);
    ExpectRows(Parse("SELECT A FROM T ROWS 1 BY 3 WITH TIES")->IBOptions(), 1, 0, 3, false, true);
    ExpectRows(Parse("SELECT A FROM T ROWS 1 PERCENT WITH TIES")->IBOptions(), 1, 0, 0, true, true);
}

TEST(IBParser, RowsWordsIgnoreCase)
{
    auto parser = Parse("select a from t rows 10 to 20 by 2 percent with ties");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 20, 2, true, true);
}

TEST(IBParser, RowsAcrossLines)
{
    auto parser = Parse("SELECT A\r\nFROM T\r\nROWS 10\r\nTO 20");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 20, 0, false, false);
}

TEST(IBParser, RowsAfterFrom)
{
    auto parser = Parse("SELECT * FROM T ROWS 10");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "T");
    ExpectRows(parser->IBOptions(), 10, 0, 0, false, false);
}

TEST(IBParser, RowsAfterAliasedTables)
{
    auto parser = Parse("SELECT C.NAME FROM CUSTOMER C, ORDERS O ROWS 5");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 2);
    EXPECT_EQ(parser->TableDefs().Items(1)->Alias(), "O");
    ExpectRows(parser->IBOptions(), 5, 0, 0, false, false);
}

TEST(IBParser, RowsAfterWhere)
{
    auto parser = Parse("SELECT A FROM T WHERE A = 1 ROWS 10 TO 20");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->WhereItems().Count(), 1);
    EXPECT_EQ(parser->WhereItems().Items(0)->LeftSide().Name(), "A");
    ExpectRows(parser->IBOptions(), 10, 20, 0, false, false);
}

TEST(IBParser, RowsAfterGroupBy)
{
    auto parser = Parse("SELECT A, COUNT(*) FROM T GROUP BY A ROWS 5 BY 2");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->GroupByItems().Count(), 1);
    EXPECT_EQ(parser->GroupByItems()[0], "A");
    ExpectRows(parser->IBOptions(), 5, 0, 2, false, false);
}

TEST(IBParser, RowsAfterHaving)
{
    auto parser = Parse("SELECT A, COUNT(*) FROM T GROUP BY A HAVING COUNT(*) > 1 ROWS 3");
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->HavingItems().Count(), 1);
    ExpectRows(parser->IBOptions(), 3, 0, 0, false, false);
}

TEST(IBParser, RowsAfterOrderByDesc)
{
    auto parser = Parse("SELECT A FROM T ORDER BY A DESC ROWS 1 TO 10 WITH TIES");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->OrderByItems().Count(), 1);
    EXPECT_EQ(parser->OrderByItems()[0], "A");
    EXPECT_EQ(parser->OrderByItems().Orders(0), okDesc);
    ExpectRows(parser->IBOptions(), 1, 10, 0, false, true);
}

TEST(IBParser, LargestRowsNumberIsTaken)
{
    auto parser = Parse("SELECT A FROM T ROWS 2147483647 TO 2147483647");
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 2147483647, 2147483647, 0, false, false);
}

TEST(IBParser, ToBeforeByOnly)
{
    const TErrorReport report = Error("SELECT * FROM T ROWS 10 BY 2 TO 20");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "TO");
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, 30);
    EXPECT_EQ(report.Message, "Invalid token 'TO' at position 30 of line 1.");
}

TEST(IBParser, WithMustBeFollowedByTies)
{
    const TErrorReport report = Error("SELECT * FROM T ROWS 10 WITH X");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "X");
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, 30);
    EXPECT_EQ(report.Message, InvalidToken("X", 30));
}

TEST(IBParser, RowsNeedsANumber)
{
    const TErrorReport report = Error("SELECT * FROM T ROWS X");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "X");
    EXPECT_EQ(report.LinePos, 22);
    EXPECT_EQ(report.Message, InvalidToken("X", 22));
}

TEST(IBParser, RowsAtTheEnd)
{
    const TErrorReport report = Error("SELECT * FROM T ROWS");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 2);
    EXPECT_EQ(report.Token, "");
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, 21);
    EXPECT_EQ(report.Message, "Unexpected end of statement.");
}

TEST(IBParser, RowsPartsCutShort)
{
    for (const char* text : {"SELECT * FROM T ROWS 10 TO", "SELECT * FROM T ROWS 10 BY",
                             "SELECT * FROM T ROWS 10 WITH"}) {
        const TErrorReport report = Error(text);
        ASSERT_TRUE(report.Raised) << text;
        EXPECT_EQ(report.Code, 2) << text;
        EXPECT_EQ(report.Message, "Unexpected end of statement.") << text;
    }
}

TEST(IBParser, JunkAfterRows)
{
    const TErrorReport report = Error("SELECT * FROM T ROWS 10 junk");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "junk");
    EXPECT_EQ(report.LinePos, 25);
    EXPECT_EQ(report.Message, InvalidToken("junk", 25));
}

TEST(IBParser, AnythingAfterACompleteRowsClauseIsRefused)
{
    struct TRow {
        const char* Text;
        const char* Token;
        int Pos;
    };
    const TRow rows[] = {
        {"SELECT * FROM T ROWS 10 WITH TIES TO 5", "TO", 35},
        {"SELECT * FROM T ROWS 10 PERCENT PERCENT", "PERCENT", 33},
        {"SELECT * FROM T ROWS 10 PERCENT BY 2", "BY", 33},
        {"SELECT * FROM T ROWS 10 TO 20 TO 30", "TO", 31},
        {"SELECT * FROM T ROWS 10 20", "20", 25},
        {"SELECT * FROM T ROWS 10 WHERE A = 1", "WHERE", 25},
        {"SELECT * FROM T ROWS 10 ROWS 20", "ROWS", 25},
        {"SELECT * FROM T ROWS 10,", ",", 24},
    };
    for (const TRow& row : rows) {
        const TErrorReport report = Error(row.Text);
        ASSERT_TRUE(report.Raised) << row.Text;
        EXPECT_EQ(report.Code, 1) << row.Text;
        EXPECT_EQ(report.Token, row.Token) << row.Text;
        EXPECT_EQ(report.Message, InvalidToken(row.Token, row.Pos)) << row.Text;
    }
}

TEST(IBParser, RowsNumbersMustBePlainIntegers)
{
    struct TRow {
        const char* Text;
        const char* Token;
    };
    const TRow rows[] = {
        {"SELECT * FROM T ROWS -1", "-"},      {"SELECT * FROM T ROWS 10 TO X", "X"},
        {"SELECT * FROM T ROWS 10 BY X", "X"}, {"SELECT * FROM T ROWS '10'", "10"},
        {"SELECT * FROM T ROWS \"10\"", "10"}, {"SELECT * FROM T ROWS A + 1", "A"},
    };
    for (const TRow& row : rows) {
        const TErrorReport report = Error(row.Text);
        ASSERT_TRUE(report.Raised) << row.Text;
        EXPECT_EQ(report.Code, 1) << row.Text;
        EXPECT_EQ(report.Token, row.Token) << row.Text;
    }
}

TEST(IBParser, ErrorOnALaterLine)
{
    const TErrorReport report = Error("SELECT A\r\nFROM T\r\nROWS 10 BY 2 TO 20");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "TO");
    EXPECT_EQ(report.LineNo, 3);
    EXPECT_EQ(report.LinePos, 14);
    EXPECT_EQ(report.Message, InvalidToken("TO", 14, 3));
}

TEST(IBParser, ErrorThroughOnErrorLeavesTheParserInvalid)
{
    auto parser = MakeParser(qssInterBase);
    std::string message;
    std::string token;
    int line = 0;
    int pos = 0;
    int calls = 0;
    parser->OnError = [&](TVdSelectParser*, const std::string& m, const std::string& t, int l,
                          int p) {
        message = m;
        token = t;
        line = l;
        pos = p;
        ++calls;
    };
    EXPECT_NO_THROW(parser->SetExpression("SELECT * FROM T ROWS 10 WITH X"));
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(parser->IsValid());
    EXPECT_EQ(parser->State(), ssError);
    EXPECT_EQ(message, InvalidToken("X", 30));
    EXPECT_EQ(token, "X");
    EXPECT_EQ(line, 1);
    EXPECT_EQ(pos, 30);
}

TEST(IBParser, RowsNumberTooLargeFor32Bits)
{
    const TErrorReport report = Error("SELECT * FROM T ROWS 2147483648");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "2147483648");
    EXPECT_EQ(report.LinePos, 22);
    EXPECT_EQ(report.Message, InvalidToken("2147483648", 22));
    const TErrorReport to = Error("SELECT * FROM T ROWS 1 TO 99999999999999999999");
    ASSERT_TRUE(to.Raised);
    EXPECT_EQ(to.Token, "99999999999999999999");
    EXPECT_EQ(to.LinePos, 27);
}

TEST(IBParser, RowsZeroIsReadAndPrintsNothing)
{
    auto parser = Parse("SELECT A FROM T ROWS 0");
    EXPECT_TRUE(parser->IsValid());
    ExpectNoRows(parser->IBOptions());
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
}

// ---- FIRST and SKIP (Firebird) ----

TEST(IBParser, FirebirdFirstOnly)
{
    auto parser = Parse("SELECT FIRST 5 A FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 5);
    EXPECT_EQ(parser->FBOptions().Skip, 0);
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "A");
}

TEST(IBParser, FirebirdSkipOnly)
{
    auto parser = Parse("SELECT SKIP 10 A FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 0);
    EXPECT_EQ(parser->FBOptions().Skip, 10);
}

TEST(IBParser, FirebirdFirstAndSkip)
{
    auto parser = Parse("SELECT FIRST 5 SKIP 10 A, B FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 5);
    EXPECT_EQ(parser->FBOptions().Skip, 10);
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 2);
    ExpectNoRows(parser->IBOptions());
}

TEST(IBParser, FirebirdWordsIgnoreCase)
{
    auto parser = Parse("select first 5 skip 10 a from t", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 5);
    EXPECT_EQ(parser->FBOptions().Skip, 10);
}

TEST(IBParser, FirebirdDistinctAfterFirstAndSkip)
{
    auto parser = Parse("SELECT FIRST 5 SKIP 10 DISTINCT A FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_TRUE(parser->Distinct());
    EXPECT_EQ(parser->FBOptions().First, 5);
    EXPECT_EQ(parser->FBOptions().Skip, 10);
    auto first = Parse("SELECT FIRST 5 DISTINCT A FROM T", qssFireBird);
    EXPECT_TRUE(first->IsValid());
    EXPECT_TRUE(first->Distinct());
    EXPECT_EQ(first->FBOptions().First, 5);
}

TEST(IBParser, FirebirdDistinctBeforeFirstIsRefused)
{
    const TErrorReport report = Error("SELECT DISTINCT FIRST 5 A FROM T", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "FIRST");
    EXPECT_EQ(report.LinePos, 17);
}

TEST(IBParser, FirebirdFirstWithStar)
{
    auto parser = Parse("SELECT FIRST 1 * FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 1);
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 0);
}

TEST(IBParser, FirebirdFirstAfterSkipIsRefused)
{
    const TErrorReport report = Error("SELECT SKIP 10 FIRST 5 A FROM T", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "FIRST");
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, 16);
    EXPECT_EQ(report.Message, InvalidToken("FIRST", 16));
}

TEST(IBParser, FirebirdFirstWithoutNumberIsRefused)
{
    const TErrorReport report = Error("SELECT FIRST A FROM T", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "A");
    EXPECT_EQ(report.LinePos, 14);
    EXPECT_EQ(report.Message, InvalidToken("A", 14));
    const TErrorReport skip = Error("SELECT SKIP FROM T", qssFireBird);
    ASSERT_TRUE(skip.Raised);
    EXPECT_EQ(skip.Token, "FROM");
    EXPECT_EQ(skip.LinePos, 13);
}

TEST(IBParser, FirebirdFirstAtTheEnd)
{
    const TErrorReport report = Error("SELECT FIRST", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 2);
    EXPECT_EQ(report.Message, "Unexpected end of statement.");
    const TErrorReport list = Error("SELECT FIRST 5", qssFireBird);
    ASSERT_TRUE(list.Raised);
    EXPECT_EQ(list.Code, 2);
    EXPECT_EQ(list.Message, "Unexpected end of statement.");
}

TEST(IBParser, FirebirdNumberTooLargeFor32Bits)
{
    const TErrorReport report = Error("SELECT FIRST 2147483648 A FROM T", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "2147483648");
    EXPECT_EQ(report.LinePos, 14);
    EXPECT_EQ(report.Message, InvalidToken("2147483648", 14));
    const TErrorReport skip = Error("SELECT SKIP 4294967296 A FROM T", qssFireBird);
    ASSERT_TRUE(skip.Raised);
    EXPECT_EQ(skip.Token, "4294967296");
    auto largest = Parse("SELECT FIRST 2147483647 A FROM T", qssFireBird);
    EXPECT_TRUE(largest->IsValid());
    EXPECT_EQ(largest->FBOptions().First, 2147483647);
}

TEST(IBParser, FirebirdZeroValuesAreReadAndPrintNothing)
{
    auto parser = Parse("SELECT FIRST 0 SKIP 0 A FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 0);
    EXPECT_EQ(parser->FBOptions().Skip, 0);
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST(IBParser, FirebirdErrorOnALaterLine)
{
    const TErrorReport report = Error("SELECT\r\nSKIP 10\r\nFIRST 5 A FROM T", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "FIRST");
    EXPECT_EQ(report.LineNo, 3);
    EXPECT_EQ(report.LinePos, 1);
    EXPECT_EQ(report.Message, InvalidToken("FIRST", 1, 3));
}

TEST(IBParser, FirstUnderInterBaseIsRefused)
{
    const TErrorReport report = Error("SELECT FIRST 5 A FROM T", qssInterBase);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "FIRST");
    EXPECT_EQ(report.LinePos, 8);
    EXPECT_EQ(report.Message, InvalidToken("FIRST", 8));
    const TErrorReport skip = Error("SELECT SKIP 5 A FROM T", qssInterBase);
    ASSERT_TRUE(skip.Raised);
    EXPECT_EQ(skip.Token, "SKIP");
}

TEST(IBParser, RowsUnderFirebirdIsRefused)
{
    auto parser = MakeParser(qssFireBird);
    const TErrorReport report = ParseError(*parser, "SELECT A FROM T ROWS 10");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "ROWS");
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, 17);
    EXPECT_EQ(report.Message, InvalidToken("ROWS", 17));
    ExpectNoRows(parser->IBOptions());
}

TEST(IBParser, RowsWithFirstUnderFirebirdIsRefused)
{
    const TErrorReport report = Error("SELECT FIRST 5 A FROM T ORDER BY A ROWS 10", qssFireBird);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "ROWS");
    EXPECT_EQ(report.LinePos, 36);
}

// ---- edge cases ----

TEST(IBEdgeCases, InterBaseRowsWithEveryPartFillsTheOptions)
{
    auto parser = Parse("SELECT A FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES", qssInterBase);
    EXPECT_TRUE(parser->IsValid());
    ExpectRows(parser->IBOptions(), 10, 20, 2, true, true);
    EXPECT_EQ(parser->IBOptions().GetScript(), "ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
}

TEST(IBEdgeCases, RowsFollowedByANameFails)
{
    const TErrorReport report = Error("SELECT A FROM T ROWS NAME");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "NAME");
}

TEST(IBEdgeCases, RowsWithFollowedByAnythingButTiesFails)
{
    for (const char* text : {"SELECT A FROM T ROWS 10 WITH X", "SELECT A FROM T ROWS 10 WITH 5",
                             "SELECT A FROM T ROWS 10 WITH PERCENT"}) {
        const TErrorReport report = Error(text);
        ASSERT_TRUE(report.Raised) << text;
        EXPECT_EQ(report.Code, 1) << text;
    }
}

TEST(IBEdgeCases, FirebirdFirstSkipFillsTheOptionsAndPrintsAfterSelect)
{
    auto parser = Parse("SELECT FIRST 5 SKIP 10 A FROM T", qssFireBird);
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 5);
    EXPECT_EQ(parser->FBOptions().Skip, 10);
    const std::string script = parser->GetExpression();
    EXPECT_EQ(script.substr(0, 23), "SELECT FIRST 5 SKIP 10 ");
    EXPECT_EQ(script, "SELECT FIRST 5 SKIP 10 \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST(IBEdgeCases, InterBaseTakesNoFirstClause)
{
    auto parser = MakeParser(qssInterBase);
    const TErrorReport report = ParseError(*parser, "SELECT FIRST 5 SKIP 10 A FROM T");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "FIRST");
    EXPECT_EQ(parser->FBOptions().First, 0);
    EXPECT_EQ(parser->FBOptions().Skip, 0);
}

TEST(IBEdgeCases, FirebirdRowsIsLeftToTheBaseAppendix)
{
    auto parser = MakeParser(qssFireBird);
    const TErrorReport report = ParseError(*parser, "SELECT A FROM T ROWS 10 TO 20");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "ROWS");
    EXPECT_EQ(report.Message, InvalidToken("ROWS", 17));
    ExpectNoRows(parser->IBOptions());
}

TEST(IBEdgeCases, DoubleQuotedTextInAStatementByDialect)
{
    // Dialect 3: an identifier, compared as a name.
    auto three = Parse("SELECT A FROM T WHERE B = \"x\"", qssInterBase, qibDialect3);
    ASSERT_EQ(three->WhereItems().Count(), 1);
    ASSERT_EQ(three->WhereItems().Items(0)->RightSide().Count(), 1);
    EXPECT_EQ(three->WhereItems().Items(0)->RightSide().Items(0)->Kind(), fkIdentifier);
    EXPECT_EQ(three->WhereItems().Items(0)->RightSide().Items(0)->Name(), "x");
    // Dialect 1: a string.
    auto one = Parse("SELECT A FROM T WHERE B = \"x\"", qssInterBase, qibDialect1);
    ASSERT_EQ(one->WhereItems().Count(), 1);
    ASSERT_EQ(one->WhereItems().Items(0)->RightSide().Count(), 1);
    EXPECT_EQ(one->WhereItems().Items(0)->RightSide().Items(0)->Kind(), fkString);
}

TEST(IBEdgeCases, Dialect1TableNameWithBlanksBecomesUnderscored)
{
    auto parser = Parse("SELECT * FROM \"my table\"", qssInterBase, qibDialect1);
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "MY_TABLE");
    EXPECT_EQ(parser->GetExpression(), "SELECT *\r\nFROM\r\n  MY_TABLE\r\n");
}

// ---- model details by dialect ----

TEST(IBParser, UnquotedNamesAreStoredUpperCase)
{
    auto parser = Parse("select c.name, amount from customer c where c.city = 'Rome'");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    const TVdTableDef& table = *parser->TableDefs().Items(0);
    EXPECT_EQ(table.Name(), "CUSTOMER");
    EXPECT_EQ(table.Alias(), "C");
    ASSERT_EQ(table.FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "NAME");
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "AMOUNT");
    ASSERT_EQ(parser->WhereItems().Count(), 1);
    EXPECT_EQ(parser->WhereItems().Items(0)->LeftSide().Name(), "C.CITY");
    ASSERT_EQ(parser->WhereItems().Items(0)->RightSide().Count(), 1);
    EXPECT_EQ(parser->WhereItems().Items(0)->RightSide().Items(0)->Name(), "Rome");
}

TEST(IBParser, QuotedLowerCaseNamesStayAsWritten)
{
    auto parser = Parse("SELECT \"a\", \"my col\" FROM \"t\"");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "t");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "a");
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "my col");
}

TEST(IBParser, QuotedKeywordNamesAreNames)
{
    auto parser = Parse("SELECT \"ORDER\", \"DATE\" FROM \"TABLE\"");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "TABLE");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "ORDER");
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "DATE");
}

TEST(IBParser, UnquotedKeywordAsNameIsRefused)
{
    const TErrorReport report = Error("SELECT DATE FROM T");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "DATE");
    EXPECT_EQ(report.LinePos, 8);
}

TEST(IBParser, ServerFunctionsInTheSelectList)
{
    auto parser = Parse("SELECT GEN_ID(G, 1), UPPER(NAME) FROM T");
    EXPECT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "GEN_ID");
    EXPECT_EQ(Field(*parser, 0, 0).Kind(), fkFunction);
    EXPECT_EQ(Field(*parser, 0, 0).ArgumentCount(), 2);
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "UPPER");
    EXPECT_EQ(Field(*parser, 0, 1).Kind(), fkFunction);
}

// ---- printed statements ----

TEST(IBGolden, FirebirdHeadWithFirstAndSkip)
{
    EXPECT_EQ(Print("SELECT FIRST 5 SKIP 10 A, B FROM T", qssFireBird),
              "SELECT FIRST 5 SKIP 10 \r\n"
              "  T.A,\r\n"
              "  T.B\r\n"
              "FROM\r\n"
              "  T\r\n");
}

TEST(IBGolden, FirebirdHeadWithDistinct)
{
    EXPECT_EQ(Print("SELECT FIRST 5 DISTINCT A FROM T", qssFireBird), "SELECT FIRST 5 DISTINCT \r\n"
                                                                      "  T.A\r\n"
                                                                      "FROM\r\n"
                                                                      "  T\r\n");
    EXPECT_EQ(Print("SELECT SKIP 2 DISTINCT A FROM T", qssFireBird), "SELECT SKIP 2 DISTINCT \r\n"
                                                                     "  T.A\r\n"
                                                                     "FROM\r\n"
                                                                     "  T\r\n");
}

TEST(IBGolden, FirebirdHeadWithStar)
{
    EXPECT_EQ(Print("SELECT FIRST 5 SKIP 10 * FROM T", qssFireBird), "SELECT FIRST 5 SKIP 10 *\r\n"
                                                                     "FROM\r\n"
                                                                     "  T\r\n");
    EXPECT_EQ(Print("SELECT * FROM T", qssFireBird), "SELECT *\r\nFROM\r\n  T\r\n");
}

TEST(IBGolden, FirebirdWithoutOptionsPrintsThePlainHead)
{
    EXPECT_EQ(Print("SELECT A FROM T", qssFireBird), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST(IBGolden, InterBaseTailAfterFrom)
{
    EXPECT_EQ(Print("SELECT A FROM T ROWS 10"), "SELECT \r\n"
                                                "  T.A\r\n"
                                                "FROM\r\n"
                                                "  T\r\n"
                                                "ROWS 10");
    EXPECT_EQ(Print("SELECT * FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  T\r\n"
              "ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
}

TEST(IBGolden, InterBaseTailAfterWhere)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = 1 ROWS 10 TO 20"), "SELECT \r\n"
                                                                  "  T.A\r\n"
                                                                  "FROM\r\n"
                                                                  "  T\r\n"
                                                                  "WHERE\r\n"
                                                                  "  (A = 1)\r\n"
                                                                  "ROWS 10 TO 20");
}

TEST(IBGolden, InterBaseTailAfterOrderBy)
{
    EXPECT_EQ(Print("SELECT A FROM T ORDER BY A DESC ROWS 1 TO 10"), "SELECT \r\n"
                                                                     "  T.A\r\n"
                                                                     "FROM\r\n"
                                                                     "  T\r\n"
                                                                     "ORDER BY\r\n"
                                                                     "  A DESC\r\n"
                                                                     "ROWS 1 TO 10");
}

TEST(IBGolden, InterBaseTailAfterGroupByAndHaving)
{
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY A HAVING COUNT(*) > 1 ROWS 3"),
              "SELECT \r\n"
              "  T.A,\r\n"
              "  COUNT(*) AS FIELD_1\r\n"
              "FROM\r\n"
              "  T\r\n"
              "GROUP BY\r\n"
              "  T.A\r\n"
              "HAVING\r\n"
              "  (COUNT(*) > 1)\r\n"
              "ROWS 3");
}

TEST(IBGolden, InterBaseWithoutRowsHasNoTail)
{
    EXPECT_EQ(Print("SELECT A FROM T"), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST(IBGolden, SelectListWithoutFromPrintsNoTail)
{
    auto parser = Parse("SELECT A");
    parser->IBOptions().RowsFrom = 10;
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  A");
}

TEST(IBGolden, Dialect3AndDialect1QuoteTheSameStatementDifferently)
{
    const std::string text = "SELECT A FROM \"my table\" WHERE B = \"x\" ROWS 5";
    EXPECT_EQ(Print(text, qssInterBase, qibDialect3), "SELECT \r\n"
                                                      "  \"my table\".A\r\n"
                                                      "FROM\r\n"
                                                      "  \"my table\"\r\n"
                                                      "WHERE\r\n"
                                                      "  (B = \"x\")\r\n"
                                                      "ROWS 5");
    EXPECT_EQ(Print(text, qssInterBase, qibDialect1), "SELECT \r\n"
                                                      "  MY_TABLE.A\r\n"
                                                      "FROM\r\n"
                                                      "  MY_TABLE\r\n"
                                                      "WHERE\r\n"
                                                      "  (B = 'x')\r\n"
                                                      "ROWS 5");
}

TEST(IBGolden, SwitchingToDialect1AfterAParseChangesThePrint)
{
    auto parser = Parse("SELECT C.\"ORDER\", C.NAME FROM \"my table\" C ORDER BY C.NAME");
    ASSERT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  C.\"ORDER\",\r\n"
                                       "  C.NAME\r\n"
                                       "FROM\r\n"
                                       "  \"my table\" C\r\n"
                                       "ORDER BY\r\n"
                                       "  C.NAME\r\n");
    IBScanner(*parser).SetDialect(qibDialect1);
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  C.ORDER,\r\n"
                                       "  C.NAME\r\n"
                                       "FROM\r\n"
                                       "  MY_TABLE C\r\n"
                                       "ORDER BY\r\n"
                                       "  C.NAME\r\n");
}

TEST(IBGolden, KeywordNamedIdentifiersAreQuotedInDialect3)
{
    EXPECT_EQ(Print("SELECT \"ORDER\", \"DATE\", \"COUNT\" FROM \"TABLE\""),
              "SELECT \r\n"
              "  \"TABLE\".\"ORDER\",\r\n"
              "  \"TABLE\".\"DATE\",\r\n"
              "  \"TABLE\".\"COUNT\"\r\n"
              "FROM\r\n"
              "  \"TABLE\"\r\n");
}

TEST(IBGolden, KeywordNamedIdentifiersAreBareInDialect1)
{
    auto parser = Parse("SELECT \"ORDER\", \"DATE\" FROM \"TABLE\"");
    ASSERT_TRUE(parser->IsValid());
    IBScanner(*parser).SetDialect(qibDialect1);
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  TABLE.ORDER,\r\n"
                                       "  TABLE.DATE\r\n"
                                       "FROM\r\n"
                                       "  TABLE\r\n");
}

TEST(IBGolden, UnquotedLowerCaseNamesPrintUpperCase)
{
    EXPECT_EQ(Print("select a from t"), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
    EXPECT_EQ(Print("select x.a, b from t x where x.b = 1 order by x.a"), "SELECT \r\n"
                                                                          "  X.A,\r\n"
                                                                          "  X.B\r\n"
                                                                          "FROM\r\n"
                                                                          "  T X\r\n"
                                                                          "WHERE\r\n"
                                                                          "  (X.B = 1)\r\n"
                                                                          "ORDER BY\r\n"
                                                                          "  X.A\r\n");
}

TEST(IBGolden, QuotedLowerCaseNamesStayQuoted)
{
    EXPECT_EQ(Print("SELECT \"a\", B FROM \"t\""), "SELECT \r\n"
                                                   "  \"t\".\"a\",\r\n"
                                                   "  \"t\".B\r\n"
                                                   "FROM\r\n"
                                                   "  \"t\"\r\n");
}

// CUSTOMER would print without quotes, so "CUSTOMER" is kept as written, quotes included.
// "CUSTOMER" is the same name as CUSTOMER in dialect 3: the model keeps it without quotes.
TEST(IBGolden, QuotedUpperCaseNamesAreThePlainNames)
{
    auto parser = Parse("SELECT \"A\" FROM \"CUSTOMER\"");
    ASSERT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "CUSTOMER");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "A");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  CUSTOMER.A\r\n"
                                       "FROM\r\n"
                                       "  CUSTOMER\r\n");
}

TEST(IBGolden, NameWithBlanks)
{
    EXPECT_EQ(Print("SELECT \"my col\" FROM \"my table\""), "SELECT \r\n"
                                                            "  \"my table\".\"my col\"\r\n"
                                                            "FROM\r\n"
                                                            "  \"my table\"\r\n");
}

TEST(IBGolden, DollarNames)
{
    EXPECT_EQ(Print("SELECT A$B FROM T$1"), "SELECT \r\n  T$1.A$B\r\nFROM\r\n  T$1\r\n");
}

TEST(IBGolden, LowerCaseKeywordModeFirebird)
{
    EXPECT_EQ(
        Print("SELECT FIRST 5 SKIP 10 DISTINCT A FROM T", qssFireBird, qibDialect3, qfmLowerCase),
        "select FIRST 5 SKIP 10 distinct \r\n"
        "  T.A\r\n"
        "from\r\n"
        "  T\r\n");
}

TEST(IBGolden, LowerCaseKeywordModeInterBase)
{
    EXPECT_EQ(Print("SELECT DISTINCT A FROM T ORDER BY A ROWS 10 TO 20 PERCENT WITH TIES",
                    qssInterBase, qibDialect3, qfmLowerCase),
              "select distinct \r\n"
              "  T.A\r\n"
              "from\r\n"
              "  T\r\n"
              "order by\r\n"
              "  A\r\n"
              "ROWS 10 TO 20 PERCENT WITH TIES");
}

TEST(IBGolden, FirstUpperKeywordModeKeepsOptionWords)
{
    EXPECT_EQ(Print("select first 1 a from t", qssFireBird, qibDialect3, qfmFirstUpper),
              "Select FIRST 1 \r\n"
              "  T.A\r\n"
              "From\r\n"
              "  T\r\n");
}

TEST(IBGolden, SwitchingToFirebirdPrintsFirstSkipAndNotRows)
{
    auto parser = Parse("SELECT A FROM T ROWS 10", qssInterBase);
    parser->FBOptions().First = 3;
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nROWS 10");
    parser->SetSQLServer(qssFireBird);
    EXPECT_EQ(parser->GetExpression(), "SELECT FIRST 3 \r\n  T.A\r\nFROM\r\n  T\r\n");
    // The values are kept, not converted.
    ExpectRows(parser->IBOptions(), 10, 0, 0, false, false);
    EXPECT_EQ(parser->FBOptions().First, 3);
    EXPECT_EQ(parser->FBOptions().Skip, 0);
}

TEST(IBGolden, SwitchingToInterBasePrintsRowsAndNotFirstSkip)
{
    auto parser = Parse("SELECT FIRST 5 SKIP 10 A FROM T", qssFireBird);
    EXPECT_EQ(parser->GetExpression(), "SELECT FIRST 5 SKIP 10 \r\n  T.A\r\nFROM\r\n  T\r\n");
    parser->SetSQLServer(qssInterBase);
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
    EXPECT_EQ(parser->FBOptions().First, 5);
    EXPECT_EQ(parser->FBOptions().Skip, 10);
    ExpectNoRows(parser->IBOptions());
    parser->SetSQLServer(qssFireBird);
    EXPECT_EQ(parser->GetExpression(), "SELECT FIRST 5 SKIP 10 \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST(IBGolden, SwitchingServerChangesWhatTheNextParseAccepts)
{
    auto parser = MakeParser(qssInterBase);
    parser->SetExpression("SELECT A FROM T ROWS 10");
    EXPECT_TRUE(parser->IsValid());
    parser->SetSQLServer(qssFireBird);
    EXPECT_TRUE(ParseError(*parser, "SELECT A FROM T ROWS 10").Raised);
    parser->SetExpression("SELECT FIRST 2 A FROM T");
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->FBOptions().First, 2);
}

// ---- round trips ----

namespace {

struct TRoundTrip {
    TVdIBSQLServer Server;
    TVdSQLDialect Dialect;
    const char* Text;
};

std::string Describe(const TRoundTrip& row)
{
    return std::string(row.Server == qssInterBase ? "InterBase" : "Firebird") +
           (row.Dialect == qibDialect1 ? " dialect 1: " : " dialect 3: ") + row.Text;
}

} // namespace

TEST(IBRoundTrip, PrintParsesBackToTheSameTextModelAndOptions)
{
    const TRoundTrip rows[] = {
        {qssInterBase, qibDialect3, "SELECT A FROM T ROWS 10"},
        {qssInterBase, qibDialect3, "SELECT * FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES"},
        {qssInterBase, qibDialect3, "SELECT A FROM T WHERE A = 1 ROWS 1 BY 3 WITH TIES"},
        {qssInterBase, qibDialect3,
         "SELECT C.NAME, C.CITY FROM CUSTOMER C WHERE C.CITY = 'Rome' ORDER BY C.NAME DESC "
         "ROWS 5 TO 10 PERCENT"},
        {qssInterBase, qibDialect3,
         "SELECT A, COUNT(*) FROM T GROUP BY A HAVING COUNT(*) > 1 ORDER BY A ROWS 3"},
        {qssInterBase, qibDialect3, "SELECT \"ORDER\", \"my col\", b FROM \"my table\" ROWS 2"},
        {qssInterBase, qibDialect3, "select distinct x.a, x.\"b\" from t x order by x.a rows 7"},
        {qssInterBase, qibDialect3, "SELECT GEN_ID(G, 1), UPPER(NAME) FROM T$1"},
        {qssInterBase, qibDialect1, "SELECT A FROM \"my table\" WHERE B = \"x\" ROWS 5 TO 6"},
        {qssInterBase, qibDialect1, "select c.name from customer c order by c.name rows 4"},
        {qssFireBird, qibDialect3, "SELECT FIRST 5 SKIP 10 A, B FROM T"},
        {qssFireBird, qibDialect3, "SELECT FIRST 5 DISTINCT * FROM T"},
        {qssFireBird, qibDialect3, "SELECT SKIP 10 DISTINCT A FROM T WHERE A > 0 ORDER BY A"},
        {qssFireBird, qibDialect3, "select first 1 \"a\", b from \"t\""},
        {qssFireBird, qibDialect1, "SELECT FIRST 3 A FROM \"my table\""},
        {qssFireBird, qibDialect1, "SELECT SKIP 1 C.NAME FROM CUSTOMER C WHERE C.CITY = \"Rome\""},
    };
    for (const TRoundTrip& row : rows) {
        SCOPED_TRACE(Describe(row));
        auto first = Parse(row.Text, row.Server, row.Dialect);
        ASSERT_TRUE(first->IsValid());
        const std::string printed = first->GetExpression();
        ASSERT_FALSE(printed.empty());
        auto second = MakeParser(row.Server, row.Dialect);
        ASSERT_NO_THROW(second->SetExpression(printed)) << printed;
        ASSERT_TRUE(second->IsValid());
        EXPECT_EQ(second->GetExpression(), printed);
        EXPECT_EQ(second->IBOptions(), first->IBOptions());
        EXPECT_EQ(second->FBOptions(), first->FBOptions());
        EXPECT_EQ(second->Distinct(), first->Distinct());
        EXPECT_EQ(vdtest::DescribeModel(*second), vdtest::DescribeModel(*first));
    }
}

TEST(IBRoundTrip, OptionValuesSurviveTheRoundTrip)
{
    auto interBase = Parse("SELECT A FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
    auto again = Parse(interBase->GetExpression());
    ExpectRows(again->IBOptions(), 10, 20, 2, true, true);
    auto firebird = Parse("SELECT FIRST 5 SKIP 10 A FROM T", qssFireBird);
    auto back = Parse(firebird->GetExpression(), qssFireBird);
    EXPECT_EQ(back->FBOptions().First, 5);
    EXPECT_EQ(back->FBOptions().Skip, 10);
}

// A ROWS clause set with only TO prints ROWS 0: it reads back as written.
TEST(IBRoundTrip, RowsZeroToReadsBack)
{
    auto parser = Parse("SELECT A FROM T");
    parser->IBOptions().RowsTo = 5;
    const std::string printed = parser->GetExpression();
    EXPECT_EQ(printed, "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nROWS 0 TO 5");
    auto again = Parse(printed);
    EXPECT_TRUE(again->IsValid());
    ExpectRows(again->IBOptions(), 0, 5, 0, false, false);
    EXPECT_EQ(again->GetExpression(), printed);
}

// Every combination of the optional parts of ROWS, in their one accepted order, prints back as
// written after the last clause.
TEST(IBGolden, EveryRowsCombinationPrintsAsWritten)
{
    for (int parts = 0; parts < 16; ++parts) {
        std::string rows = "ROWS 10";
        if (parts & 1)
            rows += " TO 20";
        if (parts & 2)
            rows += " BY 2";
        if (parts & 4)
            rows += " PERCENT";
        if (parts & 8)
            rows += " WITH TIES";
        SCOPED_TRACE(rows);
        EXPECT_EQ(Print("SELECT A FROM T " + rows), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n" + rows);
    }
}
