// The "Selection" page on a builder: the grid's cells from the model, its in-place editors
// driven by keys, deletions with their question, drops from the diagram and inside the grid,
// each edit checked in the model and in the printed statement.

#include "VdSelectionFixture.h"

#include "core/VdError.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDragMoveEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

using namespace vd;
using vd::test::RecordGridEvents;
using vd::test::SelectionFixture;
using vd::test::TGridEvent;

namespace {

class VdSelectGridTest : public SelectionFixture
{
protected:
    // The viewport position in the middle of a cell.
    QPoint CellCentre(int row, int column) const
    {
        return Grid().visualRect(Grid().model()->index(row, column)).center();
    }

    // Opens the editor on a cell, replaces its text by typing, and presses Enter.
    void TypeInCell(int row, int column, const QString& text)
    {
        Grid().setCurrentCell(row, column);
        QTest::keyClick(&Grid(), Qt::Key_Return);
        QWidget* editor = Grid().ActiveEditor();
        ASSERT_NE(editor, nullptr);
        QLineEdit* line = column == 0 ? Grid().TextEditor() : Grid().ComboEditor()->lineEdit();
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Backspace);
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Return);
    }

    std::vector<TGridEvent> Events;
};

const char* const kTwoFields = "SELECT C.NAME, C.CITY FROM CUSTOMER C";

} // namespace

TEST_F(VdSelectGridTest, HeaderTextsAndTheBlankNewRow)
{
    Load(kTwoFields, 1);
    EXPECT_EQ(Grid().columnCount(), 3);
    EXPECT_EQ(Grid().horizontalHeaderItem(0)->text(), QStringLiteral("Name of output field"));
    EXPECT_EQ(Grid().horizontalHeaderItem(1)->text(), QStringLiteral("Aggregate"));
    EXPECT_EQ(Grid().horizontalHeaderItem(2)->text(), QStringLiteral("Source field name"));
    ASSERT_EQ(Grid().rowCount(), 3);
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "C.NAME"}));
    EXPECT_EQ(Row(1), QStringList({"CITY", "", "C.CITY"}));
    EXPECT_EQ(Row(2), QStringList({"", "", ""}));
    EXPECT_EQ(Grid().rowHeight(0), 20);
}

TEST_F(VdSelectGridTest, ColumnWidthsFollowTheClientWidth)
{
    Load(kTwoFields, 1);
    const int width = Grid().viewport()->width();
    EXPECT_EQ(Grid().columnWidth(0), qRound(width * 0.4));
    EXPECT_EQ(Grid().columnWidth(1), qRound(width * 0.1));
    EXPECT_EQ(Grid().columnWidth(2), width - Grid().columnWidth(0) - Grid().columnWidth(1) - 2);
}

TEST_F(VdSelectGridTest, AGridOrPanelWithoutAParentWidgetIsRefused)
{
    try {
        TVdSelectGrid grid(nullptr);
        FAIL() << "a grid without a parent was made";
    } catch (const EVdError& error) {
        EXPECT_STREQ(error.what(), "Invalid parent for SelectGrid");
    }
    try {
        TVdSelectPanel panel(nullptr);
        FAIL() << "a panel without a parent was made";
    } catch (const EVdError& error) {
        EXPECT_STREQ(error.what(), "Invalid parent for OrderPanel");
    }
}

TEST_F(VdSelectGridTest, ABlankGridAsksOnCtrlDeleteThenReportsCantDeleteLastRow)
{
    Load("SELECT C.NAME FROM CUSTOMER C", 1);
    Vandor->SelectPanel()->Clear();
    ASSERT_EQ(Grid().rowCount(), 1);
    Grid().setCurrentCell(0, 0);
    QTest::keyClick(&Grid(), Qt::Key_Delete, Qt::ControlModifier);
    ASSERT_EQ(Dialogs.Dialogs().size(), 2);
    EXPECT_TRUE(Dialogs.Dialogs()[0].Question);
    EXPECT_EQ(Dialogs.Dialogs()[0].Caption, QStringLiteral("Confirmation"));
    EXPECT_EQ(Dialogs.Dialogs()[0].Text,
              QStringLiteral("Are you sure you want to delete current row?"));
    EXPECT_FALSE(Dialogs.Dialogs()[1].Question);
    EXPECT_EQ(Dialogs.Dialogs()[1].Kind, vdmError);
    EXPECT_EQ(Dialogs.Dialogs()[1].Text, QStringLiteral("Can't delete last row!"));
    EXPECT_EQ(Grid().rowCount(), 1);
}

TEST_F(VdSelectGridTest, CtrlDeleteAnsweredYesDeletesTheRowAndTheField)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    Grid().setCurrentCell(0, 2);
    QTest::keyClick(&Grid(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Dialogs.Questions().size(), 1);
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"delete", {"C.NAME", "", "NAME"}}}));
    EXPECT_EQ(Row(0), QStringList({"CITY", "", "C.CITY"}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_EQ(Changed->count(), 1);
}

TEST_F(VdSelectGridTest, CtrlDeleteAnsweredNoKeepsTheRow)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    Dialogs.Answer(QMessageBox::No);
    Grid().setCurrentCell(1, 0);
    QTest::keyClick(&Grid(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Dialogs.Questions().size(), 1);
    EXPECT_TRUE(Events.empty());
    EXPECT_EQ(Grid().rowCount(), 3);
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
}

TEST_F(VdSelectGridTest, ThePopUpItemDeletesWithoutAsking)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    ASSERT_EQ(Grid().PopupMenu()->actions().size(), 1);
    EXPECT_EQ(Grid().DeleteRowAction()->text(), QStringLiteral("Delete current row"));
    Grid().setCurrentCell(1, 1);
    Grid().DeleteRowAction()->trigger();
    EXPECT_TRUE(Dialogs.Dialogs().isEmpty());
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"delete", {"C.CITY", "", "CITY"}}}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_FALSE(Table("C")->FindItem(QStringLiteral("CITY"))->Checked());
}

TEST_F(VdSelectGridTest, ThePopUpItemOnTheBlankRowReportsCantDeleteLastRow)
{
    Load(kTwoFields, 1);
    Grid().setCurrentCell(2, 0);
    Grid().DeleteRowAction()->trigger();
    ASSERT_EQ(Dialogs.Messages().size(), 1);
    EXPECT_EQ(Dialogs.Messages()[0].Text, QStringLiteral("Can't delete last row!"));
    EXPECT_EQ(Grid().rowCount(), 3);
}

TEST_F(VdSelectGridTest, ChoosingAnAggregateRaisesUnselectWithTheOldCellsThenSelectWithTheNew)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    TypeInCell(0, 1, QStringLiteral("COUNT"));
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"unselect", {"C.NAME", "", "NAME"}},
                                               {"select", {"C.NAME", "COUNT", "NAME"}}}));
    EXPECT_EQ(Grid().ActiveEditor(), nullptr);
    EXPECT_FALSE(Grid().ComboEditor()->isVisible());
    // The name NAME only followed the column, so the aggregate gets a generated one, which the
    // builder writes back into the row.
    EXPECT_EQ(Row(0), QStringList({"FIELD_1", "COUNT", "C.NAME"}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(),
              "SELECT \r\n  COUNT(C.NAME) AS FIELD_1,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n"
              "GROUP BY\r\n  C.CITY\r\n");
    // An aggregated field shows no tick in the diagram.
    EXPECT_FALSE(Table("C")->FindItem(QStringLiteral("NAME"))->Checked());
    EXPECT_GE(Changed->count(), 1);
}

TEST_F(VdSelectGridTest, TheAggregateComboOffersTheParsersAggregates)
{
    Load(kTwoFields, 1);
    Grid().HandleEditText(1, 0);
    QComboBox* combo = Grid().ComboEditor();
    ASSERT_TRUE(combo->isVisible());
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items.append(combo->itemText(i));
    EXPECT_EQ(items, Grid().Aggregates());
    EXPECT_TRUE(items.contains(QStringLiteral("SUM")));
    // It covers the cell, on the grid's parent.
    EXPECT_EQ(combo->parentWidget(), Grid().parentWidget());
    const QRect cell = Grid().visualRect(Grid().model()->index(0, 1));
    EXPECT_EQ(combo->pos(), Grid().viewport()->mapTo(Grid().parentWidget(), cell.topLeft()));
    EXPECT_EQ(combo->width(), cell.width() + 1);
    Grid().CancelEdit();
}

TEST_F(VdSelectGridTest, ClearingTheAggregateTurnsTheRowBackIntoThePlainField)
{
    Load("SELECT SUM(O.AMOUNT) AS TOTAL FROM ORDERS O", 1);
    EXPECT_EQ(Row(0), QStringList({"TOTAL", "SUM", "O.AMOUNT"}));
    RecordGridEvents(Grid(), Events);
    TypeInCell(0, 1, QString());
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"unselect", {"O.AMOUNT", "SUM", "TOTAL"}},
                                               {"select", {"O.AMOUNT", "", "TOTAL"}}}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  O.AMOUNT AS TOTAL\r\nFROM\r\n  ORDERS O\r\n");
    EXPECT_TRUE(Table("O")->FindItem(QStringLiteral("AMOUNT"))->Checked());
}

TEST_F(VdSelectGridTest, ChoosingAFieldOnTheBlankRowAddsItAndANewBlankRow)
{
    Load("SELECT C.NAME FROM CUSTOMER C", 1);
    RecordGridEvents(Grid(), Events);
    EXPECT_TRUE(Grid().Fields().contains(QStringLiteral("C.CITY")));
    TypeInCell(1, 2, QStringLiteral("C.CITY"));
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"unselect", {"", "", ""}},
                                               {"select", {"C.CITY", "", ""}}}));
    ASSERT_EQ(Grid().rowCount(), 3);
    EXPECT_EQ(Row(1), QStringList({"CITY", "", "C.CITY"}));
    EXPECT_EQ(Row(2), QStringList({"", "", ""}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_TRUE(Table("C")->FindItem(QStringLiteral("CITY"))->Checked());
}

TEST_F(VdSelectGridTest, ChoosingAnotherSourceFieldReplacesTheRowsField)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    TypeInCell(1, 2, QStringLiteral("C.CUSTNO"));
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"unselect", {"C.CITY", "", "CITY"}},
                                               {"select", {"C.CUSTNO", "", "CITY"}}}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CUSTNO\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_EQ(Row(1), QStringList({"CUSTNO", "", "C.CUSTNO"}));
    EXPECT_EQ(Grid().rowCount(), 3);
}

TEST_F(VdSelectGridTest, TypingANameInColumnZeroRenamesTheOutputField)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    TypeInCell(0, 0, QStringLiteral("CUSTOMER_NAME"));
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"alias", {"C.NAME", "NAME", "CUSTOMER_NAME"}}}));
    EXPECT_EQ(Row(0), QStringList({"CUSTOMER_NAME", "", "C.NAME"}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(),
              "SELECT \r\n  C.NAME AS CUSTOMER_NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_EQ(Changed->count(), 1);
}

TEST_F(VdSelectGridTest, TheAliasHandlerMayChangeTheNewName)
{
    Load(kTwoFields, 1);
    Grid().OnChangeAlias = [](const QString&, const QString&, QString& newAlias) {
        newAlias = newAlias.toUpper();
    };
    TypeInCell(1, 0, QStringLiteral("town"));
    EXPECT_EQ(Grid().CellText(1, 0), QStringLiteral("TOWN"));
}

TEST_F(VdSelectGridTest, EscapeInAnEditorWritesNothing)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    const std::string before = Sql();
    Grid().setCurrentCell(0, 0);
    QTest::keyClick(&Grid(), Qt::Key_Return);
    ASSERT_EQ(Grid().ActiveEditor(), Grid().TextEditor());
    QTest::keyClicks(Grid().TextEditor(), QStringLiteral("XYZ"));
    QTest::keyClick(Grid().TextEditor(), Qt::Key_Escape);
    EXPECT_EQ(Grid().ActiveEditor(), nullptr);
    EXPECT_FALSE(Grid().TextEditor()->isVisible());
    Grid().setCurrentCell(0, 1);
    QTest::keyClick(&Grid(), Qt::Key_Return);
    QTest::keyClicks(Grid().ComboEditor()->lineEdit(), QStringLiteral("SUM"));
    QTest::keyClick(Grid().ComboEditor()->lineEdit(), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(Events.empty());
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "C.NAME"}));
    EXPECT_EQ(Sql(), before);
    EXPECT_EQ(Changed->count(), 0);
}

TEST_F(VdSelectGridTest, LeavingAnEditorWritesTheCellAsEnterDoes)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    Grid().setCurrentCell(1, 0);
    QTest::keyClick(&Grid(), Qt::Key_Return);
    ASSERT_TRUE(Grid().TextEditor()->hasFocus());
    Grid().TextEditor()->setText(QStringLiteral("TOWN"));
    // The focus goes elsewhere, as a click on the DISTINCT box would take it.
    Vandor->SelectPanel()->DistinctBox()->setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"alias", {"C.CITY", "CITY", "TOWN"}}}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY AS TOWN\r\nFROM\r\n  CUSTOMER C\r\n");
}

TEST_F(VdSelectGridTest, DoubleClickOpensTheEditorOfTheCell)
{
    Load(kTwoFields, 1);
    QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, CellCentre(1, 2));
    EXPECT_EQ(Grid().ActiveEditor(), Grid().ComboEditor());
    EXPECT_EQ(Grid().ComboEditor()->currentText(), QStringLiteral("C.CITY"));
    EXPECT_EQ(Grid().currentRow(), 1);
    Grid().CancelEdit();
}

TEST_F(VdSelectGridTest, AnAggregateOverAnExpressionWithoutAColumnShowsAnEmptySource)
{
    Load("SELECT C.NAME, COUNT(*) AS N, SUM(1 + 2) AS S FROM CUSTOMER C GROUP BY C.NAME", 1);
    ASSERT_EQ(Grid().rowCount(), 4);
    EXPECT_EQ(Row(1), QStringList({"N", "COUNT", ""}));
    EXPECT_EQ(Row(2), QStringList({"S", "SUM", ""}));
}

TEST_F(VdSelectGridTest, AnAggregateOverAnExpressionShowsTheWholeCallAsTheHint)
{
    // The model keeps O.AMOUNT * 2 as one expression: no column to show, the call is the hint.
    Load("SELECT SUM(O.AMOUNT * 2) AS DOUBLED FROM ORDERS O", 1);
    EXPECT_EQ(Row(0), QStringList({"DOUBLED", "SUM", ""}));
    EXPECT_EQ(Grid().item(0, 2)->toolTip(), QStringLiteral("SUM(O.AMOUNT * 2)"));
}

TEST_F(VdSelectGridTest, DeletingAnAggregateWithoutAColumnDeletesItsOutputField)
{
    Load("SELECT C.NAME, COUNT(*) AS N FROM CUSTOMER C GROUP BY C.NAME", 1);
    RecordGridEvents(Grid(), Events);
    Grid().setCurrentCell(1, 0);
    Grid().DeleteRowAction()->trigger();
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"delete", {"", "COUNT", "N"}}}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nGROUP BY\r\n  C.NAME\r\n");
}

TEST_F(VdSelectGridTest, AnotherFunctionShowsItsWholeScript)
{
    Load("SELECT UPPER(C.NAME) AS BIG FROM CUSTOMER C", 1);
    EXPECT_EQ(Row(0), QStringList({"BIG", "", "UPPER(C.NAME)"}));
}

TEST_F(VdSelectGridTest, RenamingTableAliasAToBLeavesAnotherTablesCaAlone)
{
    Load("SELECT A.NAME, CA.CITY, A.CUSTNO FROM CUSTOMER A, CUSTOMER CA", 1);
    Grid().SetCell(2, 0, QStringLiteral("X"));
    Grid().SetCell(2, 2, QStringLiteral("UPPER(A.NAME) || CA.CITY || A.CITY"));
    Grid().ChangeAlias(QStringLiteral("B"), QStringLiteral("A"));
    EXPECT_EQ(Grid().CellText(0, 2), QStringLiteral("B.NAME"));
    EXPECT_EQ(Grid().CellText(1, 2), QStringLiteral("CA.CITY"));
    EXPECT_EQ(Grid().CellText(2, 2), QStringLiteral("UPPER(B.NAME) || CA.CITY || B.CITY"));
    // A new alias that ends with the old one is not renamed again.
    Grid().ChangeAlias(QStringLiteral("AB"), QStringLiteral("B"));
    EXPECT_EQ(Grid().CellText(0, 2), QStringLiteral("AB.NAME"));
}

TEST_F(VdSelectGridTest, RenamingATableInTheDiagramRenamesItsRowsOnly)
{
    Load("SELECT A.NAME, CA.CITY FROM CUSTOMER A, CUSTOMER CA", 1);
    TVdTable* table = Table("A");
    ASSERT_NE(table, nullptr);
    table->SetAlias(QStringLiteral("B"));
    Vandor->HandleChangeAlias(table, QStringLiteral("A"));
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "B.NAME"}));
    EXPECT_EQ(Row(1), QStringList({"CITY", "", "CA.CITY"}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(),
              "SELECT \r\n  B.NAME,\r\n  CA.CITY\r\nFROM\r\n  CUSTOMER B,\r\n  CUSTOMER CA\r\n");
}

TEST_F(VdSelectGridTest, CheckFieldUnCheckFieldAndGetFieldAlias)
{
    Load("SELECT C.NAME AS WHO, C.CITY FROM CUSTOMER C", 1);
    EXPECT_EQ(Grid().GetFieldAlias(QStringLiteral("C.NAME")), QStringLiteral("WHO"));
    EXPECT_EQ(Grid().GetFieldAlias(QStringLiteral("C.CUSTNO")), QString());
    const TVdFieldDef* city = Parser().TableDefs().FindByAlias("C")->FieldDefs().FindByName("CITY");
    ASSERT_NE(city, nullptr);
    Grid().CheckField(*city);
    ASSERT_EQ(Grid().rowCount(), 4);
    EXPECT_EQ(Row(2), QStringList({"CITY", "", "C.CITY"}));
    EXPECT_EQ(Row(3), QStringList({"", "", ""}));
    Grid().UnCheckField(*city);
    ASSERT_EQ(Grid().rowCount(), 2);
    EXPECT_EQ(Row(0), QStringList({"WHO", "", "C.NAME"}));
}

TEST_F(VdSelectGridTest, DroppingAFieldOnTheHeaderRowIsRefused)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    TVdTable* table = Table("C");
    Vandor->WorkArea()->SetSelected(table);
    table->SetCurrentItem(table->FindItem(QStringLiteral("CUSTNO")));
    const QPoint header(20, -5);
    EXPECT_FALSE(Grid().HandleDragOver(Vandor->WorkArea(), header));
    EXPECT_FALSE(Grid().HandleDragDrop(Vandor->WorkArea(), header));
    // The same drag sent to the header view is refused there.
    QMimeData data;
    data.setText(QStringLiteral("C.CUSTNO"));
    QDragMoveEvent move(QPoint(20, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Grid().horizontalHeader()->viewport(), &move);
    EXPECT_FALSE(move.isAccepted());
    EXPECT_TRUE(Events.empty());
    EXPECT_EQ(Grid().rowCount(), 3);
}

TEST_F(VdSelectGridTest, DroppingAFieldBelowTheLastRowAppendsIt)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    TVdTable* table = Table("C");
    Vandor->WorkArea()->SetSelected(table);
    table->SetCurrentItem(table->FindItem(QStringLiteral("CUSTNO")));
    const QPoint below(30, Grid().viewport()->height() - 3);
    ASSERT_LT(Grid().rowAt(below.y()), 0);
    EXPECT_TRUE(Grid().HandleDragOver(Vandor->WorkArea(), below));
    EXPECT_EQ(Grid().DraggedItem(), table->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_TRUE(Grid().HandleDragDrop(Vandor->WorkArea(), below));
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"select", {"C.CUSTNO", "", "CUSTNO"}}}));
    ASSERT_EQ(Grid().rowCount(), 4);
    EXPECT_EQ(Row(2), QStringList({"CUSTNO", "", "C.CUSTNO"}));
    EXPECT_EQ(Row(3), QStringList({"", "", ""}));
    EXPECT_EQ(Grid().currentRow(), 2);
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY,\r\n  C.CUSTNO\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_TRUE(table->FindItem(QStringLiteral("CUSTNO"))->Checked());
}

TEST_F(VdSelectGridTest, DroppingAFieldOnADataRowReplacesIt)
{
    Load(kTwoFields, 1);
    RecordGridEvents(Grid(), Events);
    TVdTable* table = Table("C");
    Vandor->WorkArea()->SetSelected(table);
    table->SetCurrentItem(table->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_TRUE(Grid().HandleDragDrop(Vandor->WorkArea(), CellCentre(0, 0)));
    EXPECT_EQ(Events, (std::vector<TGridEvent>{{"unselect", {"C.NAME", "", "NAME"}},
                                               {"select", {"C.CUSTNO", "", "CUSTNO"}}}));
    EXPECT_EQ(Row(0), QStringList({"CUSTNO", "", "C.CUSTNO"}));
    EXPECT_EQ(Grid().rowCount(), 3);
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_FALSE(table->FindItem(QStringLiteral("NAME"))->Checked());
    // The select list shows what the grid shows: the replaced field is gone, the new one
    // stands in its place.
    EXPECT_EQ(Sql(), "SELECT \r\n  C.CUSTNO,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
}

TEST_F(VdSelectGridTest, ADragFromAnythingButTheDiagramOrTheGridIsRefused)
{
    Load(kTwoFields, 1);
    EXPECT_FALSE(Grid().HandleDragOver(Vandor->SelectPanel(), CellCentre(0, 0)));
    // The diagram without a dragged field row neither.
    Vandor->WorkArea()->SetSelected(nullptr);
    EXPECT_FALSE(Grid().HandleDragOver(Vandor->WorkArea(), CellCentre(0, 0)));
}

TEST_F(VdSelectGridTest, DraggingARowInsideTheGridMovesItAndItsOutputColumn)
{
    Load("SELECT C.NAME, C.CITY, C.CUSTNO FROM CUSTOMER C", 1);
    RecordGridEvents(Grid(), Events);
    EXPECT_FALSE(Grid().CanDragRow(3));
    Grid().setCurrentCell(2, 0);
    EXPECT_TRUE(Grid().HandleDragDrop(&Grid(), CellCentre(0, 1)));
    EXPECT_EQ(Row(0), QStringList({"CUSTNO", "", "C.CUSTNO"}));
    EXPECT_EQ(Row(1), QStringList({"NAME", "", "C.NAME"}));
    EXPECT_EQ(Row(2), QStringList({"CITY", "", "C.CITY"}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.CUSTNO,\r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    // Dropped below the rows it goes last, above the blank row.
    Grid().setCurrentCell(0, 0);
    EXPECT_TRUE(Grid().HandleDragDrop(&Grid(), QPoint(10, Grid().viewport()->height() - 2)));
    EXPECT_EQ(Row(2), QStringList({"CUSTNO", "", "C.CUSTNO"}));
    EXPECT_EQ(Row(3), QStringList({"", "", ""}));
    // Moving is no select, unselect or delete.
    EXPECT_TRUE(Events.empty());
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY,\r\n  C.CUSTNO\r\nFROM\r\n  CUSTOMER C\r\n");
}

TEST_F(VdSelectGridTest, ChoosingAFieldOfAnotherTableReplacesTheRowsFieldInPlace)
{
    Load("SELECT C.NAME, C.CITY, O.ORDERNO FROM CUSTOMER C INNER JOIN ORDERS O ON (C.CUSTNO = "
         "O.CUSTNO)",
         1);
    TypeInCell(0, 2, QStringLiteral("O.CUSTNO"));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "O.CUSTNO"}));
    // C.NAME is no longer selected; the other table's field stands in its row's place.
    EXPECT_EQ(Sql(), "SELECT \r\n  O.CUSTNO AS NAME,\r\n  C.CITY,\r\n  O.ORDERNO\r\nFROM\r\n  "
                     "CUSTOMER C \r\n  INNER JOIN ORDERS O ON (C.CUSTNO = O.CUSTNO)\r\n");
}

TEST_F(VdSelectGridTest, TheDistinctBoxSetsTheParserAndThePrint)
{
    Load(kTwoFields, 1);
    QCheckBox* box = Vandor->SelectPanel()->DistinctBox();
    EXPECT_EQ(box->text(), QStringLiteral("Select only unique records"));
    EXPECT_FALSE(box->isChecked());
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
    EXPECT_TRUE(Parser().GetDistinct());
    EXPECT_EQ(Sql(), "SELECT DISTINCT \r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_EQ(Changed->count(), 1);
    Load("SELECT DISTINCT C.NAME FROM CUSTOMER C", 1);
    EXPECT_TRUE(box->isChecked());
}

TEST_F(VdSelectGridTest, CommittingAnUnchangedAggregateChangesNothing)
{
    // The combo editor committed as it was (the user opened its list and left it): the row
    // still selects the same field under the same name.
    Load("SELECT C.NAME, C.CITY, O.ORDERNO FROM CUSTOMER C INNER JOIN ORDERS O ON (C.CUSTNO = "
         "O.CUSTNO)",
         1);
    const std::string before = Sql();
    TypeInCell(2, 1, QString());
    EXPECT_EQ(Row(2), QStringList({"ORDERNO", "", "O.ORDERNO"}));
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), before);
}
