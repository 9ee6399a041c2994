// Rows of the criteria editor: texts, numbering, walking order, layout and model writes.

#include "VdCriterionTestSupport.h"

#include "core/VdCriteria.h"
#include "core/VdOperators.h"

using namespace vd;
using namespace vd::test;

namespace {

const QString Blanks = QStringLiteral("         ");

class VdCriterionRowTest : public ::testing::Test
{
protected:
    TCriteriaEditors E;
    TVdCriterionRow* Root() { return E.Where->RootRow(); }
};

} // namespace

TEST_F(VdCriterionRowTest, FortyCharacterFieldShowsThirtyAndEllipsis)
{
    TVdCriterionRow* row = Root()->Rows().Add();
    const QString name = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCD");
    ASSERT_EQ(name.size(), 40);
    row->SetField(name);
    row->SetDimensionControls(row->GetLeftBound());
    EXPECT_EQ(row->Controls(vdpField)->Text(), name.left(30) + QStringLiteral("..."));
    EXPECT_EQ(row->Controls(vdpField)->Text().size(), 33);
    EXPECT_EQ(row->Field(), name); // the row keeps the whole text
}

TEST_F(VdCriterionRowTest, LineBreakInFieldShowsAsBlank)
{
    TVdCriterionRow* row = Root()->Rows().Add();
    row->SetField(QStringLiteral("A\r\nB"));
    row->SetDimensionControls(row->GetLeftBound());
    EXPECT_EQ(row->Controls(vdpField)->Text(), QStringLiteral("A  B"));
    TVdControl control(row, 9);
    control.SetText(QStringLiteral("X\nY"));
    EXPECT_EQ(control.Text(), QStringLiteral("X Y"));
}

TEST_F(VdCriterionRowTest, EmptyArgumentShowsNineBlanksAndStaysClickable)
{
    TVdCriterionRow* row = Root()->Rows().Add();
    ASSERT_EQ(row->ControlCount(), 6); // "=" takes one argument
    TVdControl* argument = row->Controls(vdpFirstArgument);
    EXPECT_EQ(argument->Text(), Blanks);
    EXPECT_GT(argument->Width, 0);
    const int y = row->GetTopBound() + 5;
    EXPECT_EQ(E.Where->LookControl(E.Where->LookRows(y), argument->Left + 1), argument);
}

TEST_F(VdCriterionRowTest, BetweenToCountOneDropsSecondArgumentAndBackAddsBlank)
{
    E.Load("SELECT * FROM T WHERE PRICE BETWEEN 1 AND 5");
    TVdCriterionRow* row = RowAt(*E.Where, QStringLiteral("1."));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Arguments(), QStringList({"1", "5"}));
    EXPECT_EQ(row->ControlCount(), 7);
    row->SetOperator(E.Parser.Operators().FindByName("="));
    EXPECT_EQ(row->Arguments(), QStringList({"1"}));
    EXPECT_EQ(row->ControlCount(), 6);
    row->SetOperator(E.Parser.Operators().FindByName("NOT BETWEEN"));
    EXPECT_EQ(row->Arguments(), QStringList({"1", Blanks}));
    EXPECT_EQ(row->ControlCount(), 7);
    EXPECT_EQ(row->Controls(6)->Text(), Blanks);
    EXPECT_EQ(row->Criterion()->Operator(), "NOT BETWEEN");
}

TEST_F(VdCriterionRowTest, RootIsBlankFirstConditionOneAndItsChildOneOne)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    EXPECT_EQ(Root()->GetFullIndex(), QStringLiteral(" "));
    EXPECT_EQ(Root()->Controls(vdpNumber)->Text(), QStringLiteral(" "));
    TVdCriterionRow* first = Root()->Rows().Items(0);
    EXPECT_EQ(first->GetFullIndex(), QStringLiteral("1."));
    EXPECT_EQ(first->Rows().Items(0)->GetFullIndex(), QStringLiteral("1.1."));
    EXPECT_EQ(first->Rows().Items(1)->Controls(vdpNumber)->Text(), QStringLiteral("1.2."));
    EXPECT_EQ(Root()->Rows().Items(1)->GetFullIndex(), QStringLiteral("2."));
}

TEST_F(VdCriterionRowTest, SecondChildOfThirdConditionReadsThreeTwo)
{
    E.Load("SELECT * FROM T WHERE (A = 1) AND (B = 2) AND ((C = 3) OR (D = 4))");
    TVdCriterionRow* row = Root()->Rows().Items(2)->Rows().Items(1);
    EXPECT_EQ(row->GetFullIndex(), QStringLiteral("3.2."));
}

TEST_F(VdCriterionRowTest, CollapsedGroupShowsBlankAndHidesChildrenFromWalks)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    TVdCriterionRow* group = RowAt(*E.Where, QStringLiteral("1."));
    TVdCriterionRow* child = RowAt(*E.Where, QStringLiteral("1.2."));
    TVdCriterionRow* last = RowAt(*E.Where, QStringLiteral("2."));
    EXPECT_EQ(group->Controls(vdpAggregate1)->Text(), QStringLiteral("Any"));
    EXPECT_EQ(child->GetTopBound(), 3 * 20);
    EXPECT_EQ(last->GetTopBound(), 4 * 20);
    group->SetExpanded(false);
    EXPECT_EQ(group->Controls(vdpAggregate1)->Text(), QStringLiteral(" "));
    EXPECT_EQ(group->GetNextRow(), last);
    EXPECT_EQ(child->GetTopBound(), -1);
    EXPECT_EQ(last->GetTopBound(), 2 * 20);
    EXPECT_EQ(last->GetPreviousRow(), group);
    EXPECT_EQ(E.Where->GetFullExtention(false).y(), 3 * 20);
    EXPECT_EQ(E.Where->GetFullExtention(true).y(), 5 * 20);
}

TEST_F(VdCriterionRowTest, WalkingOrderClimbsOutOfNestedGroups)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR ((B = 2) AND (C = 3))) AND (D = 4)");
    QStringList order;
    for (TVdCriterionRow* row = Root(); row; row = row->GetNextRow())
        order << row->GetFullIndex();
    EXPECT_EQ(order, QStringList({" ", "1.", "1.1.", "1.2.", "1.2.1.", "1.2.2.", "2."}));
    QStringList back;
    for (TVdCriterionRow* row = RowAt(*E.Where, "2."); row; row = row->GetPreviousRow())
        back << row->GetFullIndex();
    EXPECT_EQ(back, QStringList({"2.", "1.2.2.", "1.2.1.", "1.2.", "1.1.", "1.", " "}));
}

TEST_F(VdCriterionRowTest, WhereEditorAggregateElementsHaveWidthZeroAndTakeNoSpace)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    TVdCriterionRow* row = RowAt(*E.Where, QStringLiteral("1."));
    EXPECT_EQ(row->Controls(vdpAggregate1)->Width, 0);
    EXPECT_EQ(row->Controls(vdpAggregate2)->Width, 0);
    // The field starts where the aggregate would have: right after the number and its gap.
    TVdControl* number = row->Controls(vdpNumber);
    EXPECT_EQ(row->Controls(vdpField)->Left, number->Right() + 5);
    EXPECT_EQ(row->Controls(vdpFirstArgument)->Left, row->Controls(vdpOperator)->Right() + 5);
}

TEST_F(VdCriterionRowTest, HavingEditorShowsAggregatesWithWidth)
{
    E.Load("SELECT A, COUNT(B) FROM T GROUP BY A HAVING COUNT(B) > 2");
    TVdCriterionRow* row = RowAt(*E.Having, QStringLiteral("1."));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->AggregateFunc1(), QStringLiteral("COUNT"));
    EXPECT_EQ(row->Field(), QStringLiteral("B"));
    EXPECT_GT(row->Controls(vdpAggregate1)->Width, 0);
    EXPECT_EQ(row->Controls(vdpField)->Left, row->Controls(vdpAggregate1)->Right() + 5);
}

TEST_F(VdCriterionRowTest, RemovingAggregateOfTwoArgumentCallDoesNotUnwrap)
{
    E.Load("SELECT A, MAX(B) FROM T GROUP BY A HAVING MAX(B, C) > 2");
    TVdCriterionRow* row = RowAt(*E.Having, QStringLiteral("1."));
    ASSERT_EQ(row->AggregateFunc1(), QStringLiteral("MAX"));
    TVdFunctionDef& left = row->Criterion()->LeftSide();
    ASSERT_EQ(left.ArgumentCount(), 2);
    row->SetAggregateFunc1(QString());
    EXPECT_EQ(left.Name(), "");
    EXPECT_EQ(left.Kind(), fkUnknown);
    EXPECT_EQ(left.ArgumentCount(), 2);
}

TEST_F(VdCriterionRowTest, RemovingAggregateOfOneArgumentCallUnwraps)
{
    E.Load("SELECT A, MAX(B) FROM T GROUP BY A HAVING MAX(B) > 2");
    TVdCriterionRow* row = RowAt(*E.Having, QStringLiteral("1."));
    row->SetAggregateFunc1(QString());
    EXPECT_EQ(row->Criterion()->LeftSide().GetScript(), "\"B\"");
    EXPECT_EQ(row->Criterion()->GetScript(), "\"B\" > 2");
}

TEST_F(VdCriterionRowTest, AddingAggregateWrapsTheFieldAndChangingRenames)
{
    E.Load("SELECT A, MAX(B) FROM T GROUP BY A HAVING B > 2");
    TVdCriterionRow* row = RowAt(*E.Having, QStringLiteral("1."));
    row->SetAggregateFunc1(QStringLiteral("SUM"));
    EXPECT_EQ(row->Criterion()->GetScript(), "SUM(\"B\") > 2");
    row->SetAggregateFunc1(QStringLiteral("AVG"));
    EXPECT_EQ(row->Criterion()->GetScript(), "AVG(\"B\") > 2");
    // The typed field is printed as typed.
    row->SetField(QStringLiteral("C"));
    EXPECT_EQ(row->Criterion()->GetScript(), "AVG(C) > 2");
}

TEST_F(VdCriterionRowTest, SecondAggregateWrapsTheFirstArgument)
{
    E.Load("SELECT A, MAX(B) FROM T GROUP BY A HAVING MAX(B) > C");
    TVdCriterionRow* row = RowAt(*E.Having, QStringLiteral("1."));
    row->SetAggregateFunc2(QStringLiteral("MIN"));
    EXPECT_EQ(row->Criterion()->GetScript(), "MAX(\"B\") > MIN(\"C\")");
}

TEST_F(VdCriterionRowTest, HavingArgumentAggregateShowsOnlyItsName)
{
    E.Load("SELECT A, MAX(B) FROM T GROUP BY A HAVING MAX(B) > MIN(C)");
    TVdCriterionRow* row = RowAt(*E.Having, QStringLiteral("1."));
    EXPECT_EQ(row->AggregateFunc2(), QStringLiteral("MIN"));
    // Its operand is deliberately not listed: the argument shows the placeholder.
    EXPECT_EQ(row->Arguments(), QStringList({Blanks}));
}

TEST_F(VdCriterionRowTest, SetFieldWritesTypedTextAsExpression)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    TVdCriterionRow* row = RowAt(*E.Where, QStringLiteral("1."));
    row->SetField(QStringLiteral("T.A || 'x'"));
    EXPECT_EQ(row->Criterion()->LeftSide().Kind(), fkExpression);
    EXPECT_EQ(row->Criterion()->GetScript(), "T.A || 'x' = 1");
}

TEST_F(VdCriterionRowTest, EachLevelIsIndentedByTheIndent)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    EXPECT_EQ(Root()->GetLeftBound(), 15);
    EXPECT_EQ(RowAt(*E.Where, "1.")->GetLeftBound(), 30);
    EXPECT_EQ(RowAt(*E.Where, "1.1.")->GetLeftBound(), 45);
    EXPECT_EQ(RowAt(*E.Where, "2.")->GetLeftBound(), 30);
}

TEST_F(VdCriterionRowTest, NumberElementIsRowHeightPlusTextWidth)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    TVdCriterionRow* row = RowAt(*E.Where, "1.");
    EXPECT_EQ(row->Controls(vdpNumber)->Width, 20 + E.Where->TextWidth(QStringLiteral("1."), true));
}

TEST_F(VdCriterionRowTest, RowsAssignCopiesEveryRowInOrder)
{
    E.Load("SELECT * FROM T WHERE (A = 1) AND (B LIKE 'x%')");
    TVdCriterionRows copy(E.Where, nullptr);
    copy.Assign(Root()->Rows());
    ASSERT_EQ(copy.Count(), 2);
    EXPECT_EQ(copy.Items(1)->Field(), QStringLiteral("\"B\""));
    EXPECT_EQ(copy.Items(1)->Operator()->Caption, "LIKE");
    EXPECT_EQ(copy.Items(1)->Arguments(), QStringList({"'x%'"}));
    EXPECT_EQ(copy.Items(1)->Criterion(), nullptr);
}

TEST_F(VdCriterionRowTest, AllRowsComeUpExpanded)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR ((B = 2) AND (C = 3))) AND (D = 4)");
    for (TVdCriterionRow* row = Root(); row; row = row->GetNextRow())
        EXPECT_TRUE(row->Expanded()) << row->GetFullIndex().toStdString();
}
