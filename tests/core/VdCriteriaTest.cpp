// Operators and criteria built through the API, and the WHERE / HAVING text they print.

#include "tests/core/ModelCheck.h"

#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vd;
using vdcheck::AddArg;
using vdcheck::AddComparison;
using vdcheck::CheckModel;

#define EXPECT_MODEL_OK(parser) EXPECT_TRUE(CheckModel(parser))

// ---- the operator table ----

TEST(VdOperators, DefaultTableHasExactlyFourteenRows)
{
    struct Row {
        const char* Name;
        const char* Caption;
        int Count;
        const char* Relate;
        const char* Prefix;
        const char* Postfix;
    };
    const std::vector<Row> expected = {
        {"=", "=", 1, "", "", ""},
        {"<>", "<>", 1, "", "", ""},
        {"<", "<", 1, "", "", ""},
        {">", ">", 1, "", "", ""},
        {"<=", "<=", 1, "", "", ""},
        {">=", ">=", 1, "", "", ""},
        {"LIKE", "LIKE", 1, "", "", ""},
        {"NOT LIKE", "NOT LIKE", 1, "", "", ""},
        {"IN", "IN", 1, "", "(", ")"},
        {"NOT IN", "NOT IN", 1, "", "(", ")"},
        {"BETWEEN", "BETWEEN", 2, "AND", "", ""},
        {"NOT BETWEEN", "NOT BETWEEN", 2, "AND", "", ""},
        {"IS NULL", "IS NULL", 0, "", "", ""},
        {"IS NOT NULL", "IS NOT NULL", 0, "", "", ""},
    };
    TVdSelectParser p;
    const TVdOperators& ops = p.Operators();
    ASSERT_EQ(ops.Count(), int(expected.size()));
    for (int i = 0; i < ops.Count(); ++i) {
        const TVdOperator* op = ops.Items(i);
        const Row& row = expected[size_t(i)];
        EXPECT_EQ(op->Name, row.Name) << "row " << i;
        EXPECT_EQ(op->Caption, row.Caption) << "row " << i;
        EXPECT_EQ(op->Count, row.Count) << "row " << i;
        EXPECT_EQ(op->Relate, row.Relate) << "row " << i;
        EXPECT_EQ(op->Prefix, row.Prefix) << "row " << i;
        EXPECT_EQ(op->Postfix, row.Postfix) << "row " << i;
    }
}

TEST(VdOperators, DefineOperatorsStartsFromAnEmptyTable)
{
    TVdSelectParser p;
    p.Operators().Add("~", "SIMILAR TO", 1);
    EXPECT_EQ(p.Operators().Count(), 15);
    p.DefineOperators();
    EXPECT_EQ(p.Operators().Count(), 14);
    EXPECT_EQ(p.Operators().FindByName("~"), nullptr);
}

TEST(VdOperators, NewOperatorDefaults)
{
    TVdOperators ops;
    TVdOperator* op = ops.Add();
    EXPECT_EQ(op->Count, 1);
    EXPECT_EQ(op->Prefix, "");
    EXPECT_EQ(op->Relate, "");
    EXPECT_EQ(op->Caption, "");
    EXPECT_EQ(op->Name, "");
    EXPECT_EQ(op->Postfix, "");
}

TEST(VdOperators, FindByCaptionIsExactAndCaseSensitive)
{
    TVdSelectParser p;
    const TVdOperators& ops = p.Operators();
    EXPECT_EQ(ops.FindByCaption("="), ops.Items(0));
    EXPECT_EQ(ops.FindByCaption("NOT IN"), ops.Items(9));
    EXPECT_EQ(ops.FindByCaption("IS NOT NULL"), ops.Items(13));
    EXPECT_EQ(ops.FindByCaption("like"), nullptr);
    EXPECT_EQ(ops.FindByCaption("LIKE "), nullptr);
    EXPECT_EQ(ops.FindByCaption("NOT"), nullptr);
    EXPECT_EQ(ops.FindByCaption(""), nullptr);
}

TEST(VdOperators, FindByNameIsExactAndCaseSensitive)
{
    TVdOperators ops;
    TVdOperator* eq = ops.Add("equals", "=", 1);
    TVdOperator* eq2 = ops.Add("equals", "==", 1);
    TVdOperator* ne = ops.Add("differs", "<>", 1);
    EXPECT_EQ(ops.FindByName("equals"), eq);
    EXPECT_NE(ops.FindByName("equals"), eq2);
    EXPECT_EQ(ops.FindByName("differs"), ne);
    EXPECT_EQ(ops.FindByName("Equals"), nullptr);
    EXPECT_EQ(ops.FindByName("="), nullptr);
    EXPECT_EQ(ops.FindByCaption("equals"), nullptr);
    EXPECT_EQ(ops.FindByCaption("=="), eq2);
}

TEST(VdOperators, FindNearestTakesTheFirstCaptionThatBeginsTheText)
{
    TVdSelectParser p;
    const TVdOperators& ops = p.Operators();
    bool partial = false;
    // "<" stands before "<=" in the table.
    EXPECT_EQ(ops.FindNearest("<=", partial), ops.Items(2));
    EXPECT_TRUE(partial);
    partial = false;
    EXPECT_EQ(ops.FindNearest(">=", partial), ops.Items(3));
    EXPECT_TRUE(partial);
    partial = false;
    EXPECT_EQ(ops.FindNearest("INSIDE", partial), ops.Items(8));
    EXPECT_TRUE(partial);
    partial = false;
    EXPECT_EQ(ops.FindNearest("like 'a%'", partial), ops.Items(6));
    EXPECT_TRUE(partial);
}

TEST(VdOperators, FindNearestExactMatchIsNotPartial)
{
    TVdSelectParser p;
    const TVdOperators& ops = p.Operators();
    struct Row {
        const char* Text;
        int Index;
    };
    const std::vector<Row> rows = {
        {"=", 0},        {"<>", 1},           {"<", 2},        {"LIKE", 6},
        {"like", 6},     {"not in", 9},       {"BETWEEN", 10}, {"Not Between", 11},
        {"IS NULL", 12}, {"is not null", 13},
    };
    for (const Row& row : rows) {
        bool partial = true;
        EXPECT_EQ(ops.FindNearest(row.Text, partial), ops.Items(row.Index)) << row.Text;
        EXPECT_FALSE(partial) << row.Text;
    }
}

TEST(VdOperators, FindNearestWithoutMatchLeavesPartialAlone)
{
    TVdSelectParser p;
    const TVdOperators& ops = p.Operators();
    for (const char* text : {"NOT", "IS", "IS NOT", "BETWEE", "", "!"}) {
        bool partial = true;
        EXPECT_EQ(ops.FindNearest(text, partial), nullptr) << text;
        EXPECT_TRUE(partial) << text;
        partial = false;
        EXPECT_EQ(ops.FindNearest(text, partial), nullptr) << text;
        EXPECT_FALSE(partial) << text;
    }
}

TEST(VdOperators, AssignCopiesAllSixFields)
{
    TVdOperators ops;
    TVdOperator* src = ops.Add("between", "BETWEEN", 2, "AND", "[", "]");
    TVdOperator* dst = ops.Add("x", "y", 7);
    dst->Assign(*src);
    EXPECT_EQ(dst->Name, "between");
    EXPECT_EQ(dst->Caption, "BETWEEN");
    EXPECT_EQ(dst->Count, 2);
    EXPECT_EQ(dst->Relate, "AND");
    EXPECT_EQ(dst->Prefix, "[");
    EXPECT_EQ(dst->Postfix, "]");
}

TEST(VdOperators, SetOperatorsCopiesTheHostsTable)
{
    TVdOperators host;
    host.Add("like", "LIKE", 1);
    host.Add("range", "BETWEEN", 2, "AND");
    TVdSelectParser p;
    p.SetOperators(host);
    ASSERT_EQ(p.Operators().Count(), 2);
    EXPECT_NE(p.Operators().Items(0), host.Items(0));
    EXPECT_EQ(p.Operators().Items(1)->Name, "range");
    EXPECT_EQ(p.Operators().Items(1)->Relate, "AND");
    host.Items(0)->Caption = "ILIKE";
    EXPECT_EQ(p.Operators().Items(0)->Caption, "LIKE");
}

TEST(VdOperators, FilterTexts)
{
    EXPECT_EQ(GetFilterAsString(cfAll), "All");
    EXPECT_EQ(GetFilterAsString(cfAny), "Any");
    EXPECT_EQ(GetFilterAsString(cfNone), "None");
    EXPECT_EQ(GetFilterAsString(cfNotAll), "Not all");
    EXPECT_EQ(GetFilterAsString(static_cast<TVdCriterionFilter>(4)), "");
}

// ---- comparisons ----

TEST(VdCriterion, BetweenOneAndFiveOnPrice)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "PRICE", fkIdentifier, "BETWEEN",
                                    {{"1", fkInteger}, {"5", fkInteger}});
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->GetScript(), "\"PRICE\" BETWEEN 1 AND 5");
}

TEST(VdCriterion, BetweenWithOneArgumentPrintsAndAndABlank)
{
    TVdSelectParser p;
    TVdCriterion* c =
        AddComparison(p.WhereItems(), "PRICE", fkIdentifier, "BETWEEN", {{"1", fkInteger}});
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->GetScript(), "\"PRICE\" BETWEEN 1 AND  ");
}

TEST(VdCriterion, BetweenWithoutArgumentsPrintsBlanks)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "PRICE", fkIdentifier, "NOT BETWEEN");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->GetScript(), "\"PRICE\" NOT BETWEEN   AND  ");
}

TEST(VdCriterion, ExtraArgumentsBeyondTheCountAreNotPrinted)
{
    TVdSelectParser p;
    TVdCriterion* c =
        AddComparison(p.WhereItems(), "A", fkIdentifier, "=", {{"1", fkInteger}, {"2", fkInteger}});
    EXPECT_EQ(c->GetScript(), "\"A\" = 1");
}

TEST(VdCriterion, IsNullPrintsLeftSideAndOperatorOnly)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "NAME", fkIdentifier, "IS NULL");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->GetScript(), "\"NAME\" IS NULL");
    c->SetOperator("IS NOT NULL");
    EXPECT_EQ(c->GetScript(), "\"NAME\" IS NOT NULL");
}

TEST(VdCriterion, OperatorWithoutArgumentsPrintsAStrayRightSideWhole)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "NAME", fkIdentifier, "IS NULL",
                                    {{"1", fkInteger}, {"2", fkInteger}});
    EXPECT_EQ(c->GetScript(), "\"NAME\" IS NULL 1, 2");
}

TEST(VdCriterion, UnknownOperatorPrintsTheWholeRightSide)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "A", fkIdentifier, "SIMILAR TO",
                                    {{"x", fkString}, {"y", fkString}});
    EXPECT_EQ(c->GetScript(), "\"A\" SIMILAR TO 'x', 'y'");
}

TEST(VdCriterion, ListWithoutParserPrintsTheWholeRightSide)
{
    TVdWhereItems list;
    TVdCriterion* c =
        AddComparison(list, "PRICE", fkIdentifier, "BETWEEN", {{"1", fkInteger}, {"5", fkInteger}});
    EXPECT_TRUE(vdcheck::CheckCriteriaTree(list, nullptr));
    EXPECT_EQ(c->GetScript(), "PRICE BETWEEN 1, 5");
}

TEST(VdCriterion, CriterionOutsideAListPrintsTheWholeRightSide)
{
    // The operator table is reached through the list holding the criterion.
    TVdSelectParser p;
    TVdCriterion c;
    c.SetParser(&p);
    c.LeftSide().SetName("PRICE");
    c.LeftSide().SetKind(fkIdentifier);
    c.SetOperator("BETWEEN");
    AddArg(c.RightSide(), "1", fkInteger);
    AddArg(c.RightSide(), "5", fkInteger);
    EXPECT_EQ(c.GetScript(), "\"PRICE\" BETWEEN 1, 5");
}

TEST(VdCriterion, InPrintsItsArgumentWithoutPrefixOrPostfix)
{
    TVdSelectParser p;
    TVdCriterion* c =
        AddComparison(p.WhereItems(), "STATUS", fkIdentifier, "IN", {{"(1,2)", fkExpression}});
    EXPECT_EQ(c->GetScript(), "\"STATUS\" IN (1,2)");
    c->RightSide().Items(0)->SetName("7");
    c->RightSide().Items(0)->SetKind(fkInteger);
    EXPECT_EQ(c->GetScript(), "\"STATUS\" IN 7");
}

TEST(VdCriterion, OperatorAndRelateFollowTheKeywordFormat)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    TVdCriterion* c = AddComparison(p.WhereItems(), "PRICE", fkIdentifier, "NOT BETWEEN",
                                    {{"1", fkInteger}, {"5", fkInteger}});
    EXPECT_EQ(c->GetScript(), "\"PRICE\" not between 1 and 5");
    p.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    EXPECT_EQ(c->GetScript(), "\"PRICE\" Not between 1 And 5");
}

TEST(VdCriterion, RelateComesFromTheOperatorTable)
{
    TVdOperators ops;
    ops.Add("=", "=", 1);
    ops.Add("range", "RANGE", 3, "TO");
    TVdSelectParser p;
    p.SetOperators(ops);
    TVdCriterion* c = AddComparison(p.WhereItems(), "A", fkIdentifier, "RANGE",
                                    {{"1", fkInteger}, {"2", fkInteger}, {"3", fkInteger}});
    EXPECT_EQ(c->GetScript(), "\"A\" RANGE 1 TO 2 TO 3");
}

TEST(VdCriterion, LeftSideMayBeAnExpressionNode)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.HavingItems(), "COUNT", fkFunction, ">", {{"1", fkInteger}});
    AddArg(c->LeftSide().Arguments(), "*", fkUnknown);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->GetScript(), "COUNT(*) > 1");
}

TEST(VdCriterion, GroupPrintsOnlyItsSubItems)
{
    TVdSelectParser p;
    TVdCriterion* group =
        AddComparison(p.WhereItems(), "IGNORED", fkIdentifier, "LIKE", {{"1", fkInteger}});
    AddComparison(group->SubItems(), "A", fkIdentifier, "=", {{"1", fkInteger}});
    EXPECT_MODEL_OK(p);
    EXPECT_TRUE(group->IsGroup());
    EXPECT_EQ(group->GetScript(), "(\"A\" = 1)");
}

TEST(VdCriterion, EmptySubItemsLeaveAComparison)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "A", fkIdentifier, "=", {{"1", fkInteger}});
    c->SubItems(); // made, but empty
    EXPECT_MODEL_OK(p);
    EXPECT_FALSE(c->IsGroup());
    EXPECT_EQ(c->GetScript(), "\"A\" = 1");
}

TEST(VdCriterion, NewCriterionInParserListGetsTheFirstOperator)
{
    TVdSelectParser p;
    TVdCriterion* c = p.WhereItems().Add();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->Operator(), "=");
}

TEST(VdCriterion, UnknownOperatorFallsBackToTheFirstCaptionWhenGivenTheParser)
{
    TVdSelectParser p;
    TVdWhereItems list;
    TVdCriterion* unknown = AddComparison(list, "A", fkIdentifier, "~~", {{"1", fkInteger}});
    TVdCriterion* known = AddComparison(list, "B", fkIdentifier, "NOT LIKE", {{"1", fkInteger}});
    TVdCriterion* lower = AddComparison(list, "C", fkIdentifier, "like", {{"1", fkInteger}});
    EXPECT_EQ(unknown->Operator(), "~~");
    list.SetParser(&p);
    EXPECT_TRUE(vdcheck::CheckCriteriaTree(list, nullptr));
    EXPECT_EQ(unknown->Operator(), "=");
    EXPECT_EQ(known->Operator(), "NOT LIKE");
    EXPECT_EQ(lower->Operator(), "="); // captions compare exactly
}

TEST(VdCriterion, FallbackUsesTheFirstRowOfTheParsersTable)
{
    TVdOperators ops;
    ops.Add("contains", "CONTAINING", 1);
    ops.Add("=", "=", 1);
    TVdSelectParser p;
    p.SetOperators(ops);
    TVdCriterion c;
    c.SetOperator("<>");
    c.SetParser(&p);
    EXPECT_EQ(c.Operator(), "CONTAINING");
}

TEST(VdCriterion, EmptyOperatorTableKeepsTheOperator)
{
    TVdSelectParser p;
    p.Operators().Clear();
    TVdCriterion c;
    c.SetOperator("~~");
    c.SetParser(&p);
    EXPECT_EQ(c.Operator(), "~~");
    c.SetParser(nullptr);
    EXPECT_EQ(c.Operator(), "~~");
}

TEST(VdCriterion, SetParserReachesBothSidesAndSubItems)
{
    TVdSelectParser p;
    TVdWhereItems list;
    TVdCriterion* c = AddComparison(list, "A", fkIdentifier, "=", {{"1", fkInteger}});
    TVdCriterion* sub = AddComparison(c->SubItems(), "B", fkIdentifier, "=", {{"2", fkInteger}});
    TVdFunctionDef* nested = AddArg(sub->LeftSide().Arguments(), "X", fkIdentifier);
    list.SetParser(&p);
    EXPECT_EQ(c->Parser(), &p);
    EXPECT_EQ(c->LeftSide().Parser(), &p);
    EXPECT_EQ(c->RightSide().Items(0)->Parser(), &p);
    EXPECT_EQ(c->SubItems().Parser(), &p);
    EXPECT_EQ(sub->Parser(), &p);
    EXPECT_EQ(nested->Parser(), &p);
    EXPECT_TRUE(vdcheck::CheckCriteriaTree(list, nullptr));
}

TEST(VdCriterion, SetLeftSideCopies)
{
    TVdSelectParser p;
    TVdCriterion* c = p.WhereItems().Add();
    TVdFunctionDef source;
    source.SetName("UPPER");
    source.SetKind(fkFunction);
    AddArg(source.Arguments(), "NAME", fkIdentifier);
    c->SetLeftSide(source);
    AddArg(c->RightSide(), "X", fkString);
    EXPECT_MODEL_OK(p);
    EXPECT_NE(&c->LeftSide(), &source);
    EXPECT_EQ(c->LeftSide().Parser(), &p);
    EXPECT_EQ(c->GetScript(), "UPPER(\"NAME\") = 'X'");
    source.SetName("LOWER");
    source.Arguments().Clear();
    EXPECT_EQ(c->LeftSide().Name(), "UPPER");
    EXPECT_EQ(c->LeftSide().ArgumentCount(), 1);
}

TEST(VdCriterion, SetRightSideCopies)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.WhereItems(), "PRICE", fkIdentifier, "BETWEEN");
    TVdFunctionDefs source(nullptr);
    AddArg(source, "10", fkInteger);
    AddArg(source, "20", fkInteger);
    c->SetRightSide(source);
    EXPECT_MODEL_OK(p);
    EXPECT_NE(&c->RightSide(), &source);
    ASSERT_EQ(c->RightSide().Count(), 2);
    EXPECT_EQ(c->RightSide().Owner(), c);
    EXPECT_NE(c->RightSide().Items(0), source.Items(0));
    source.Items(0)->SetName("99");
    source.Delete(1);
    EXPECT_EQ(c->GetScript(), "\"PRICE\" BETWEEN 10 AND 20");
    // Assigning again replaces, it does not append.
    c->SetRightSide(source);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->GetScript(), "\"PRICE\" BETWEEN 99 AND  ");
}

TEST(VdCriterion, SetSubItemsCopiesAndKeepsTheListClass)
{
    TVdSelectParser p;
    TVdCriterion* c = p.WhereItems().Add();
    TVdCriterion holder; // its sub-items are plain criteria
    AddComparison(holder.SubItems(), "A", fkIdentifier, "=", {{"1", fkInteger}});
    AddComparison(holder.SubItems(), "B", fkIdentifier, "<", {{"2", fkInteger}});
    c->SetSubItems(holder.SubItems());
    EXPECT_MODEL_OK(p);
    EXPECT_NE(&c->SubItems(), &holder.SubItems());
    ASSERT_EQ(c->SubItems().Count(), 2);
    EXPECT_EQ(c->SubItems().Owner(), c);
    EXPECT_NE(dynamic_cast<TVdWhereItems*>(&c->SubItems()), nullptr);
    EXPECT_NE(dynamic_cast<TVdWhereItem*>(c->SubItems().Items(1)), nullptr);
    holder.SubItems().Clear();
    EXPECT_EQ(c->SubItems().Count(), 2);
    EXPECT_EQ(c->GetScript(), "(\"A\" = 1) AND \r\n  (\"B\" < 2)");
}

TEST(VdCriterion, WhereItemSubItemsAreWhereLists)
{
    TVdSelectParser p;
    TVdCriterion* c = p.WhereItems().Add();
    ASSERT_NE(dynamic_cast<TVdWhereItem*>(c), nullptr);
    EXPECT_NE(dynamic_cast<TVdWhereItems*>(&c->SubItems()), nullptr);
    TVdCriterion* sub = c->SubItems().Add();
    EXPECT_NE(dynamic_cast<TVdWhereItem*>(sub), nullptr);
    EXPECT_NE(dynamic_cast<TVdWhereItems*>(&sub->SubItems()), nullptr);
    EXPECT_EQ(sub->ParentCriterion(), c);
    EXPECT_EQ(c->ParentCriterion(), nullptr);
    EXPECT_MODEL_OK(p);
}

TEST(VdCriterion, HavingItemSubItemsAreHavingLists)
{
    TVdSelectParser p;
    TVdCriterion* c = p.HavingItems().Add();
    ASSERT_NE(dynamic_cast<TVdHavingItem*>(c), nullptr);
    EXPECT_NE(dynamic_cast<TVdHavingItems*>(&c->SubItems()), nullptr);
    EXPECT_EQ(dynamic_cast<TVdWhereItems*>(&c->SubItems()), nullptr);
    TVdCriterion* sub = c->SubItems().Add();
    EXPECT_NE(dynamic_cast<TVdHavingItem*>(sub), nullptr);
    EXPECT_NE(dynamic_cast<TVdHavingItems*>(&sub->SubItems()), nullptr);
    EXPECT_MODEL_OK(p);
}

TEST(VdCriterion, PlainCriterionSubItemsArePlainLists)
{
    TVdCriterion c;
    EXPECT_EQ(dynamic_cast<TVdWhereItems*>(&c.SubItems()), nullptr);
    EXPECT_EQ(dynamic_cast<TVdHavingItems*>(&c.SubItems()), nullptr);
    EXPECT_EQ(c.SubItems().Owner(), &c);
    TVdCriterion* sub = c.SubItems().Add();
    EXPECT_EQ(dynamic_cast<TVdWhereItem*>(sub), nullptr);
    EXPECT_TRUE(vdcheck::CheckCriteriaTree(c.SubItems(), &c));
}

TEST(VdCriterion, AssignCopiesOperatorSidesAndSubItems)
{
    TVdSelectParser p;
    TVdCriterion* src = AddComparison(p.WhereItems(), "A", fkIdentifier, "<>", {{"1", fkInteger}});
    AddComparison(src->SubItems(), "B", fkIdentifier, "=", {{"2", fkInteger}});
    TVdCriterion* dst = p.WhereItems().Add();
    dst->Assign(*src);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(dst->Operator(), "<>");
    EXPECT_EQ(dst->LeftSide().Name(), "A");
    ASSERT_EQ(dst->RightSide().Count(), 1);
    ASSERT_EQ(dst->SubItems().Count(), 1);
    EXPECT_NE(dst->SubItems().Items(0), src->SubItems().Items(0));
    EXPECT_EQ(dst->GetScript(), "(\"B\" = 2)");
}

// ---- groups ----

namespace {

// Two comparisons A = 1 and B = 2 in the list.
void AddTwo(TVdCriterions& list)
{
    AddComparison(list, "A", fkIdentifier, "=", {{"1", fkInteger}});
    AddComparison(list, "B", fkIdentifier, "=", {{"2", fkInteger}});
}

} // namespace

TEST(VdCriterions, TwoCriteriaUnderAnyPrintOrAndALineBreak)
{
    TVdSelectParser p;
    p.WhereItems().Filter = cfAny;
    AddTwo(p.WhereItems());
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.WhereItems().TVdCriterions::GetScript(), "(\"A\" = 1) OR \r\n  (\"B\" = 2)\r\n");
}

TEST(VdCriterions, AllJoinsWithAnd)
{
    TVdSelectParser p;
    AddTwo(p.WhereItems());
    AddComparison(p.WhereItems(), "C", fkIdentifier, "IS NULL");
    EXPECT_EQ(p.WhereItems().TVdCriterions::GetScript(),
              "(\"A\" = 1) AND \r\n  (\"B\" = 2) AND \r\n  (\"C\" IS NULL)\r\n");
}

TEST(VdCriterions, NonePrintsNotOverAnAndChain)
{
    TVdSelectParser p;
    p.WhereItems().Filter = cfNone;
    AddTwo(p.WhereItems());
    EXPECT_EQ(p.WhereItems().TVdCriterions::GetScript(),
              "NOT ((\"A\" = 1) AND \r\n  (\"B\" = 2))\r\n");
}

TEST(VdCriterions, NotAllPrintsNotOverAnOrChain)
{
    TVdSelectParser p;
    p.WhereItems().Filter = cfNotAll;
    AddTwo(p.WhereItems());
    EXPECT_EQ(p.WhereItems().TVdCriterions::GetScript(),
              "NOT ((\"A\" = 1) OR \r\n  (\"B\" = 2))\r\n");
}

TEST(VdCriterions, SingleCriterionUnderNone)
{
    TVdSelectParser p;
    p.WhereItems().Filter = cfNone;
    AddComparison(p.WhereItems(), "A", fkIdentifier, "=", {{"1", fkInteger}});
    EXPECT_EQ(p.WhereItems().TVdCriterions::GetScript(), "NOT ((\"A\" = 1))\r\n");
}

TEST(VdCriterions, EmptyListPrintsNothing)
{
    TVdSelectParser p;
    p.WhereItems().Filter = cfNone;
    EXPECT_EQ(p.WhereItems().TVdCriterions::GetScript(), "");
    EXPECT_EQ(p.WhereItems().GetScript(), "");
    TVdCriterion c;
    EXPECT_EQ(c.SubItems().GetScript(), "");
}

TEST(VdCriterions, NestedGroupsEndWithoutLineBreak)
{
    TVdSelectParser p;
    TVdCriterions& top = p.WhereItems();
    AddComparison(top, "A", fkIdentifier, "=", {{"1", fkInteger}});
    TVdCriterion* any = top.Add();
    any->SubItems().Filter = cfAny;
    AddComparison(any->SubItems(), "B", fkIdentifier, "=", {{"2", fkInteger}});
    TVdCriterion* none = any->SubItems().Add();
    none->SubItems().Filter = cfNone;
    AddComparison(none->SubItems(), "C", fkIdentifier, "LIKE", {{"x%", fkString}});
    AddComparison(none->SubItems(), "D", fkIdentifier, "IS NOT NULL");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(none->GetScript(), "NOT ((\"C\" LIKE 'x%') AND \r\n  (\"D\" IS NOT NULL))");
    EXPECT_EQ(any->SubItems().GetScript(),
              "(\"B\" = 2) OR \r\n  (NOT ((\"C\" LIKE 'x%') AND \r\n  (\"D\" IS NOT NULL)))");
    EXPECT_EQ(top.GetScript(), vdcheck::Crlf({
                                   "WHERE",
                                   R"(  ("A" = 1) AND )",
                                   R"(  (("B" = 2) OR )",
                                   R"(  (NOT (("C" LIKE 'x%') AND )",
                                   R"(  ("D" IS NOT NULL)))))",
                                   "",
                               }));
}

TEST(VdCriterions, ConnectorsFollowTheKeywordFormat)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    p.WhereItems().Filter = cfNotAll;
    AddTwo(p.WhereItems());
    EXPECT_EQ(p.WhereItems().GetScript(), "where\r\n  not ((\"A\" = 1) or \r\n  (\"B\" = 2))\r\n");
}

TEST(VdCriterions, ListWithoutParserUsesTheWordsAsWritten)
{
    TVdWhereItems list;
    list.Filter = cfNone;
    AddTwo(list);
    EXPECT_EQ(list.GetScript(), "WHERE\r\n  NOT ((A = 1) AND \r\n  (B = 2))\r\n");
    TVdHavingItems having;
    having.Filter = cfAny;
    AddTwo(having);
    EXPECT_EQ(having.GetScript(), "HAVING\r\n  (A = 1) OR \r\n  (B = 2)\r\n");
}

TEST(VdCriterions, AssignCopiesItems)
{
    TVdWhereItems source;
    AddTwo(source);
    TVdWhereItems copy;
    AddComparison(copy, "Z", fkIdentifier, "=", {{"9", fkInteger}});
    copy.Assign(source);
    EXPECT_TRUE(vdcheck::CheckCriteriaTree(copy, nullptr));
    ASSERT_EQ(copy.Count(), 2);
    EXPECT_EQ(copy.GetScript(), "WHERE\r\n  (A = 1) AND \r\n  (B = 2)\r\n");
}

// ---- WHERE and HAVING ----

TEST(VdWhereItems, WherePrefixesTheTopLevelList)
{
    TVdSelectParser p;
    AddComparison(p.WhereItems(), "PRICE", fkIdentifier, ">", {{"0", fkInteger}});
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.WhereItems().GetScript(), "WHERE\r\n  (\"PRICE\" > 0)\r\n");
    p.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    EXPECT_EQ(p.WhereItems().GetScript(), "Where\r\n  (\"PRICE\" > 0)\r\n");
}

TEST(VdWhereItems, SubListHasNoPrefixAndNoLineBreak)
{
    TVdSelectParser p;
    TVdCriterion* group = p.WhereItems().Add();
    AddTwo(group->SubItems());
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(group->SubItems().GetScript(), "(\"A\" = 1) AND \r\n  (\"B\" = 2)");
    EXPECT_EQ(p.WhereItems().GetScript(), "WHERE\r\n  ((\"A\" = 1) AND \r\n  (\"B\" = 2))\r\n");
}

TEST(VdHavingItems, HavingWithCriteriaButEmptyGroupByPrintsNothing)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.HavingItems(), "COUNT", fkFunction, ">", {{"1", fkInteger}});
    AddArg(c->LeftSide().Arguments(), "*", fkUnknown);
    EXPECT_MODEL_OK(p);
    ASSERT_EQ(p.GroupByItems().Count(), 0);
    EXPECT_EQ(p.HavingItems().GetScript(), "");
}

TEST(VdHavingItems, HavingPrintsWithAGroupByLine)
{
    TVdSelectParser p;
    TVdCriterion* c = AddComparison(p.HavingItems(), "COUNT", fkFunction, ">", {{"1", fkInteger}});
    AddArg(c->LeftSide().Arguments(), "*", fkUnknown);
    p.GroupByItems().Add("\"T\".\"A\"");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.HavingItems().GetScript(), "HAVING\r\n  (COUNT(*) > 1)\r\n");
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    p.ScriptFormat().FunctionsFormat = qfmLowerCase;
    EXPECT_EQ(p.HavingItems().GetScript(), "having\r\n  (count(*) > 1)\r\n");
}

TEST(VdHavingItems, EmptyHavingWithGroupByPrintsNothing)
{
    TVdSelectParser p;
    p.GroupByItems().Add("A");
    EXPECT_EQ(p.HavingItems().GetScript(), "");
}

TEST(VdHavingItems, HavingSubListPrintsItsGroupOnly)
{
    TVdSelectParser p;
    TVdCriterion* group = p.HavingItems().Add();
    group->SubItems().Filter = cfAny;
    AddTwo(group->SubItems());
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(group->SubItems().GetScript(), "(\"A\" = 1) OR \r\n  (\"B\" = 2)");
}

TEST(VdHavingItems, StatementPrintsHavingOnlyWhenGroupByIsRebuiltNonEmpty)
{
    TVdSelectParser p;
    TVdTableDef* t = vdcheck::AddTable(p, "T");
    vdcheck::AddField(*t, "A");
    TVdCriterion* c = AddComparison(p.HavingItems(), "COUNT", fkFunction, ">", {{"1", fkInteger}});
    AddArg(c->LeftSide().Arguments(), "*", fkUnknown);
    EXPECT_MODEL_OK(p);
    // No aggregate among the output fields: no GROUP BY, so no HAVING either.
    EXPECT_EQ(p.GetExpression(), "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n");
    TVdFieldDef* count = vdcheck::AddField(*t, "COUNT", fkFunction);
    AddArg(count->Arguments(), "*", fkUnknown);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GetExpression(), vdcheck::Crlf({
                                     "SELECT ",
                                     R"(  "T"."A",)",
                                     R"(  COUNT(*) AS FIELD_1)",
                                     "FROM",
                                     R"(  "T")",
                                     "GROUP BY",
                                     R"(  "T"."A")",
                                     "HAVING",
                                     R"(  (COUNT(*) > 1))",
                                     "",
                                 }));
}
