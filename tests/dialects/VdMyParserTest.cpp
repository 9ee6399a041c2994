// The MySQL parser and its options object: select options, the duplicate filter and LIMIT,
// read and printed byte for byte.
#include "dialects/VdMyParser.h"
#include "dialects/VdMyOptions.h"

#include "tests/core/ParseErrorReport.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

using namespace vd;

namespace {

using vdtest::TErrorReport;

std::unique_ptr<TVdMySelectParser> Parse(const std::string& text)
{
    auto parser = std::make_unique<TVdMySelectParser>();
    parser->SetExpression(text);
    return parser;
}

std::string Print(const std::string& text, TVdFormatMode keywords = qfmAsIs,
                  TVdFormatMode functions = qfmAsIs)
{
    TVdMySelectParser parser;
    parser.ScriptFormat().KeywordsFormat = keywords;
    parser.ScriptFormat().FunctionsFormat = functions;
    parser.SetExpression(text);
    return parser.GetExpression();
}

TErrorReport MyParseError(const std::string& text)
{
    TVdMySelectParser parser;
    return vdtest::ParseError(parser, text);
}

std::string InvalidToken(const std::string& token, int position, int line = 1)
{
    return "Invalid token '" + token + "' at position " + std::to_string(position) + " of line " +
           std::to_string(line) + ".";
}

// An error of code 1 naming token at position of line 1.
void ExpectInvalidToken(const std::string& text, const std::string& token, int position)
{
    SCOPED_TRACE(text);
    const TErrorReport report = MyParseError(text);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, token);
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, position);
    EXPECT_EQ(report.Message, InvalidToken(token, position));
}

void ExpectUnexpectedEnd(const std::string& text)
{
    SCOPED_TRACE(text);
    const TErrorReport report = MyParseError(text);
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 2);
    EXPECT_EQ(report.Token, "");
    EXPECT_EQ(report.Message, "Unexpected end of statement.");
}

TVdMySQLSelectOptions Options(std::initializer_list<TVdMySQLSelectOption> values)
{
    return TVdMySQLSelectOptions(values);
}

// The four values as one text, for comparisons with a readable failure.
std::string Describe(const TVdMySQLOptions& o)
{
    return "rows " + std::to_string(o.LimitRows) + " offset " + std::to_string(o.LimitOffset) +
           " options " + std::to_string(o.SelectOptions.Bits()) + " filter " +
           std::to_string(int(o.Filter));
}

const char* const kSelectT = "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n";

} // namespace

// ---- the documented edge cases ----

TEST(MyEdgeCases, OptionsFilterAndLimitOfOneStatement)
{
    auto parser = Parse("SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW A FROM T LIMIT 10, 20");
    const TVdMySQLOptions& o = parser->MySQLOptions();
    EXPECT_EQ(o.SelectOptions, Options({mysoStraightJoin, mysoSQLBigResult}));
    EXPECT_EQ(o.SelectOptions.Bits(), 5u);
    EXPECT_EQ(o.Filter, myfoDistinctRow);
    EXPECT_EQ(o.LimitOffset, 10);
    EXPECT_EQ(o.LimitRows, 20);
    EXPECT_EQ(parser->GetExpression(), "SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW \r\n"
                                       "  `T`.`A`\r\n"
                                       "FROM\r\n"
                                       "  `T`\r\n"
                                       "LIMIT 10, 20");
}

TEST(MyEdgeCases, StraightJoinTwiceFailsToParse)
{
    ExpectInvalidToken("SELECT STRAIGHT_JOIN STRAIGHT_JOIN A FROM T", "STRAIGHT_JOIN", 22);
}

TEST(MyEdgeCases, LimitFiveGivesOffsetZeroAndFiveRows)
{
    auto parser = Parse("SELECT A FROM T LIMIT 5");
    EXPECT_EQ(parser->MySQLOptions().LimitOffset, 0);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 5);
}

TEST(MyEdgeCases, LimitFiveCommaFollowedByANameFails)
{
    ExpectInvalidToken("SELECT A FROM T LIMIT 5, X", "X", 26);
}

TEST(MyEdgeCases, AnyTokenAfterTheLimitClauseIsAnError)
{
    ExpectInvalidToken("SELECT A FROM T LIMIT 5 X", "X", 25);
    ExpectInvalidToken("SELECT A FROM T LIMIT 5, 10 ORDER BY A", "ORDER", 29);
    ExpectInvalidToken("SELECT A FROM T LIMIT 5 LIMIT 6", "LIMIT", 25);
    ExpectInvalidToken("SELECT A FROM T LIMIT 5, 10, 15", ",", 28);
}

TEST(MyEdgeCases, EscapedAndDoubledQuoteStringsAreEachOneToken)
{
    TVdMySQLScanner s;
    s.SetExpression("'it\\'s' 'it''s'");
    EXPECT_EQ(s.TokenKind(), tkString);
    EXPECT_EQ(s.Token(), "it\\'s");
    s.GetNextToken();
    EXPECT_EQ(s.TokenKind(), tkString);
    EXPECT_EQ(s.Token(), "it''s");
    s.GetNextToken();
    EXPECT_EQ(s.TokenKind(), tkEnd);
}

TEST(MyEdgeCases, BackQuotedNameIsAnIdentifierDoubleQuotedTextIsNot)
{
    TVdMySQLScanner s;
    s.SetExpression("`A`");
    EXPECT_EQ(s.TokenKind(), tkIdent);
    EXPECT_EQ(s.Token(), "A");
    s.SetExpression("\"A\"");
    EXPECT_EQ(s.TokenKind(), tkString);
    EXPECT_EQ(s.Token(), "A");

    auto ident = Parse("SELECT `A` FROM T");
    ASSERT_EQ(ident->TableDefs().Count(), 1);
    ASSERT_EQ(ident->TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(ident->TableDefs().Items(0)->FieldDefs().Items(0)->Kind(), fkIdentifier);
    EXPECT_EQ(ident->TableDefs().Items(0)->FieldDefs().Items(0)->Name(), "A");

    auto where = Parse("SELECT `A` FROM T WHERE `A` = \"A\"");
    ASSERT_EQ(where->WhereItems().Count(), 1);
    EXPECT_EQ(where->WhereItems().Items(0)->LeftSide().Kind(), fkIdentifier);
    ASSERT_EQ(where->WhereItems().Items(0)->RightSide().Count(), 1);
    EXPECT_EQ(where->WhereItems().Items(0)->RightSide().Items(0)->Kind(), fkString);
    EXPECT_EQ(where->WhereItems().Items(0)->RightSide().Items(0)->Name(), "A");
    EXPECT_EQ(where->GetExpression(), std::string(kSelectT) + "WHERE\r\n  (`A` = 'A')\r\n");
}

TEST(MyEdgeCases, DistinctOffAfterDistinctRowLeavesNoFilter)
{
    auto parser = Parse("SELECT DISTINCTROW A FROM T");
    ASSERT_EQ(parser->MySQLOptions().Filter, myfoDistinctRow);
    EXPECT_FALSE(parser->GetDistinct());
    parser->SetDistinct(false);
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoNone);
    EXPECT_FALSE(parser->GetDistinct());
    EXPECT_EQ(parser->GetExpression(), kSelectT);
}

// ---- the options object ----

TEST(MyOptions, StartsEmpty)
{
    TVdMySQLOptions o;
    EXPECT_EQ(o.LimitRows, 0);
    EXPECT_EQ(o.LimitOffset, 0);
    EXPECT_TRUE(o.SelectOptions.Empty());
    EXPECT_EQ(o.Filter, myfoNone);
    EXPECT_EQ(o.Parser(), nullptr);
}

TEST(MyOptions, ClearResetsTheFourValues)
{
    TVdMySQLOptions o;
    o.LimitRows = 20;
    o.LimitOffset = 10;
    o.SelectOptions = Options({mysoHighPriority, mysoSQLSmallResult});
    o.Filter = myfoAll;
    o.Clear();
    EXPECT_EQ(o.LimitRows, 0);
    EXPECT_EQ(o.LimitOffset, 0);
    EXPECT_TRUE(o.SelectOptions.Empty());
    EXPECT_EQ(o.Filter, myfoNone);
    EXPECT_EQ(o.FilterScript(), "");
    EXPECT_EQ(o.OptionsScript(), "");
    EXPECT_EQ(o.LimitScript(), "");
}

TEST(MyOptions, AssignCopiesTheFourValuesNotTheParser)
{
    TVdMySelectParser parser;
    TVdMySQLOptions source;
    source.LimitRows = 20;
    source.LimitOffset = 10;
    source.SelectOptions = Options({mysoStraightJoin, mysoSQLBufferResult});
    source.Filter = myfoDistinctRow;
    TVdMySQLOptions target(&parser);
    target.Assign(source);
    EXPECT_EQ(target.LimitRows, 20);
    EXPECT_EQ(target.LimitOffset, 10);
    EXPECT_EQ(target.SelectOptions, Options({mysoStraightJoin, mysoSQLBufferResult}));
    EXPECT_EQ(target.Filter, myfoDistinctRow);
    EXPECT_EQ(target.Parser(), &parser);

    TVdMySQLOptions withoutParser;
    withoutParser.Assign(target);
    EXPECT_EQ(withoutParser.Parser(), nullptr);
    EXPECT_EQ(Describe(withoutParser), Describe(source));
}

TEST(MyOptions, FilterScriptOfEachFilter)
{
    TVdMySQLOptions o;
    o.Filter = myfoNone;
    EXPECT_EQ(o.FilterScript(), "");
    o.Filter = myfoDistinct;
    EXPECT_EQ(o.FilterScript(), "DISTINCT ");
    o.Filter = myfoDistinctRow;
    EXPECT_EQ(o.FilterScript(), "DISTINCTROW ");
    o.Filter = myfoAll;
    EXPECT_EQ(o.FilterScript(), "ALL ");
}

TEST(MyOptions, OptionsScriptOfEachSingleOption)
{
    struct TRow {
        TVdMySQLSelectOption Option;
        const char* Script;
    };
    const TRow rows[] = {{mysoStraightJoin, "STRAIGHT_JOIN "},
                         {mysoSQLSmallResult, "SQL_SMALL_RESULT "},
                         {mysoSQLBigResult, "SQL_BIG_RESULT "},
                         {mysoSQLBufferResult, "SQL_BUFFER_RESULT "},
                         {mysoHighPriority, "HIGH_PRIORITY "}};
    for (const TRow& row : rows) {
        TVdMySQLOptions o;
        o.SelectOptions.Include(row.Option);
        EXPECT_EQ(o.OptionsScript(), row.Script);
    }
}

TEST(MyOptions, AllFiveOptionsInTheFixedOrder)
{
    TVdMySQLOptions o;
    // Included in reverse order: the script order does not depend on it.
    o.SelectOptions.Include(mysoHighPriority)
        .Include(mysoSQLBufferResult)
        .Include(mysoSQLBigResult)
        .Include(mysoSQLSmallResult)
        .Include(mysoStraightJoin);
    EXPECT_EQ(o.OptionsScript(),
              "STRAIGHT_JOIN SQL_SMALL_RESULT SQL_BIG_RESULT SQL_BUFFER_RESULT HIGH_PRIORITY ");
    o.SelectOptions = Options({mysoHighPriority, mysoStraightJoin});
    EXPECT_EQ(o.OptionsScript(), "STRAIGHT_JOIN HIGH_PRIORITY ");
}

TEST(MyOptions, LimitScriptRowsOnly)
{
    TVdMySQLOptions o;
    o.LimitRows = 5;
    EXPECT_EQ(o.LimitScript(), "LIMIT 5");
    o.LimitRows = 1;
    EXPECT_EQ(o.LimitScript(), "LIMIT 1");
    o.LimitRows = 2147483647;
    EXPECT_EQ(o.LimitScript(), "LIMIT 2147483647");
}

TEST(MyOptions, LimitScriptWithoutRowsIsEmpty)
{
    TVdMySQLOptions o;
    EXPECT_EQ(o.LimitScript(), "");
    o.LimitRows = -1;
    EXPECT_EQ(o.LimitScript(), "");
}

TEST(MyOptions, LimitScriptOffsetAndRows)
{
    TVdMySQLOptions o;
    o.LimitOffset = 10;
    o.LimitRows = 20;
    EXPECT_EQ(o.LimitScript(), "LIMIT 10, 20");
    o.LimitOffset = 1;
    o.LimitRows = 1;
    EXPECT_EQ(o.LimitScript(), "LIMIT 1, 1");
}

TEST(MyOptions, LimitScriptOffsetWithZeroRowsPrintsTheZero)
{
    TVdMySQLOptions o;
    o.LimitOffset = 10;
    o.LimitRows = 0;
    EXPECT_EQ(o.LimitScript(), "LIMIT 10, 0");
}

TEST(MyOptions, LimitScriptOffsetBelowOneIsNoOffset)
{
    TVdMySQLOptions o;
    o.LimitOffset = 0;
    o.LimitRows = 7;
    EXPECT_EQ(o.LimitScript(), "LIMIT 7");
    o.LimitOffset = -3;
    EXPECT_EQ(o.LimitScript(), "LIMIT 7");
}

TEST(MyOptions, KeywordsFollowTheParsersCase)
{
    TVdMySelectParser parser;
    parser.ScriptFormat().KeywordsFormat = qfmLowerCase;
    TVdMySQLOptions o(&parser);
    o.LimitRows = 5;
    EXPECT_EQ(o.LimitScript(), "limit 5");
    o.LimitOffset = 10;
    EXPECT_EQ(o.LimitScript(), "limit 10, 5");
    o.Filter = myfoDistinctRow;
    EXPECT_EQ(o.FilterScript(), "distinctrow ");
    o.SelectOptions.Include(mysoStraightJoin);
    EXPECT_EQ(o.OptionsScript(), "straight_join ");

    parser.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    o.SelectOptions.Include(mysoSQLBigResult);
    EXPECT_EQ(o.OptionsScript(), "Straight_Join Sql_Big_Result ");
    EXPECT_EQ(o.FilterScript(), "Distinctrow ");
    EXPECT_EQ(o.LimitScript(), "Limit 10, 5");
}

TEST(MyOptions, TheParsersOwnOptionsFollowItsCase)
{
    TVdMySelectParser parser;
    parser.ScriptFormat().KeywordsFormat = qfmLowerCase;
    TVdMySQLOptions& o = parser.MySQLOptions();
    EXPECT_EQ(o.Parser(), &parser);
    o.LimitRows = 5;
    o.Filter = myfoAll;
    o.SelectOptions.Include(mysoSQLBufferResult);
    EXPECT_EQ(o.LimitScript(), "limit 5");
    EXPECT_EQ(o.FilterScript(), "all ");
    EXPECT_EQ(o.OptionsScript(), "sql_buffer_result ");
}

TEST(MyOptions, WithoutAParserKeywordsPrintAsWritten)
{
    TVdMySelectParser lower;
    lower.ScriptFormat().KeywordsFormat = qfmLowerCase;
    TVdMySQLOptions o;
    o.LimitRows = 5;
    o.Filter = myfoDistinct;
    o.SelectOptions.Include(mysoSQLSmallResult);
    EXPECT_EQ(o.LimitScript(), "LIMIT 5");
    EXPECT_EQ(o.FilterScript(), "DISTINCT ");
    EXPECT_EQ(o.OptionsScript(), "SQL_SMALL_RESULT ");
}

TEST(MyOptions, SelectOptionBits)
{
    EXPECT_EQ(Options({mysoStraightJoin}).Bits(), 1u);
    EXPECT_EQ(Options({mysoSQLSmallResult}).Bits(), 2u);
    EXPECT_EQ(Options({mysoSQLBigResult}).Bits(), 4u);
    EXPECT_EQ(Options({mysoSQLBufferResult}).Bits(), 8u);
    EXPECT_EQ(Options({mysoHighPriority}).Bits(), 16u);
    EXPECT_EQ(Options({mysoStraightJoin, mysoSQLSmallResult, mysoSQLBigResult, mysoSQLBufferResult,
                       mysoHighPriority})
                  .Bits(),
              31u);
}

TEST(MyOptions, FilterValuesInOrder)
{
    EXPECT_EQ(int(myfoNone), 0);
    EXPECT_EQ(int(myfoDistinct), 1);
    EXPECT_EQ(int(myfoDistinctRow), 2);
    EXPECT_EQ(int(myfoAll), 3);
}

// ---- the parser ----

TEST(MyParser, DistinctIsTheDistinctFilterOnly)
{
    EXPECT_TRUE(Parse("SELECT DISTINCT A FROM T")->GetDistinct());
    EXPECT_TRUE(Parse("SELECT DISTINCT A FROM T")->Distinct());
    EXPECT_EQ(Parse("SELECT DISTINCT A FROM T")->MySQLOptions().Filter, myfoDistinct);
    EXPECT_FALSE(Parse("SELECT DISTINCTROW A FROM T")->GetDistinct());
    EXPECT_FALSE(Parse("SELECT ALL A FROM T")->GetDistinct());
    EXPECT_FALSE(Parse("SELECT A FROM T")->GetDistinct());
}

TEST(MyParser, SetDistinctTrueGivesTheDistinctFilter)
{
    auto parser = Parse("SELECT DISTINCTROW A FROM T");
    parser->SetDistinct(true);
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoDistinct);
    EXPECT_TRUE(parser->GetDistinct());
    EXPECT_EQ(parser->GetExpression(), "SELECT DISTINCT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n");
}

TEST(MyParser, SetDistinctFalseDropsAll)
{
    auto parser = Parse("SELECT ALL A FROM T");
    ASSERT_EQ(parser->MySQLOptions().Filter, myfoAll);
    parser->SetDistinct(false);
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoNone);
}

TEST(MyParser, ClearResetsTheOptions)
{
    auto parser = Parse("SELECT STRAIGHT_JOIN DISTINCTROW A FROM T LIMIT 10, 20");
    ASSERT_EQ(parser->MySQLOptions().LimitRows, 20);
    parser->Clear();
    const TVdMySQLOptions& o = parser->MySQLOptions();
    EXPECT_EQ(o.LimitRows, 0);
    EXPECT_EQ(o.LimitOffset, 0);
    EXPECT_TRUE(o.SelectOptions.Empty());
    EXPECT_EQ(o.Filter, myfoNone);
    EXPECT_EQ(parser->TableDefs().Count(), 0);
    EXPECT_EQ(parser->GetExpression(), "");
}

TEST(MyParser, EveryParseStartsFromClearedOptions)
{
    TVdMySelectParser parser;
    parser.SetExpression("SELECT STRAIGHT_JOIN DISTINCTROW A FROM T LIMIT 10, 20");
    parser.SetExpression("SELECT A FROM T");
    EXPECT_EQ(Describe(parser.MySQLOptions()), Describe(TVdMySQLOptions()));
    EXPECT_EQ(parser.GetExpression(), kSelectT);
    parser.SetExpression("SELECT HIGH_PRIORITY A FROM T LIMIT 3");
    parser.SetExpression("");
    EXPECT_EQ(Describe(parser.MySQLOptions()), Describe(TVdMySQLOptions()));
}

TEST(MyParser, SetMySQLOptionsCopiesTheValues)
{
    TVdMySelectParser parser;
    parser.SetExpression("SELECT A FROM T");
    TVdMySQLOptions options;
    options.LimitRows = 20;
    options.LimitOffset = 10;
    options.SelectOptions = Options({mysoSQLSmallResult});
    options.Filter = myfoAll;
    parser.SetMySQLOptions(options);
    EXPECT_NE(&parser.MySQLOptions(), &options);
    EXPECT_EQ(parser.MySQLOptions().Parser(), &parser);
    EXPECT_EQ(Describe(parser.MySQLOptions()), Describe(options));
    options.LimitRows = 99;
    EXPECT_EQ(parser.MySQLOptions().LimitRows, 20);
    EXPECT_EQ(parser.GetExpression(), "SELECT SQL_SMALL_RESULT ALL \r\n"
                                      "  `T`.`A`\r\n"
                                      "FROM\r\n"
                                      "  `T`\r\n"
                                      "LIMIT 10, 20");
}

TEST(MyParser, SetMySQLOptionsWithItsOwnObjectKeepsIt)
{
    TVdMySelectParser parser;
    parser.MySQLOptions().LimitRows = 4;
    parser.MySQLOptions().Filter = myfoDistinctRow;
    TVdMySQLOptions* own = &parser.MySQLOptions();
    parser.SetMySQLOptions(parser.MySQLOptions());
    EXPECT_EQ(&parser.MySQLOptions(), own);
    EXPECT_EQ(parser.MySQLOptions().LimitRows, 4);
    EXPECT_EQ(parser.MySQLOptions().Filter, myfoDistinctRow);
}

namespace {

struct TOptionRow {
    const char* Word;
    TVdMySQLSelectOption Option;
    unsigned Bits;
};

void PrintTo(const TOptionRow& row, std::ostream* os) { *os << row.Word; }

class MyParserOptions : public ::testing::TestWithParam<TOptionRow>
{
};

} // namespace

TEST_P(MyParserOptions, EachOptionAlone)
{
    const TOptionRow& row = GetParam();
    auto parser = Parse(std::string("SELECT ") + row.Word + " A FROM T");
    ASSERT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->MySQLOptions().SelectOptions, Options({row.Option}));
    EXPECT_EQ(parser->MySQLOptions().SelectOptions.Bits(), row.Bits);
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoNone);
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->FieldDefs().Items(0)->Name(), "A");
    EXPECT_EQ(parser->GetExpression(),
              std::string("SELECT ") + row.Word + " \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n");
}

TEST_P(MyParserOptions, EachOptionAloneInLowerCase)
{
    const TOptionRow& row = GetParam();
    std::string word = row.Word;
    for (char& c : word)
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    auto parser = Parse("select " + word + " * from t");
    EXPECT_EQ(parser->MySQLOptions().SelectOptions.Bits(), row.Bits);
    EXPECT_EQ(parser->GetExpression(),
              std::string("SELECT ") + row.Word + " *\r\nFROM\r\n  `t`\r\n");
}

INSTANTIATE_TEST_SUITE_P(MyFiveWords, MyParserOptions,
                         ::testing::Values(TOptionRow{"STRAIGHT_JOIN", mysoStraightJoin, 1},
                                           TOptionRow{"SQL_SMALL_RESULT", mysoSQLSmallResult, 2},
                                           TOptionRow{"SQL_BIG_RESULT", mysoSQLBigResult, 4},
                                           TOptionRow{"SQL_BUFFER_RESULT", mysoSQLBufferResult, 8},
                                           TOptionRow{"HIGH_PRIORITY", mysoHighPriority, 16}));

TEST(MyParser, SqlBufferResultFirstIsAnOptionNotAColumn)
{
    auto parser = Parse("SELECT SQL_BUFFER_RESULT A FROM T");
    EXPECT_EQ(parser->MySQLOptions().SelectOptions, Options({mysoSQLBufferResult}));
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    const TVdFieldDef& field = *parser->TableDefs().Items(0)->FieldDefs().Items(0);
    EXPECT_EQ(field.Name(), "A");
    // A plain column's alias is its name: no AS is printed.
    EXPECT_EQ(field.Alias(), "A");
    EXPECT_EQ(parser->GetExpression(),
              "SELECT SQL_BUFFER_RESULT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n");
}

TEST(MyParser, SeveralOptions)
{
    auto parser = Parse("SELECT HIGH_PRIORITY STRAIGHT_JOIN SQL_SMALL_RESULT A FROM T");
    EXPECT_EQ(parser->MySQLOptions().SelectOptions,
              Options({mysoStraightJoin, mysoSQLSmallResult, mysoHighPriority}));
    EXPECT_EQ(parser->MySQLOptions().SelectOptions.Bits(), 19u);
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoNone);
}

TEST(MyParser, AllFiveOptionsAndAFilter)
{
    auto parser = Parse("SELECT SQL_BUFFER_RESULT HIGH_PRIORITY SQL_BIG_RESULT STRAIGHT_JOIN "
                        "SQL_SMALL_RESULT DISTINCT A FROM T");
    EXPECT_EQ(parser->MySQLOptions().SelectOptions.Bits(), 31u);
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoDistinct);
    EXPECT_TRUE(parser->GetDistinct());
}

TEST(MyParser, DuplicateOptionIsRefusedNamingTheSecond)
{
    ExpectInvalidToken("SELECT SQL_BUFFER_RESULT HIGH_PRIORITY sql_buffer_result A FROM T",
                       "sql_buffer_result", 40);
}

TEST(MyParser, OptionsThenFilter)
{
    auto parser = Parse("SELECT STRAIGHT_JOIN DISTINCT A FROM T");
    EXPECT_EQ(parser->MySQLOptions().SelectOptions, Options({mysoStraightJoin}));
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoDistinct);
    auto row = Parse("SELECT SQL_BIG_RESULT DISTINCTROW * FROM T");
    EXPECT_EQ(row->MySQLOptions().SelectOptions, Options({mysoSQLBigResult}));
    EXPECT_EQ(row->MySQLOptions().Filter, myfoDistinctRow);
    auto all = Parse("SELECT HIGH_PRIORITY ALL A FROM T");
    EXPECT_EQ(all->MySQLOptions().SelectOptions, Options({mysoHighPriority}));
    EXPECT_EQ(all->MySQLOptions().Filter, myfoAll);
}

TEST(MyParser, OptionAfterTheFilterIsRefused)
{
    ExpectInvalidToken("SELECT DISTINCT STRAIGHT_JOIN A FROM T", "STRAIGHT_JOIN", 17);
    ExpectInvalidToken("SELECT DISTINCTROW HIGH_PRIORITY A FROM T", "HIGH_PRIORITY", 20);
    // SQL_BUFFER_RESULT is no keyword, yet after a filter it is an option too, not a column.
    ExpectInvalidToken("SELECT DISTINCT SQL_BUFFER_RESULT A FROM T", "SQL_BUFFER_RESULT", 17);
}

TEST(MyParser, SecondFilterIsRefused)
{
    ExpectInvalidToken("SELECT DISTINCT ALL A FROM T", "ALL", 17);
}

TEST(MyParser, SelectListMustFollowTheOptions)
{
    ExpectInvalidToken("SELECT SQL_BUFFER_RESULT, A FROM T", ",", 25);
    ExpectInvalidToken("SELECT STRAIGHT_JOIN FROM T", "FROM", 22);
    ExpectUnexpectedEnd("SELECT DISTINCTROW");
    ExpectUnexpectedEnd("SELECT HIGH_PRIORITY");
}

TEST(MyParser, AllFilter)
{
    auto parser = Parse("SELECT ALL A FROM T");
    EXPECT_EQ(parser->MySQLOptions().Filter, myfoAll);
    EXPECT_TRUE(parser->MySQLOptions().SelectOptions.Empty());
    EXPECT_EQ(parser->GetExpression(), "SELECT ALL \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n");
}

TEST(MyParser, LimitRows)
{
    auto parser = Parse("SELECT A FROM T LIMIT 7");
    EXPECT_EQ(parser->MySQLOptions().LimitOffset, 0);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 7);
    EXPECT_TRUE(parser->IsValid());
}

TEST(MyParser, LimitOffsetAndRows)
{
    auto parser = Parse("SELECT A FROM T LIMIT 3, 8");
    EXPECT_EQ(parser->MySQLOptions().LimitOffset, 3);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 8);
    auto lower = Parse("select a from t limit 2147483647,0");
    EXPECT_EQ(lower->MySQLOptions().LimitOffset, 2147483647);
    EXPECT_EQ(lower->MySQLOptions().LimitRows, 0);
}

TEST(MyParser, LimitNeedsAnInteger)
{
    ExpectInvalidToken("SELECT A FROM T LIMIT X", "X", 23);
    ExpectInvalidToken("SELECT A FROM T LIMIT -1", "-", 23);
    ExpectInvalidToken("SELECT A FROM T LIMIT 2147483648", "2147483648", 23);
    ExpectInvalidToken("SELECT A FROM T LIMIT 1, 2147483648", "2147483648", 26);
    ExpectUnexpectedEnd("SELECT A FROM T LIMIT");
    ExpectUnexpectedEnd("SELECT A FROM T LIMIT 5,");
}

TEST(MyParser, LimitAfterWhere)
{
    auto parser = Parse("SELECT A FROM T WHERE A = 1 LIMIT 3");
    EXPECT_EQ(parser->WhereItems().Count(), 1);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 3);
}

TEST(MyParser, LimitAfterGroupBy)
{
    auto parser = Parse("SELECT A, COUNT(*) FROM T GROUP BY A LIMIT 3");
    EXPECT_EQ(parser->GroupByItems().Count(), 1);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 3);
}

TEST(MyParser, LimitAfterHaving)
{
    auto parser = Parse("SELECT A, COUNT(*) FROM T GROUP BY A HAVING COUNT(*) > 1 LIMIT 3");
    EXPECT_EQ(parser->HavingItems().Count(), 1);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 3);
}

TEST(MyParser, LimitAfterOrderByDesc)
{
    auto parser = Parse("SELECT A FROM T ORDER BY A DESC LIMIT 2, 3");
    ASSERT_EQ(parser->OrderByItems().Count(), 1);
    EXPECT_EQ(parser->OrderByItems()[0], "A");
    EXPECT_EQ(parser->OrderByItems().Orders(0), okDesc);
    EXPECT_EQ(parser->MySQLOptions().LimitOffset, 2);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 3);
}

TEST(MyParser, LimitAfterFrom)
{
    auto parser = Parse("SELECT * FROM T LIMIT 3");
    EXPECT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->MySQLOptions().LimitRows, 3);
    auto joined = Parse("SELECT * FROM T1 A LEFT JOIN T2 B ON (B.REF = A.ID) LIMIT 4");
    EXPECT_EQ(joined->TableDefs().Count(), 2);
    EXPECT_EQ(joined->MySQLOptions().LimitRows, 4);
}

TEST(MyParser, LimitWithoutFromIsRefused) { ExpectInvalidToken("SELECT A LIMIT 5", "LIMIT", 10); }

namespace {

struct TMyJoinRow {
    const char* Words;
    TVdJoinKind Kind;
    const char* Printed;
};

void PrintTo(const TMyJoinRow& row, std::ostream* os) { *os << row.Words; }

class MyParserJoins : public ::testing::TestWithParam<TMyJoinRow>
{
};

} // namespace

TEST_P(MyParserJoins, JoinWordsWorkAlthoughLeftAndRightAreFunctions)
{
    const TMyJoinRow& row = GetParam();
    auto parser =
        Parse(std::string("SELECT A.X, B.Y FROM T1 A ") + row.Words + " T2 B ON (B.REF = A.ID)");
    ASSERT_TRUE(parser->IsValid());
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    ASSERT_EQ(tables.Items(0)->JoinDefs().Count(), 1);
    const TVdJoinDef& join = *tables.Items(0)->JoinDefs().Items(0);
    EXPECT_EQ(join.JoinKind, row.Kind);
    EXPECT_EQ(join.FieldName, "ID");
    EXPECT_EQ(join.JoinTable, "B");
    EXPECT_EQ(join.JoinField, "REF");
    EXPECT_EQ(parser->GetExpression(), std::string("SELECT \r\n"
                                                   "  `A`.`X`,\r\n"
                                                   "  `B`.`Y`\r\n"
                                                   "FROM\r\n"
                                                   "  `T1` `A` \r\n"
                                                   "  ") +
                                           row.Printed + " `T2` `B` ON (`A`.`ID` = `B`.`REF`)\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    MyJoinKinds, MyParserJoins,
    ::testing::Values(TMyJoinRow{"LEFT JOIN", vdjLOuterJoin, "LEFT OUTER JOIN"},
                      TMyJoinRow{"LEFT OUTER JOIN", vdjLOuterJoin, "LEFT OUTER JOIN"},
                      TMyJoinRow{"left join", vdjLOuterJoin, "LEFT OUTER JOIN"},
                      TMyJoinRow{"RIGHT JOIN", vdjROuterJoin, "RIGHT OUTER JOIN"},
                      TMyJoinRow{"RIGHT OUTER JOIN", vdjROuterJoin, "RIGHT OUTER JOIN"},
                      TMyJoinRow{"INNER JOIN", vdjInnerJoin, "INNER JOIN"}));

TEST(MyParser, JoinOfTablesWithoutAliases)
{
    auto parser = Parse("SELECT * FROM T1 RIGHT JOIN T2 ON (T1.ID = T2.ID) LIMIT 5");
    EXPECT_EQ(parser->GetExpression(), "SELECT *\r\n"
                                       "FROM\r\n"
                                       "  `T1` \r\n"
                                       "  RIGHT OUTER JOIN `T2` ON (`T1`.`ID` = `T2`.`ID`)\r\n"
                                       "LIMIT 5");
}

TEST(MyParser, LeftAsAFunctionInTheSelectList)
{
    auto parser = Parse("SELECT LEFT(NAME, 3) FROM T");
    ASSERT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "T");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    const TVdFieldDef& field = *parser->TableDefs().Items(0)->FieldDefs().Items(0);
    EXPECT_EQ(field.Kind(), fkFunction);
    EXPECT_EQ(field.Name(), "LEFT");
    ASSERT_EQ(field.ArgumentCount(), 2);
    EXPECT_EQ(field.Argument(0)->Kind(), fkIdentifier);
    EXPECT_EQ(field.Argument(0)->Name(), "NAME");
    EXPECT_EQ(field.Argument(1)->Kind(), fkInteger);
    EXPECT_EQ(field.Argument(1)->Name(), "3");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  LEFT(`T`.`NAME`, 3) AS `FIELD_1`\r\n"
                                       "FROM\r\n"
                                       "  `T`\r\n");
}

TEST(MyParser, RightAsAFunctionWithAliasAndInWhere)
{
    auto parser = Parse("SELECT RIGHT(NAME, 2) AS R2 FROM T WHERE LEFT(NAME, 1) = 'a'");
    ASSERT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->WhereItems().Count(), 1);
    EXPECT_EQ(parser->WhereItems().Items(0)->LeftSide().Kind(), fkFunction);
    EXPECT_EQ(parser->WhereItems().Items(0)->LeftSide().Name(), "LEFT");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  RIGHT(`T`.`NAME`, 2) AS `R2`\r\n"
                                       "FROM\r\n"
                                       "  `T`\r\n"
                                       "WHERE\r\n"
                                       "  (LEFT(`NAME`, 1) = 'a')\r\n");
}

TEST(MyParser, ErrorOnALaterLine)
{
    const TErrorReport report = MyParseError("SELECT A\r\nFROM T\r\nLIMIT 5 X");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "X");
    EXPECT_EQ(report.LineNo, 3);
    EXPECT_EQ(report.LinePos, 9);
    EXPECT_EQ(report.Message, "Invalid token 'X' at position 9 of line 3.");
}

TEST(MyParser, ErrorLeavesTheParserInvalid)
{
    TVdMySelectParser parser;
    EXPECT_THROW(parser.SetExpression("SELECT A FROM T LIMIT 5 X"), EVdParserError);
    EXPECT_FALSE(parser.IsValid());
    parser.SetExpression("SELECT A FROM T LIMIT 5");
    EXPECT_TRUE(parser.IsValid());
}

TEST(MyParser, UnterminatedStringInACondition)
{
    const TErrorReport report = MyParseError("SELECT A FROM T WHERE A = 'abc\\'");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 3);
    EXPECT_EQ(report.Message, "Unterminated string.");
}

// ---- printed statements ----

TEST(MyGolden, OptionsPrintInTheFixedOrderBeforeTheFilter)
{
    EXPECT_EQ(Print("SELECT HIGH_PRIORITY SQL_BUFFER_RESULT SQL_SMALL_RESULT ALL A FROM T"),
              "SELECT SQL_SMALL_RESULT SQL_BUFFER_RESULT HIGH_PRIORITY ALL \r\n"
              "  `T`.`A`\r\n"
              "FROM\r\n"
              "  `T`\r\n");
}

TEST(MyGolden, FilterBeforeStar)
{
    EXPECT_EQ(Print("SELECT DISTINCTROW * FROM T"), "SELECT DISTINCTROW *\r\nFROM\r\n  `T`\r\n");
    EXPECT_EQ(Print("SELECT STRAIGHT_JOIN * FROM T"),
              "SELECT STRAIGHT_JOIN *\r\nFROM\r\n  `T`\r\n");
}

TEST(MyGolden, LimitRowsStandsLast)
{
    EXPECT_EQ(Print("SELECT A FROM T LIMIT 5"), std::string(kSelectT) + "LIMIT 5");
}

TEST(MyGolden, LimitOffsetAndRowsStandsLast)
{
    EXPECT_EQ(Print("SELECT A FROM T LIMIT 10, 20"), std::string(kSelectT) + "LIMIT 10, 20");
}

TEST(MyGolden, LimitOfZeroRowsIsNotPrinted)
{
    EXPECT_EQ(Print("SELECT A FROM T LIMIT 0"), kSelectT);
    EXPECT_EQ(Print("SELECT A FROM T LIMIT 0, 5"), std::string(kSelectT) + "LIMIT 5");
    EXPECT_EQ(Print("SELECT A FROM T LIMIT 10, 0"), std::string(kSelectT) + "LIMIT 10, 0");
}

TEST(MyGolden, LimitAfterEveryClause)
{
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T WHERE A > 1 GROUP BY A HAVING COUNT(*) > 2 "
                    "ORDER BY A DESC LIMIT 1, 2"),
              "SELECT \r\n"
              "  `T`.`A`,\r\n"
              "  COUNT(*) AS `FIELD_1`\r\n"
              "FROM\r\n"
              "  `T`\r\n"
              "WHERE\r\n"
              "  (`A` > 1)\r\n"
              "GROUP BY\r\n"
              "  `T`.`A`\r\n"
              "HAVING\r\n"
              "  (COUNT(*) > 2)\r\n"
              "ORDER BY\r\n"
              "  `A` DESC\r\n"
              "LIMIT 1, 2");
}

TEST(MyGolden, SelectListWithoutFromHasNoTail)
{
    TVdMySelectParser parser;
    parser.SetExpression("SELECT STRAIGHT_JOIN DISTINCTROW A");
    EXPECT_EQ(parser.MySQLOptions().Filter, myfoDistinctRow);
    parser.MySQLOptions().LimitRows = 5;
    EXPECT_EQ(parser.GetExpression(), "SELECT STRAIGHT_JOIN DISTINCTROW \r\n  `A`");
}

TEST(MyGolden, EmptyStatementPrintsNothingWhateverTheOptions)
{
    TVdMySelectParser parser;
    parser.MySQLOptions().LimitRows = 5;
    parser.MySQLOptions().Filter = myfoDistinct;
    parser.MySQLOptions().SelectOptions.Include(mysoStraightJoin);
    EXPECT_EQ(parser.GetExpression(), "");
}

TEST(MyGolden, BackQuotedNamesWithBlanks)
{
    auto parser = Parse("SELECT `my col` FROM `my table`");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "my table");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->FieldDefs().Items(0)->Name(), "my col");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  `my table`.`my col`\r\n"
                                       "FROM\r\n"
                                       "  `my table`\r\n");
}

TEST(MyGolden, AliasesAreQuoted)
{
    EXPECT_EQ(Print("SELECT A AS AMOUNT, B FROM CUSTOMERS C"), "SELECT \r\n"
                                                               "  `C`.`A` AS `AMOUNT`,\r\n"
                                                               "  `C`.`B`\r\n"
                                                               "FROM\r\n"
                                                               "  `CUSTOMERS` `C`\r\n");
}

TEST(MyGolden, BackQuotedAliasWithBlanks)
{
    auto parser = Parse("SELECT A AS `my alias` FROM T");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->FieldDefs().Items(0)->Alias(), "my alias");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  `T`.`A` AS `my alias`\r\n"
                                       "FROM\r\n"
                                       "  `T`\r\n");
}

TEST(MyGolden, NothingQuotedWithoutQuoteIdentifiers)
{
    TVdMySelectParser parser;
    parser.SetExpression("SELECT A AS AMOUNT, B FROM CUSTOMERS C WHERE C.B = 1 ORDER BY A "
                         "LIMIT 5");
    parser.Scanner().SetQuoteIdentifiers(false);
    EXPECT_EQ(parser.GetExpression(), "SELECT \r\n"
                                      "  C.A AS AMOUNT,\r\n"
                                      "  C.B\r\n"
                                      "FROM\r\n"
                                      "  CUSTOMERS C\r\n"
                                      "WHERE\r\n"
                                      "  (C.B = 1)\r\n"
                                      "ORDER BY\r\n"
                                      "  A\r\n"
                                      "LIMIT 5");
}

TEST(MyGolden, NothingQuotedWhenSwitchedOffBeforeParsing)
{
    TVdMySelectParser parser;
    parser.Scanner().SetQuoteIdentifiers(false);
    parser.SetExpression("SELECT X.ID, Y.NAME AS N FROM T1 X LEFT JOIN T2 Y ON (X.ID = Y.ID)");
    EXPECT_EQ(parser.GetExpression(), "SELECT \r\n"
                                      "  X.ID,\r\n"
                                      "  Y.NAME AS N\r\n"
                                      "FROM\r\n"
                                      "  T1 X \r\n"
                                      "  LEFT OUTER JOIN T2 Y ON (X.ID = Y.ID)\r\n");
}

TEST(MyGolden, KeywordsInLowerCase)
{
    EXPECT_EQ(
        Print("SELECT STRAIGHT_JOIN DISTINCTROW A FROM T WHERE A = 1 LIMIT 10, 20", qfmLowerCase),
        "select straight_join distinctrow \r\n"
        "  `T`.`A`\r\n"
        "from\r\n"
        "  `T`\r\n"
        "where\r\n"
        "  (`A` = 1)\r\n"
        "limit 10, 20");
    EXPECT_EQ(Print("SELECT A FROM T LIMIT 5", qfmLowerCase),
              "select \r\n  `T`.`A`\r\nfrom\r\n  `T`\r\nlimit 5");
}

TEST(MyGolden, KeywordsInUpperAndFirstUpperCase)
{
    EXPECT_EQ(Print("select sql_big_result all a from t limit 5", qfmUpperCase),
              "SELECT SQL_BIG_RESULT ALL \r\n  `t`.`a`\r\nFROM\r\n  `t`\r\nLIMIT 5");
    EXPECT_EQ(Print("select sql_big_result all a from t limit 5", qfmFirstUpper),
              "Select Sql_Big_Result All \r\n  `t`.`a`\r\nFrom\r\n  `t`\r\nLimit 5");
}

TEST(MyGolden, KeywordsAsIsPrintTheirOwnSpelling)
{
    EXPECT_EQ(Print("select high_priority distinct a from t limit 2, 3"),
              "SELECT HIGH_PRIORITY DISTINCT \r\n  `t`.`a`\r\nFROM\r\n  `t`\r\nLIMIT 2, 3");
}

TEST(MyGolden, StringsPrintBackAsWritten)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = 'it\\'s' OR A = 'it''s' OR A = 'c:\\\\dir'"),
              std::string(kSelectT) + "WHERE\r\n"
                                      "  (`A` = 'it\\'s') OR \r\n"
                                      "  (`A` = 'it''s') OR \r\n"
                                      "  (`A` = 'c:\\\\dir')\r\n");
}

TEST(MyGolden, DoubleQuotedStringsPrintInApostrophes)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = \"it's\" OR A = \"a\"\"b\" OR A = \"x\\\"y\""),
              std::string(kSelectT) + "WHERE\r\n"
                                      "  (`A` = 'it\\'s') OR \r\n"
                                      "  (`A` = 'a\"b') OR \r\n"
                                      "  (`A` = 'x\\\"y')\r\n");
}

// The quote characters a string holds at both ends are part of its text.
TEST(MyGolden, StringEnclosedInQuoteCharactersKeepsThem)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = '\"a\"'"),
              std::string(kSelectT) + "WHERE\r\n  (`A` = '\"a\"')\r\n");
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = '''a'''"),
              std::string(kSelectT) + "WHERE\r\n  (`A` = '''a''')\r\n");
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = '\\'a\\''"),
              std::string(kSelectT) + "WHERE\r\n  (`A` = '\\'a\\'')\r\n");
}

TEST(MyGolden, StringSetThroughTheModelIsEscaped)
{
    auto parser = Parse("SELECT A FROM T WHERE A = 'x'");
    ASSERT_EQ(parser->WhereItems().Count(), 1);
    ASSERT_EQ(parser->WhereItems().Items(0)->RightSide().Count(), 1);
    parser->WhereItems().Items(0)->RightSide().Items(0)->SetName("O'Brien");
    EXPECT_EQ(parser->GetExpression(), std::string(kSelectT) + "WHERE\r\n"
                                                               "  (`A` = 'O\\'Brien')\r\n");
}

// ---- round trips: parse, print, parse the print, print again ----

namespace {

class MyRoundTrip : public ::testing::TestWithParam<const char*>
{
};

} // namespace

TEST_P(MyRoundTrip, PrintIsAFixedPointAndKeepsTheOptions)
{
    TVdMySelectParser first;
    first.SetExpression(GetParam());
    const std::string printed = first.GetExpression();
    ASSERT_FALSE(printed.empty());

    TVdMySelectParser second;
    second.SetExpression(printed);
    EXPECT_EQ(second.GetExpression(), printed);
    EXPECT_EQ(Describe(second.MySQLOptions()), Describe(first.MySQLOptions()));
    EXPECT_EQ(second.GetDistinct(), first.GetDistinct());
}

INSTANTIATE_TEST_SUITE_P(
    MyStatements, MyRoundTrip,
    ::testing::Values(
        "SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW A FROM T LIMIT 10, 20",
        "SELECT SQL_BUFFER_RESULT HIGH_PRIORITY ALL A, B FROM T WHERE A = 'it\\'s' ORDER BY A "
        "DESC LIMIT 5",
        "SELECT DISTINCT `my col` AS `my alias` FROM `my table` WHERE `my col` LIKE 'a%'",
        "SELECT C.NAME, COUNT(*) FROM CUSTOMERS C LEFT JOIN ORDERS O ON (C.ID = O.CUST) "
        "GROUP BY C.NAME HAVING COUNT(*) > 1 LIMIT 0, 10",
        "SELECT LEFT(T.NAME, 3) AS L3 FROM T RIGHT JOIN S ON (T.ID = S.ID)",
        "SELECT * FROM T LIMIT 10, 0",
        "select sql_small_result a from t where b = \"x\\\"y\" limit 7",
        "SELECT A FROM T WHERE A = 'O''Brien' OR A = 'c:\\\\dir' OR A = \"it's\"",
        "SELECT STRAIGHT_JOIN * FROM T1 A INNER JOIN T2 B ON (A.ID = B.ID) WHERE (A.X = 1) AND "
        "(B.Y BETWEEN 2 AND 3) ORDER BY A.X LIMIT 100"));
