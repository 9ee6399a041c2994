// WHERE and HAVING conditions as the parser reads them: operators, connectors, groups, NOT.
#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

using namespace vd;

namespace {

std::unique_ptr<TVdSelectParser> Parse(const std::string& text)
{
    auto parser = std::make_unique<TVdSelectParser>();
    parser->SetExpression(text);
    return parser;
}

const char* Filter(TVdCriterionFilter filter)
{
    switch (filter) {
    case cfAll:
        return "All";
    case cfAny:
        return "Any";
    case cfNone:
        return "None";
    case cfNotAll:
        return "NotAll";
    }
    return "?";
}

std::string Node(const TVdFunctionDef& node)
{
    std::string result = node.Name();
    if (node.ArgumentCount() == 0)
        return result;
    result += "(";
    for (int i = 0; i < node.ArgumentCount(); ++i)
        result += (i ? ", " : "") + Node(*node.Argument(i));
    return result + ")";
}

// A criteria tree in one line: All(A = 1; Any(B = 2; C IS NULL)).
std::string Shape(const TVdCriterions& list)
{
    std::string result = std::string(Filter(list.Filter)) + "(";
    for (int i = 0; i < list.Count(); ++i) {
        const TVdCriterion& item = *list.Items(i);
        if (i)
            result += "; ";
        if (item.IsGroup()) {
            result += Shape(item.SubItems());
            continue;
        }
        result += Node(item.LeftSide()) + " " + item.Operator();
        for (int r = 0; r < item.RightSide().Count(); ++r)
            result += (r ? ", " : " ") + Node(*item.RightSide().Items(r));
    }
    return result + ")";
}

std::string WhereShape(const std::string& condition)
{
    auto parser = Parse("SELECT * FROM T WHERE " + condition);
    return Shape(parser->WhereItems());
}

struct TOperatorRow {
    const char* Name;
    const char* Condition;
    const char* Caption;
    int ArgumentCount;
    const char* First;
    TVdFunctionKind FirstKind;
    const char* Second;
    TVdFunctionKind SecondKind;
};

void PrintTo(const TOperatorRow& row, std::ostream* os) { *os << row.Condition; }

class CriteriaOperators : public ::testing::TestWithParam<TOperatorRow>
{
};

struct TComparisonRow {
    const char* Name;
    const char* Operator;
};

void PrintTo(const TComparisonRow& row, std::ostream* os) { *os << row.Operator; }

class CriteriaColumnOnTheRight : public ::testing::TestWithParam<TComparisonRow>
{
};

} // namespace

TEST_P(CriteriaOperators, CaptionAndRightSide)
{
    const TOperatorRow& row = GetParam();
    auto parser = Parse(std::string("SELECT * FROM T WHERE ") + row.Condition);
    ASSERT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->WhereItems().Count(), 1);
    const TVdCriterion& criterion = *parser->WhereItems().Items(0);
    EXPECT_FALSE(criterion.IsGroup());
    EXPECT_EQ(criterion.LeftSide().Name(), "A");
    EXPECT_EQ(criterion.LeftSide().Kind(), fkIdentifier);
    EXPECT_EQ(criterion.Operator(), row.Caption);
    ASSERT_EQ(criterion.RightSide().Count(), row.ArgumentCount);
    if (row.ArgumentCount > 0) {
        EXPECT_EQ(criterion.RightSide().Items(0)->Name(), row.First);
        EXPECT_EQ(criterion.RightSide().Items(0)->Kind(), row.FirstKind);
    }
    if (row.ArgumentCount > 1) {
        EXPECT_EQ(criterion.RightSide().Items(1)->Name(), row.Second);
        EXPECT_EQ(criterion.RightSide().Items(1)->Kind(), row.SecondKind);
    }
}

INSTANTIATE_TEST_SUITE_P(
    DefaultTable, CriteriaOperators,
    ::testing::Values(
        TOperatorRow{"Equal", "A = 1", "=", 1, "1", fkInteger, "", fkUnknown},
        TOperatorRow{"NotEqual", "A <> 'x'", "<>", 1, "'x'", fkIdentifier, "", fkUnknown},
        TOperatorRow{"Less", "A < 1", "<", 1, "1", fkInteger, "", fkUnknown},
        TOperatorRow{"Greater", "A > 1", ">", 1, "1", fkInteger, "", fkUnknown},
        TOperatorRow{"LessOrEqual", "A <= 5", "<=", 1, "5", fkInteger, "", fkUnknown},
        TOperatorRow{"GreaterOrEqual", "A >= 5", ">=", 1, "5", fkInteger, "", fkUnknown},
        TOperatorRow{"LessOrEqualWithoutBlanks", "A<=5", "<=", 1, "5", fkInteger, "", fkUnknown},
        TOperatorRow{"NotEqualWithoutBlanks", "A<>5", "<>", 1, "5", fkInteger, "", fkUnknown},
        TOperatorRow{"Like", "A LIKE 'x%'", "LIKE", 1, "'x%'", fkIdentifier, "", fkUnknown},
        TOperatorRow{"NotLike", "A NOT LIKE 'x%'", "NOT LIKE", 1, "'x%'", fkIdentifier, "",
                     fkUnknown},
        TOperatorRow{"In", "A IN (1, 2)", "IN", 1, "(1, 2)", fkExpression, "", fkUnknown},
        TOperatorRow{"NotIn", "A NOT IN ('a',(2))", "NOT IN", 1, "('a',(2))", fkExpression, "",
                     fkUnknown},
        TOperatorRow{"Between", "A BETWEEN 1 AND 5", "BETWEEN", 2, "1", fkInteger, "5", fkInteger},
        TOperatorRow{"NotBetween", "A NOT BETWEEN 'a' AND B", "NOT BETWEEN", 2, "'a'", fkIdentifier,
                     "B", fkIdentifier},
        TOperatorRow{"IsNull", "A IS NULL", "IS NULL", 0, "", fkUnknown, "", fkUnknown},
        TOperatorRow{"IsNotNull", "A IS NOT NULL", "IS NOT NULL", 0, "", fkUnknown, "", fkUnknown},
        TOperatorRow{"WordsInLowerCase", "A is not null", "IS NOT NULL", 0, "", fkUnknown, "",
                     fkUnknown},
        TOperatorRow{"WordsInMixedCase", "A Not Between 1 And 2", "NOT BETWEEN", 2, "1", fkInteger,
                     "2", fkInteger},
        TOperatorRow{"FloatIsAnExpression", "A = 1.5", "=", 1, "1.5", fkExpression, "", fkUnknown},
        TOperatorRow{"DoubledApostrophe", "A = 'it''s'", "=", 1, "'it''s'", fkIdentifier, "",
                     fkUnknown},
        TOperatorRow{"QuotedNameWithBlank", "A = \"B C\"", "=", 1, "B C", fkIdentifier, "",
                     fkUnknown}),
    [](const ::testing::TestParamInfo<TOperatorRow>& info) { return info.param.Name; });

// A column may stand on the right of every comparison, <= and >= included (these are first
// matched as "<" and ">" and completed by the next character).
TEST_P(CriteriaColumnOnTheRight, ReadsTheColumnAsArgument)
{
    const TComparisonRow& row = GetParam();
    auto parser = Parse(std::string("SELECT * FROM T WHERE A ") + row.Operator + " B");
    ASSERT_TRUE(parser->IsValid());
    ASSERT_EQ(parser->WhereItems().Count(), 1);
    const TVdCriterion& criterion = *parser->WhereItems().Items(0);
    EXPECT_EQ(criterion.LeftSide().Name(), "A");
    EXPECT_EQ(criterion.Operator(), row.Operator);
    ASSERT_EQ(criterion.RightSide().Count(), 1);
    EXPECT_EQ(criterion.RightSide().Items(0)->Name(), "B");
    EXPECT_EQ(criterion.RightSide().Items(0)->Kind(), fkIdentifier);
}

INSTANTIATE_TEST_SUITE_P(
    Comparisons, CriteriaColumnOnTheRight,
    ::testing::Values(TComparisonRow{"Equal", "="}, TComparisonRow{"NotEqual", "<>"},
                      TComparisonRow{"Less", "<"}, TComparisonRow{"Greater", ">"},
                      TComparisonRow{"LessOrEqual", "<="}, TComparisonRow{"GreaterOrEqual", ">="}),
    [](const ::testing::TestParamInfo<TComparisonRow>& info) { return info.param.Name; });

TEST(CriteriaOperands, QualifiedNamesKeepTheirQualifier)
{
    auto parser = Parse("SELECT * FROM T, S WHERE T.A = S.B");
    const TVdCriterion& criterion = *parser->WhereItems().Items(0);
    EXPECT_EQ(criterion.LeftSide().Name(), "T.A");
    EXPECT_EQ(criterion.LeftSide().Kind(), fkIdentifier);
    EXPECT_EQ(criterion.RightSide().Items(0)->Name(), "S.B");
    EXPECT_EQ(criterion.RightSide().Items(0)->Kind(), fkIdentifier);
    // Condition qualifiers make no tables.
    EXPECT_EQ(parser->TableDefs().Count(), 2);
}

TEST(CriteriaOperands, ExpressionOnTheLeft)
{
    EXPECT_EQ(WhereShape("A + 1 > B"), "All(A + 1 > B)");
    auto parser = Parse("SELECT * FROM T WHERE A + 1 > B");
    EXPECT_EQ(parser->WhereItems().Items(0)->LeftSide().Kind(), fkExpression);
}

TEST(CriteriaOperands, AggregatesInHaving)
{
    auto parser = Parse("SELECT A, SUM(B) FROM T GROUP BY A HAVING (SUM(B) > 1) OR (COUNT(*) < 5)");
    const TVdCriterions& having = parser->HavingItems();
    EXPECT_EQ(Shape(having), "Any(SUM(B) > 1; COUNT(*) < 5)");
    const TVdFunctionDef& sum = having.Items(0)->LeftSide();
    EXPECT_EQ(sum.Kind(), fkFunction);
    EXPECT_EQ(sum.Argument(0)->Kind(), fkIdentifier);
    const TVdFunctionDef& count = having.Items(1)->LeftSide();
    EXPECT_EQ(count.Kind(), fkFunction);
    ASSERT_EQ(count.ArgumentCount(), 1);
    EXPECT_EQ(count.Argument(0)->Name(), "*");
    EXPECT_EQ(parser->WhereItems().Count(), 0);
}

TEST(CriteriaOperands, UnknownOperatorWordIsAnError)
{
    TVdSelectParser parser;
    EXPECT_THROW(parser.SetExpression("SELECT * FROM T WHERE A FOO 1"), EVdParserError);
    EXPECT_FALSE(parser.IsValid());
}

TEST(CriteriaConnectors, AndChain)
{
    EXPECT_EQ(WhereShape("A = 1 AND B = 2 AND C IS NULL"), "All(A = 1; B = 2; C IS NULL)");
}

TEST(CriteriaConnectors, OrChain)
{
    EXPECT_EQ(WhereShape("A = 1 OR B = 2 or C LIKE 'x'"), "Any(A = 1; B = 2; C LIKE 'x')");
}

// AND binds tighter than OR: its chain is a group in the OR list.
TEST(CriteriaConnectors, MixedConnectorsFollowPrecedence)
{
    EXPECT_EQ(WhereShape("A = 1 AND B = 2 OR C = 3"), "Any(All(A = 1; B = 2); C = 3)");
    EXPECT_EQ(WhereShape("A = 1 OR B = 2 AND C = 3"), "Any(A = 1; All(B = 2; C = 3))");
}

TEST(CriteriaConnectors, ParenthesisedTopLevelItemsAreNoGroup)
{
    EXPECT_EQ(WhereShape("(A = 1) AND (B = 2)"), "All(A = 1; B = 2)");
    EXPECT_EQ(WhereShape("A = 1 AND (B = 2) AND C = 3"), "All(A = 1; B = 2; C = 3)");
}

// At the top level the end of the text ends the condition after a connector too.
TEST(CriteriaConnectors, TrailingConnectorIsAnError)
{
    // A connector needs a condition after it, at the end of the text or before the next clause.
    vd::TVdSelectParser parser;
    for (const char* text : {"SELECT * FROM T WHERE A = 1 OR", "SELECT * FROM T WHERE (A = 1) AND",
                             "SELECT * FROM T WHERE A = 1 AND NOT"}) {
        try {
            parser.SetExpression(text);
            ADD_FAILURE() << "accepted: " << text;
        } catch (const vd::EVdParserError& e) {
            EXPECT_EQ(e.Code, 2) << text;
            EXPECT_STREQ(e.what(), "Unexpected end of statement.");
        }
    }
    try {
        parser.SetExpression("SELECT * FROM T WHERE A = 1 AND ORDER BY A");
        ADD_FAILURE() << "accepted a connector before ORDER BY";
    } catch (const vd::EVdParserError& e) {
        EXPECT_STREQ(e.what(), "Invalid token 'ORDER' at position 33 of line 1.");
    }
}

TEST(CriteriaConnectors, ConditionEndsAtTheNextClause)
{
    auto parser = Parse("SELECT * FROM T WHERE A = 1 AND B IS NULL ORDER BY A");
    EXPECT_EQ(Shape(parser->WhereItems()), "All(A = 1; B IS NULL)");
    EXPECT_EQ(parser->OrderByItems().Count(), 1);
}

TEST(CriteriaGroups, GroupOfTwoUnderAll)
{
    EXPECT_EQ(WhereShape("((A = 1) AND (B = 2))"), "All(All(A = 1; B = 2))");
}

TEST(CriteriaGroups, GroupOfTwoUnderAny)
{
    EXPECT_EQ(WhereShape("((A = 1) OR (B = 2)) AND (C = 3)"), "All(Any(A = 1; B = 2); C = 3)");
}

TEST(CriteriaGroups, ParenthesesAroundOneComparisonAddNoGroup)
{
    EXPECT_EQ(WhereShape("((A = 1))"), "All(A = 1)");
    EXPECT_EQ(WhereShape("(((A = 1))) OR ((B = 2))"), "Any(A = 1; B = 2)");
}

TEST(CriteriaGroups, NestedGroups)
{
    EXPECT_EQ(WhereShape("((A = 1) OR ((B = 2) AND ((C = 3) OR (D = 4)))) AND (E = 5)"),
              "All(Any(A = 1; All(B = 2; Any(C = 3; D = 4))); E = 5)");
}

TEST(CriteriaGroups, MixedConnectorsInsideAGroupFollowPrecedence)
{
    EXPECT_EQ(WhereShape("((A = 1) AND (B = 2) OR (C = 3))"), "All(Any(All(A = 1; B = 2); C = 3))");
}

TEST(CriteriaGroups, SubItemsKeepTheKindOfTheirList)
{
    auto parser = Parse("SELECT A, COUNT(B) FROM T WHERE ((A = 1) OR (A = 2)) GROUP BY A "
                        "HAVING ((COUNT(B) > 1) OR (COUNT(B) < 9))");
    const TVdCriterion& where = *parser->WhereItems().Items(0);
    EXPECT_NE(dynamic_cast<const TVdWhereItem*>(&where), nullptr);
    EXPECT_NE(dynamic_cast<const TVdWhereItems*>(&where.SubItems()), nullptr);
    EXPECT_NE(dynamic_cast<const TVdWhereItem*>(where.SubItems().Items(0)), nullptr);
    const TVdCriterion& having = *parser->HavingItems().Items(0);
    EXPECT_NE(dynamic_cast<const TVdHavingItem*>(&having), nullptr);
    EXPECT_NE(dynamic_cast<const TVdHavingItems*>(&having.SubItems()), nullptr);
    EXPECT_NE(dynamic_cast<const TVdHavingItem*>(having.SubItems().Items(1)), nullptr);
}

TEST(CriteriaGroups, CriteriaKnowTheirParentGroup)
{
    auto parser = Parse("SELECT * FROM T WHERE ((A = 1) AND (B = 2))");
    const TVdCriterion& group = *parser->WhereItems().Items(0);
    EXPECT_EQ(group.ParentCriterion(), nullptr);
    EXPECT_EQ(group.OwnerList(), &parser->WhereItems());
    EXPECT_EQ(group.SubItems().Items(1)->ParentCriterion(), &group);
}

// NOT's own parenthesis holds the list: NOT over an AND-chain reads as cfNone and over an
// OR-chain as cfNotAll, without a group of its own.
TEST(CriteriaNot, OverAndChainAtTopLevel)
{
    EXPECT_EQ(WhereShape("NOT ((A = 1) AND (B = 2))"), "None(A = 1; B = 2)");
}

TEST(CriteriaNot, OverOrChainAtTopLevel)
{
    EXPECT_EQ(WhereShape("NOT ((A = 1) OR (B = 2))"), "NotAll(A = 1; B = 2)");
}

TEST(CriteriaNot, OverOneComparison)
{
    EXPECT_EQ(WhereShape("NOT (A = 1)"), "None(A = 1)");
    EXPECT_EQ(WhereShape("NOT ((A = 1))"), "None(A = 1)");
    EXPECT_EQ(WhereShape("NOT A = 1"), "None(A = 1)");
}

TEST(CriteriaNot, NestedOverOrChain)
{
    EXPECT_EQ(WhereShape("(C = 3) AND (NOT ((A = 1) OR (B = 2)))"),
              "All(C = 3; NotAll(A = 1; B = 2))");
}

TEST(CriteriaNot, NestedOverAndChain)
{
    EXPECT_EQ(WhereShape("(C = 3) OR (NOT ((A = 1) AND (B = 2)))"),
              "Any(C = 3; None(A = 1; B = 2))");
}

TEST(CriteriaNot, NotInsideNot)
{
    EXPECT_EQ(WhereShape("NOT ((A = 1) AND (NOT ((B = 2) OR (C = 3))))"),
              "None(A = 1; NotAll(B = 2; C = 3))");
}

TEST(CriteriaNot, NotDoesNotRegroup)
{
    EXPECT_EQ(WhereShape("(X = 0) AND (Y = 0) AND (NOT ((A = 1) AND (B = 2)))"),
              "All(X = 0; Y = 0; None(A = 1; B = 2))");
}

TEST(CriteriaNot, NotInHaving)
{
    auto parser =
        Parse("SELECT A, MAX(B) FROM T GROUP BY A HAVING NOT ((MAX(B) > 1) OR (MAX(B) < 0))");
    EXPECT_EQ(Shape(parser->HavingItems()), "NotAll(MAX(B) > 1; MAX(B) < 0)");
}
