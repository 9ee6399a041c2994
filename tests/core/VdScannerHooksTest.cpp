// The scanner reads its character classes into a table and keeps tokens as places in the text;
// these tests hold that a subclass's answers still decide every token, that a class table is
// read again when the subclass says its classes changed, and that a saved state gives back
// the very token it was saved at.
#include "core/VdScanner.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using vd::TVdSQLScanner;

namespace {

using TKinds = std::vector<std::pair<vd::TTokenKind, std::string>>;

TKinds Scan(TVdSQLScanner& s, const std::string& text)
{
    TKinds tokens;
    s.SetExpression(text);
    for (int i = 0; i < 100 && s.TokenKind() != vd::tkEnd; ++i) {
        tokens.emplace_back(s.TokenKind(), s.Token());
        s.GetNextToken();
    }
    return tokens;
}

// A keyword test of its own, beside the word list: every word that starts with "K_".
class PrefixKeywordScanner : public TVdSQLScanner
{
public:
    bool IsKeyword(const std::string& s) const override
    {
        return s.rfind("K_", 0) == 0 || TVdSQLScanner::IsKeyword(s);
    }
};

// Functions and operations decided by the subclass, not by the lists.
class WordHookScanner : public TVdSQLScanner
{
public:
    bool IsFunction(const std::string& s) const override { return s == "LEN"; }
    bool IsOperation(const std::string& s) const override
    {
        return s == "MOD" || TVdSQLScanner::IsOperation(s);
    }
};

// '#' splits words only while the setting is on; the scanner is told when the setting
// changes, as a dialect does.
class SwitchScanner : public TVdSQLScanner
{
public:
    bool IsDelim(char c) const override { return (FHash && c == '#') || TVdSQLScanner::IsDelim(c); }
    void SetHash(bool on)
    {
        FHash = on;
        InvalidateCharClasses();
    }

private:
    bool FHash = false;
};

} // namespace

TEST(VdScannerHooks, KeywordOverrideDecidesWordsTheListDoesNotHold)
{
    PrefixKeywordScanner s;
    const TKinds expected = {{vd::tkKeyword, "SELECT"},
                             {vd::tkKeyword, "K_TOP"},
                             {vd::tkIdent, "A"},
                             {vd::tkKeyword, "FROM"},
                             {vd::tkIdent, "T"}};
    EXPECT_EQ(Scan(s, "SELECT K_TOP A FROM T"), expected);
}

TEST(VdScannerHooks, FunctionAndOperationOverridesDecideWords)
{
    WordHookScanner s;
    // SUM is in the function list, yet the override alone decides what a function is.
    const TKinds expected = {{vd::tkFunction, "LEN"},  {vd::tkDelim, "("},
                             {vd::tkIdent, "A"},       {vd::tkDelim, ")"},
                             {vd::tkOperation, "MOD"}, {vd::tkInteger, "2"},
                             {vd::tkOperation, "+"},   {vd::tkIdent, "SUM"}};
    EXPECT_EQ(Scan(s, "LEN(A) MOD 2 + SUM"), expected);
}

TEST(VdScannerHooks, InvalidatedClassesAreReadAgain)
{
    SwitchScanner s;
    const TKinds word = {{vd::tkUnknown, "A#B"}};
    const TKinds apart = {{vd::tkIdent, "A"}, {vd::tkDelim, "#"}, {vd::tkIdent, "B"}};
    EXPECT_EQ(Scan(s, "A#B"), word);
    s.SetHash(true);
    EXPECT_EQ(Scan(s, "A#B"), apart);
    s.SetHash(false);
    EXPECT_EQ(Scan(s, "A#B"), word);
}

TEST(VdScannerHooks, RestoredStateGivesBackTheTokenText)
{
    TVdSQLScanner s;
    s.SetExpression("SELECT 'it''s' AS \"my col\", 1.5 , X FROM T");
    std::vector<std::pair<TVdSQLScanner::TState, std::string>> saved;
    while (s.TokenKind() != vd::tkEnd) {
        saved.emplace_back(s.SaveState(), s.Token());
        s.GetNextToken();
    }
    ASSERT_GE(saved.size(), 9u);
    // Restored out of order, each state reads its own token again, quoted ones included.
    for (size_t i = saved.size(); i-- > 0;) {
        s.RestoreState(saved[i].first);
        EXPECT_EQ(s.Token(), saved[i].second) << "token " << i;
    }
    s.RestoreState(saved[1].first);
    EXPECT_EQ(s.Token(), "it''s");
    EXPECT_EQ(s.TokenKind(), vd::tkIdentString); // the apostrophe quotes names too here
    s.GetNextToken();
    EXPECT_EQ(s.Token(), "AS");
}

TEST(VdScannerHooks, LookAheadLeavesTheTokenAsItWas)
{
    TVdSQLScanner s;
    s.SetExpression("A \"b c\" D");
    s.GetNextToken();
    ASSERT_EQ(s.Token(), "b c");
    EXPECT_EQ(s.GetTokenPlus(), "D");
    EXPECT_EQ(s.Token(), "b c");
    EXPECT_TRUE(s.TokenQuoted());
}

TEST(VdScannerHooks, WordListChangesReachThePlainScanner)
{
    TVdSQLScanner s;
    EXPECT_EQ(Scan(s, "top A mod"),
              (TKinds{{vd::tkIdent, "top"}, {vd::tkIdent, "A"}, {vd::tkIdent, "mod"}}));
    vd::TVdWordList keywords = s.Keywords();
    keywords.Add("TOP");
    s.SetKeywords(keywords);
    EXPECT_EQ(Scan(s, "top A"), (TKinds{{vd::tkKeyword, "top"}, {vd::tkIdent, "A"}}));
    // A word in both lists is a function first.
    vd::TVdWordList functions = s.Functions();
    functions.Add("top");
    s.SetFunctions(functions);
    EXPECT_EQ(Scan(s, "TOP A"), (TKinds{{vd::tkFunction, "TOP"}, {vd::tkIdent, "A"}}));
    vd::TVdWordList operations = s.Operations();
    operations.Add("MOD");
    s.SetOperations(operations);
    EXPECT_EQ(Scan(s, "A mod 2"),
              (TKinds{{vd::tkIdent, "A"}, {vd::tkOperation, "mod"}, {vd::tkInteger, "2"}}))
        << "word lists ignore case";
}

namespace {

// The same class in all but its type: it is scanned through the virtual word tests.
class DerivedScanner : public TVdSQLScanner
{
};

} // namespace

TEST(VdScannerHooks, PlainAndDerivedScannersReadTheSameTokens)
{
    const char* const texts[] = {
        "SELECT DISTINCT A.X, sum(B.Y) AS S, count(*) FROM T A LEFT OUTER JOIN U B ON A.K = B.K",
        "select a-b, 1.5 , 2 * 3 / 4 + -5 from t where x <> 'it''s' and y >= 2 or not z is null",
        "SELECT \"my col\", MY-COL, _X, $Y, A#B, Max(1) FROM \"t t\" GROUP BY 1 ORDER BY 2 DESC",
        "SELECT AVG ( X ) ,MIN(Y),MAX(Z)FROM T HAVING COUNT(X)>1\r\nORDER BY X"};
    TVdSQLScanner plain;
    DerivedScanner derived;
    for (int round = 0; round < 2; ++round) {
        for (const char* text : texts)
            EXPECT_EQ(Scan(plain, text), Scan(derived, text)) << text;
        // The same list changes on both, then again.
        vd::TVdWordList keywords = plain.Keywords();
        keywords.Add("FIRST");
        keywords.Add("Max");
        plain.SetKeywords(keywords);
        derived.SetKeywords(keywords);
        vd::TVdWordList operations = plain.Operations();
        operations.Add("||");
        operations.Add("MY-COL");
        plain.SetOperations(operations);
        derived.SetOperations(operations);
    }
}

// One-character tokens are answered from a table built from the lists: it follows every
// change of them, ignores case as the lists do, and agrees with the virtual tests.
TEST(VdScannerHooks, OneCharacterWordsFollowListChanges)
{
    const std::string text = "q x % , y";
    TVdSQLScanner plain;
    DerivedScanner derived;
    EXPECT_EQ(Scan(plain, text), (TKinds{{vd::tkIdent, "q"},
                                         {vd::tkIdent, "x"},
                                         {vd::tkUnknown, "%"},
                                         {vd::tkDelim, ","},
                                         {vd::tkIdent, "y"}}));
    vd::TVdWordList keywords = plain.Keywords();
    keywords.Add("Q");
    vd::TVdWordList functions = plain.Functions();
    functions.Add("x");
    vd::TVdWordList operations = plain.Operations();
    operations.Add("%");
    operations.Add(",");
    TVdSQLScanner* const both[] = {&plain, &derived};
    for (TVdSQLScanner* s : both) {
        s->SetKeywords(keywords);
        s->SetFunctions(functions);
        s->SetOperations(operations);
    }
    const TKinds expected{{vd::tkKeyword, "q"},
                          {vd::tkFunction, "x"},
                          {vd::tkOperation, "%"},
                          {vd::tkOperation, ","},
                          {vd::tkIdent, "y"}};
    EXPECT_EQ(Scan(plain, text), expected);
    EXPECT_EQ(Scan(derived, text), expected);
    // Taken out again, "q" is a name once more.
    plain.SetKeywords(vd::TVdWordList());
    EXPECT_EQ(Scan(plain, "q").front(), (std::pair<vd::TTokenKind, std::string>{vd::tkIdent, "q"}));
}

namespace {

// Back quotes enclose names once switched on; the classes are read again then.
class BackQuoteScanner : public TVdSQLScanner
{
public:
    bool IsIdentQuote(char c) const override
    {
        return (FBackQuote && c == '`') || TVdSQLScanner::IsIdentQuote(c);
    }
    void SetBackQuote(bool on)
    {
        FBackQuote = on;
        InvalidateCharClasses();
    }

private:
    bool FBackQuote = false;
};

} // namespace

// Whether a name needs quotes and what a quoted name holds follow the subclass's identifier
// quotes, also after they change.
TEST(VdScannerHooks, NameQuotingFollowsTheIdentifierQuotes)
{
    BackQuoteScanner s;
    EXPECT_TRUE(s.NeedQuotes("`a`"));
    EXPECT_EQ(s.ProcessIdent("`a`"), "`a`");
    EXPECT_FALSE(s.NeedQuotes("\"a\""));
    EXPECT_EQ(s.ProcessIdent("\"a\""), "a");
    EXPECT_TRUE(s.NeedQuotes("\"a'"));
    s.SetBackQuote(true);
    EXPECT_FALSE(s.NeedQuotes("`a`"));
    EXPECT_EQ(s.ProcessIdent("`a`"), "a");
    EXPECT_TRUE(s.NeedQuotes("`a\""));
    s.SetBackQuote(false);
    EXPECT_TRUE(s.NeedQuotes("`a`"));
    EXPECT_EQ(s.ProcessIdent("`a`"), "`a`");
}

// Numbers and dots are read in runs where no float can begin; a "." after digits still goes
// through the float rule. A derived scanner reads a leading "." character by character.
TEST(VdScannerHooks, NumbersAndDotsKeepTheirTokens)
{
    const std::string text = "SELECT 12ab, 1-2, 1.5 , x.y, .5, 1'x', 7";
    const TKinds expected{{vd::tkKeyword, "SELECT"}, {vd::tkUnknown, "12ab"}, {vd::tkDelim, ","},
                          {vd::tkInteger, "1"},      {vd::tkOperation, "-"},  {vd::tkInteger, "2"},
                          {vd::tkDelim, ","},        {vd::tkFloat, "1"},      {vd::tkInteger, "5"},
                          {vd::tkDelim, ","},        {vd::tkIdent, "x"},      {vd::tkDelim, "."},
                          {vd::tkIdent, "y"},        {vd::tkDelim, ","},      {vd::tkDelim, "."},
                          {vd::tkInteger, "5"},      {vd::tkDelim, ","},      {vd::tkInteger, "1"},
                          {vd::tkIdentString, "x"},  {vd::tkDelim, ","},      {vd::tkInteger, "7"}};
    TVdSQLScanner plain;
    DerivedScanner derived;
    EXPECT_EQ(Scan(plain, text), expected);
    EXPECT_EQ(Scan(derived, text), expected);
    // At the very end "1.5" is no float.
    const TKinds last{{vd::tkInteger, "1"}, {vd::tkDelim, "."}, {vd::tkInteger, "5"}};
    EXPECT_EQ(Scan(plain, "1.5"), last);
    EXPECT_EQ(Scan(derived, "1.5"), last);
}

namespace {

// '~' is a blank to this scanner: the run of blanks before a token is its to decide.
class TildeBlankScanner : public TVdSQLScanner
{
public:
    bool IsSpace(char c) const override { return c == '~' || TVdSQLScanner::IsSpace(c); }
};

} // namespace

TEST(VdScannerHooks, BlankOverrideDecidesTheRunBeforeAToken)
{
    TildeBlankScanner s;
    EXPECT_EQ(
        Scan(s, "(a~~b~)"),
        (TKinds{{vd::tkDelim, "("}, {vd::tkIdent, "a"}, {vd::tkIdent, "b"}, {vd::tkDelim, ")"}}));
    s.SetExpression("(a~~b~)");
    s.GetNextToken(); // a, right after the "("
    EXPECT_EQ(s.SpaceCount(), 0);
    s.GetNextToken(); // b, after two blanks
    EXPECT_EQ(s.Token(), "b");
    EXPECT_EQ(s.SpaceCount(), 2);
    EXPECT_EQ(s.LinePos(), 6);
    s.GetNextToken(); // ")", after one
    EXPECT_EQ(s.SpaceCount(), 1);
}
