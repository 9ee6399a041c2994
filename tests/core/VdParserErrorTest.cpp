// Syntax errors of the SELECT parser: codes, message texts, tokens and positions.
#include "core/VdSelectParser.h"

#include "tests/core/ParseErrorReport.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

using namespace vd;

namespace {

using vdtest::ParseError;
using vdtest::TErrorReport;

// One row: the text, and the error it must raise.
struct TErrorRow {
    const char* Name;
    const char* Text;
    int Code;
    const char* Token;
    int LineNo;
    int LinePos;
    const char* Message;
};

void PrintTo(const TErrorRow& row, std::ostream* os) { *os << row.Name; }

class ParserErrors : public ::testing::TestWithParam<TErrorRow>
{
};

} // namespace

TEST(ParserErrorMessages, EachCodeHasItsText)
{
    const EVdParserError invalid(1, "WHERE", 3, 17);
    EXPECT_STREQ(invalid.what(), "Invalid token 'WHERE' at position 17 of line 3.");
    EXPECT_EQ(invalid.Code, 1);
    EXPECT_EQ(invalid.Token, "WHERE");
    EXPECT_EQ(invalid.LineNo, 3);
    EXPECT_EQ(invalid.LinePos, 17);

    const EVdParserError end(2, "", 1, 9);
    EXPECT_STREQ(end.what(), "Unexpected end of statement.");
    EXPECT_EQ(end.Code, 2);

    const EVdParserError unterminated(3, "abc", 1, 5);
    EXPECT_STREQ(unterminated.what(), "Unterminated string.");
    EXPECT_EQ(unterminated.Code, 3);
    EXPECT_EQ(unterminated.Token, "abc");

    const EVdParserError other(7, "x", 1, 1);
    EXPECT_STREQ(other.what(), "Unknown error (#7).");
    EXPECT_EQ(EVdParserError::MessageFor(42, "", 0, 0), "Unknown error (#42).");
}

TEST(ParserErrorMessages, ParserErrorIsALibraryError)
{
    try {
        TVdSelectParser parser;
        parser.SetExpression("DELETE FROM T");
        FAIL() << "no exception";
    } catch (const EVdError& e) {
        EXPECT_STREQ(e.what(), "Invalid token 'DELETE' at position 1 of line 1.");
        EXPECT_NE(dynamic_cast<const EVdParserError*>(&e), nullptr);
    }
}

TEST_P(ParserErrors, RaisesCodeTokenAndPosition)
{
    const TErrorRow& row = GetParam();
    const TErrorReport report = ParseError(row.Text);
    ASSERT_TRUE(report.Raised) << row.Text;
    EXPECT_EQ(report.Code, row.Code);
    EXPECT_EQ(report.Token, row.Token);
    EXPECT_EQ(report.LineNo, row.LineNo);
    EXPECT_EQ(report.LinePos, row.LinePos);
    EXPECT_EQ(report.Message, row.Message);
}

TEST_P(ParserErrors, OnErrorReceivesTheSameReport)
{
    const TErrorRow& row = GetParam();
    TVdSelectParser parser;
    int calls = 0;
    TErrorReport report;
    parser.OnError = [&](TVdSelectParser* sender, const std::string& message,
                         const std::string& token, int line, int position) {
        ++calls;
        EXPECT_EQ(sender, &parser);
        report.Message = message;
        report.Token = token;
        report.LineNo = line;
        report.LinePos = position;
    };
    EXPECT_NO_THROW(parser.SetExpression(row.Text));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(report.Message, row.Message);
    EXPECT_EQ(report.Token, row.Token);
    EXPECT_EQ(report.LineNo, row.LineNo);
    EXPECT_EQ(report.LinePos, row.LinePos);
    EXPECT_FALSE(parser.IsValid());
    EXPECT_EQ(parser.State(), ssError);
}

// Positions count from 1 and point at the token's first character; "\r\n" starts line 2.
INSTANTIATE_TEST_SUITE_P(
    Statements, ParserErrors,
    ::testing::Values(
        TErrorRow{"NotASelect", "INSERT INTO T VALUES (1)", 1, "INSERT", 1, 1,
                  "Invalid token 'INSERT' at position 1 of line 1."},
        TErrorRow{"LeadingBlanks", "   DELETE FROM T", 1, "DELETE", 1, 4,
                  "Invalid token 'DELETE' at position 4 of line 1."},
        TErrorRow{"SelectAlone", "SELECT", 2, "", 1, 7, "Unexpected end of statement."},
        TErrorRow{"Into", "SELECT A INTO X FROM T", 1, "INTO", 1, 10,
                  "Invalid token 'INTO' at position 10 of line 1."},
        TErrorRow{"IntoOnLineTwo", "SELECT A\r\nINTO X", 1, "INTO", 2, 1,
                  "Invalid token 'INTO' at position 1 of line 2."},
        TErrorRow{"TokenOnLineTwo", "SELECT A\r\nFROM T, 5", 1, "5", 2, 9,
                  "Invalid token '5' at position 9 of line 2."},
        TErrorRow{"TokenOnLineThree", "SELECT A\r\nFROM T\r\n  WHERE A = 1 ORDER X", 1, "ORDER", 3,
                  15, "Invalid token 'ORDER' at position 15 of line 3."},
        TErrorRow{"MissingFromTable", "SELECT A FROM WHERE X = 1", 1, "WHERE", 1, 15,
                  "Invalid token 'WHERE' at position 15 of line 1."},
        TErrorRow{"FromAtTheEnd", "SELECT A FROM", 2, "", 1, 14, "Unexpected end of statement."},
        TErrorRow{"MissingOn", "SELECT * FROM T1 A INNER JOIN T2 B WHERE A.X = B.X", 1, "WHERE", 1,
                  36, "Invalid token 'WHERE' at position 36 of line 1."},
        TErrorRow{"JoinAtTheEnd", "SELECT * FROM T1 A INNER JOIN T2 B", 2, "", 1, 35,
                  "Unexpected end of statement."},
        TErrorRow{"EmptyWhere", "SELECT * FROM T WHERE", 2, "", 1, 22,
                  "Unexpected end of statement."},
        TErrorRow{"WhereFollowedByClause", "SELECT * FROM T WHERE ORDER BY A", 1, "ORDER", 1, 23,
                  "Invalid token 'ORDER' at position 23 of line 1."},
        TErrorRow{"ComparisonWithoutOperator", "SELECT * FROM T WHERE A ORDER BY A", 1, "ORDER", 1,
                  25, "Invalid token 'ORDER' at position 25 of line 1."},
        TErrorRow{"ComparisonWithoutArgument", "SELECT * FROM T WHERE A =", 2, "", 1, 26,
                  "Unexpected end of statement."},
        TErrorRow{"DanglingAndInsideGroup", "SELECT * FROM T WHERE ((A = 1) AND)", 1, ")", 1, 35,
                  "Invalid token ')' at position 35 of line 1."},
        TErrorRow{"DanglingOrInsideGroupAtTheEnd", "SELECT * FROM T WHERE ((A = 1) OR", 2, "", 1,
                  34, "Unexpected end of statement."},
        TErrorRow{"MissingCloseParenthesis", "SELECT * FROM T WHERE ((A = 1)", 2, "", 1, 31,
                  "Unexpected end of statement."},
        TErrorRow{"MissingCloseParenthesisOfNot", "SELECT * FROM T WHERE NOT ((A = 1)", 2, "", 1,
                  35, "Unexpected end of statement."},
        TErrorRow{"ExtraCloseParenthesis", "SELECT * FROM T WHERE (A = 1))", 1, ")", 1, 30,
                  "Invalid token ')' at position 30 of line 1."},
        TErrorRow{"EmptyParentheses", "SELECT * FROM T WHERE ()", 1, ")", 1, 24,
                  "Invalid token ')' at position 24 of line 1."},
        TErrorRow{"InWithoutParenthesis", "SELECT * FROM T WHERE A IN 1", 1, "1", 1, 28,
                  "Invalid token '1' at position 28 of line 1."},
        TErrorRow{"BetweenWithoutAnd", "SELECT * FROM T WHERE A BETWEEN 1 OR 5", 1, "OR", 1, 35,
                  "Invalid token 'OR' at position 35 of line 1."},
        TErrorRow{"EmptyHaving", "SELECT * FROM T GROUP BY A HAVING", 2, "", 1, 34,
                  "Unexpected end of statement."},
        TErrorRow{"GroupByWithoutName", "SELECT * FROM T GROUP BY ORDER BY A", 1, "ORDER", 1, 26,
                  "Invalid token 'ORDER' at position 26 of line 1."},
        TErrorRow{"ProcedureWithoutArguments", "SELECT * FROM PROC()", 1, ")", 1, 20,
                  "Invalid token ')' at position 20 of line 1."},
        TErrorRow{"UnterminatedString", "SELECT * FROM T WHERE A = 'abc", 3, "abc", 1, 28,
                  "Unterminated string."},
        TErrorRow{"UnterminatedStringOnLineTwo", "SELECT *\r\nFROM T WHERE A = \"ab", 3, "ab", 2,
                  19, "Unterminated string."}),
    [](const ::testing::TestParamInfo<TErrorRow>& info) { return info.param.Name; });

TEST(ParserErrorModel, ValidAgainAfterASuccessfulParse)
{
    TVdSelectParser parser;
    EXPECT_THROW(parser.SetExpression("SELECT * FROM T WHERE"), EVdParserError);
    EXPECT_FALSE(parser.IsValid());
    parser.SetExpression("SELECT * FROM T");
    EXPECT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.GetExpression(), "SELECT *\r\nFROM\r\n  \"T\"\r\n");
}

TEST(ParserErrorModel, UnterminatedStringThroughOnErrorKeepsTables)
{
    TVdSelectParser parser;
    std::string message;
    parser.OnError = [&](TVdSelectParser*, const std::string& m, const std::string&, int, int) {
        message = m;
    };
    parser.SetExpression("SELECT * FROM T WHERE A = 'abc");
    EXPECT_EQ(message, "Unterminated string.");
    EXPECT_FALSE(parser.IsValid());
    ASSERT_EQ(parser.TableDefs().Count(), 1);
    EXPECT_EQ(parser.TableDefs().Items(0)->Name(), "T");
}

// A connector that changes the filter of a group standing third or later in its list nests
// that group's items by precedence; nothing else moves and nothing is raised.
TEST(ParserErrorRegroup, ConnectorChangeInThirdGroupKeepsItsMeaning)
{
    TVdSelectParser parser;
    parser.SetExpression(
        "SELECT * FROM T WHERE (X = 0) AND (Y = 0) AND ((A = 1) AND (B = 2) OR (C = 3))");
    const TVdCriterions& where = parser.WhereItems();
    ASSERT_EQ(where.Count(), 3);
    EXPECT_EQ(where.Filter, cfAll);
    const TVdCriterions& group = where.Items(2)->SubItems();
    EXPECT_EQ(group.Filter, cfAny);
    ASSERT_EQ(group.Count(), 2);
    EXPECT_EQ(group.Items(0)->SubItems().Filter, cfAll);
    EXPECT_EQ(group.Items(0)->SubItems().Count(), 2);
    EXPECT_EQ(group.Items(1)->LeftSide().Name(), "C");
}

TEST(ParserErrorRegroup, OrGroupInThirdPlaceIsOneGroup)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT * FROM T WHERE (A = 1) AND (B = 2) AND ((C = 3) OR (D = 4))");
    ASSERT_EQ(parser.WhereItems().Count(), 3);
    EXPECT_EQ(parser.WhereItems().Items(2)->SubItems().Filter, cfAny);
}

TEST(ParserErrorRegroup, NotOverOrChainInThirdPlaceIsANegatedGroup)
{
    TVdSelectParser parser;
    parser.SetExpression(
        "SELECT * FROM T WHERE (X = 0) AND (Y = 0) AND (NOT ((A = 1) OR (B = 2)))");
    ASSERT_EQ(parser.WhereItems().Count(), 3);
    EXPECT_EQ(parser.WhereItems().Items(2)->SubItems().Filter, cfNotAll);
}

TEST(ParserErrorRegroup, OrGroupInSecondPlaceDoesNotRegroup)
{
    TVdSelectParser parser;
    EXPECT_NO_THROW(parser.SetExpression("SELECT * FROM T WHERE (B = 2) AND ((C = 3) OR (D = 4))"));
    ASSERT_EQ(parser.WhereItems().Count(), 2);
    EXPECT_EQ(parser.WhereItems().Items(1)->SubItems().Filter, cfAny);
}

TEST(ParserErrorsFound, UnclosedParenthesisInAnExpressionIsAnUnexpectedEnd)
{
    // Without the check the expression would swallow the rest of the statement.
    const TErrorReport report = ParseError("SELECT A + (1, B FROM T");
    EXPECT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 2);
    EXPECT_EQ(report.Message, "Unexpected end of statement.");
}

TEST(ParserErrorsFound, JoinFromATableNotInFromIsRejected)
{
    // X is known only from the select list: a join cannot hang on it.
    const TErrorReport report = ParseError("SELECT X.A FROM T INNER JOIN U ON (X.A = U.B)");
    EXPECT_TRUE(report.Raised);
    EXPECT_EQ(report.Message, "Invalid token 'X' at position 36 of line 1.");
}

TEST(ParserErrorsFound, QualifierOfAnUnknownTableInAJoinIsNamed)
{
    const TErrorReport report = ParseError("SELECT A FROM T INNER JOIN U ON (T.A = X.B)");
    EXPECT_EQ(report.Message, "Invalid token 'X' at position 40 of line 1.");
}

TEST(ParserErrorsFound, SelectItemsNeedCommasBetweenThem)
{
    EXPECT_EQ(ParseError("SELECT A AS X Y FROM T").Message,
              "Invalid token 'Y' at position 15 of line 1.");
    EXPECT_FALSE(ParseError("SELECT A AS X, Y FROM T").Raised);
}

TEST(ParserErrorsFound, EmptyQuotedNameNamesNothing)
{
    EXPECT_TRUE(ParseError("SELECT \"\" FROM T").Raised);
    EXPECT_TRUE(ParseError("SELECT A FROM \"\"").Raised);
    EXPECT_TRUE(ParseError("SELECT X FROM T \"\"").Raised);
    EXPECT_TRUE(ParseError("SELECT X FROM PROC(1) \"\"").Raised);
    EXPECT_TRUE(ParseError("SELECT X AS \"\" FROM T").Raised);
}

TEST(ParserErrorsFound, DoubledQuoteBeforeTheEndLeavesTheStringOpen)
{
    // The scanner closes a string at the last character of the text; 'abc'' holds a doubled
    // quote there and no closing one.
    const TErrorReport open = ParseError("SELECT 'abc''");
    EXPECT_EQ(open.Code, 3);
    EXPECT_EQ(open.Message, "Unterminated string.");
    EXPECT_EQ(open.Token, "abc'");
    EXPECT_EQ(open.LinePos, 9);
    EXPECT_FALSE(ParseError("SELECT 'abc''' FROM T").Raised);
    EXPECT_FALSE(ParseError("SELECT A FROM T WHERE A = 'abc'''").Raised);
}

TEST(ParserErrorsFound, StarOnlyAsTheWholeSelectList)
{
    // The model has no field for "*": beside other items it would silently disappear.
    EXPECT_EQ(ParseError("SELECT *, A FROM T").Message,
              "Invalid token ',' at position 9 of line 1.");
    EXPECT_EQ(ParseError("SELECT A, * FROM T").Message,
              "Invalid token 'FROM' at position 13 of line 1.");
    EXPECT_FALSE(ParseError("SELECT * FROM T").Raised);
    EXPECT_FALSE(ParseError("SELECT T.*, A FROM T").Raised);
}
