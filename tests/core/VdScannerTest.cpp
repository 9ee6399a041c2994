#include "core/VdScanner.h"
#include "core/VdError.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

using vd::TTokenKind;
using vd::TVdSQLScanner;

namespace {

// One returned token with the line and the column just behind it.
struct Tok {
    TTokenKind Kind;
    std::string Text;
    int Line;
    int Pos;
};

bool operator==(const Tok& a, const Tok& b)
{
    return a.Kind == b.Kind && a.Text == b.Text && a.Line == b.Line && a.Pos == b.Pos;
}

std::string Escaped(const std::string& s)
{
    std::string r;
    for (char c : s) {
        if (c == '\r')
            r += "\\r";
        else if (c == '\n')
            r += "\\n";
        else if (c == '\t')
            r += "\\t";
        else
            r += c;
    }
    return r;
}

void PrintTo(const Tok& t, std::ostream* os)
{
    *os << "{" << vd::TokenKindName(t.Kind) << ", \"" << Escaped(t.Text) << "\", " << t.Line << ", "
        << t.Pos << "}";
}

constexpr int kMaxTokens = 1000;

// Scans text to its end; the last entry is the tkEnd token.
std::vector<Tok> ScanAll(TVdSQLScanner& s, const std::string& text)
{
    std::vector<Tok> r;
    s.SetExpression(text);
    for (int i = 0; i < kMaxTokens; ++i) {
        r.push_back({s.TokenKind(), s.Token(), s.LineNo(), s.LinePos()});
        if (s.TokenKind() == vd::tkEnd)
            break;
        s.GetNextToken();
    }
    return r;
}

std::vector<Tok> ScanAll(const std::string& text)
{
    TVdSQLScanner s;
    return ScanAll(s, text);
}

// SpaceCount after each token, the tkEnd token included.
std::vector<int> SpaceCounts(const std::string& text)
{
    TVdSQLScanner s;
    std::vector<int> r;
    s.SetExpression(text);
    for (int i = 0; i < kMaxTokens; ++i) {
        r.push_back(s.SpaceCount());
        if (s.TokenKind() == vd::tkEnd)
            break;
        s.GetNextToken();
    }
    return r;
}

// Level after each token, the tkEnd token included.
std::vector<int> Levels(const std::string& text)
{
    TVdSQLScanner s;
    std::vector<int> r;
    s.SetExpression(text);
    for (int i = 0; i < kMaxTokens; ++i) {
        r.push_back(s.Level());
        if (s.TokenKind() == vd::tkEnd)
            break;
        s.GetNextToken();
    }
    return r;
}

// Scans text to its end and returns the parser error raised on the way, if any.
std::optional<vd::EVdParserError> ScanError(const std::string& text)
{
    TVdSQLScanner s;
    try {
        s.SetExpression(text);
        for (int i = 0; i < kMaxTokens && s.TokenKind() != vd::tkEnd; ++i)
            s.GetNextToken();
    } catch (const vd::EVdParserError& e) {
        return e;
    }
    return std::nullopt;
}

struct ScanCase {
    const char* Name;
    std::string Input;
    std::vector<Tok> Expected;
};

void PrintTo(const ScanCase& c, std::ostream* os)
{
    *os << c.Name << " \"" << Escaped(c.Input) << "\"";
}

std::string CaseName(const ::testing::TestParamInfo<ScanCase>& info) { return info.param.Name; }

void CheckScan(const ScanCase& c)
{
    EXPECT_EQ(ScanAll(c.Input), c.Expected) << "input \"" << Escaped(c.Input) << "\"";
}

} // namespace

// ---- Token kinds ----

TEST(VdTokenKindName, AllKindsInEnumOrder)
{
    const std::vector<std::string> names = {
        "tkUnknown", "tkKeyword", "tkFunction",    "tkDelim",     "tkInteger",
        "tkFloat",   "tkString",  "tkQuote",       "tkSpace",     "tkEol",
        "tkEnd",     "tkIdent",   "tkIdentString", "tkOperation", "tkComparison"};
    ASSERT_EQ(names.size(), 15u);
    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(vd::TokenKindName(TTokenKind(i)), names[i]) << "value " << i;
}

TEST(VdTokenKindName, ValuesMatchDeclarationOrder)
{
    EXPECT_EQ(int(vd::tkUnknown), 0);
    EXPECT_EQ(int(vd::tkKeyword), 1);
    EXPECT_EQ(int(vd::tkFunction), 2);
    EXPECT_EQ(int(vd::tkDelim), 3);
    EXPECT_EQ(int(vd::tkInteger), 4);
    EXPECT_EQ(int(vd::tkFloat), 5);
    EXPECT_EQ(int(vd::tkString), 6);
    EXPECT_EQ(int(vd::tkQuote), 7);
    EXPECT_EQ(int(vd::tkSpace), 8);
    EXPECT_EQ(int(vd::tkEol), 9);
    EXPECT_EQ(int(vd::tkEnd), 10);
    EXPECT_EQ(int(vd::tkIdent), 11);
    EXPECT_EQ(int(vd::tkIdentString), 12);
    EXPECT_EQ(int(vd::tkOperation), 13);
    EXPECT_EQ(int(vd::tkComparison), 14);
}

// ---- Construction ----

TEST(VdScanner, ConstructorStartsAtLineOneColumnOne)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.LineNo(), 1);
    EXPECT_EQ(s.LinePos(), 1);
    EXPECT_TRUE(s.QuoteIdentifiers());
    EXPECT_EQ(s.Position(), 1);
    EXPECT_EQ(s.Level(), 0);
    EXPECT_FALSE(s.InString());
    EXPECT_EQ(s.QuoteChar(), '\0');
}

TEST(VdScanner, SetExpressionStoresTextAndLength)
{
    TVdSQLScanner s;
    s.SetExpression("SELECT x");
    EXPECT_EQ(s.Expression(), "SELECT x");
    EXPECT_EQ(s.Length(), 8);
}

TEST(VdScanner, SetExpressionGivesFirstToken)
{
    TVdSQLScanner s;
    s.SetExpression("  SELECT x");
    EXPECT_EQ(s.Token(), "SELECT");
    EXPECT_EQ(s.TokenKind(), vd::tkKeyword);
    EXPECT_EQ(s.Position(), 9);
    EXPECT_EQ(s.LinePos(), 9);
}

TEST(VdScanner, SetExpressionOnEmptyTextGivesEnd)
{
    TVdSQLScanner s;
    s.SetExpression("");
    EXPECT_EQ(s.Token(), "");
    EXPECT_EQ(s.TokenKind(), vd::tkEnd);
    EXPECT_EQ(s.Position(), 1);
}

TEST(VdScanner, SetExpressionAgainStartsOver)
{
    TVdSQLScanner s;
    s.SetExpression("(a\r\n'b' c");
    s.GetNextToken(); // a
    s.GetNextToken(); // b, inside the string
    ASSERT_EQ(s.LineNo(), 2);
    ASSERT_TRUE(s.InString());
    s.SetExpression("c");
    EXPECT_EQ(s.Token(), "c");
    EXPECT_EQ(s.TokenKind(), vd::tkIdent);
    EXPECT_EQ(s.LineNo(), 1);
    EXPECT_EQ(s.LinePos(), 2);
    EXPECT_EQ(s.Level(), 0);
    EXPECT_FALSE(s.InString());
}

TEST(VdScanner, GetNextTokenReturnsTheTokenText)
{
    TVdSQLScanner s;
    s.SetExpression("a bc");
    const std::string& t = s.GetNextToken();
    EXPECT_EQ(t, "bc");
    EXPECT_EQ(s.Token(), "bc");
}

// ---- Character classes ----

namespace {

bool InSet(char c, std::string_view set)
{
    return c != '\0' && set.find(c) != std::string_view::npos;
}

} // namespace

TEST(VdScannerClasses, IsAlphaAsciiLettersOnly)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i) {
        const bool expected = (i >= 'A' && i <= 'Z') || (i >= 'a' && i <= 'z');
        EXPECT_EQ(s.IsAlpha(char(i)), expected) << "char " << i;
    }
}

TEST(VdScannerClasses, IsAlphaRejectsUnderscoreAndHighCharacters)
{
    TVdSQLScanner s;
    EXPECT_FALSE(s.IsAlpha('_'));
    EXPECT_FALSE(s.IsAlpha(char(0xC4)));
    EXPECT_FALSE(s.IsAlpha(char(0xE9)));
    EXPECT_FALSE(s.IsAlpha(char(0x80)));
}

TEST(VdScannerClasses, IsDigitZeroToNine)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(s.IsDigit(char(i)), i >= '0' && i <= '9') << "char " << i;
}

TEST(VdScannerClasses, IsDelimSetAndCarriageReturn)
{
    TVdSQLScanner s;
    const std::string_view set = ".,/\\;:(){}[]*+-<=>!";
    for (int i = 0; i < 256; ++i) {
        const char c = char(i);
        EXPECT_EQ(s.IsDelim(c), c == '\r' || InSet(c, set)) << "char " << i;
    }
}

TEST(VdScannerClasses, IsDelimExcludesLineFeedAndBlank)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsDelim('\r'));
    EXPECT_FALSE(s.IsDelim('\n'));
    EXPECT_FALSE(s.IsDelim(' '));
    EXPECT_FALSE(s.IsDelim('\''));
    EXPECT_FALSE(s.IsDelim('_'));
}

TEST(VdScannerClasses, IsQuoteDoubleQuoteAndApostrophe)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(s.IsQuote(char(i)), i == 34 || i == 39) << "char " << i;
}

TEST(VdScannerClasses, IsSpaceTabAndBlankOnly)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(s.IsSpace(char(i)), i == 9 || i == 32) << "char " << i;
}

TEST(VdScannerClasses, LineFeedIsNoSpace)
{
    TVdSQLScanner s;
    EXPECT_FALSE(s.IsSpace('\n'));
    EXPECT_FALSE(s.IsSpace('\r'));
}

TEST(VdScannerClasses, LevelUpAndDownParenthesesOnly)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(s.ShouldLevelUp(char(i)), i == '(') << "char " << i;
        EXPECT_EQ(s.ShouldLevelDown(char(i)), i == ')') << "char " << i;
    }
}

TEST(VdScannerClasses, IsComparisonLessEqualGreater)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(s.IsComparison(char(i)), InSet(char(i), "<=>")) << "char " << i;
}

TEST(VdScannerClasses, IsIdentQuoteSameSetAsIsQuote)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(s.IsIdentQuote(char(i)), i == '"' || i == '\'') << "char " << i;
}

TEST(VdScannerClasses, IsLegalSymbolLettersDigitsMinusUnderscore)
{
    TVdSQLScanner s;
    for (int i = 0; i < 256; ++i) {
        const bool expected = (i >= 'A' && i <= 'Z') || (i >= 'a' && i <= 'z') ||
                              (i >= '0' && i <= '9') || i == '-' || i == '_';
        EXPECT_EQ(s.IsLegalSymbol(char(i)), expected) << "char " << i;
    }
}

TEST(VdScannerClasses, IsIdentifier)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsIdentifier("A"));
    EXPECT_TRUE(s.IsIdentifier("abc"));
    EXPECT_TRUE(s.IsIdentifier("a1"));
    EXPECT_TRUE(s.IsIdentifier("A_B"));
    EXPECT_TRUE(s.IsIdentifier("MY-COL"));
    EXPECT_TRUE(s.IsIdentifier("a-"));
    EXPECT_FALSE(s.IsIdentifier(""));
    EXPECT_FALSE(s.IsIdentifier("_A"));
    EXPECT_FALSE(s.IsIdentifier("-A"));
    EXPECT_FALSE(s.IsIdentifier("1A"));
    EXPECT_FALSE(s.IsIdentifier("A B"));
    EXPECT_FALSE(s.IsIdentifier("A.B"));
    EXPECT_FALSE(s.IsIdentifier("A$"));
    EXPECT_FALSE(s.IsIdentifier("\"A\""));
    EXPECT_FALSE(s.IsIdentifier("\xC4"
                                "B"));
    EXPECT_FALSE(s.IsIdentifier("A\xC4"));
}

TEST(VdScannerClasses, IsIntegerDigitsWithoutSign)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsInteger("0"));
    EXPECT_TRUE(s.IsInteger("123"));
    EXPECT_TRUE(s.IsInteger("007"));
    EXPECT_FALSE(s.IsInteger(""));
    EXPECT_FALSE(s.IsInteger("-1"));
    EXPECT_FALSE(s.IsInteger("+1"));
    EXPECT_FALSE(s.IsInteger("1.5"));
    EXPECT_FALSE(s.IsInteger("1a"));
    EXPECT_FALSE(s.IsInteger(" 1"));
}

TEST(VdScannerClasses, IsKeywordCaseInsensitive)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsKeyword("SELECT"));
    EXPECT_TRUE(s.IsKeyword("select"));
    EXPECT_TRUE(s.IsKeyword("SeLeCt"));
    EXPECT_TRUE(s.IsKeyword("not"));
    EXPECT_FALSE(s.IsKeyword("SELECTS"));
    EXPECT_FALSE(s.IsKeyword(""));
    EXPECT_FALSE(s.IsKeyword("LIKE"));
    EXPECT_FALSE(s.IsKeyword("COUNT"));
}

TEST(VdScannerClasses, IsFunctionCaseInsensitive)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsFunction("COUNT"));
    EXPECT_TRUE(s.IsFunction("count"));
    EXPECT_TRUE(s.IsFunction("Avg"));
    EXPECT_FALSE(s.IsFunction("COUNTS"));
    EXPECT_FALSE(s.IsFunction("SELECT"));
    EXPECT_FALSE(s.IsFunction(""));
}

TEST(VdScannerClasses, IsOperationArithmeticSigns)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsOperation("+"));
    EXPECT_TRUE(s.IsOperation("-"));
    EXPECT_TRUE(s.IsOperation("*"));
    EXPECT_TRUE(s.IsOperation("/"));
    EXPECT_FALSE(s.IsOperation("%"));
    EXPECT_FALSE(s.IsOperation("++"));
    EXPECT_FALSE(s.IsOperation(""));
    EXPECT_FALSE(s.IsOperation("="));
}

TEST(VdScannerClasses, QuoteCharacters)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.GetIdentQuote(), '"');
    EXPECT_EQ(s.GetStringQuote(), '\'');
}

TEST(VdScannerClasses, ProcessAliasesFalse)
{
    TVdSQLScanner s;
    EXPECT_FALSE(s.GetProcessAliases());
}

TEST(VdScannerClasses, QuoteIdentifiersFollowsField)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.GetQuoteIdentifiers());
    s.SetQuoteIdentifiers(false);
    EXPECT_FALSE(s.GetQuoteIdentifiers());
    EXPECT_FALSE(s.QuoteIdentifiers());
    s.SetQuoteIdentifiers(true);
    EXPECT_TRUE(s.GetQuoteIdentifiers());
}

// ---- Edge cases ----

TEST(VdScannerEdge, LessGreaterBetweenIdentifiers)
{
    const std::vector<Tok> expected = {{vd::tkIdent, "a", 1, 2},
                                       {vd::tkComparison, "<>", 1, 4},
                                       {vd::tkIdent, "b", 1, 5},
                                       {vd::tkEnd, "", 1, 5}};
    EXPECT_EQ(ScanAll("a<>b"), expected);
}

TEST(VdScannerEdge, DoubledApostropheStaysInOneIdentString)
{
    const std::vector<Tok> expected = {{vd::tkIdentString, "it''s", 1, 7}, {vd::tkEnd, "", 1, 8}};
    EXPECT_EQ(ScanAll("'it''s'"), expected);
}

TEST(VdScannerEdge, TwoApostrophesGiveOneEmptyString)
{
    TVdSQLScanner s;
    s.SetExpression("''");
    EXPECT_EQ(s.Token(), "");
    EXPECT_EQ(s.TokenKind(), vd::tkIdentString);
    EXPECT_TRUE(s.InString());
    EXPECT_FALSE(s.EmptyStringPending());
    s.GetNextToken();
    EXPECT_EQ(s.TokenKind(), vd::tkEnd);
    EXPECT_FALSE(s.InString());
}

TEST(VdScannerEdge, UnterminatedStringRaisesCode3)
{
    const std::optional<vd::EVdParserError> e = ScanError("'abc");
    ASSERT_TRUE(e.has_value());
    EXPECT_STREQ(e->what(), "Unterminated string.");
    EXPECT_EQ(e->Code, 3);
    EXPECT_EQ(e->Token, "abc");
    EXPECT_EQ(e->LineNo, 1);
    EXPECT_EQ(e->LinePos, 2);
}

TEST(VdScannerEdge, UnterminatedStringIsALibraryError)
{
    auto scan = [] {
        TVdSQLScanner s;
        s.SetExpression("'abc");
        s.GetNextToken();
    };
    EXPECT_THROW(scan(), vd::EVdError);
    EXPECT_THROW(scan(), std::runtime_error);
}

TEST(VdScannerEdge, CountInAnyCaseIsFunction)
{
    const std::vector<Tok> expected = {{vd::tkFunction, "COUNT", 1, 6},
                                       {vd::tkFunction, "count", 1, 12},
                                       {vd::tkFunction, "Count", 1, 18},
                                       {vd::tkEnd, "", 1, 18}};
    EXPECT_EQ(ScanAll("COUNT count Count"), expected);
}

TEST(VdScannerEdge, MyColIsOneIdentifier)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.IsIdentifier("MY-COL"));
    EXPECT_TRUE(s.IsIdentifier(s.ProcessIdent("\"MY-COL\"")));
    // Quoted, the whole name is one token.
    const std::vector<Tok> expected = {{vd::tkIdentString, "MY-COL", 1, 8}, {vd::tkEnd, "", 1, 9}};
    EXPECT_EQ(ScanAll("\"MY-COL\""), expected);
}

TEST(VdScannerEdge, MyColUnquotedIsOneIdentifier)
{
    // "-" is a legal identifier character: it continues a word that began with a letter.
    const std::vector<Tok> expected = {{vd::tkIdent, "MY-COL", 1, 7}, {vd::tkEnd, "", 1, 7}};
    EXPECT_EQ(ScanAll("MY-COL"), expected);
}

TEST(VdScannerEdge, MinusAfterNumberOrBlankIsAnOperation)
{
    // A number is no word: "1-2" is a subtraction; so is "A - B" with blanks around the minus.
    const std::vector<Tok> number = {{vd::tkInteger, "1", 1, 2},
                                     {vd::tkOperation, "-", 1, 3},
                                     {vd::tkInteger, "2", 1, 4},
                                     {vd::tkEnd, "", 1, 4}};
    EXPECT_EQ(ScanAll("1-2"), number);
    const std::vector<Tok> spaced = {{vd::tkIdent, "A", 1, 2},
                                     {vd::tkOperation, "-", 1, 4},
                                     {vd::tkIdent, "B", 1, 6},
                                     {vd::tkEnd, "", 1, 6}};
    EXPECT_EQ(ScanAll("A - B"), spaced);
}

TEST(VdScannerEdge, CrLfIncrementsLineNoAndResetsLinePos)
{
    const std::vector<Tok> expected = {{vd::tkIdent, "abc", 1, 4},
                                       {vd::tkIdent, "de", 2, 3},
                                       {vd::tkIdent, "f", 3, 2},
                                       {vd::tkEnd, "", 3, 2}};
    EXPECT_EQ(ScanAll("abc\r\nde\r\nf"), expected);
}

TEST(VdScannerEdge, LoneCrIsDelimToken)
{
    const std::vector<Tok> expected = {{vd::tkIdent, "a", 1, 2},
                                       {vd::tkDelim, "\r", 1, 3},
                                       {vd::tkIdent, "b", 1, 4},
                                       {vd::tkEnd, "", 1, 4}};
    EXPECT_EQ(ScanAll("a\rb"), expected);
}

TEST(VdScannerEdge, LoneLfIsPartOfTheWord)
{
    // The word a<LF>b holds a character no identifier may hold, so it stays unknown.
    const std::vector<Tok> expected = {{vd::tkUnknown, "a\nb", 1, 4}, {vd::tkEnd, "", 1, 4}};
    EXPECT_EQ(ScanAll("a\nb"), expected);
}

TEST(VdScannerEdge, OpenParenthesisIncrementsLevelCloseDecrements)
{
    TVdSQLScanner s;
    s.SetExpression("(a)");
    EXPECT_EQ(s.Token(), "(");
    EXPECT_EQ(s.Level(), 1);
    s.GetNextToken();
    EXPECT_EQ(s.Token(), "a");
    EXPECT_EQ(s.Level(), 1);
    s.GetNextToken();
    EXPECT_EQ(s.Token(), ")");
    EXPECT_EQ(s.Level(), 0);
}

TEST(VdScannerEdge, ParenthesesInsideStringsKeepLevel)
{
    TVdSQLScanner s;
    s.SetExpression("'(a)' \"((\"");
    EXPECT_EQ(s.Token(), "(a)");
    EXPECT_EQ(s.Level(), 0);
    s.GetNextToken();
    EXPECT_EQ(s.Token(), "((");
    EXPECT_EQ(s.Level(), 0);
    s.GetNextToken();
    EXPECT_EQ(s.TokenKind(), vd::tkEnd);
    EXPECT_EQ(s.Level(), 0);
}

// ---- Token rules, table-driven ----

class VdScannerTokens : public ::testing::TestWithParam<ScanCase>
{
};

TEST_P(VdScannerTokens, Scan) { CheckScan(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Words, VdScannerTokens,
    ::testing::Values(
        ScanCase{"EmptyText", "", {{vd::tkEnd, "", 1, 1}}},
        ScanCase{"OnlyBlanks", "  ", {{vd::tkEnd, "", 1, 3}}},
        ScanCase{"Identifier", "abc", {{vd::tkIdent, "abc", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"IdentifierWithDigitAndUnderscore",
                 "a_1",
                 {{vd::tkIdent, "a_1", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{
            "KeywordUpperCase", "SELECT", {{vd::tkKeyword, "SELECT", 1, 7}, {vd::tkEnd, "", 1, 7}}},
        ScanCase{"KeywordKeepsItsSpelling",
                 "select",
                 {{vd::tkKeyword, "select", 1, 7}, {vd::tkEnd, "", 1, 7}}},
        ScanCase{
            "FunctionMixedCase", "Sum", {{vd::tkFunction, "Sum", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"Integer", "123", {{vd::tkInteger, "123", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"IntegerWithLeadingZeros",
                 "007",
                 {{vd::tkInteger, "007", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{
            "UnderscoreFirstIsUnknown", "_a", {{vd::tkUnknown, "_a", 1, 3}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{"DigitFirstIsUnknown", "1a", {{vd::tkUnknown, "1a", 1, 3}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{"HighCharacterIsUnknown",
                 "\xC4X",
                 {{vd::tkUnknown, "\xC4X", 1, 3}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{
            "HashStaysInsideWord", "a#b", {{vd::tkUnknown, "a#b", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{
            "DollarStaysInsideWord", "a$b", {{vd::tkUnknown, "a$b", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"BlankSeparatesWords",
                 "a b",
                 {{vd::tkIdent, "a", 1, 2}, {vd::tkIdent, "b", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"TabSeparatesWords",
                 "a\tb",
                 {{vd::tkIdent, "a", 1, 2}, {vd::tkIdent, "b", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"QualifiedName",
                 "T.A",
                 {{vd::tkIdent, "T", 1, 2},
                  {vd::tkDelim, ".", 1, 3},
                  {vd::tkIdent, "A", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"FunctionCall",
                 "COUNT(*)",
                 {{vd::tkFunction, "COUNT", 1, 6},
                  {vd::tkDelim, "(", 1, 7},
                  {vd::tkOperation, "*", 1, 8},
                  {vd::tkDelim, ")", 1, 9},
                  {vd::tkEnd, "", 1, 9}}},
        ScanCase{"SelectStatement",
                 "SELECT a, b\r\nFROM t",
                 {{vd::tkKeyword, "SELECT", 1, 7},
                  {vd::tkIdent, "a", 1, 9},
                  {vd::tkDelim, ",", 1, 10},
                  {vd::tkIdent, "b", 1, 12},
                  {vd::tkKeyword, "FROM", 2, 5},
                  {vd::tkIdent, "t", 2, 7},
                  {vd::tkEnd, "", 2, 7}}},
        ScanCase{"LikeIsNoKeyword",
                 "a LIKE b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkIdent, "LIKE", 1, 7},
                  {vd::tkIdent, "b", 1, 9},
                  {vd::tkEnd, "", 1, 9}}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(Delimiters, VdScannerTokens,
                         ::testing::Values(ScanCase{"EachDelimiterIsOneToken",
                                                    ".,\\;:(){}[]!",
                                                    {{vd::tkDelim, ".", 1, 2},
                                                     {vd::tkDelim, ",", 1, 3},
                                                     {vd::tkDelim, "\\", 1, 4},
                                                     {vd::tkDelim, ";", 1, 5},
                                                     {vd::tkDelim, ":", 1, 6},
                                                     {vd::tkDelim, "(", 1, 7},
                                                     {vd::tkDelim, ")", 1, 8},
                                                     {vd::tkDelim, "{", 1, 9},
                                                     {vd::tkDelim, "}", 1, 10},
                                                     {vd::tkDelim, "[", 1, 11},
                                                     {vd::tkDelim, "]", 1, 12},
                                                     {vd::tkDelim, "!", 1, 13},
                                                     {vd::tkEnd, "", 1, 13}}},
                                           ScanCase{"PlusIsOperation",
                                                    "a+b",
                                                    {{vd::tkIdent, "a", 1, 2},
                                                     {vd::tkOperation, "+", 1, 3},
                                                     {vd::tkIdent, "b", 1, 4},
                                                     {vd::tkEnd, "", 1, 4}}},
                                           ScanCase{"MinusIsOperation",
                                                    "a - b",
                                                    {{vd::tkIdent, "a", 1, 2},
                                                     {vd::tkOperation, "-", 1, 4},
                                                     {vd::tkIdent, "b", 1, 6},
                                                     {vd::tkEnd, "", 1, 6}}},
                                           ScanCase{"StarIsOperation",
                                                    "2*3",
                                                    {{vd::tkInteger, "2", 1, 2},
                                                     {vd::tkOperation, "*", 1, 3},
                                                     {vd::tkInteger, "3", 1, 4},
                                                     {vd::tkEnd, "", 1, 4}}},
                                           ScanCase{"SlashIsOperation",
                                                    "a/b",
                                                    {{vd::tkIdent, "a", 1, 2},
                                                     {vd::tkOperation, "/", 1, 3},
                                                     {vd::tkIdent, "b", 1, 4},
                                                     {vd::tkEnd, "", 1, 4}}},
                                           ScanCase{"MinusBeforeNumberIsSeparate",
                                                    "-1",
                                                    {{vd::tkOperation, "-", 1, 2},
                                                     {vd::tkInteger, "1", 1, 3},
                                                     {vd::tkEnd, "", 1, 3}}},
                                           ScanCase{"ExclamationIsDelimBeforeEquals",
                                                    "a!=b",
                                                    {{vd::tkIdent, "a", 1, 2},
                                                     {vd::tkDelim, "!", 1, 3},
                                                     {vd::tkComparison, "=", 1, 4},
                                                     {vd::tkIdent, "b", 1, 5},
                                                     {vd::tkEnd, "", 1, 5}}}),
                         CaseName);

INSTANTIATE_TEST_SUITE_P(
    Comparisons, VdScannerTokens,
    ::testing::Values(
        ScanCase{"NotEqual",
                 "a<>b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "<>", 1, 4},
                  {vd::tkIdent, "b", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"LessOrEqual",
                 "a<=b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "<=", 1, 4},
                  {vd::tkIdent, "b", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"GreaterOrEqual",
                 "a>=b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, ">=", 1, 4},
                  {vd::tkIdent, "b", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"EqualLessPair",
                 "a=<b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "=<", 1, 4},
                  {vd::tkIdent, "b", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"DoubleEqualPair",
                 "a==b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "==", 1, 4},
                  {vd::tkIdent, "b", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"SingleLess",
                 "a<b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "<", 1, 3},
                  {vd::tkIdent, "b", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"SingleGreater",
                 "a>b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, ">", 1, 3},
                  {vd::tkIdent, "b", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"SingleEqualBetweenBlanks",
                 "a = b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "=", 1, 4},
                  {vd::tkIdent, "b", 1, 6},
                  {vd::tkEnd, "", 1, 6}}},
        ScanCase{"SingleEqualAtEnd",
                 "a=",
                 {{vd::tkIdent, "a", 1, 2}, {vd::tkComparison, "=", 1, 3}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{"PairAsLastTwoCharactersSplits",
                 "a<>",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "<", 1, 3},
                  {vd::tkComparison, ">", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"LessEqualAsLastTwoCharactersSplits",
                 "a<=",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "<", 1, 3},
                  {vd::tkComparison, "=", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{
            "PairAloneSplits",
            "<>",
            {{vd::tkComparison, "<", 1, 2}, {vd::tkComparison, ">", 1, 3}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{"PairFollowedByBlankStaysOne",
                 "<> ",
                 {{vd::tkComparison, "<>", 1, 3}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"ThreeComparisonCharactersPairThenSingle",
                 "a<>=b",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkComparison, "<>", 1, 4},
                  {vd::tkComparison, "=", 1, 5},
                  {vd::tkIdent, "b", 1, 6},
                  {vd::tkEnd, "", 1, 6}}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Numbers, VdScannerTokens,
    ::testing::Values(
        ScanCase{"FractionBeforeBlankIsFloatOfIntegerPart",
                 "1.5 ",
                 {{vd::tkFloat, "1", 1, 2}, {vd::tkInteger, "5", 1, 3}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"FractionAtEndIsNoFloat",
                 "1.5",
                 {{vd::tkInteger, "1", 1, 2},
                  {vd::tkDelim, ".", 1, 3},
                  {vd::tkInteger, "5", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"FractionWithOneLastCharacterIsFloat",
                 "1.5x",
                 {{vd::tkFloat, "1", 1, 2}, {vd::tkUnknown, "5x", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"FractionBeforeLastParenthesisIsFloat",
                 "1.5)",
                 {{vd::tkFloat, "1", 1, 2},
                  {vd::tkInteger, "5", 1, 3},
                  {vd::tkDelim, ")", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"FractionBeforeCommaIsFloat",
                 "1.5,2",
                 {{vd::tkFloat, "1", 1, 2},
                  {vd::tkInteger, "5", 1, 3},
                  {vd::tkDelim, ",", 1, 4},
                  {vd::tkInteger, "2", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"LongFractionResumesAtItsLastDigit",
                 "1.25 ",
                 {{vd::tkFloat, "1", 1, 2}, {vd::tkInteger, "5", 1, 3}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"LongIntegerPart",
                 "12.5 ",
                 {{vd::tkFloat, "12", 1, 3}, {vd::tkInteger, "5", 1, 4}, {vd::tkEnd, "", 1, 5}}},
        ScanCase{"FractionBeforeLetterIsNoFloat",
                 "1.5a b",
                 {{vd::tkInteger, "1", 1, 2},
                  {vd::tkDelim, ".", 1, 3},
                  {vd::tkUnknown, "5a", 1, 5},
                  {vd::tkIdent, "b", 1, 7},
                  {vd::tkEnd, "", 1, 7}}},
        ScanCase{"FractionBeforeDotIsNoFloat",
                 "1.5.6 ",
                 {{vd::tkInteger, "1", 1, 2},
                  {vd::tkDelim, ".", 1, 3},
                  {vd::tkFloat, "5", 1, 4},
                  {vd::tkInteger, "6", 1, 5},
                  {vd::tkEnd, "", 1, 6}}},
        ScanCase{"DotWithoutDigitsBeforeBlank",
                 "1. ",
                 {{vd::tkFloat, "1", 1, 2}, {vd::tkDelim, ".", 1, 3}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"DotAfterWordIsDelim",
                 "x.5 ",
                 {{vd::tkIdent, "x", 1, 2},
                  {vd::tkDelim, ".", 1, 3},
                  {vd::tkInteger, "5", 1, 4},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"FractionInParentheses",
                 "(1.5)",
                 {{vd::tkDelim, "(", 1, 2},
                  {vd::tkFloat, "1", 1, 3},
                  {vd::tkInteger, "5", 1, 4},
                  {vd::tkDelim, ")", 1, 5},
                  {vd::tkEnd, "", 1, 5}}},
        ScanCase{"ComparedWithFractionAtEnd",
                 "x=1.5",
                 {{vd::tkIdent, "x", 1, 2},
                  {vd::tkComparison, "=", 1, 3},
                  {vd::tkInteger, "1", 1, 4},
                  {vd::tkDelim, ".", 1, 5},
                  {vd::tkInteger, "5", 1, 6},
                  {vd::tkEnd, "", 1, 6}}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Quotes, VdScannerTokens,
    ::testing::Values(
        ScanCase{"ApostropheStringWithoutQuotes",
                 "'abc'",
                 {{vd::tkIdentString, "abc", 1, 5}, {vd::tkEnd, "", 1, 6}}},
        ScanCase{"DoubleQuotedWithoutQuotes",
                 "\"abc\"",
                 {{vd::tkIdentString, "abc", 1, 5}, {vd::tkEnd, "", 1, 6}}},
        ScanCase{"DoubledApostropheKept",
                 "'it''s'",
                 {{vd::tkIdentString, "it''s", 1, 7}, {vd::tkEnd, "", 1, 8}}},
        ScanCase{"DoubledDoubleQuoteKept",
                 "\"a\"\"b\"",
                 {{vd::tkIdentString, "a\"\"b", 1, 6}, {vd::tkEnd, "", 1, 7}}},
        ScanCase{
            "EmptyApostropheString", "''", {{vd::tkIdentString, "", 1, 2}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{
            "EmptyDoubleQuoted", "\"\"", {{vd::tkIdentString, "", 1, 2}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{
            "TwoEmptyStrings",
            "'' ''",
            {{vd::tkIdentString, "", 1, 2}, {vd::tkIdentString, "", 1, 5}, {vd::tkEnd, "", 1, 6}}},
        ScanCase{"EmptyStringBeforeWord",
                 "''x",
                 {{vd::tkIdentString, "", 1, 2}, {vd::tkIdent, "x", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"FourApostrophesHoldOneDoubledApostrophe",
                 "''''",
                 {{vd::tkIdentString, "''", 1, 4}, {vd::tkEnd, "", 1, 5}}},
        ScanCase{"SixApostrophesHoldTwoDoubledApostrophes",
                 "''''''",
                 {{vd::tkIdentString, "''''", 1, 6}, {vd::tkEnd, "", 1, 7}}},
        ScanCase{"ThreeApostrophesHoldOneApostrophe",
                 "'''",
                 {{vd::tkIdentString, "'", 1, 3}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"DoubleQuoteInsideApostrophesIsContent",
                 "'a\"b'",
                 {{vd::tkIdentString, "a\"b", 1, 5}, {vd::tkEnd, "", 1, 6}}},
        ScanCase{"ApostropheInsideDoubleQuotesIsContent",
                 "\"it's\"",
                 {{vd::tkIdentString, "it's", 1, 6}, {vd::tkEnd, "", 1, 7}}},
        ScanCase{"DelimitersAndBlanksInsideStringAreContent",
                 "'a b, (c)'",
                 {{vd::tkIdentString, "a b, (c)", 1, 10}, {vd::tkEnd, "", 1, 11}}},
        ScanCase{"QuotedKeywordIsString",
                 "'SELECT'",
                 {{vd::tkIdentString, "SELECT", 1, 8}, {vd::tkEnd, "", 1, 9}}},
        ScanCase{"QuotedNumberIsString",
                 "'12'",
                 {{vd::tkIdentString, "12", 1, 4}, {vd::tkEnd, "", 1, 5}}},
        ScanCase{"StringAfterComparison",
                 "x = 'y'",
                 {{vd::tkIdent, "x", 1, 2},
                  {vd::tkComparison, "=", 1, 4},
                  {vd::tkIdentString, "y", 1, 7},
                  {vd::tkEnd, "", 1, 8}}},
        ScanCase{
            "QuoteEndsWord",
            "ab'cd'",
            {{vd::tkIdent, "ab", 1, 3}, {vd::tkIdentString, "cd", 1, 6}, {vd::tkEnd, "", 1, 7}}},
        ScanCase{"QuoteClosesBeforeLetter",
                 "'a'b",
                 {{vd::tkIdentString, "a", 1, 3}, {vd::tkIdent, "b", 1, 5}, {vd::tkEnd, "", 1, 5}}},
        ScanCase{"LastCharacterAlwaysCloses",
                 "'ab''",
                 {{vd::tkIdentString, "ab'", 1, 5}, {vd::tkEnd, "", 1, 6}}},
        ScanCase{"LineBreakInsideStringIsContent",
                 "'x\r\ny'",
                 {{vd::tkIdentString, "x\r\ny", 1, 6}, {vd::tkEnd, "", 1, 7}}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Lines, VdScannerTokens,
    ::testing::Values(
        ScanCase{"CrLfStartsNewLine",
                 "a\r\nb",
                 {{vd::tkIdent, "a", 1, 2}, {vd::tkIdent, "b", 2, 2}, {vd::tkEnd, "", 2, 2}}},
        ScanCase{"LoneCrIsDelim",
                 "a\rb",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkDelim, "\r", 1, 3},
                  {vd::tkIdent, "b", 1, 4},
                  {vd::tkEnd, "", 1, 4}}},
        ScanCase{"LoneCrAtEndIsDelim",
                 "a\r",
                 {{vd::tkIdent, "a", 1, 2}, {vd::tkDelim, "\r", 1, 3}, {vd::tkEnd, "", 1, 3}}},
        ScanCase{"CrBeforeCrLf",
                 "a\r\r\nb",
                 {{vd::tkIdent, "a", 1, 2},
                  {vd::tkDelim, "\r", 1, 3},
                  {vd::tkIdent, "b", 2, 2},
                  {vd::tkEnd, "", 2, 2}}},
        ScanCase{
            "LoneLfInsideWord", "a\nb", {{vd::tkUnknown, "a\nb", 1, 4}, {vd::tkEnd, "", 1, 4}}},
        ScanCase{"TwoLineBreaks", "\r\n\r\nx", {{vd::tkIdent, "x", 3, 2}, {vd::tkEnd, "", 3, 2}}},
        ScanCase{"BlanksAroundLineBreak",
                 "a \r\n  b",
                 {{vd::tkIdent, "a", 1, 2}, {vd::tkIdent, "b", 2, 4}, {vd::tkEnd, "", 2, 4}}},
        ScanCase{"LineBreakAtEnd", "a\r\n", {{vd::tkIdent, "a", 1, 2}, {vd::tkEnd, "", 2, 1}}}),
    CaseName);

// ---- Unterminated strings ----

TEST(VdScannerQuotes, UnterminatedContentReturnedBeforeError)
{
    // No closing quote was met, so the content is classified as a word; the error comes
    // with the end of the text on the next call.
    TVdSQLScanner s;
    ASSERT_NO_THROW(s.SetExpression("'abc"));
    EXPECT_EQ(s.Token(), "abc");
    EXPECT_EQ(s.TokenKind(), vd::tkIdent);
    EXPECT_TRUE(s.InString());
    EXPECT_EQ(s.LinePos(), 5);
    EXPECT_THROW(s.GetNextToken(), vd::EVdParserError);
}

TEST(VdScannerQuotes, LoneApostropheRaisesAtOnce)
{
    TVdSQLScanner s;
    try {
        s.SetExpression("'");
        FAIL() << "no exception";
    } catch (const vd::EVdParserError& e) {
        EXPECT_STREQ(e.what(), "Unterminated string.");
        EXPECT_EQ(e.Code, 3);
        EXPECT_EQ(e.Token, "");
        EXPECT_EQ(e.LineNo, 1);
        EXPECT_EQ(e.LinePos, 2);
    }
}

TEST(VdScannerQuotes, UnterminatedOnSecondLine)
{
    const std::optional<vd::EVdParserError> e = ScanError("a\r\n'xy");
    ASSERT_TRUE(e.has_value());
    EXPECT_EQ(e->Code, 3);
    EXPECT_EQ(e->Token, "xy");
    EXPECT_EQ(e->LineNo, 2);
    EXPECT_EQ(e->LinePos, 2);
}

TEST(VdScannerQuotes, QuoteOpenedAfterClosedStringRaises)
{
    TVdSQLScanner s;
    s.SetExpression("'a'b'");
    EXPECT_EQ(s.Token(), "a");
    EXPECT_EQ(s.GetNextToken(), "b");
    try {
        s.GetNextToken();
        FAIL() << "no exception";
    } catch (const vd::EVdParserError& e) {
        EXPECT_EQ(e.Code, 3);
        EXPECT_EQ(e.Token, "b");
        EXPECT_EQ(e.LineNo, 1);
        EXPECT_EQ(e.LinePos, 5);
    }
}

TEST(VdScannerQuotes, InStringAndQuoteCharWhileContentIsReturned)
{
    TVdSQLScanner s;
    s.SetExpression("'abc' x");
    EXPECT_TRUE(s.InString());
    EXPECT_EQ(s.QuoteChar(), '\'');
    s.GetNextToken();
    EXPECT_EQ(s.Token(), "x");
    EXPECT_FALSE(s.InString());
    EXPECT_EQ(s.QuoteChar(), '\0');
}

TEST(VdScannerQuotes, DoubleQuoteOpensWithItsOwnQuoteChar)
{
    TVdSQLScanner s;
    s.SetExpression("\"a'b\"");
    EXPECT_EQ(s.Token(), "a'b");
    EXPECT_EQ(s.QuoteChar(), '"');
}

TEST(VdScannerQuotes, EmptyStringLeavesNothingPending)
{
    TVdSQLScanner s;
    s.SetExpression("'' x");
    EXPECT_EQ(s.Token(), "");
    EXPECT_FALSE(s.EmptyStringPending());
    EXPECT_EQ(s.GetNextToken(), "x");
    EXPECT_FALSE(s.EmptyStringPending());
}

TEST(VdScannerQuotes, UnquoteStringUndoesDoubledQuotes)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.UnquoteString("it''s", '\''), "it's");
    EXPECT_EQ(s.UnquoteString("a\"\"b", '"'), "a\"b");
    EXPECT_EQ(s.UnquoteString("a\"\"b", '\''), "a\"\"b");
}

// ---- SpaceCount ----

TEST(VdScannerSpaces, BlankBeforeToken)
{
    EXPECT_EQ(SpaceCounts("a b"), (std::vector<int>{0, 1, 0}));
}

TEST(VdScannerSpaces, EveryBlankCounts)
{
    EXPECT_EQ(SpaceCounts("a   b"), (std::vector<int>{0, 3, 0}));
}

TEST(VdScannerSpaces, TabCounts) { EXPECT_EQ(SpaceCounts("a\tb"), (std::vector<int>{0, 1, 0})); }

TEST(VdScannerSpaces, LineBreakCountsOnce)
{
    EXPECT_EQ(SpaceCounts("a\r\nb"), (std::vector<int>{0, 1, 0}));
}

TEST(VdScannerSpaces, BlanksAndLineBreakTogether)
{
    EXPECT_EQ(SpaceCounts("a \r\n b"), (std::vector<int>{0, 3, 0}));
}

TEST(VdScannerSpaces, LeadingBlankCountsForFirstToken)
{
    EXPECT_EQ(SpaceCounts(" a"), (std::vector<int>{1, 0}));
}

TEST(VdScannerSpaces, TrailingBlankCountsForEnd)
{
    EXPECT_EQ(SpaceCounts("a "), (std::vector<int>{0, 1}));
}

TEST(VdScannerSpaces, DelimiterResetsCount)
{
    EXPECT_EQ(SpaceCounts("a ,b"), (std::vector<int>{0, 1, 0, 0}));
}

TEST(VdScannerSpaces, OpeningQuoteResetsCount)
{
    // The blank before 'b' is forgotten once the quote has been read.
    EXPECT_EQ(SpaceCounts("a 'b'"), (std::vector<int>{0, 0, 0}));
}

TEST(VdScannerSpaces, BlankAfterClosingQuoteCounts)
{
    EXPECT_EQ(SpaceCounts("'a' b"), (std::vector<int>{0, 1, 0}));
}

TEST(VdScannerSpaces, NoBlankNoCount)
{
    EXPECT_EQ(SpaceCounts("a,b"), (std::vector<int>{0, 0, 0, 0}));
}

// ---- Level ----

TEST(VdScannerLevel, NestedParentheses)
{
    // The end token reads the last consumed character once more.
    EXPECT_EQ(Levels("f((x))"), (std::vector<int>{0, 1, 2, 2, 1, 0, -1}));
}

TEST(VdScannerLevel, StringInsideParentheses)
{
    EXPECT_EQ(Levels("('a')"), (std::vector<int>{1, 1, 0, -1}));
}

TEST(VdScannerLevel, ParenthesesInStringsIgnored)
{
    EXPECT_EQ(Levels("'(a)'"), (std::vector<int>{0, 0}));
}

TEST(VdScannerLevel, EndAfterBlankKeepsLevel) { EXPECT_EQ(Levels("( "), (std::vector<int>{1, 1})); }

TEST(VdScannerLevel, EndTokenCountsLastParenthesisAgain)
{
    EXPECT_EQ(Levels("a)"), (std::vector<int>{0, -1, -2}));
}

// ---- Look-ahead ----

TEST(VdScannerLookAhead, GetTokenPlusDoesNotConsume)
{
    TVdSQLScanner s;
    s.SetExpression("a\r\n(b");
    ASSERT_EQ(s.Token(), "a");
    const int position = s.Position();
    const int lineNo = s.LineNo();
    const int linePos = s.LinePos();

    EXPECT_EQ(s.GetTokenPlus(), "(");
    EXPECT_EQ(s.Token(), "a");
    EXPECT_EQ(s.TokenKind(), vd::tkIdent);
    EXPECT_EQ(s.Position(), position);
    EXPECT_EQ(s.LineNo(), lineNo);
    EXPECT_EQ(s.LinePos(), linePos);
    EXPECT_EQ(s.Level(), 0);

    EXPECT_EQ(s.GetNextToken(), "(");
    EXPECT_EQ(s.TokenKind(), vd::tkDelim);
    EXPECT_EQ(s.LineNo(), 2);
    EXPECT_EQ(s.LinePos(), 2);
    EXPECT_EQ(s.Level(), 1);
}

TEST(VdScannerLookAhead, GetTokenPlusTwiceGivesSameToken)
{
    TVdSQLScanner s;
    s.SetExpression("GROUP BY x");
    EXPECT_EQ(s.GetTokenPlus(), "BY");
    EXPECT_EQ(s.GetTokenPlus(), "BY");
    EXPECT_EQ(s.Token(), "GROUP");
    EXPECT_EQ(s.TokenKind(), vd::tkKeyword);
}

TEST(VdScannerLookAhead, GetTokenPlusOverStringRestoresStringState)
{
    TVdSQLScanner s;
    s.SetExpression("a 'x'");
    EXPECT_EQ(s.GetTokenPlus(), "x");
    EXPECT_FALSE(s.InString());
    EXPECT_EQ(s.QuoteChar(), '\0');
    EXPECT_EQ(s.TokenKind(), vd::tkIdent);
    EXPECT_EQ(s.GetNextToken(), "x");
    EXPECT_EQ(s.TokenKind(), vd::tkIdentString);
    EXPECT_TRUE(s.InString());
}

TEST(VdScannerLookAhead, GetTokenPlusFromInsideString)
{
    TVdSQLScanner s;
    s.SetExpression("'x' y");
    ASSERT_TRUE(s.InString());
    EXPECT_EQ(s.GetTokenPlus(), "y");
    EXPECT_TRUE(s.InString());
    EXPECT_EQ(s.QuoteChar(), '\'');
    EXPECT_EQ(s.Token(), "x");
    EXPECT_EQ(s.TokenKind(), vd::tkIdentString);
}

TEST(VdScannerLookAhead, GetTokenPlusAtEnd)
{
    TVdSQLScanner s;
    s.SetExpression("a");
    EXPECT_EQ(s.GetTokenPlus(), "");
    EXPECT_EQ(s.Token(), "a");
    EXPECT_EQ(s.TokenKind(), vd::tkIdent);
    EXPECT_EQ(s.Position(), 2);
}

// ---- Restarting and positioning ----

TEST(VdScannerPosition, GetFirstTokenRestarts)
{
    TVdSQLScanner s;
    s.SetExpression("(a\r\nb)");
    while (s.TokenKind() != vd::tkEnd)
        s.GetNextToken();
    ASSERT_EQ(s.LineNo(), 2);
    EXPECT_EQ(s.GetFirstToken(), "(");
    EXPECT_EQ(s.TokenKind(), vd::tkDelim);
    EXPECT_EQ(s.LineNo(), 1);
    EXPECT_EQ(s.LinePos(), 2);
    EXPECT_EQ(s.Level(), 1);
    EXPECT_EQ(s.Position(), 2);
}

TEST(VdScannerPosition, InitClearsState)
{
    TVdSQLScanner s;
    s.SetExpression("(x\r\n'abc' y");
    s.GetNextToken(); // x
    s.GetNextToken(); // abc, inside the string
    ASSERT_TRUE(s.InString());
    s.Init();
    EXPECT_EQ(s.Token(), "");
    EXPECT_EQ(s.Position(), 1);
    EXPECT_EQ(s.Level(), 0);
    EXPECT_FALSE(s.InString());
    EXPECT_EQ(s.QuoteChar(), '\0');
    EXPECT_EQ(s.LineNo(), 1);
    EXPECT_EQ(s.LinePos(), 1);
    EXPECT_EQ(s.GetNextToken(), "(");
}

TEST(VdScannerPosition, SetPositionOneRestartsAtTextStart)
{
    TVdSQLScanner s;
    s.SetExpression("a b c");
    s.GetNextToken();
    s.GetNextToken();
    ASSERT_EQ(s.Token(), "c");
    s.SetPosition(1);
    EXPECT_EQ(s.Position(), 1);
    EXPECT_EQ(s.Token(), "a");
    EXPECT_EQ(s.TokenKind(), vd::tkIdent);
    EXPECT_EQ(s.LineNo(), 1);
    EXPECT_EQ(s.GetNextToken(), "a");
}

TEST(VdScannerPosition, SetPositionInsideText)
{
    TVdSQLScanner s;
    s.SetExpression("a b c");
    s.SetPosition(3);
    EXPECT_EQ(s.Position(), 3);
    EXPECT_EQ(s.Token(), "");
    EXPECT_EQ(s.TokenKind(), vd::tkUnknown);
    EXPECT_EQ(s.GetNextToken(), "b");
    EXPECT_EQ(s.LinePos(), 2);
    EXPECT_EQ(s.LineNo(), 1);
}

TEST(VdScannerPosition, SetPositionBeyondTextClampsToLength)
{
    TVdSQLScanner s;
    s.SetExpression("a b c");
    s.SetPosition(100);
    EXPECT_EQ(s.Position(), 5);
    EXPECT_EQ(s.Token(), "");
    EXPECT_EQ(s.TokenKind(), vd::tkEnd);
    // The last character is still there to read.
    EXPECT_EQ(s.GetNextToken(), "c");
}

TEST(VdScannerPosition, SetPositionAtLengthGivesEndKind)
{
    TVdSQLScanner s;
    s.SetExpression("ab cd");
    s.SetPosition(5);
    EXPECT_EQ(s.Position(), 5);
    EXPECT_EQ(s.TokenKind(), vd::tkEnd);
}

TEST(VdScannerPosition, SetPositionBelowOneGoesToStart)
{
    TVdSQLScanner s;
    s.SetExpression("ab cd");
    s.SetPosition(0);
    EXPECT_EQ(s.Position(), 1);
    EXPECT_EQ(s.Token(), "");
    EXPECT_EQ(s.TokenKind(), vd::tkUnknown);
    EXPECT_EQ(s.GetNextToken(), "ab");
}

TEST(VdScannerPosition, SetPositionOnEmptyText)
{
    TVdSQLScanner s;
    s.SetExpression("");
    s.SetPosition(7);
    EXPECT_EQ(s.Position(), 1);
    EXPECT_EQ(s.TokenKind(), vd::tkUnknown);
}

TEST(VdScannerPosition, SetPositionOneOnSingleCharacterGivesEndKind)
{
    TVdSQLScanner s;
    s.SetExpression("a");
    ASSERT_EQ(s.Position(), 2);
    s.SetPosition(1);
    EXPECT_EQ(s.Position(), 1);
    EXPECT_EQ(s.Token(), "a");
    EXPECT_EQ(s.TokenKind(), vd::tkEnd);
}

TEST(VdScannerPosition, SetPositionResetsLevel)
{
    TVdSQLScanner s;
    s.SetExpression("((a b");
    s.GetNextToken();
    ASSERT_EQ(s.Level(), 2);
    s.SetPosition(5);
    EXPECT_EQ(s.Level(), 0);
    EXPECT_EQ(s.GetNextToken(), "b");
    EXPECT_EQ(s.Level(), 0);
}

// ---- Token place in the text ----

TEST(VdScannerRaw, WordPlace)
{
    TVdSQLScanner s;
    s.SetExpression("  abc d");
    EXPECT_EQ(s.TokenStart(), 3);
    EXPECT_EQ(s.TokenEnd(), 6);
    EXPECT_EQ(s.RawToken(), "abc");
    EXPECT_FALSE(s.TokenQuoted());
    EXPECT_EQ(s.TokenQuote(), '\0');
}

TEST(VdScannerRaw, QuotedTokenIncludesItsQuotes)
{
    TVdSQLScanner s;
    s.SetExpression("a 'xy' b");
    EXPECT_EQ(s.GetNextToken(), "xy");
    EXPECT_EQ(s.TokenStart(), 3);
    EXPECT_EQ(s.TokenEnd(), 7);
    EXPECT_EQ(s.RawToken(), "'xy'");
    EXPECT_TRUE(s.TokenQuoted());
    EXPECT_EQ(s.TokenQuote(), '\'');
    EXPECT_EQ(s.GetNextToken(), "b");
    EXPECT_EQ(s.TokenStart(), 8);
    EXPECT_EQ(s.TokenEnd(), 9);
    EXPECT_EQ(s.RawToken(), "b");
    EXPECT_FALSE(s.TokenQuoted());
    EXPECT_EQ(s.TokenQuote(), '\0');
}

TEST(VdScannerRaw, DoubleQuotedRawText)
{
    TVdSQLScanner s;
    s.SetExpression("\"a b\"");
    EXPECT_EQ(s.Token(), "a b");
    EXPECT_EQ(s.RawToken(), "\"a b\"");
    EXPECT_EQ(s.TokenQuote(), '"');
}

TEST(VdScannerRaw, DoubledQuotesRawText)
{
    TVdSQLScanner s;
    s.SetExpression("x 'it''s'");
    EXPECT_EQ(s.GetNextToken(), "it''s");
    EXPECT_EQ(s.RawToken(), "'it''s'");
}

TEST(VdScannerRaw, EmptyStringRawText)
{
    TVdSQLScanner s;
    s.SetExpression("''");
    EXPECT_EQ(s.RawToken(), "''");
    EXPECT_TRUE(s.TokenQuoted());
    EXPECT_EQ(s.TokenStart(), 1);
    EXPECT_EQ(s.TokenEnd(), 3);
}

TEST(VdScannerRaw, ComparisonPairPlace)
{
    TVdSQLScanner s;
    s.SetExpression("a<>b");
    EXPECT_EQ(s.GetNextToken(), "<>");
    EXPECT_EQ(s.TokenStart(), 2);
    EXPECT_EQ(s.TokenEnd(), 4);
    EXPECT_EQ(s.RawToken(), "<>");
}

TEST(VdScannerRaw, PlaceOnSecondLine)
{
    TVdSQLScanner s;
    s.SetExpression("a\r\nbc");
    EXPECT_EQ(s.GetNextToken(), "bc");
    EXPECT_EQ(s.TokenStart(), 4);
    EXPECT_EQ(s.TokenEnd(), 6);
    EXPECT_EQ(s.RawToken(), "bc");
}

TEST(VdScannerRaw, EndTokenHasNoRawText)
{
    TVdSQLScanner s;
    s.SetExpression("a ");
    s.GetNextToken();
    ASSERT_EQ(s.TokenKind(), vd::tkEnd);
    EXPECT_EQ(s.RawToken(), "");
    EXPECT_FALSE(s.TokenQuoted());
}

// ---- Quoting of names ----

TEST(VdNeedQuotes, ShortNamesNeedQuotes)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.NeedQuotes(""));
    EXPECT_TRUE(s.NeedQuotes("A"));
    EXPECT_TRUE(s.NeedQuotes("\""));
}

TEST(VdNeedQuotes, PlainNameNeedsQuotes)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.NeedQuotes("ABC"));
    EXPECT_TRUE(s.NeedQuotes("A.B"));
}

TEST(VdNeedQuotes, EnclosedNameNeedsNone)
{
    TVdSQLScanner s;
    EXPECT_FALSE(s.NeedQuotes("\"ABC\""));
    EXPECT_FALSE(s.NeedQuotes("'ABC'"));
    EXPECT_FALSE(s.NeedQuotes("\"\""));
    EXPECT_FALSE(s.NeedQuotes("\"a.b\""));
}

TEST(VdNeedQuotes, HalfOrMixedQuotesNeedQuotes)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.NeedQuotes("\"ABC"));
    EXPECT_TRUE(s.NeedQuotes("ABC\""));
    EXPECT_TRUE(s.NeedQuotes("\"ABC'"));
    EXPECT_TRUE(s.NeedQuotes("'ABC\""));
}

TEST(VdProcessIdent, StripsEnclosingQuotes)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessIdent("\"abc\""), "abc");
    EXPECT_EQ(s.ProcessIdent("'abc'"), "abc");
    EXPECT_EQ(s.ProcessIdent("\"\""), "");
    EXPECT_EQ(s.ProcessIdent("\"a b\""), "a b");
}

TEST(VdProcessIdent, AnyIdentifierQuotePairStrips)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessIdent("\"abc'"), "abc");
}

TEST(VdProcessIdent, OtherNamesUnchanged)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessIdent("abc"), "abc");
    EXPECT_EQ(s.ProcessIdent("\""), "\"");
    EXPECT_EQ(s.ProcessIdent("\"abc"), "\"abc");
    EXPECT_EQ(s.ProcessIdent("abc\""), "abc\"");
    EXPECT_EQ(s.ProcessIdent(""), "");
}

TEST(VdProcessName, PlainNameIsQuoted)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("NAME"), "\"NAME\"");
}

TEST(VdProcessName, TableAndFieldQuotedEach)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("CUSTOMER.NAME"), "\"CUSTOMER\".\"NAME\"");
}

TEST(VdProcessName, TwoDotsQuotePrefixAsOneName)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("A.B.C"), "\"A.B\".\"C\"");
}

TEST(VdProcessName, QuotedNameStays)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("\"NAME\""), "\"NAME\"");
    EXPECT_EQ(s.ProcessName("\"CUSTOMER\".\"NAME\""), "\"CUSTOMER\".\"NAME\"");
}

TEST(VdProcessName, QuotedPartWithDotsKept)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("\"a.b\".c"), "\"a.b\".\"c\"");
    EXPECT_EQ(s.ProcessName("\"a.b\""), "\"a.b\"");
}

TEST(VdProcessName, QuotedPartKeepsLaterPartsUnquoted)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("\"S\".T.U"), "\"S\".T.\"U\"");
}

TEST(VdProcessName, QuoteDoubledInsidePrefix)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("A\"B.C"), "\"A\"\"B\".\"C\"");
}

TEST(VdProcessName, QuoteDoubledInsideLastPart)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("A\"B"), "\"A\"\"B\"");
}

TEST(VdProcessName, ApostropheQuotedNameStays)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("'abc'"), "'abc'");
}

TEST(VdProcessName, NameWithBlankIsQuoted)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName("my t"), "\"my t\"");
}

TEST(VdProcessName, LeadingDotBelongsToName)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ProcessName(".A"), "\".A\"");
}

TEST(VdProcessName, QuoteIdentifiersFalseLeavesNameAsIs)
{
    TVdSQLScanner s;
    s.SetQuoteIdentifiers(false);
    EXPECT_EQ(s.ProcessName("CUSTOMER.NAME"), "CUSTOMER.NAME");
    EXPECT_EQ(s.ProcessName("A.B.C"), "A.B.C");
    EXPECT_EQ(s.ProcessName("my t"), "my t");
}

namespace {

// A scanner whose identifier quote is the back quote, as a dialect might have.
class BackQuoteScanner : public TVdSQLScanner
{
public:
    bool IsIdentQuote(char c) const override { return c == '`'; }
    char GetIdentQuote() const override { return '`'; }
};

} // namespace

TEST(VdProcessName, UsesTheIdentifierQuoteOfTheScanner)
{
    BackQuoteScanner s;
    EXPECT_EQ(s.ProcessName("CUSTOMER.NAME"), "`CUSTOMER`.`NAME`");
    EXPECT_EQ(s.ProcessName("A`B.C"), "`A``B`.`C`");
    EXPECT_EQ(s.ProcessName("`a.b`.c"), "`a.b`.`c`");
    EXPECT_EQ(s.ProcessName("\"x\""), "`\"x\"`");
}

// ---- Dialect hooks ----

namespace {

class DollarScanner : public TVdSQLScanner
{
public:
    bool IsLegalSymbol(char c) const override
    {
        return TVdSQLScanner::IsLegalSymbol(c) || c == '$';
    }
};

class HashDelimScanner : public TVdSQLScanner
{
public:
    bool IsDelim(char c) const override { return c == '#' || TVdSQLScanner::IsDelim(c); }
};

} // namespace

TEST(VdScannerVirtual, LegalSymbolOverrideReachesClassification)
{
    DollarScanner s;
    const std::vector<Tok> expected = {{vd::tkIdent, "A$B", 1, 4}, {vd::tkEnd, "", 1, 4}};
    EXPECT_EQ(ScanAll(s, "A$B"), expected);
}

TEST(VdScannerVirtual, DelimOverrideSplitsWords)
{
    HashDelimScanner s;
    const std::vector<Tok> expected = {{vd::tkIdent, "a", 1, 2},
                                       {vd::tkDelim, "#", 1, 3},
                                       {vd::tkIdent, "b", 1, 4},
                                       {vd::tkEnd, "", 1, 4}};
    EXPECT_EQ(ScanAll(s, "a#b"), expected);
}

TEST(VdScannerVirtual, IdentQuoteOnlyGivesIdentKind)
{
    // The back quote is an identifier quote but no string quote here.
    BackQuoteScanner s;
    const std::vector<Tok> expected = {{vd::tkIdent, "MY-COL", 1, 8}, {vd::tkEnd, "", 1, 9}};
    EXPECT_EQ(ScanAll(s, "`MY-COL`"), expected);
}

TEST(VdScannerVirtual, StringQuoteOnlyGivesStringKind)
{
    // With the back quote as identifier quote, the apostrophe only quotes strings.
    BackQuoteScanner s;
    const std::vector<Tok> expected = {{vd::tkString, "abc", 1, 5}, {vd::tkEnd, "", 1, 6}};
    EXPECT_EQ(ScanAll(s, "'abc'"), expected);
}

// ---- where a quoted text closes ----

TEST(VdClosingQuote, FirstSingleQuoteCloses)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ClosingQuote("ab'", '\'', ' '), 2u);
    EXPECT_EQ(s.ClosingQuote("ab'cd'", '\'', ' '), 2u);
    EXPECT_EQ(s.ClosingQuote("'", '\'', ' '), 0u);
    EXPECT_EQ(s.ClosingQuote("ab\"", '"', ' '), 2u);
}

TEST(VdClosingQuote, DoubledQuoteIsContent)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ClosingQuote("a''b'c", '\'', ' '), 4u);
    EXPECT_EQ(s.ClosingQuote("''''", '\'', ' '), std::string_view::npos);
    EXPECT_EQ(s.ClosingQuote("'''", '\'', ' '), 2u);
}

TEST(VdClosingQuote, CharacterAfterTheTextDecidesTheLastQuote)
{
    TVdSQLScanner s;
    // Followed by another quote, the last one is the first of a doubled pair.
    EXPECT_EQ(s.ClosingQuote("ab'", '\'', '\''), std::string_view::npos);
    EXPECT_EQ(s.ClosingQuote("ab'", '\'', 'x'), 2u);
}

TEST(VdClosingQuote, TextWithoutClosingQuoteStaysOpen)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.ClosingQuote("", '\'', ' '), std::string_view::npos);
    EXPECT_EQ(s.ClosingQuote("abc", '\'', ' '), std::string_view::npos);
    EXPECT_EQ(s.ClosingQuote("a\"b", '\'', ' '), std::string_view::npos);
}

TEST(VdClosingQuote, ClosesAtEndWhenOnlyTheLastQuoteCloses)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.ClosesAtEnd("a''b", '\''));
    EXPECT_TRUE(s.ClosesAtEnd("", '"'));
    EXPECT_FALSE(s.ClosesAtEnd("a'b", '\''));
    EXPECT_FALSE(s.ClosesAtEnd("a'", '\''));
}
