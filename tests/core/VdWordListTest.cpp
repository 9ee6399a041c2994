#include "core/VdWordList.h"
#include "core/VdScanner.h"
#include "core/VdText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using vd::TVdSQLScanner;
using vd::TVdWordList;

namespace {

TVdWordList MakeList(const std::vector<std::string>& words)
{
    TVdWordList list;
    for (const std::string& w : words)
        list.Add(w);
    return list;
}

// Scans text and returns the kind of its first token.
vd::TTokenKind FirstKind(TVdSQLScanner& s, const std::string& text)
{
    s.SetExpression(text);
    return s.TokenKind();
}

bool IsAscending(const TVdWordList& list)
{
    for (int i = 1; i < list.Count(); ++i)
        if (vd::text::CompareText(list[i - 1], list[i]) > 0)
            return false;
    return true;
}

} // namespace

// ---- TVdWordList ----

TEST(VdWordList, EmptyList)
{
    TVdWordList list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.IndexOf("A"), -1);
    EXPECT_FALSE(list.Contains(""));
    EXPECT_EQ(list.GetCommaText(), "");
    EXPECT_FALSE(list.Sorted());
}

TEST(VdWordList, AddKeepsOrder)
{
    const TVdWordList list = MakeList({"Beta", "alpha", "Gamma"});
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list[0], "Beta");
    EXPECT_EQ(list[1], "alpha");
    EXPECT_EQ(list[2], "Gamma");
    EXPECT_EQ(list.GetCommaText(), "Beta,alpha,Gamma");
    EXPECT_EQ(list.Items(), (std::vector<std::string>{"Beta", "alpha", "Gamma"}));
    EXPECT_FALSE(list.Sorted());
}

TEST(VdWordList, UnsortedLookupIsCaseInsensitiveScan)
{
    const TVdWordList list = MakeList({"Beta", "alpha", "Gamma"});
    EXPECT_EQ(list.IndexOf("BETA"), 0);
    EXPECT_EQ(list.IndexOf("ALPHA"), 1);
    EXPECT_EQ(list.IndexOf("gamma"), 2);
    EXPECT_EQ(list.IndexOf("delta"), -1);
    EXPECT_EQ(list.IndexOf("alph"), -1);
    EXPECT_EQ(list.IndexOf("alphas"), -1);
}

TEST(VdWordList, SortIsCaseInsensitive)
{
    TVdWordList list = MakeList({"beta", "Gamma", "Alpha", "delta"});
    list.Sort();
    EXPECT_TRUE(list.Sorted());
    EXPECT_EQ(list.GetCommaText(), "Alpha,beta,delta,Gamma");
}

TEST(VdWordList, SortedLookupIsCaseInsensitive)
{
    TVdWordList list = MakeList({"beta", "Gamma", "Alpha", "delta"});
    list.Sort();
    EXPECT_EQ(list.IndexOf("ALPHA"), 0);
    EXPECT_EQ(list.IndexOf("BETA"), 1);
    EXPECT_EQ(list.IndexOf("Delta"), 2);
    EXPECT_EQ(list.IndexOf("gamma"), 3);
    EXPECT_EQ(list.IndexOf("epsilon"), -1);
    EXPECT_EQ(list.IndexOf("a"), -1);
    EXPECT_EQ(list.IndexOf("zzz"), -1);
    EXPECT_EQ(list.IndexOf(""), -1);
}

TEST(VdWordList, BinarySearchFindsEveryWordOfLongList)
{
    TVdWordList list;
    std::vector<std::string> words;
    // Words in descending order so that sorting has work to do.
    for (int i = 99; i >= 0; --i) {
        std::string w = "W";
        w += char('A' + i / 10);
        w += char('a' + i % 10);
        words.push_back(w);
        list.Add(w);
    }
    list.Sort();
    ASSERT_TRUE(IsAscending(list));
    for (const std::string& w : words) {
        const int i = list.IndexOf(vd::text::Lower(w));
        ASSERT_GE(i, 0) << w;
        EXPECT_EQ(list[i], w);
        EXPECT_EQ(list.IndexOf(w + "x"), -1) << w;
    }
}

TEST(VdWordList, AddAfterSortStillFound)
{
    TVdWordList list = MakeList({"b", "c"});
    list.Sort();
    list.Add("A");
    EXPECT_FALSE(list.Sorted());
    EXPECT_EQ(list.IndexOf("a"), 2);
    EXPECT_EQ(list.IndexOf("B"), 0);
}

TEST(VdWordList, SetCommaTextKeepsOrder)
{
    TVdWordList list;
    list.SetCommaText("SUM,MIN,MAX");
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list[0], "SUM");
    EXPECT_EQ(list[1], "MIN");
    EXPECT_EQ(list[2], "MAX");
    EXPECT_EQ(list.GetCommaText(), "SUM,MIN,MAX");
    EXPECT_FALSE(list.Sorted());
}

TEST(VdWordList, SetCommaTextReplacesWords)
{
    TVdWordList list = MakeList({"X", "Y"});
    list.SetCommaText("+,-,*,/");
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.IndexOf("X"), -1);
    EXPECT_EQ(list.IndexOf("/"), 3);
}

TEST(VdWordList, ClearEmpties)
{
    TVdWordList list = MakeList({"a", "b"});
    list.Sort();
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.IndexOf("a"), -1);
}

TEST(VdWordList, AssignUpperCaseCopies)
{
    const TVdWordList source = MakeList({"zeta", "Alpha"});
    TVdWordList list = MakeList({"old"});
    list.Assign(source, true);
    EXPECT_EQ(list.GetCommaText(), "ZETA,ALPHA");
    EXPECT_EQ(source.GetCommaText(), "zeta,Alpha");
    EXPECT_EQ(list.IndexOf("old"), -1);
}

TEST(VdWordList, AssignKeepsCaseWithoutUpperCase)
{
    const TVdWordList source = MakeList({"zeta", "Alpha"});
    TVdWordList list;
    list.Assign(source, false);
    EXPECT_EQ(list.GetCommaText(), "zeta,Alpha");
}

// ---- The scanner's word lists ----

TEST(VdScannerWords, DefaultKeywordText)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.GetCommaKeywords(),
              "SELECT,DISTINCT,INTO,FROM,WHERE,GROUP,BY,HAVING,ORDER,ASC,DESC,AS,LEFT,RIGHT,FULL,"
              "INNER,OUTER,JOIN,ON,AND,OR,NOT");
}

TEST(VdScannerWords, DefaultKeywordsLoadedSorted)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.Keywords().Count(), 22);
    EXPECT_TRUE(s.Keywords().Sorted());
    EXPECT_EQ(s.Keywords().GetCommaText(),
              "AND,AS,ASC,BY,DESC,DISTINCT,FROM,FULL,GROUP,HAVING,INNER,INTO,JOIN,LEFT,NOT,ON,OR,"
              "ORDER,OUTER,RIGHT,SELECT,WHERE");
}

TEST(VdScannerWords, EveryDefaultKeywordScansAsKeyword)
{
    TVdSQLScanner s;
    for (const std::string& w : vd::text::SplitComma(s.GetCommaKeywords())) {
        EXPECT_EQ(FirstKind(s, w), vd::tkKeyword) << w;
        EXPECT_EQ(FirstKind(s, vd::text::Lower(w)), vd::tkKeyword) << w;
    }
}

TEST(VdScannerWords, DefaultFunctionText)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.GetCommaFunctions(), "SUM,MIN,MAX,AVG,COUNT");
}

TEST(VdScannerWords, DefaultFunctionsLoadedSorted)
{
    TVdSQLScanner s;
    EXPECT_TRUE(s.Functions().Sorted());
    EXPECT_EQ(s.Functions().GetCommaText(), "AVG,COUNT,MAX,MIN,SUM");
}

TEST(VdScannerWords, EveryDefaultFunctionScansAsFunction)
{
    TVdSQLScanner s;
    for (const char* w : {"SUM", "min", "Max", "avg", "COUNT"})
        EXPECT_EQ(FirstKind(s, w), vd::tkFunction) << w;
}

TEST(VdScannerWords, DefaultOperationText)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.GetCommaOperations(), "+,-,*,/");
}

TEST(VdScannerWords, DefaultOperationsLoadedSorted)
{
    TVdSQLScanner s;
    EXPECT_EQ(s.Operations().Count(), 4);
    EXPECT_TRUE(s.Operations().Sorted());
    EXPECT_TRUE(IsAscending(s.Operations()));
    for (const char* w : {"+", "-", "*", "/"})
        EXPECT_TRUE(s.Operations().Contains(w)) << w;
}

namespace {

// A scanner with its own word texts, loaded again through the Define operations.
class OwnWordsScanner : public TVdSQLScanner
{
public:
    OwnWordsScanner()
    {
        DefineKeywords();
        DefineFunctions();
        DefineOperations();
    }
    std::string GetCommaKeywords() const override { return "ZETA,ALPHA,MU"; }
    std::string GetCommaFunctions() const override { return "TRIM,UPPER"; }
    std::string GetCommaOperations() const override { return "||,+"; }
};

} // namespace

TEST(VdScannerWords, DefineKeywordsLoadsProducerTextSorted)
{
    OwnWordsScanner s;
    EXPECT_EQ(s.Keywords().GetCommaText(), "ALPHA,MU,ZETA");
    EXPECT_TRUE(s.Keywords().Sorted());
    EXPECT_TRUE(s.IsKeyword("mu"));
    EXPECT_FALSE(s.IsKeyword("SELECT"));
}

TEST(VdScannerWords, DefineFunctionsLoadsProducerTextSorted)
{
    OwnWordsScanner s;
    EXPECT_EQ(s.Functions().GetCommaText(), "TRIM,UPPER");
    EXPECT_TRUE(s.Functions().Sorted());
    EXPECT_TRUE(s.IsFunction("upper"));
    EXPECT_FALSE(s.IsFunction("COUNT"));
}

TEST(VdScannerWords, DefineOperationsLoadsProducerText)
{
    OwnWordsScanner s;
    EXPECT_EQ(s.Operations().Count(), 2);
    EXPECT_TRUE(s.Operations().Sorted());
    EXPECT_TRUE(s.IsOperation("||"));
    EXPECT_TRUE(s.IsOperation("+"));
    EXPECT_FALSE(s.IsOperation("-"));
}

TEST(VdScannerWords, DefineKeywordsReplacesEarlierWords)
{
    OwnWordsScanner s;
    TVdWordList extra = MakeList({"EXTRA"});
    s.SetKeywords(extra);
    ASSERT_TRUE(s.IsKeyword("EXTRA"));
    s.DefineKeywords();
    EXPECT_FALSE(s.IsKeyword("EXTRA"));
    EXPECT_EQ(s.Keywords().GetCommaText(), "ALPHA,MU,ZETA");
}

TEST(VdScannerWords, SetKeywordsCopiesUpperCasedAndSorted)
{
    TVdSQLScanner s;
    const TVdWordList words = MakeList({"zeta", "Alpha", "mid"});
    s.SetKeywords(words);
    EXPECT_EQ(s.Keywords().GetCommaText(), "ALPHA,MID,ZETA");
    EXPECT_TRUE(s.Keywords().Sorted());
    EXPECT_EQ(words.GetCommaText(), "zeta,Alpha,mid");
    EXPECT_TRUE(s.IsKeyword("alpha"));
    EXPECT_FALSE(s.IsKeyword("SELECT"));
}

TEST(VdScannerWords, SetKeywordsChangesScanning)
{
    TVdSQLScanner s;
    s.SetKeywords(MakeList({"zeta"}));
    EXPECT_EQ(FirstKind(s, "Zeta"), vd::tkKeyword);
    EXPECT_EQ(FirstKind(s, "SELECT"), vd::tkIdent);
}

TEST(VdScannerWords, SetFunctionsCopiesUpperCasedAndSorted)
{
    TVdSQLScanner s;
    const TVdWordList words = MakeList({"upper", "Lower", "coalesce"});
    s.SetFunctions(words);
    EXPECT_EQ(s.Functions().GetCommaText(), "COALESCE,LOWER,UPPER");
    EXPECT_TRUE(s.Functions().Sorted());
    EXPECT_EQ(words.GetCommaText(), "upper,Lower,coalesce");
    EXPECT_TRUE(s.IsFunction("Coalesce"));
    EXPECT_FALSE(s.IsFunction("COUNT"));
}

TEST(VdScannerWords, SetFunctionsChangesScanning)
{
    TVdSQLScanner s;
    s.SetFunctions(MakeList({"upper"}));
    EXPECT_EQ(FirstKind(s, "UPPER"), vd::tkFunction);
    EXPECT_EQ(FirstKind(s, "COUNT"), vd::tkIdent);
}

TEST(VdScannerWords, FunctionWinsOverKeyword)
{
    TVdSQLScanner s;
    s.SetKeywords(MakeList({"SUM", "SELECT"}));
    EXPECT_EQ(FirstKind(s, "sum"), vd::tkFunction);
    EXPECT_EQ(FirstKind(s, "select"), vd::tkKeyword);
}

TEST(VdScannerWords, KeywordWinsOverInteger)
{
    TVdSQLScanner s;
    s.SetKeywords(MakeList({"42"}));
    EXPECT_EQ(FirstKind(s, "42"), vd::tkKeyword);
    EXPECT_EQ(FirstKind(s, "43"), vd::tkInteger);
}

TEST(VdScannerWords, SetOperationsCopiesWithoutCaseChangeOrSorting)
{
    TVdSQLScanner s;
    const TVdWordList words = MakeList({"mod", "DIV", "+"});
    s.SetOperations(words);
    EXPECT_EQ(s.Operations().GetCommaText(), "mod,DIV,+");
    EXPECT_FALSE(s.Operations().Sorted());
    EXPECT_TRUE(s.IsOperation("MOD"));
    EXPECT_TRUE(s.IsOperation("div"));
    EXPECT_FALSE(s.IsOperation("*"));
}

TEST(VdScannerWords, SetOperationsChangesScanning)
{
    TVdSQLScanner s;
    s.SetOperations(MakeList({"mod"}));
    s.SetExpression("a MOD b*c");
    EXPECT_EQ(s.GetNextToken(), "MOD");
    EXPECT_EQ(s.TokenKind(), vd::tkOperation);
    EXPECT_EQ(s.GetNextToken(), "b");
    // "*" is no operation any more and stays a delimiter.
    EXPECT_EQ(s.GetNextToken(), "*");
    EXPECT_EQ(s.TokenKind(), vd::tkDelim);
}

TEST(VdScannerWords, OperationWinsOverComparison)
{
    TVdSQLScanner s;
    s.SetOperations(MakeList({"="}));
    s.SetExpression("a = b");
    EXPECT_EQ(s.GetNextToken(), "=");
    EXPECT_EQ(s.TokenKind(), vd::tkOperation);
}
