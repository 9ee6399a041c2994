// Hostile input: deep nesting, huge statements, strings and names, long lists of tables and
// conditions, NUL bytes, random and invalid bytes, blank text. Every case either reads and
// prints back exactly, or stops with the positioned error it must give; none may crash,
// overflow the stack or take more than linear time (the sizes are those a slow reader would
// notice, so a regression shows as a test that runs for minutes).
#include "core/VdConditionTree.h"
#include "core/VdSelectParser.h"
#include "tests/core/HostileText.h"

#include "tests/core/ParseErrorReport.h"
#include "tests/core/ParserSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace vd;

namespace {

using vdtest::CreateParser;
using vdtest::ParseError;
using vdtest::SettingName;
using vdtest::TErrorReport;
using vdtest::TSetting;

constexpr int Deep = 100000;
constexpr size_t Megabyte = size_t(1) << 20;
constexpr int Limit = TVdSelectParser::MaxNesting;
constexpr int GroupLimit = TVdConditionNode::MaxGroupNesting;

const TSetting AllDialects[] = {TSetting::Generic, TSetting::InterBase1, TSetting::InterBase3,
                                TSetting::Firebird3, TSetting::MySQL};

using vdtest::Join;
using vdtest::N;
using vdtest::Repeat;

std::string Visible(const std::string& s)
{
    std::string result;
    for (unsigned char c : s) {
        if (c >= 32 && c < 127) {
            result += char(c);
        } else {
            static const char hex[] = "0123456789ABCDEF";
            result += "\\x";
            result += hex[c >> 4];
            result += hex[c & 15];
        }
    }
    return result;
}

// Byte-exact comparison that stays readable for megabytes of text: sizes and the first
// difference with a little context.
::testing::AssertionResult SameText(const std::string& actual, const std::string& expected)
{
    if (actual == expected)
        return ::testing::AssertionSuccess();
    size_t at = 0;
    while (at < actual.size() && at < expected.size() && actual[at] == expected[at])
        ++at;
    const size_t from = at < 40 ? 0 : at - 40;
    return ::testing::AssertionFailure()
           << "sizes " << actual.size() << " (actual) and " << expected.size()
           << " (expected), first difference at byte " << at << "\n  actual:   ..."
           << Visible(actual.substr(from, 80)) << "\n  expected: ..."
           << Visible(expected.substr(from, 80));
}

std::string Print(TSetting dialect, const std::string& text)
{
    const auto parser = CreateParser(dialect);
    parser->SetExpression(text);
    EXPECT_TRUE(parser->IsValid());
    return parser->GetExpression();
}

// The text parses and prints as expected, and the print reads back to itself.
::testing::AssertionResult PrintsAndReadsBack(TSetting dialect, const std::string& text,
                                              const std::string& expected)
{
    std::string printed;
    try {
        printed = Print(dialect, text);
    } catch (const std::exception& e) {
        return ::testing::AssertionFailure() << "parse raised: " << Visible(e.what());
    }
    ::testing::AssertionResult first = SameText(printed, expected);
    if (!first)
        return first;
    try {
        return SameText(Print(dialect, printed), printed) << " (print read back)";
    } catch (const std::exception& e) {
        return ::testing::AssertionFailure() << "reading the print raised: " << Visible(e.what());
    }
}

::testing::AssertionResult RaisesParserError(TSetting dialect, const std::string& text, int code,
                                             const std::string& token, int lineNo, int linePos)
{
    const auto parser = CreateParser(dialect);
    TErrorReport report;
    try {
        report = ParseError(*parser, text);
    } catch (const std::exception& e) {
        return ::testing::AssertionFailure() << "raised another error: " << Visible(e.what());
    }
    if (!report.Raised)
        return ::testing::AssertionFailure()
               << "no error; prints " << Visible(parser->GetExpression().substr(0, 200));
    ::testing::AssertionResult sameToken = SameText(report.Token, token);
    if (report.Code != code || !sameToken || report.LineNo != lineNo || report.LinePos != linePos)
        return ::testing::AssertionFailure()
               << "code " << report.Code << " line " << report.LineNo << " position "
               << report.LinePos << ", expected code " << code << " line " << lineNo << " position "
               << linePos << "; token: " << sameToken.message();
    if (parser->IsValid())
        return ::testing::AssertionFailure() << "IsValid() is still true";
    // what() ends at a NUL of the token.
    if (report.Message != EVdParserError::MessageFor(code, token, lineNo, linePos).c_str())
        return ::testing::AssertionFailure() << "message " << Visible(report.Message);
    return ::testing::AssertionSuccess();
}

// What each dialect prints for the statement SELECT A FROM T, and for the name A in a
// condition.
std::string SelectAFromT(TSetting dialect)
{
    switch (dialect) {
    case TSetting::Generic:
        return "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n";
    case TSetting::MySQL:
        return "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n";
    default:
        return "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n";
    }
}

std::string NameA(TSetting dialect)
{
    switch (dialect) {
    case TSetting::Generic:
        return "\"A\"";
    case TSetting::MySQL:
        return "`A`";
    default:
        return "A";
    }
}

// Bytes of a fixed pseudo-random stream (std::mt19937 is the same everywhere), four per draw.
std::string RandomBytes(std::uint32_t seed, size_t size)
{
    std::mt19937 generator(seed);
    std::string result;
    result.reserve(size);
    while (result.size() < size) {
        const std::uint32_t value = generator();
        for (int i = 0; i < 4 && result.size() < size; ++i)
            result += char((value >> (8 * i)) & 0xFF);
    }
    return result;
}

} // namespace

// ---- 1. Parentheses in WHERE and HAVING ----

// The 257th "(" is the one refused: SELECT A FROM T WHERE takes 22 characters.
TEST(Pathological, WhereParenthesesDeeperThanTheLimitAreRefused)
{
    const std::string text =
        "SELECT A FROM T WHERE " + Repeat("(", Deep) + "A = 1" + Repeat(")", Deep);
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 23 + Limit));
}

// Parentheses around a comparison add no group, however many.
TEST(Pathological, WhereParenthesesAtTheLimitAroundAComparisonAddNoGroup)
{
    const std::string text =
        "SELECT A FROM T WHERE " + Repeat("(", Limit) + "A = 1" + Repeat(")", Limit);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, text,
                                   SelectAFromT(TSetting::Generic) + "WHERE\r\n  (\"A\" = 1)\r\n"));
}

TEST(Pathological, HavingParenthesesDeeperThanTheLimitAreRefused)
{
    // SELECT A FROM T GROUP BY A HAVING takes 34 characters.
    const std::string text =
        "SELECT A FROM T GROUP BY A HAVING " + Repeat("(", Deep) + "A = 1" + Repeat(")", Deep);
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 35 + Limit));
}

// NOT's own parenthesis counts towards the limit like a group's: "NOT (" is 5 characters.
TEST(Pathological, NotParenthesesDeeperThanTheLimitAreRefused)
{
    const std::string text =
        "SELECT A FROM T WHERE " + Repeat("NOT (", Deep) + "A = 1" + Repeat(")", Deep);
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 23 + 5 * Limit + 4));
}

// Every NOT keeps its meaning: NOT over NOT is a negated group inside a negated list. A
// negated group prints two parentheses deep, so groups nest at most GroupLimit deep below the
// clause's list, and the NOT that would open one deeper is refused ("NOT (" is 5 characters).
TEST(Pathological, NotParenthesesAtTheGroupLimitReadBack)
{
    const std::string text = "SELECT A FROM T WHERE " + Repeat("NOT (", GroupLimit + 1) + "A = 1" +
                             Repeat(")", GroupLimit + 1);
    std::string negated = "NOT ((\"A\" = 1))";
    for (int level = 0; level < GroupLimit; ++level)
        negated = "NOT ((" + negated + "))";
    EXPECT_TRUE(
        PrintsAndReadsBack(TSetting::Generic, text,
                           SelectAFromT(TSetting::Generic) + "WHERE\r\n  " + negated + "\r\n"));
}

TEST(Pathological, NotParenthesesDeeperThanTheGroupLimitAreRefused)
{
    const std::string text = "SELECT A FROM T WHERE " + Repeat("NOT (", GroupLimit + 2) + "A = 1" +
                             Repeat(")", GroupLimit + 2);
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "NOT", 1, 23 + 5 * (GroupLimit + 1)));
}

// NOT without parentheses nests too; the NOT one too deep is refused ("NOT " is 4
// characters).
TEST(Pathological, HundredThousandNotWordsAreRefusedAtTheLimit)
{
    const std::string text = "SELECT A FROM T WHERE " + Repeat("NOT ", Deep) + "A = 1";
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "NOT", 1, 23 + 4 * Limit));
}

// An operand in parentheses is kept as written, however deep.
TEST(Pathological, ParenthesesAroundAnOperandAreKeptAsWritten)
{
    const std::string operand = Repeat("(", Deep) + "1" + Repeat(")", Deep);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT A FROM T WHERE A = " + operand,
                                   SelectAFromT(TSetting::Generic) +
                                       "WHERE\r\n  (\"A\" = " + operand + ")\r\n"));
}

// IN keeps its parenthesised list as written, however deep.
TEST(Pathological, ParenthesesOfAnInListAreKeptAsWritten)
{
    const std::string list = Repeat("(", Deep) + "1" + Repeat(")", Deep);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT A FROM T WHERE A IN " + list,
                                   SelectAFromT(TSetting::Generic) + "WHERE\r\n  (\"A\" IN " +
                                       list + ")\r\n"));
}

// ---- 2. Parentheses and calls in function arguments ----

// COUNT((A)) reads "(A" as the argument and COUNT's ")" as its end; the last ")" is left over.
TEST(Pathological, ParenthesesInAFunctionArgumentOfTheSelectList)
{
    const std::string text =
        "SELECT COUNT(" + Repeat("(", Deep) + "A" + Repeat(")", Deep) + ") FROM T";
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, ")", 1, 13 + 2 * Deep + 2));
}

TEST(Pathological, ParenthesesInAFunctionArgumentOfAConditionAreKeptAsWritten)
{
    const std::string argument = Repeat("(", Deep) + "1" + Repeat(")", Deep);
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic, "SELECT A FROM T WHERE A = COUNT(" + argument + ")",
        SelectAFromT(TSetting::Generic) + "WHERE\r\n  (\"A\" = COUNT(" + argument + "))\r\n"));
}

// The "(" of the 257th call is refused; "COUNT(" is 6 characters.
TEST(Pathological, NestedCallsOfTheSelectListDeeperThanTheLimitAreRefused)
{
    const std::string text =
        "SELECT " + Repeat("COUNT(", Deep) + "A" + Repeat(")", Deep) + " FROM T";
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 8 + 6 * Limit + 5));
}

TEST(Pathological, NestedCallsOfAConditionDeeperThanTheLimitAreRefused)
{
    const std::string text =
        "SELECT A FROM T WHERE " + Repeat("COUNT(", Deep) + "A" + Repeat(")", Deep) + " = 1";
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 23 + 6 * Limit + 5));
}

TEST(Pathological, NestedCallsOfAProcedureArgumentDeeperThanTheLimitAreRefused)
{
    const std::string text =
        "SELECT A FROM P(" + Repeat("COUNT(", Deep) + "A" + Repeat(")", Deep) + ")";
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 17 + 6 * Limit + 5));
}

TEST(Pathological, NestedCallsAtTheLimitReadBack)
{
    const std::string calls = Repeat("COUNT(", Limit);
    const std::string closes = Repeat(")", Limit);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT " + calls + "A" + closes + " FROM T",
                                   "SELECT \r\n  " + calls + "\"T\".\"A\"" + closes +
                                       " AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"));
}

// The deepest tree the parser builds: groups at the limit holding calls at the limit. It is
// printed, copied and freed by recursion, which must fit on the stack.
TEST(Pathological, CallsAtTheLimitInsideGroupsAtTheLimitReadBack)
{
    const std::string inner = Repeat("COUNT(", Limit) + "A" + Repeat(")", Limit) + " = 1";
    const std::string text = "SELECT A FROM T WHERE " + Repeat("(B = 1 AND ", GroupLimit) + inner +
                             Repeat(")", GroupLimit);
    std::string group = "(\"B\" = 1) AND \r\n  (" + Repeat("COUNT(", Limit) + "\"A\"" +
                        Repeat(")", Limit) + " = 1)";
    for (int level = 1; level < GroupLimit; ++level)
        group = "(\"B\" = 1) AND \r\n  (" + group + ")";
    EXPECT_TRUE(
        PrintsAndReadsBack(TSetting::Generic, text,
                           SelectAFromT(TSetting::Generic) + "WHERE\r\n  (" + group + ")\r\n"));

    auto parser = CreateParser(TSetting::Generic);
    parser->SetExpression(text);
    TVdWhereItems copy;
    copy.Assign(parser->WhereItems());
    ASSERT_EQ(copy.Count(), 1);
    const TVdCriterion* criterion = copy.Items(0);
    for (int level = 1; level <= GroupLimit; ++level) {
        ASSERT_EQ(criterion->SubItems().Count(), 2) << "level " << level;
        criterion = criterion->SubItems().Items(1);
    }
    EXPECT_FALSE(criterion->IsGroup());
    const TVdFunctionDef* node = &criterion->LeftSide();
    for (int level = 0; level < Limit; ++level) {
        ASSERT_EQ(node->Kind(), fkFunction) << "level " << level;
        ASSERT_EQ(node->ArgumentCount(), 1) << "level " << level;
        node = node->Argument(0);
    }
    EXPECT_EQ(node->Name(), "A");
    EXPECT_EQ(node->Kind(), fkIdentifier);
}

// "(B = 1 AND " is 11 characters; the group that would nest one deeper is refused at its "(".
TEST(Pathological, GroupsDeeperThanTheGroupLimitAreRefused)
{
    const std::string text = "SELECT A FROM T WHERE " + Repeat("(B = 1 AND ", GroupLimit + 1) +
                             "A = 1" + Repeat(")", GroupLimit + 1);
    EXPECT_TRUE(RaisesParserError(TSetting::Generic, text, 1, "(", 1, 23 + 11 * GroupLimit));
}

// An expression column keeps its text as written, however deep its parentheses.
TEST(Pathological, ParenthesesInAnExpressionColumnAreKeptAsWritten)
{
    const std::string expression = "A + " + Repeat("(", Deep) + "A" + Repeat(")", Deep);
    EXPECT_TRUE(
        PrintsAndReadsBack(TSetting::Generic, "SELECT " + expression + " FROM T",
                           "SELECT \r\n  " + expression + " AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"));
}

// ---- 3. A 10 MB statement with 20,000 output columns ----

TEST(Pathological, TenMegabyteStatementWith20000Columns)
{
    const std::string padding(520, 'X');
    auto name = [&](int i) { return "C" + N(i) + "_" + padding; };
    const std::string text = "SELECT " + Join(20000, ", ", name) + " FROM T";
    ASSERT_GT(text.size(), 10 * Megabyte);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, text,
                                   "SELECT \r\n  " + Join(20000, ",\r\n  ", [&](int i) {
                                       return "\"T\".\"" + name(i) + "\"";
                                   }) + "\r\nFROM\r\n  \"T\"\r\n"));
}

// ---- 4. A 1 MB string literal ----

// In the generic dialect '...' is a quoted name kept as written; the dialects read it as a
// string and print it back in apostrophes.
TEST(Pathological, OneMegabyteStringLiteral)
{
    const std::string body(Megabyte, 'x');
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(PrintsAndReadsBack(dialect, "SELECT A FROM T WHERE A = '" + body + "'",
                                       SelectAFromT(dialect) + "WHERE\r\n  (" + NameA(dialect) +
                                           " = '" + body + "')\r\n"));
    }
}

TEST(Pathological, OneMegabyteStringOfDoubledQuotes)
{
    const std::string body = Repeat("x''", Megabyte / 3);
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(PrintsAndReadsBack(dialect, "SELECT A FROM T WHERE A = '" + body + "'",
                                       SelectAFromT(dialect) + "WHERE\r\n  (" + NameA(dialect) +
                                           " = '" + body + "')\r\n"));
    }
}

// Dialect 1 reads double quotes as a string too; MySQL prints a double-quoted string in
// apostrophes.
TEST(Pathological, OneMegabyteDoubleQuotedString)
{
    const std::string body(Megabyte, 'x');
    for (TSetting dialect : {TSetting::InterBase1, TSetting::MySQL}) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(PrintsAndReadsBack(dialect, "SELECT A FROM T WHERE A = \"" + body + "\"",
                                       SelectAFromT(dialect) + "WHERE\r\n  (" + NameA(dialect) +
                                           " = '" + body + "')\r\n"));
    }
}

TEST(Pathological, OneMegabyteMySQLStringOfEscapedQuotes)
{
    const std::string body = Repeat("\\'", Megabyte / 2);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT A FROM T WHERE A = '" + body + "'",
                                   SelectAFromT(TSetting::MySQL) + "WHERE\r\n  (`A` = '" + body +
                                       "')\r\n"));
}

// The error names the text after the opening quote, at column 28.
TEST(Pathological, UnterminatedOneMegabyteString)
{
    const std::string body(Megabyte, 'x');
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(
            RaisesParserError(dialect, "SELECT A FROM T WHERE A = '" + body, 3, body, 1, 28));
    }
}

// ---- 5. A 1 MB name ----

TEST(Pathological, OneMegabyteIdentifiers)
{
    const std::string column(Megabyte, 'N');
    const std::string table(Megabyte, 'M');
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT " + column + " FROM " + table,
                                   "SELECT \r\n  \"" + table + "\".\"" + column +
                                       "\"\r\nFROM\r\n  \"" + table + "\"\r\n"));
    // Unquoted names are read in upper case where the dialect folds them.
    const std::string lower(Megabyte, 'n');
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::InterBase3, "SELECT " + lower + " FROM T",
                                   "SELECT \r\n  T." + column + "\r\nFROM\r\n  T\r\n"));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT " + lower + " FROM T",
                                   "SELECT \r\n  `T`.`" + lower + "`\r\nFROM\r\n  `T`\r\n"));
}

// A name that needs its quotes (blanks, an inner quote doubled) keeps them.
TEST(Pathological, OneMegabyteQuotedIdentifier)
{
    const std::string quoted = "\"" + Repeat("a \"\"b", Megabyte / 6) + "\"";
    for (TSetting dialect : {TSetting::Generic, TSetting::InterBase3, TSetting::Firebird3}) {
        SCOPED_TRACE(SettingName(dialect));
        const std::string table = dialect == TSetting::Generic ? "\"T\"" : "T";
        EXPECT_TRUE(PrintsAndReadsBack(dialect, "SELECT " + quoted + " FROM T",
                                       "SELECT \r\n  " + table + "." + quoted + "\r\nFROM\r\n  " +
                                           table + "\r\n"));
    }
    const std::string backQuoted = "`" + Repeat("a ``b", Megabyte / 6) + "`";
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT " + backQuoted + " FROM T",
                                   "SELECT \r\n  `T`." + backQuoted + "\r\nFROM\r\n  `T`\r\n"));
}

// P0.P1. ... .Pn.F: the qualifier is one table name with dots, which prints as its prefix in
// one pair of quotes and its last part in another. A copy of the qualifier per part made
// this cost the square of its length.
TEST(Pathological, QualifierOfHundredThousandParts)
{
    const int parts = Deep;
    const std::string qualifier = Join(parts, ".", [](int i) { return "P" + N(i); });
    const std::string printed = "\"" + Join(parts - 1, ".", [](int i) { return "P" + N(i); }) +
                                "\".\"P" + N(parts - 1) + "\"";
    EXPECT_TRUE(
        PrintsAndReadsBack(TSetting::Generic, "SELECT " + qualifier + ".F FROM " + qualifier,
                           "SELECT \r\n  " + printed + ".\"F\"\r\nFROM\r\n  " + printed + "\r\n"));
}

// ---- 6. 5,000 tables ----

TEST(Pathological, JoinChainOf5000Tables)
{
    const int tables = 5000;
    std::string text = "SELECT T0.A FROM T0";
    std::string expected = "SELECT \r\n  \"T0\".\"A\"\r\nFROM\r\n  \"T0\"";
    for (int i = 1; i < tables; ++i) {
        text += " INNER JOIN T" + N(i) + " ON (T" + N(i - 1) + ".A = T" + N(i) + ".B)";
        expected += " \r\n  INNER JOIN \"T" + N(i) + "\" ON (\"T" + N(i - 1) + "\".\"A\" = \"T" +
                    N(i) + "\".\"B\")";
    }
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, text, expected + "\r\n"));
}

TEST(Pathological, CommaListOf5000Tables)
{
    const int tables = 5000;
    auto name = [](int i) { return "T" + N(i); };
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic, "SELECT T0.A FROM " + Join(tables, ", ", name),
        "SELECT \r\n  \"T0\".\"A\"\r\nFROM\r\n  " +
            Join(tables, ",\r\n  ", [&](int i) { return "\"" + name(i) + "\""; }) + "\r\n"));
}

// Each table of the list is given the unqualified column, with an alias of its own.
TEST(Pathological, CommaListOf5000TablesGivesEachTheUnqualifiedColumn)
{
    const int tables = 5000;
    auto name = [](int i) { return "T" + N(i); };
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic, "SELECT A FROM " + Join(tables, ", ", name),
        "SELECT \r\n  " +
            Join(tables, ",\r\n  ",
                 [&](int i) {
                     return "\"" + name(i) + "\".\"A\"" + (i ? " AS A" + N(i) : std::string());
                 }) +
            "\r\nFROM\r\n  " +
            Join(tables, ",\r\n  ", [&](int i) { return "\"" + name(i) + "\""; }) + "\r\n"));
}

// The select list names each table first, so all stand unnamed (under the name "") until
// FROM names them one by one; each left that key by a search through all of them.
TEST(Pathological, QualifiedColumnsOf5000Tables)
{
    const int tables = 5000;
    auto name = [](int i) { return "T" + N(i); };
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic,
        "SELECT " + Join(tables, ", ", [&](int i) { return name(i) + ".A"; }) + " FROM " +
            Join(tables, ", ", name),
        "SELECT \r\n  " +
            Join(tables, ",\r\n  ",
                 [&](int i) {
                     return "\"" + name(i) + "\".\"A\"" + (i ? " AS A" + N(i) : std::string());
                 }) +
            "\r\nFROM\r\n  " +
            Join(tables, ",\r\n  ", [&](int i) { return "\"" + name(i) + "\""; }) + "\r\n"));
}

// A join condition naming a table with a dotted name, among more tables than a hash lookup
// skips: the name was looked up once per part.
TEST(Pathological, JoinOnAQualifierOfHundredThousandParts)
{
    const int parts = Deep;
    const std::string dotted = Join(parts, ".", [](int i) { return "S" + N(i); });
    const std::string printed = "\"" + Join(parts - 1, ".", [](int i) { return "S" + N(i); }) +
                                "\".\"S" + N(parts - 1) + "\"";
    auto table = [](int i) { return "T" + N(i + 2); };
    const std::string text = "SELECT T2.A FROM " + Join(30, ", ", table) + ", " + dotted +
                             " INNER JOIN T1 ON (" + dotted + ".X = T1.B)";
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic, text,
        "SELECT \r\n  \"T2\".\"A\"\r\nFROM\r\n  " +
            Join(30, ",\r\n  ", [&](int i) { return "\"" + table(i) + "\""; }) + ",\r\n  " +
            printed + " \r\n  INNER JOIN \"T1\" ON (" + printed + ".\"X\" = \"T1\".\"B\")\r\n"));
}

// ---- 7. 50,000 conditions ----

TEST(Pathological, AndChainOf50000Conditions)
{
    const int n = 50000;
    const std::string expected =
        SelectAFromT(TSetting::Generic) + "WHERE\r\n  " +
        Join(n, " AND \r\n  ", [](int i) { return "(\"A" + N(i) + "\" = " + N(i) + ")"; }) + "\r\n";
    EXPECT_TRUE(
        PrintsAndReadsBack(TSetting::Generic,
                           "SELECT A FROM T WHERE " +
                               Join(n, " AND ", [](int i) { return "A" + N(i) + " = " + N(i); }),
                           expected));
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic,
        "SELECT A FROM T WHERE " +
            Join(n, " AND ", [](int i) { return "(A" + N(i) + " = " + N(i) + ")"; }),
        expected));
}

// A0 OR A1 AND A2 OR A3 AND A4 ...: AND binds tighter, so the pairs are groups of an OR list.
std::string MixedChainPrint(int n)
{
    std::string out = "(\"A0\" = 0)";
    for (int i = 1; i < n; i += 2) {
        out += " OR \r\n  ";
        const std::string a = "(\"A" + N(i) + "\" = " + N(i) + ")";
        if (i + 1 < n)
            out += "(" + a + " AND \r\n  (\"A" + N(i + 1) + "\" = " + N(i + 1) + "))";
        else
            out += a;
    }
    return out;
}

TEST(Pathological, MixedAndOrChainOf50000ConditionsFollowsPrecedence)
{
    const int n = 50000;
    std::string text = "SELECT A FROM T WHERE A0 = 0";
    for (int i = 1; i < n; ++i)
        text += std::string(i % 2 ? " OR " : " AND ") + "A" + N(i) + " = " + N(i);
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, text,
                                   SelectAFromT(TSetting::Generic) + "WHERE\r\n  " +
                                       MixedChainPrint(n) + "\r\n"));
}

TEST(Pathological, MixedAndOrGroupOf50000Conditions)
{
    const int n = 50000;
    std::string text = "SELECT A FROM T WHERE ((A0 = 0)";
    for (int i = 1; i < n; ++i)
        text += std::string(i % 2 ? " OR " : " AND ") + "(A" + N(i) + " = " + N(i) + ")";
    text += ")";
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, text,
                                   SelectAFromT(TSetting::Generic) + "WHERE\r\n  (" +
                                       MixedChainPrint(n) + ")\r\n"));
}

// A connector that changes inside a group behind 50,000 conditions nests that group's items by
// precedence and leaves the others alone.
TEST(Pathological, ConnectorChangeBehind50000ConditionsKeepsItsMeaning)
{
    const int n = 50000;
    const std::string text =
        "SELECT A FROM T WHERE " +
        Join(n, " AND ", [](int i) { return "(A" + N(i) + " = " + N(i) + ")"; }) +
        " AND ((B = 1) AND (C = 2) OR (D = 3))";
    EXPECT_TRUE(PrintsAndReadsBack(
        TSetting::Generic, text,
        SelectAFromT(TSetting::Generic) + "WHERE\r\n  " + Join(n, " AND \r\n  ", [](int i) {
            return "(\"A" + N(i) + "\" = " + N(i) + ")";
        }) + " AND \r\n  (((\"B\" = 1) AND \r\n  (\"C\" = 2)) OR \r\n  (\"D\" = 3))\r\n"));
}

// ---- 8. NUL bytes ----

TEST(Pathological, NulAloneIsAnInvalidToken)
{
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(
            RaisesParserError(dialect, std::string(1, '\0'), 1, std::string(1, '\0'), 1, 1));
    }
}

// NUL is no letter, delimiter, blank or quote: it continues a word, which then is no name.
TEST(Pathological, NulInsideAWordMakesItAnInvalidToken)
{
    using namespace std::string_literals;
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(RaisesParserError(dialect, "SELECT A\0 FROM T"s, 1, "A\0"s, 1, 8));
        EXPECT_TRUE(RaisesParserError(dialect, "SELECT A FROM T\0"s, 1, "T\0"s, 1, 15));
    }
}

// After the first item such a word is an item of unknown kind, printed as written.
TEST(Pathological, NulWordAfterTheFirstSelectItemIsKeptAsWritten)
{
    using namespace std::string_literals;
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT A, B\0 FROM T"s,
                                   "SELECT \r\n  \"T\".\"A\",\r\n  B\0\r\nFROM\r\n  \"T\"\r\n"s));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::InterBase3, "SELECT A, B\0 FROM T"s,
                                   "SELECT \r\n  T.A,\r\n  B\0\r\nFROM\r\n  T\r\n"s));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT A, B\0 FROM T"s,
                                   "SELECT \r\n  `T`.`A`,\r\n  B\0\r\nFROM\r\n  `T`\r\n"s));
}

TEST(Pathological, NulInsideStringsAndQuotedNames)
{
    using namespace std::string_literals;
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(PrintsAndReadsBack(dialect, "SELECT A FROM T WHERE A = 'a\0b'"s,
                                       SelectAFromT(dialect) + "WHERE\r\n  (" + NameA(dialect) +
                                           " = 'a\0b')\r\n"s));
    }
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT \"a\0b\" FROM T"s,
                                   "SELECT \r\n  \"T\".\"a\0b\"\r\nFROM\r\n  \"T\"\r\n"s));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::InterBase3, "SELECT \"a\0b\" FROM T"s,
                                   "SELECT \r\n  T.\"a\0b\"\r\nFROM\r\n  T\r\n"s));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Firebird3, "SELECT \"a\0b\" FROM T"s,
                                   "SELECT \r\n  T.\"a\0b\"\r\nFROM\r\n  T\r\n"s));
    // Double quotes make a string in dialect 1 and MySQL: a column of its own kind.
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::InterBase1, "SELECT \"a\0b\" FROM T"s,
                                   "SELECT \r\n  'a\0b' AS FIELD_1\r\nFROM\r\n  T\r\n"s));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT \"a\0b\" FROM T"s,
                                   "SELECT \r\n  'a\0b' AS `FIELD_1`\r\nFROM\r\n  `T`\r\n"s));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT `a\0b` FROM T"s,
                                   "SELECT \r\n  `T`.`a\0b`\r\nFROM\r\n  `T`\r\n"s));
}

// ---- 9. Random and high-bit bytes ----

// The stream begins with '%' (no letter, digit, quote, blank or delimiter), so the first token
// runs up to the first quote, blank or delimiter and cannot begin a statement.
TEST(Pathological, OneMegabyteOfRandomBytesStopsAtItsFirstToken)
{
    const std::string text = RandomBytes(1, Megabyte);
    ASSERT_EQ(text[0], '%');
    const std::string stops = std::string(".,/\\;:(){}[]*+-<=>!\r \t\"'");
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        const std::string ends = stops + (dialect == TSetting::MySQL ? "`" : "");
        const std::string token = text.substr(0, text.find_first_of(ends));
        ASSERT_LT(token.size(), 20u);
        EXPECT_TRUE(RaisesParserError(dialect, text, 1, token, 1, 1));
    }
}

// Bytes 0x80 to 0xFF belong to no character class: a megabyte of them is one token.
TEST(Pathological, OneMegabyteOfHighBitBytesIsOneInvalidToken)
{
    std::string text = RandomBytes(2, Megabyte);
    for (char& c : text)
        c = char(static_cast<unsigned char>(c) | 0x80);
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(RaisesParserError(dialect, text, 1, text, 1, 1));
    }
}

// Random bytes of every value, NUL, CR and LF included, between quotes: the apostrophes are
// doubled (and MySQL's backslashes left out), so the text is one string that prints back byte
// for byte. In the generic dialect it is a quoted name; one with a "." in it (and no ".db") is
// kept in identifier quotes, where it prints unchanged.
TEST(Pathological, OneMegabyteOfRandomBytesInAString)
{
    const std::string bytes = RandomBytes(3, Megabyte);
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        std::string plain = "x";
        for (char c : bytes)
            if (c != '\\' || dialect != TSetting::MySQL)
                plain += c;
        plain += "x";
        std::string body;
        for (char c : plain)
            body += c == '\'' ? std::string("''") : std::string(1, c);
        std::string printed = "'" + body + "'";
        if (dialect == TSetting::Generic) {
            std::string lower = plain;
            for (char& c : lower)
                c = char(std::tolower(static_cast<unsigned char>(c)));
            ASSERT_NE(plain.find('.'), std::string::npos);
            ASSERT_EQ(lower.find(".db"), std::string::npos);
            printed = "\"";
            for (char c : plain)
                printed += c == '"' ? std::string("\"\"") : std::string(1, c);
            printed += "\"";
        }
        EXPECT_TRUE(PrintsAndReadsBack(dialect, "SELECT A FROM T WHERE A = '" + body + "'",
                                       SelectAFromT(dialect) + "WHERE\r\n  (" + NameA(dialect) +
                                           " = " + printed + ")\r\n"));
    }
}

// The scanner itself walks a megabyte of random bytes to its end: every token starts after
// the one before, inside the text, and the walk ends at the end of the text or at a string
// left open.
TEST(Pathological, ScannerWalksOneMegabyteOfRandomBytes)
{
    const std::string text = RandomBytes(4, Megabyte);
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        const auto parser = CreateParser(dialect);
        TVdSQLScanner& scanner = parser->Scanner();
        int tokens = 0;
        int lastStart = 0;
        bool open = false;
        try {
            scanner.SetExpression(text);
            while (scanner.TokenKind() != tkEnd) {
                ++tokens;
                ASSERT_GT(scanner.TokenStart(), lastStart) << "token " << tokens;
                ASSERT_LE(scanner.TokenEnd(), int(text.size()) + 1) << "token " << tokens;
                lastStart = scanner.TokenStart();
                scanner.GetNextToken();
            }
        } catch (const EVdParserError& e) {
            EXPECT_EQ(e.Code, 3);
            open = true;
        }
        EXPECT_GT(tokens, 1000);
        if (!open) {
            EXPECT_GT(scanner.Position(), scanner.Length());
        }
    }
}

// ---- 10. Invalid UTF-8 ----

// Outside quotes a byte above 0x7F is no letter: "\xC3(" gives the token "\xC3".
TEST(Pathological, InvalidUtf8OutsideQuotesIsAnInvalidToken)
{
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(RaisesParserError(dialect, "SELECT \xC3\x28 FROM T", 1, "\xC3", 1, 8));
        EXPECT_TRUE(RaisesParserError(dialect, "SELECT A FROM \xFF\xFE", 1, "\xFF\xFE", 1, 15));
    }
}

// Truncated and overlong sequences, lone continuation bytes and encoded surrogates, inside
// quotes, are kept byte for byte.
TEST(Pathological, InvalidUtf8InsideQuotesIsKeptByteForByte)
{
    const std::string bad = "\xC3\x28\xFF\xFE\xC0\x80\x80\xED\xA0\x80\xF8\x88\x80\x80\x80";
    const std::string text = "SELECT A FROM T WHERE A = '" + bad + "'";
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(PrintsAndReadsBack(dialect, text,
                                       SelectAFromT(dialect) + "WHERE\r\n  (" + NameA(dialect) +
                                           " = '" + bad + "')\r\n"));
    }
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::Generic, "SELECT \"" + bad + "\" FROM T",
                                   "SELECT \r\n  \"T\".\"" + bad + "\"\r\nFROM\r\n  \"T\"\r\n"));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::InterBase3, "SELECT \"" + bad + "\" FROM T",
                                   "SELECT \r\n  T.\"" + bad + "\"\r\nFROM\r\n  T\r\n"));
    EXPECT_TRUE(PrintsAndReadsBack(TSetting::MySQL, "SELECT `" + bad + "` FROM T",
                                   "SELECT \r\n  `T`.`" + bad + "`\r\nFROM\r\n  `T`\r\n"));
}

// ---- 11. Blank text ----

TEST(Pathological, BlanksTabsAndLineBreaksAloneGiveAnEmptyStatement)
{
    for (TSetting dialect : AllDialects) {
        for (const std::string text : {" ", "   ", "\t\t", "\r\n", "\r\n\r\n", " \t\r\n\t \r\n "}) {
            SCOPED_TRACE(std::string(SettingName(dialect)) + ": " + Visible(text));
            const auto parser = CreateParser(dialect);
            parser->SetExpression("SELECT A FROM T");
            ASSERT_EQ(parser->TableDefs().Count(), 1);
            EXPECT_NO_THROW(parser->SetExpression(text));
            EXPECT_TRUE(parser->IsValid());
            EXPECT_EQ(parser->TableDefs().Count(), 0);
            EXPECT_EQ(parser->GetExpression(), "");
        }
    }
}

// Lines break at CR LF only: a lone LF is a character of a word, a lone CR a delimiter.
TEST(Pathological, LoneLineFeedIsPartOfAWord)
{
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(RaisesParserError(dialect, "\n", 1, "\n", 1, 1));
        EXPECT_TRUE(RaisesParserError(dialect, " \n\n", 1, "\n\n", 1, 2));
        EXPECT_TRUE(RaisesParserError(dialect, "SELECT\nA FROM T", 1, "SELECT\nA", 1, 1));
    }
}

TEST(Pathological, LoneCarriageReturnIsAnInvalidToken)
{
    for (TSetting dialect : AllDialects) {
        SCOPED_TRACE(SettingName(dialect));
        EXPECT_TRUE(RaisesParserError(dialect, "\r", 1, "\r", 1, 1));
        EXPECT_TRUE(RaisesParserError(dialect, " \r\n\r", 1, "\r", 2, 1));
        EXPECT_TRUE(RaisesParserError(dialect, "\t\r \r\n", 1, "\r", 1, 2));
    }
}

// ---- Regressions found with the inputs above ----

// GROUP BY drops a name met before; the list was searched once per item.
TEST(PathologicalRegression, GroupByOf40000NamesKeepsTheFirstOfEach)
{
    const int n = 20000;
    auto name = [](int i) { return "C" + N(i); };
    TVdSelectParser parser;
    parser.SetExpression("SELECT A FROM T GROUP BY " + Join(n, ", ", name) + ", " +
                         Join(n, ", ", [&](int i) { return name(n - 1 - i); }));
    const std::vector<std::string>& lines = parser.GroupByItems().Lines();
    ASSERT_EQ(lines.size(), size_t(n));
    for (int i = 0; i < n; ++i)
        ASSERT_EQ(lines[size_t(i)], name(i));
}

// A join of a table to itself, its owner deleted, its list cleared and filled again, tables
// added around it: renaming the joined table must still rename each join that names it, and
// only those.
TEST(PathologicalRegression, RenamingATableRenamesItsJoinsAfterEveryChangeOfTheJoinLists)
{
    TVdSelectParser parser;
    TVdTableDefs& tables = parser.TableDefs();
    TVdTableDef* a = tables.Add();
    a->SetName("A");
    TVdTableDef* b = tables.Add();
    b->SetName("B");
    // No join at all yet: a rename has nothing to find.
    b->SetAlias("B1");

    TVdJoinDef* join = a->JoinDefs().Add();
    join->JoinTable = "B1";
    b->SetAlias("B2");
    EXPECT_EQ(join->JoinTable, "B2");

    a->JoinDefs().Clear();
    join = a->JoinDefs().Add();
    join->JoinTable = "B2";
    b->SetAlias("B3");
    EXPECT_EQ(join->JoinTable, "B3");

    a->JoinDefs().Delete(0);
    TVdJoinDef* other = b->JoinDefs().Add();
    other->JoinTable = "B3";
    TVdJoinDef* third = b->JoinDefs().Insert(0);
    third->JoinTable = "A";
    b->SetAlias("B4");
    EXPECT_EQ(other->JoinTable, "B4");
    EXPECT_EQ(third->JoinTable, "A");

    // A table copied with its joins brings them along.
    TVdTableDef* c = tables.Add();
    c->Assign(*b);
    b->JoinDefs().Clear();
    ASSERT_EQ(c->JoinDefs().Count(), 2);
    a->SetAlias("A1");
    EXPECT_EQ(c->JoinDefs().Items(0)->JoinTable, "A1");

    // Deleting the table that holds the joins leaves none; a new one is found again.
    tables.Delete(c->Index());
    a->SetAlias("A2");
    TVdJoinDef* last = b->JoinDefs().Add();
    last->JoinTable = "A2";
    a->SetAlias("A3");
    EXPECT_EQ(last->JoinTable, "A3");

    // After clearing the whole collection, joins of new tables are found as before.
    tables.Clear();
    TVdTableDef* d = tables.Add();
    d->SetName("D");
    TVdTableDef* e = tables.Add();
    e->SetName("E");
    TVdJoinDef* de = d->JoinDefs().Add();
    de->JoinTable = "E";
    e->SetAlias("E1");
    EXPECT_EQ(de->JoinTable, "E1");
}

// Deleting several items at once: in any order, each once, the rest renumbered; a position
// out of range deletes nothing.
TEST(PathologicalRegression, DeleteItemsTakesSeveralPositionsInOnePass)
{
    TVdSelectParser parser;
    TVdCriterions& list = parser.WhereItems();
    for (int i = 0; i < 8; ++i)
        list.Add()->LeftSide().SetName("A" + N(i));
    EXPECT_THROW(list.DeleteItems({1, 8}), EVdListError);
    EXPECT_EQ(list.Count(), 8);
    list.DeleteItems({6, 0, 3, 6});
    ASSERT_EQ(list.Count(), 5);
    const char* kept[] = {"A1", "A2", "A4", "A5", "A7"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(list.Items(i)->LeftSide().Name(), kept[i]);
        EXPECT_EQ(list.Items(i)->Index(), i);
    }
    list.DeleteItems({});
    EXPECT_EQ(list.Count(), 5);
}
