#include "core/VdText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace text = vd::text;

TEST(VdText, UpperCharChangesAsciiLowerCaseOnly)
{
    for (int i = 0; i < 256; ++i) {
        const char c = char(i);
        const char expected = (i >= 'a' && i <= 'z') ? char(i - 32) : c;
        EXPECT_EQ(text::UpperChar(c), expected) << "char " << i;
    }
}

TEST(VdText, LowerCharChangesAsciiUpperCaseOnly)
{
    for (int i = 0; i < 256; ++i) {
        const char c = char(i);
        const char expected = (i >= 'A' && i <= 'Z') ? char(i + 32) : c;
        EXPECT_EQ(text::LowerChar(c), expected) << "char " << i;
    }
}

TEST(VdText, UpperAsciiOnly)
{
    EXPECT_EQ(text::Upper("select a_1, \"b\""), "SELECT A_1, \"B\"");
    EXPECT_EQ(text::Upper("\xE4x\xE9"), "\xE4X\xE9");
    EXPECT_EQ(text::Upper(""), "");
}

TEST(VdText, LowerAsciiOnly)
{
    EXPECT_EQ(text::Lower("SELECT A_1"), "select a_1");
    EXPECT_EQ(text::Lower("\xC4X\xC9"), "\xC4x\xC9");
    EXPECT_EQ(text::Lower(""), "");
}

TEST(VdText, SameTextIgnoresAsciiCase)
{
    EXPECT_TRUE(text::SameText("abc", "ABC"));
    EXPECT_TRUE(text::SameText("Count", "cOUNT"));
    EXPECT_TRUE(text::SameText("", ""));
    EXPECT_FALSE(text::SameText("abc", "abd"));
    EXPECT_FALSE(text::SameText("abc", "abcd"));
    EXPECT_FALSE(text::SameText("abcd", "abc"));
    EXPECT_FALSE(text::SameText("a", ""));
}

TEST(VdText, SameTextLeavesHighCharactersAlone)
{
    EXPECT_FALSE(text::SameText("\xE4", "\xC4"));
    EXPECT_TRUE(text::SameText("\xE4", "\xE4"));
}

TEST(VdText, CompareTextOrder)
{
    EXPECT_EQ(text::CompareText("abc", "ABC"), 0);
    EXPECT_EQ(text::CompareText("", ""), 0);
    EXPECT_LT(text::CompareText("a", "B"), 0);
    EXPECT_GT(text::CompareText("B", "a"), 0);
    EXPECT_LT(text::CompareText("ab", "abc"), 0);
    EXPECT_GT(text::CompareText("abc", "ab"), 0);
    EXPECT_LT(text::CompareText("", "a"), 0);
    EXPECT_LT(text::CompareText("ORDER", "outer"), 0);
}

TEST(VdText, TrimBlanksAndTabs)
{
    EXPECT_EQ(text::Trim("  a b \t"), "a b");
    EXPECT_EQ(text::Trim("\tx"), "x");
    EXPECT_EQ(text::Trim("x"), "x");
    EXPECT_EQ(text::Trim("   "), "");
    EXPECT_EQ(text::Trim(""), "");
}

TEST(VdText, SplitCommaItemsInOrder)
{
    EXPECT_EQ(text::SplitComma("A,B,C"), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(text::SplitComma("SUM,MIN,MAX,AVG,COUNT"),
              (std::vector<std::string>{"SUM", "MIN", "MAX", "AVG", "COUNT"}));
    EXPECT_EQ(text::SplitComma("+,-,*,/"), (std::vector<std::string>{"+", "-", "*", "/"}));
}

TEST(VdText, SplitCommaSingleAndEmpty)
{
    EXPECT_EQ(text::SplitComma("ONE"), (std::vector<std::string>{"ONE"}));
    EXPECT_TRUE(text::SplitComma("").empty());
}

TEST(VdText, QuotedStrEnclosesText)
{
    EXPECT_EQ(text::QuotedStr("abc", '"'), "\"abc\"");
    EXPECT_EQ(text::QuotedStr("abc", '\''), "'abc'");
    EXPECT_EQ(text::QuotedStr("", '\''), "''");
}

TEST(VdText, QuotedStrDoublesQuoteInside)
{
    EXPECT_EQ(text::QuotedStr("it's", '\''), "'it''s'");
    EXPECT_EQ(text::QuotedStr("a\"b\"", '"'), "\"a\"\"b\"\"\"");
    EXPECT_EQ(text::QuotedStr("'", '\''), "''''");
}

TEST(VdText, QuotedStrLeavesOtherQuoteAlone)
{
    EXPECT_EQ(text::QuotedStr("it's", '"'), "\"it's\"");
    EXPECT_EQ(text::QuotedStr("a\"b", '\''), "'a\"b'");
}

TEST(VdText, UndoubleQuotesMakesPairsSingle)
{
    EXPECT_EQ(text::UndoubleQuotes("it''s", '\''), "it's");
    EXPECT_EQ(text::UndoubleQuotes("a''''b", '\''), "a''b");
    EXPECT_EQ(text::UndoubleQuotes("''", '\''), "'");
    EXPECT_EQ(text::UndoubleQuotes("'''", '\''), "''");
    EXPECT_EQ(text::UndoubleQuotes("a\"\"b", '"'), "a\"b");
}

TEST(VdText, UndoubleQuotesKeepsSingleAndOtherQuotes)
{
    EXPECT_EQ(text::UndoubleQuotes("it's", '\''), "it's");
    EXPECT_EQ(text::UndoubleQuotes("a\"\"b", '\''), "a\"\"b");
    EXPECT_EQ(text::UndoubleQuotes("", '\''), "");
}

TEST(VdText, QuotedStrThenUndoubleGivesTextBack)
{
    for (const char* s : {"", "a", "it's", "''", "a'b'c", "'x'"}) {
        const std::string quoted = text::QuotedStr(s, '\'');
        const std::string inner = quoted.substr(1, quoted.size() - 2);
        EXPECT_EQ(text::UndoubleQuotes(inner, '\''), s) << s;
    }
}
