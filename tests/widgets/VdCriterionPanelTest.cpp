// The criteria editor: menus, refusals, questions, the in-place editor, keys and drops.

#include "VdCriterionTestSupport.h"
#include "VdFakeHost.h"

#include "builder/VdPageControl.h"
#include "builder/VdRecordingDialogService.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "core/VdCriteria.h"
#include "core/VdError.h"
#include "core/VdOperators.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "panels/VdCriterionPanel.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace vd;
using namespace vd::test;

namespace {

const QString Blanks = QStringLiteral("         ");

class VdCriterionPanelTest : public ::testing::Test
{
protected:
    TCriteriaEditors E;
    TVdRecordingDialogService Dialogs;
    TVdWherePanel& W() { return *E.Where; }
    TVdCriterionRow* Root() { return W().RootRow(); }
    std::string Where() { return E.Parser.WhereItems().GetScript(); }
    void Activate(const QString& number, int place)
    {
        TVdCriterionRow* row = RowAt(W(), number);
        ASSERT_NE(row, nullptr) << number.toStdString();
        W().SetActiveElement(row->Controls(place));
    }
    QStringList Messages()
    {
        QStringList texts;
        for (const TVdRecordedDialog& d : Dialogs.Messages())
            texts << d.Text;
        return texts;
    }
};

} // namespace

TEST_F(VdCriterionPanelTest, FreshPanelShowsAllOfFollowingAreMetWithBlankNumber)
{
    ASSERT_EQ(W().Rows().Count(), 1);
    EXPECT_EQ(Root()->Rows().Count(), 0);
    EXPECT_EQ(Root()->Controls(vdpAggregate1)->Text(), QStringLiteral("All"));
    EXPECT_EQ(W().GroupPhrase(), QStringLiteral(" of following are met"));
    EXPECT_EQ(Root()->Controls(vdpNumber)->Text(), QStringLiteral(" "));
    for (int i = vdpField; i < Root()->ControlCount(); ++i)
        EXPECT_EQ(Root()->Controls(i)->Width, 0);
    EXPECT_EQ(W().FocusElement(), Root()->Controls(vdpAggregate1));
    W().PrepareRowMenu(Root());
    EXPECT_TRUE(W().AddConditionAction()->isEnabled());
    EXPECT_FALSE(W().ComposeAction()->isEnabled());
    EXPECT_FALSE(W().DeleteAction()->isEnabled());
    EXPECT_FALSE(W().ExpandAction()->isEnabled());
    EXPECT_EQ(W().ExpandAction()->text(), QStringLiteral("Collapse condition"));
}

TEST_F(VdCriterionPanelTest, RowMenuHoldsItsItemsInOrder)
{
    QStringList texts;
    for (QAction* action : W().RowMenu()->actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    EXPECT_EQ(texts, QStringList({"Add condition", "Make compose condition", "Delete condition",
                                  "-", "Expand condition"}));
    QStringList groups;
    for (QAction* action : W().GroupMenu()->actions())
        groups << action->text() + QLatin1Char('=') + action->data().toString();
    EXPECT_EQ(groups, QStringList({"All=0", "Any=1", "None=2", "Not all=3"}));
}

TEST_F(VdCriterionPanelTest, RowMenuRulesOnSimpleAndGroupRows)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    W().PrepareRowMenu(RowAt(W(), "2."));
    EXPECT_TRUE(W().ComposeAction()->isEnabled());
    EXPECT_TRUE(W().DeleteAction()->isEnabled());
    EXPECT_FALSE(W().ExpandAction()->isEnabled());
    TVdCriterionRow* group = RowAt(W(), "1.");
    W().PrepareRowMenu(group);
    EXPECT_FALSE(W().ComposeAction()->isEnabled());
    EXPECT_TRUE(W().ExpandAction()->isEnabled());
    EXPECT_EQ(W().ExpandAction()->text(), QStringLiteral("Collapse condition"));
    group->SetExpanded(false);
    W().PrepareRowMenu(group);
    EXPECT_EQ(W().ExpandAction()->text(), QStringLiteral("Expand condition"));
}

TEST_F(VdCriterionPanelTest, ComposingKeepsConditionAsFirstChildOfNewAllGroup)
{
    E.Load("SELECT * FROM T WHERE (A = 1) OR (B = 2)");
    QSignalSpy changed(&W(), &TVdCriterionPanel::criteriaChanged);
    Activate("2.", vdpField);
    W().ComposeAction()->trigger();
    EXPECT_TRUE(Dialogs.Dialogs().isEmpty());
    TVdCriterionRow* row = RowAt(W(), "2.");
    EXPECT_EQ(row->GroupOperator(), QStringLiteral("All"));
    EXPECT_EQ(row->Controls(vdpAggregate1)->Text(), QStringLiteral("All"));
    for (int i = vdpField; i < row->ControlCount(); ++i)
        EXPECT_EQ(row->Controls(i)->Width, 0) << i;
    TVdCriterionRow* child = RowAt(W(), "2.1.");
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->Field(), QStringLiteral("\"B\""));
    EXPECT_EQ(child->Arguments(), QStringList({"2"}));
    EXPECT_EQ(child->GetLeftBound(), row->GetLeftBound() + 15);
    EXPECT_EQ(row->Criterion()->SubItems().Count(), 1);
    EXPECT_EQ(child->Criterion(), row->Criterion()->SubItems().Items(0));
    EXPECT_EQ(Where(), "WHERE\r\n  (\"A\" = 1) OR \r\n  ((\"B\" = 2))\r\n");
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(VdCriterionPanelTest, ComposingAGroupIsRefused)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    Activate("1.", vdpAggregate1);
    EXPECT_THROW(W().MakeCompositCondition(), EVdError);
    W().ComposeAction()->trigger();
    EXPECT_EQ(Messages(), QStringList({"Selected condition is already composed"}));
}

TEST_F(VdCriterionPanelTest, ActionsWithoutActiveElementAreRefused)
{
    W().SetActiveElement(nullptr);
    for (QAction* action :
         {W().AddConditionAction(), W().ComposeAction(), W().DeleteAction(), W().ExpandAction()})
        action->trigger();
    EXPECT_EQ(Messages(), QStringList(4, QStringLiteral("There is no active button")));
    EXPECT_EQ(Root()->Rows().Count(), 0);
}

TEST_F(VdCriterionPanelTest, DeletingFirstRowAndExpandingRefused)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    Activate(" ", vdpAggregate1);
    W().DeleteAction()->trigger();
    W().ExpandAction()->trigger();
    Activate("1.", vdpField);
    W().ExpandAction()->trigger();
    EXPECT_EQ(Messages(), QStringList({"Can't delete first row", "Can't collapse first condition",
                                       "Can't expand/collapse simple condition"}));
    EXPECT_EQ(Root()->Rows().Count(), 1);
    EXPECT_TRUE(Dialogs.Questions().isEmpty());
}

TEST_F(VdCriterionPanelTest, DeletingAsksAndNoChangesNothing)
{
    E.Load("SELECT * FROM T WHERE (A = 1) AND (B = 2)");
    Dialogs.Answer(QMessageBox::No);
    Activate("2.", vdpField);
    W().DeleteAction()->trigger();
    ASSERT_EQ(Dialogs.Questions().size(), 1);
    EXPECT_EQ(Dialogs.Questions()[0].Caption, QStringLiteral("Confirmation"));
    EXPECT_EQ(Dialogs.Questions()[0].Text,
              QStringLiteral("Are you sure you want to delete current condition(s)?"));
    EXPECT_EQ(Root()->Rows().Count(), 2);
    EXPECT_EQ(E.Parser.WhereItems().Count(), 2);
    Dialogs.Answer(QMessageBox::Yes);
    W().DeleteAction()->trigger();
    EXPECT_EQ(Root()->Rows().Count(), 1);
    EXPECT_EQ(Where(), "WHERE\r\n  (\"A\" = 1)\r\n");
    EXPECT_EQ(W().ActiveElement(), nullptr);
}

TEST_F(VdCriterionPanelTest, DeletingFocusRowMovesFocusToRootGroupWord)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    W().SetFocusElement(RowAt(W(), "1.2.")->Controls(vdpOperator));
    Activate("1.", vdpAggregate1); // deleting the group takes its children along
    W().DeleteCondition();
    EXPECT_EQ(W().FocusElement(), Root()->Controls(vdpAggregate1));
    EXPECT_EQ(Where(), "WHERE\r\n  (\"C\" = 3)\r\n");
}

TEST_F(VdCriterionPanelTest, DeletingAnotherRowKeepsTheFocus)
{
    E.Load("SELECT * FROM T WHERE (A = 1) AND (B = 2)");
    TVdControl* focus = RowAt(W(), "1.")->Controls(vdpField);
    W().SetFocusElement(focus);
    Activate("2.", vdpField);
    W().DeleteCondition();
    EXPECT_EQ(W().FocusElement(), focus);
}

TEST_F(VdCriterionPanelTest, AddingOnGroupAppendsChildAndOnSimpleRowAppendsSibling)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    Activate("1.", vdpAggregate1);
    W().AddConditionAction()->trigger();
    TVdCriterionRow* added = RowAt(W(), "1.3.");
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->Field(), Blanks);
    EXPECT_EQ(added->Operator(), E.Parser.Operators().Items(0));
    EXPECT_EQ(added->Criterion()->OwnerList(), &RowAt(W(), "1.")->Criterion()->SubItems());
    Activate("2.", vdpField);
    W().AddCondition();
    EXPECT_NE(RowAt(W(), "3."), nullptr);
    EXPECT_EQ(E.Parser.WhereItems().Count(), 3);
    Activate(" ", vdpAggregate1);
    W().AddCondition();
    EXPECT_NE(RowAt(W(), "4."), nullptr);
    EXPECT_EQ(E.Parser.WhereItems().Count(), 4);
}

TEST_F(VdCriterionPanelTest, AddingOnHavingRootGoesToHavingList)
{
    E.Load("SELECT A, COUNT(B) FROM T GROUP BY A");
    E.Having->SetActiveElement(E.Having->RootRow()->Controls(vdpAggregate1));
    E.Having->AddCondition();
    EXPECT_EQ(E.Parser.HavingItems().Count(), 1);
    EXPECT_EQ(E.Parser.WhereItems().Count(), 0);
}

TEST_F(VdCriterionPanelTest, GroupMenuSetsWordAndFilter)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    Activate("1.", vdpAggregate1);
    ActionNamed(W().GroupMenu(), QStringLiteral("Not all"))->trigger();
    EXPECT_EQ(RowAt(W(), "1.")->GroupOperator(), QStringLiteral("Not all"));
    EXPECT_EQ(RowAt(W(), "1.")->Criterion()->SubItems().Filter, cfNotAll);
    Activate(" ", vdpAggregate1);
    ActionNamed(W().GroupMenu(), QStringLiteral("None"))->trigger();
    EXPECT_EQ(E.Parser.WhereItems().Filter, cfNone);
    EXPECT_EQ(
        Where(),
        "WHERE\r\n  NOT ((NOT ((\"A\" = 1) OR \r\n  (\"B\" = 2))) AND \r\n  (\"C\" = 3))\r\n");
    Activate("2.", vdpField);
    ActionNamed(W().GroupMenu(), QStringLiteral("Any"))->trigger();
    EXPECT_EQ(Messages(), QStringList({"There is no active button"}));
}

TEST_F(VdCriterionPanelTest, OperatorMenuAlwaysListsEveryOperator)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    W().HandlePopupOpersMenu();
    QStringList captions;
    for (QAction* action : W().OperatorMenu()->actions())
        captions << action->text();
    EXPECT_EQ(captions,
              QStringList({"=", "<>", "<", ">", "<=", ">=", "LIKE", "NOT LIKE", "IN", "NOT IN",
                           "BETWEEN", "NOT BETWEEN", "IS NULL", "IS NOT NULL"}));
}

TEST_F(VdCriterionPanelTest, OperatorMenuChoiceResizesArgumentsAndPrints)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    Activate("1.", vdpOperator);
    W().HandlePopupOpersMenu();
    ActionNamed(W().OperatorMenu(), QStringLiteral("IS NULL"))->trigger();
    EXPECT_EQ(RowAt(W(), "1.")->ControlCount(), 5);
    EXPECT_EQ(Where(), "WHERE\r\n  (\"A\" IS NULL)\r\n");
    Activate("1.", vdpField);
    ActionNamed(W().OperatorMenu(), QStringLiteral("="))->trigger();
    EXPECT_EQ(Messages(), QStringList({"There is no active button"}));
}

TEST_F(VdCriterionPanelTest, AggregateMenuListsEmptyItemThenAggregatesOnlyInHaving)
{
    EXPECT_TRUE(W().AggregateMenu()->isEmpty());
    const QList<QAction*> items = E.Having->AggregateMenu()->actions();
    ASSERT_GT(items.size(), 1);
    EXPECT_EQ(items[0]->text(), QString());
    QStringList names;
    for (int i = 1; i < items.size(); ++i)
        names << items[i]->text();
    EXPECT_TRUE(names.contains(QStringLiteral("COUNT")));
    EXPECT_TRUE(names.contains(QStringLiteral("SUM")));
}

TEST_F(VdCriterionPanelTest, AggregateMenuChoiceWrapsAndUnwraps)
{
    E.Load("SELECT A, COUNT(B) FROM T GROUP BY A HAVING B > 1");
    TVdHavingPanel& h = *E.Having;
    TVdCriterionRow* row = RowAt(h, "1.");
    h.SetActiveElement(row->Controls(vdpAggregate1));
    ActionNamed(h.AggregateMenu(), QStringLiteral("COUNT"))->trigger();
    EXPECT_EQ(E.Parser.HavingItems().GetScript(), "HAVING\r\n  (COUNT(\"B\") > 1)\r\n");
    EXPECT_EQ(row->Controls(vdpAggregate1)->Text(), QStringLiteral("COUNT"));
    h.AggregateMenu()->actions().at(0)->trigger();
    EXPECT_EQ(E.Parser.HavingItems().GetScript(), "HAVING\r\n  (\"B\" > 1)\r\n");
    EXPECT_EQ(row->Controls(vdpAggregate1)->Text(), Blanks);
}

TEST_F(VdCriterionPanelTest, EditorCommitsFieldOnEnter)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpField), row->GetTopBound());
    ASSERT_TRUE(W().Editor()->isVisibleTo(&W()));
    EXPECT_EQ(W().Editor()->textCursor().selectedText(), QStringLiteral("\"A\""));
    QTest::keyClicks(W().Editor(), QStringLiteral("T.PRICE"));
    QTest::keyClick(W().Editor(), Qt::Key_Return);
    EXPECT_FALSE(W().Editor()->isVisibleTo(&W()));
    EXPECT_EQ(row->Field(), QStringLiteral("T.PRICE"));
    EXPECT_EQ(row->Controls(vdpField)->Text(), QStringLiteral("T.PRICE"));
    EXPECT_EQ(Where(), "WHERE\r\n  (T.PRICE = 1)\r\n");
}

TEST_F(VdCriterionPanelTest, EditorCommitsArgumentAndSwallowsLineBreaks)
{
    E.Load("SELECT * FROM T WHERE A BETWEEN 1 AND 5");
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpFirstArgument + 1), row->GetTopBound());
    QTest::keyClicks(W().Editor(), QStringLiteral("9"));
    QTest::keyClick(W().Editor(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(W().Editor(), QStringLiteral("9"));
    QTest::keyClick(W().Editor(), Qt::Key_Return);
    EXPECT_EQ(row->Arguments(), QStringList({"1", "99"}));
    EXPECT_EQ(Where(), "WHERE\r\n  (\"A\" BETWEEN 1 AND 99)\r\n");
}

TEST_F(VdCriterionPanelTest, EscapeLeavesTheTextAsItWas)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpFirstArgument), row->GetTopBound());
    QTest::keyClicks(W().Editor(), QStringLiteral("42"));
    QTest::keyClick(W().Editor(), Qt::Key_Escape);
    EXPECT_FALSE(W().Editor()->isVisibleTo(&W()));
    EXPECT_EQ(row->Arguments(), QStringList({"1"}));
    EXPECT_EQ(Where(), "WHERE\r\n  (\"A\" = 1)\r\n");
}

TEST_F(VdCriterionPanelTest, ShiftEnterOpensFieldListThatHoldsThePageChange)
{
    E.Host.show(); // the list's place depends on the laid-out viewport
    E.Load("SELECT * FROM T WHERE A = 1");
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpField), row->GetTopBound());
    QTest::keyClick(W().Editor(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(W().FieldList()->isVisibleTo(&W()));
    EXPECT_EQ(W().FieldList()->y(), W().Editor()->geometry().bottom() + 1);
    bool allow = true;
    W().HideFieldList(nullptr, allow);
    EXPECT_FALSE(allow);
    EXPECT_FALSE(W().FieldList()->isVisibleTo(&W()));
    allow = true;
    W().HideFieldList(nullptr, allow);
    EXPECT_TRUE(allow);
}

TEST_F(VdCriterionPanelTest, KeyboardWalksElementsAndRows)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B BETWEEN 1 AND 2)) AND (C = 3)");
    W().SetFocusElement(Root()->Controls(vdpAggregate1));
    QTest::keyClick(&W(), Qt::Key_Down);
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.")->Controls(vdpAggregate1));
    QTest::keyClick(&W(), Qt::Key_Right); // the group's only element: on to the next row
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.1.")->Controls(vdpField));
    QTest::keyClick(&W(), Qt::Key_Right);
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.1.")->Controls(vdpOperator));
    QTest::keyClick(&W(), Qt::Key_Right);
    QTest::keyClick(&W(), Qt::Key_Down); // place 5 is kept
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.2.")->Controls(vdpFirstArgument));
    QTest::keyClick(&W(), Qt::Key_Right);
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.2.")->Controls(vdpFirstArgument + 1));
    QTest::keyClick(&W(), Qt::Key_Down); // clamped to the last element of "C = 3"
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "2.")->Controls(vdpFirstArgument));
    QTest::keyClick(&W(), Qt::Key_Left);
    QTest::keyClick(&W(), Qt::Key_Left);
    QTest::keyClick(&W(), Qt::Key_Left); // from the field to the previous row's last element
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.2.")->Controls(vdpFirstArgument + 1));
    EXPECT_EQ(W().ActiveElement(), W().FocusElement());
}

TEST_F(VdCriterionPanelTest, DownOntoHiddenAggregateSkipsToNextVisibleElement)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    W().SetFocusElement(Root()->Controls(vdpAggregate1));
    QTest::keyClick(&W(), Qt::Key_Down); // place 1 is the hidden aggregate in the where editor
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "1.")->Controls(vdpField));
}

TEST_F(VdCriterionPanelTest, CtrlArrowTogglesGroupAndEnterOpensEditor)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    TVdCriterionRow* group = RowAt(W(), "1.");
    W().SetFocusElement(group->Controls(vdpAggregate1));
    QTest::keyClick(&W(), Qt::Key_Left, Qt::ControlModifier);
    EXPECT_FALSE(group->Expanded());
    QTest::keyClick(&W(), Qt::Key_Down);
    EXPECT_EQ(W().FocusElement(), RowAt(W(), "2.")->Controls(vdpField));
    QTest::keyClick(&W(), Qt::Key_Return);
    EXPECT_TRUE(W().Editor()->isVisibleTo(&W()));
    EXPECT_EQ(W().EditElement(), RowAt(W(), "2.")->Controls(vdpField));
}

TEST_F(VdCriterionPanelTest, RightClickOnARowOpensItsRowMenuWithTheRowInFocus)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    W().show();
    TVdCriterionRow* row = RowAt(W(), "2.");
    const QPoint onField(row->Controls(vdpField)->Left + 2, row->GetTopBound() + 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, onField,
                            W().viewport()->mapToGlobal(onField));
    QApplication::sendEvent(W().viewport(), &event);
    EXPECT_TRUE(W().RowMenu()->isVisible());
    EXPECT_EQ(W().FocusElement(), row->Controls(vdpNumber));
    // Prepared for this simple row: it may be composed and deleted, not collapsed.
    EXPECT_TRUE(W().ComposeAction()->isEnabled());
    EXPECT_TRUE(W().DeleteAction()->isEnabled());
    EXPECT_FALSE(W().ExpandAction()->isEnabled());
    W().RowMenu()->hide();
    ASSERT_FALSE(W().RowMenu()->isVisible());
    // Off every element nothing opens.
    // Right of every element of the root row.
    int right = 0;
    for (int i = 0; i < Root()->ControlCount(); ++i)
        right = std::max(right, Root()->Controls(i)->Right());
    const QPoint corner(right + 3 - W().horizontalScrollBar()->value(),
                        2 - W().verticalScrollBar()->value());
    QContextMenuEvent empty(QContextMenuEvent::Mouse, corner, W().viewport()->mapToGlobal(corner));
    QApplication::sendEvent(W().viewport(), &empty);
    EXPECT_FALSE(W().RowMenu()->isVisible());
}

TEST_F(VdCriterionPanelTest, InsertAddsCtrlInsertComposesCtrlDeleteDeletes)
{
    E.Load("SELECT * FROM T WHERE A = 1");
    W().SetFocusElement(RowAt(W(), "1.")->Controls(vdpField));
    QTest::keyClick(&W(), Qt::Key_Insert);
    EXPECT_EQ(Root()->Rows().Count(), 2);
    QTest::keyClick(&W(), Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_TRUE(RowAt(W(), "1.")->IsGroup());
    Dialogs.Answer(QMessageBox::Yes);
    QTest::keyClick(&W(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Root()->Rows().Count(), 1);
    EXPECT_EQ(Dialogs.Questions().size(), 1);
    EXPECT_EQ(W().FocusElement(), Root()->Controls(vdpAggregate1));
}

TEST_F(VdCriterionPanelTest, ClickOnCollapsedGroupWordExpandsIt)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B = 2)) AND (C = 3)");
    TVdCriterionRow* group = RowAt(W(), "1.");
    group->SetExpanded(false);
    W().TextClick(group->Controls(vdpAggregate1), group->GetTopBound());
    EXPECT_TRUE(group->Expanded());
}

TEST_F(VdCriterionPanelTest, MouseHitTestsRowsAndElements)
{
    E.Load("SELECT * FROM T WHERE (A = 1) AND (B = 2)");
    TVdCriterionRow* second = RowAt(W(), "2.");
    int top = -1;
    EXPECT_EQ(W().LookRows(2 * 20 + 3, &top), second);
    EXPECT_EQ(top, 40);
    TVdControl* op = second->Controls(vdpOperator);
    EXPECT_EQ(W().LookControl(second, op->Left), op);
    EXPECT_EQ(W().LookControl(second, op->Right()), nullptr); // the gap after it
    QMouseEvent move(QEvent::MouseMove, QPointF(op->Left + 1, 45), QPointF(op->Left + 1, 45),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(W().viewport(), &move);
    EXPECT_EQ(W().ActiveElement(), op);
    QTest::mousePress(W().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(op->Left + 1, 45));
    EXPECT_EQ(W().FocusElement(), op);
    QTest::mouseRelease(W().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(op->Left + 1, 45));
    W().OperatorMenu()->hide();
}

TEST_F(VdCriterionPanelTest, ScrollRangesFollowTheFullExtent)
{
    W().resize(200, 60);
    E.Load("SELECT * FROM T WHERE (A = 1) AND (B = 2) AND (C = 3) AND "
           "(A_VERY_LONG_FIELD_NAME_FOR_SCROLLING = 'and a long text argument')");
    const QPoint extent = W().GetFullExtention(false);
    EXPECT_EQ(extent.y(), 5 * 20);
    EXPECT_EQ(W().verticalScrollBar()->maximum(), extent.y() - W().viewport()->height());
    EXPECT_GT(W().horizontalScrollBar()->maximum(), 0);
    W().SetFocusElement(RowAt(W(), "4.")->Controls(vdpFirstArgument));
    EXPECT_GT(W().verticalScrollBar()->value(), 0);
    EXPECT_GT(W().horizontalScrollBar()->value(), 0);
}

TEST_F(VdCriterionPanelTest, ConstructionNeedsAWidgetParent)
{
    try {
        TVdWherePanel panel(nullptr);
        ADD_FAILURE() << "accepted a null parent";
    } catch (const EVdError& e) {
        EXPECT_STREQ(e.what(), "Invalid parent for conditions panel");
    }
}

TEST_F(VdCriterionPanelTest, TextListsConditionsAsSentences)
{
    E.Load("SELECT * FROM T WHERE ((A = 1) OR (B BETWEEN 1 AND 2)) AND (C IS NULL)");
    EXPECT_EQ(W().Text(), QStringLiteral("1. Any of following are met\n"
                                         "  1.1. \"A\" = 1\n"
                                         "  1.2. \"B\" BETWEEN 1 2\n"
                                         "2. \"C\" IS NULL"));
}

TEST_F(VdCriterionPanelTest, OperatorsReloadKeepsRowsValid)
{
    E.Load("SELECT * FROM T WHERE A LIKE 'x'");
    W().PrepareToReloadOperators();
    EXPECT_EQ(RowAt(W(), "1.")->Operator(), nullptr);
    TVdOperators copy;
    copy.Assign(E.Parser.Operators());
    E.Parser.SetOperators(copy);
    W().ReloadOperators();
    EXPECT_EQ(RowAt(W(), "1.")->Operator(), E.Parser.Operators().FindByName("LIKE"));
}

namespace {

// A builder with CUSTOMER (CUSTNO integer, NAME string, SINCE date) loaded.
class VdCriteriaBuilderTest : public ::testing::Test
{
protected:
    VdCriteriaBuilderTest()
    {
        TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
        customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
        customer.AddField(QStringLiteral("NAME"), ftString);
        customer.AddField(QStringLiteral("SINCE"), ftDate);
        Host.Attach(Vandor);
        Vandor.SetQuoteIdentifiers(false);
        Vandor.resize(800, 600);
    }
    TVdWherePanel& W() { return *Vandor.WherePanel(); }
    TVdTable* Customer() { return Vandor.TableList()->FindByAlias(QStringLiteral("C")); }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdRecordingDialogService Dialogs;
};

} // namespace

TEST_F(VdCriteriaBuilderTest, LoadingSqlRefillsTheRows)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO > 10"));
    EXPECT_EQ(W().Text(), QStringLiteral("1. C.CUSTNO > 10"));
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C"));
    EXPECT_EQ(W().RootRow()->Rows().Count(), 0);
}

TEST_F(VdCriteriaBuilderTest, EveryEditShowsAtOnceInTheSql)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO > 10"));
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpFirstArgument), row->GetTopBound());
    QTest::keyClicks(W().Editor(), QStringLiteral("20"));
    QTest::keyClick(W().Editor(), Qt::Key_Return);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(Vandor.GetSQL(), QStringLiteral("SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n"
                                              "WHERE\r\n  (C.CUSTNO > 20)\r\n"));
}

TEST_F(VdCriteriaBuilderTest, ArgumentNotSuitingFieldTypeIsInvalidAndStillPrints)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE (C.CUSTNO = 'abc') AND "
                                 "(C.NAME = 'abc') AND (C.SINCE = '2024-02-30') AND "
                                 "(C.SINCE = '2024-02-29') AND (C.CUSTNO IN (1, 2))"));
    EXPECT_FALSE(RowAt(W(), "1.")->Valid);
    EXPECT_EQ(RowAt(W(), "1.")->InvalidReason, QStringLiteral("Type mismatch in expression"));
    EXPECT_TRUE(RowAt(W(), "2.")->Valid);
    EXPECT_FALSE(RowAt(W(), "3.")->Valid);
    EXPECT_TRUE(RowAt(W(), "4.")->Valid);
    EXPECT_TRUE(RowAt(W(), "5.")->Valid);
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("(C.CUSTNO = 'abc')")), -1);
    // Correcting the argument makes the row valid again.
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpFirstArgument), row->GetTopBound());
    QTest::keyClicks(W().Editor(), QStringLiteral("7"));
    QTest::keyClick(W().Editor(), Qt::Key_Return);
    EXPECT_TRUE(row->Valid);
}

TEST_F(VdCriteriaBuilderTest, FieldDropFromDiagramSetsFieldOrArgument)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    TVdTable* customer = Customer();
    ASSERT_NE(customer, nullptr);
    Vandor.WorkArea()->SetSelected(customer);
    customer->SetCurrentItem(customer->FindItem(QStringLiteral("NAME")));
    TVdCriterionRow* row = RowAt(W(), "1.");
    const QPoint onField(row->Controls(vdpField)->Left + 2, row->GetTopBound() + 5);
    const QPoint onOperator(row->Controls(vdpOperator)->Left + 2, row->GetTopBound() + 5);
    const QPoint onRoot(W().RootRow()->Controls(vdpAggregate1)->Left + 2, 5);
    bool accept = true;
    W().HandleDragOver(&W(), onField, accept);
    EXPECT_FALSE(accept); // not from the diagram
    W().HandleDragOver(Vandor.WorkArea(), onOperator, accept);
    EXPECT_FALSE(accept);
    W().HandleDragOver(Vandor.WorkArea(), onRoot, accept);
    EXPECT_FALSE(accept);
    W().HandleDragOver(Vandor.WorkArea(), onField, accept);
    EXPECT_TRUE(accept);
    EXPECT_EQ(W().DropElement(), row->Controls(vdpField));
    W().HandleDragDrop(Vandor.WorkArea(), onField);
    EXPECT_EQ(row->Field(), QStringLiteral("C.NAME"));
    const QPoint onArgument(row->Controls(vdpFirstArgument)->Left + 2, row->GetTopBound() + 5);
    customer->SetCurrentItem(customer->FindItem(QStringLiteral("CUSTNO")));
    W().HandleDragDrop(Vandor.WorkArea(), onArgument);
    EXPECT_EQ(Vandor.GetSQL(), QStringLiteral("SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n"
                                              "WHERE\r\n  (C.NAME = C.CUSTNO)\r\n"));
    Vandor.WorkArea()->SetSelected(nullptr);
    W().HandleDragOver(Vandor.WorkArea(), onField, accept);
    EXPECT_FALSE(accept);
}

TEST_F(VdCriteriaBuilderTest, FieldListHoldsTablesAndFieldsAndInsertsTheChosenOne)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpFirstArgument), row->GetTopBound());
    QTest::keyClick(W().Editor(), Qt::Key_Return, Qt::ShiftModifier);
    TTreeViewEx* list = W().FieldList();
    ASSERT_EQ(list->topLevelItemCount(), 1);
    QTreeWidgetItem* table = list->topLevelItem(0);
    EXPECT_EQ(table->text(0), QStringLiteral("C"));
    QStringList fields;
    for (int i = 0; i < table->childCount(); ++i)
        fields << table->child(i)->text(0);
    EXPECT_EQ(fields, QStringList({"CUSTNO", "NAME", "SINCE"})); // sorted by text
    EXPECT_GE(list->width(), 150);
    list->setCurrentItem(table->child(1));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(list->isVisibleTo(&W()));
    EXPECT_EQ(W().Editor()->toPlainText(), QStringLiteral("C.NAME"));
    QTest::keyClick(W().Editor(), Qt::Key_Return);
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("(C.CUSTNO = C.NAME)")), -1);
}

TEST_F(VdCriteriaBuilderTest, PageChangeRefusedWhileFieldListIsOpen)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    Vandor.PageControl()->setCurrentIndex(0);
    TVdCriterionRow* row = RowAt(W(), "1.");
    W().TextClick(row->Controls(vdpFirstArgument), row->GetTopBound());
    W().InsertField();
    bool allow = true;
    Vandor.HandleHideFieldList(nullptr, allow);
    EXPECT_FALSE(allow);
    allow = true;
    Vandor.HandleHideFieldList(nullptr, allow);
    EXPECT_TRUE(allow);
}

TEST_F(VdCriteriaBuilderTest, RenamingATableAliasRenamesTheCriteria)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    TVdCriterionRow* row = RowAt(W(), "1.");
    row->SetField(QStringLiteral("C.NAME || C.CUSTNO")); // typed, so held as one text
    W().ChangeAlias(QStringLiteral("K"), QStringLiteral("C"));
    EXPECT_EQ(RowAt(W(), "1.")->Field(), QStringLiteral("K.NAME || K.CUSTNO"));
}

TEST_F(VdCriteriaBuilderTest, BeginEndReloadAroundOperatorChange)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.NAME LIKE 'A%'"));
    TVdOperators operators;
    operators.Assign(*Vandor.GetOperators());
    Vandor.SetOperators(&operators);
    TVdCriterionRow* row = RowAt(W(), "1.");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Operator(), Vandor.GetOperators()->FindByName("LIKE"));
}
