// The "Sorting" page on a builder: both lists from the model and the available fields, the
// buttons with their enabled rules and captions, drags between and inside the lists, keys,
// each edit checked in the model and in the printed statement.

#include "VdSelectionFixture.h"

#include "core/VdError.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

using namespace vd;
using vd::test::SelectionFixture;

namespace {

class VdOrderPanelTest : public SelectionFixture
{
protected:
    QStringList Unsorted() const
    {
        QStringList items;
        for (int i = 0; i < Order().UnsortedList()->count(); ++i)
            items.append(Order().UnsortedList()->item(i)->text());
        return items;
    }

    // "field direction" per sorted entry.
    QStringList Sorted() const
    {
        QStringList entries;
        QTreeWidget* list = Order().SortedList();
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            entries.append(list->topLevelItem(i)->text(0) + QLatin1Char(' ') +
                           list->topLevelItem(i)->text(1));
        return entries;
    }

    void SelectUnsorted(int row)
    {
        Order().UnsortedList()->setCurrentRow(row);
        Order().HandleSelectItem();
    }

    void SelectSorted(int index)
    {
        Order().SortedList()->setCurrentItem(Order().SortedList()->topLevelItem(index));
        Order().HandleSelectItem();
    }

    // Which of add, add-all, remove, remove-all, direction, up, down are enabled.
    std::string Enabled() const
    {
        std::string states;
        for (QWidget* button : {static_cast<QWidget*>(Order().AddButton()),
                                static_cast<QWidget*>(Order().AddAllButton()),
                                static_cast<QWidget*>(Order().RemoveButton()),
                                static_cast<QWidget*>(Order().RemoveAllButton()),
                                static_cast<QWidget*>(Order().DirectionButton()),
                                static_cast<QWidget*>(Order().UpButton()),
                                static_cast<QWidget*>(Order().DownButton())})
            states += button->isEnabled() ? '1' : '0';
        return states;
    }
};

const char* const kSorted = "SELECT C.NAME, C.CITY FROM CUSTOMER C ORDER BY C.CITY DESC, C.NAME";
const char* const kPrefix = "SELECT \r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n";

} // namespace

TEST_F(VdOrderPanelTest, APanelWithoutAParentWidgetIsRefused)
{
    try {
        TVdOrderPanel panel(nullptr);
        FAIL() << "a panel without a parent was made";
    } catch (const EVdError& error) {
        EXPECT_STREQ(error.what(), "Invalid parent for OrderPanel");
    }
}

TEST_F(VdOrderPanelTest, CaptionsAndAllButtonsStartDisabled)
{
    QWidget host;
    TVdOrderPanel panel(&host);
    EXPECT_EQ(panel.CaptionLabel()->text(), QStringLiteral("Output fields"));
    EXPECT_EQ(panel.SortedList()->headerItem()->text(0), QStringLiteral("Sorted fields"));
    EXPECT_EQ(panel.SortedList()->headerItem()->text(1), QStringLiteral("Sort order"));
    EXPECT_EQ(panel.DirectionButton()->text(), QStringLiteral("A..Z"));
    EXPECT_EQ(panel.UpButton()->text(), QStringLiteral("Up"));
    EXPECT_EQ(panel.DownButton()->text(), QStringLiteral("Down"));
    for (QWidget* button :
         {static_cast<QWidget*>(panel.AddButton()), static_cast<QWidget*>(panel.AddAllButton()),
          static_cast<QWidget*>(panel.RemoveButton()),
          static_cast<QWidget*>(panel.RemoveAllButton()),
          static_cast<QWidget*>(panel.DirectionButton()), static_cast<QWidget*>(panel.UpButton()),
          static_cast<QWidget*>(panel.DownButton())})
        EXPECT_FALSE(button->isEnabled());
}

TEST_F(VdOrderPanelTest, ResizePlacesListsAndButtons)
{
    Load(kSorted, 3);
    TVdOrderPanel& panel = Order();
    const int w = (panel.width() - panel.AddButton()->width()) / 2;
    EXPECT_EQ(panel.AddButton()->size(), QSize(23, 22));
    EXPECT_EQ(panel.AddButton()->geometry().topLeft(), QPoint(w, 30));
    EXPECT_EQ(panel.AddAllButton()->geometry().topLeft(), QPoint(w, 55));
    EXPECT_EQ(panel.RemoveButton()->geometry().topLeft(), QPoint(w, 80));
    EXPECT_EQ(panel.RemoveAllButton()->geometry().topLeft(), QPoint(w, 105));
    EXPECT_EQ(panel.UnsortedList()->geometry(), QRect(0, 22, w - 2, panel.height() - 22));
    const int sortedLeft = w + 23 + 2;
    EXPECT_EQ(panel.SortedList()->geometry(), QRect(sortedLeft, 22, w - 2, panel.height() - 22));
    EXPECT_EQ(panel.UpButton()->x(), sortedLeft);
    EXPECT_EQ(panel.DownButton()->x(), sortedLeft + panel.UpButton()->width() + 2);
    EXPECT_EQ(panel.DirectionButton()->x(), panel.width() - panel.DirectionButton()->width() - 2);
}

TEST_F(VdOrderPanelTest, RefreshShowsTheOrderByListAndTheRestOfTheFields)
{
    Load(kSorted, 3);
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO"}));
    EXPECT_EQ(Sorted(), QStringList({"C.CITY Descending", "C.NAME Ascending"}));
    // Nothing selected: only the all-buttons.
    EXPECT_EQ(Enabled(), "0101000");
}

TEST_F(VdOrderPanelTest, AnOrderByFieldNoTableOffersStaysUntilTheNextEditOnThePage)
{
    Load("SELECT C.NAME FROM CUSTOMER C ORDER BY X.GONE, C.NAME DESC", 3);
    EXPECT_EQ(Sorted(), QStringList({"C.NAME Descending"}));
    EXPECT_EQ(Parser().OrderByItems().Count(), 2);
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  X.GONE,\r\n"
                     "  C.NAME DESC\r\n");
    SelectUnsorted(0);
    Order().HandleAddClick();
    EXPECT_EQ(Parser().OrderByItems().Count(), 2);
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.NAME DESC,\r\n"
                     "  C.CUSTNO\r\n");
}

TEST_F(VdOrderPanelTest, AddingAFieldSortsAscendingAndPrintsAtOnce)
{
    Load(kSorted, 3);
    SelectUnsorted(0);
    EXPECT_EQ(Enabled(), "1101000");
    Order().HandleAddClick();
    EXPECT_EQ(Unsorted(), QStringList());
    EXPECT_EQ(Sorted(),
              QStringList({"C.CITY Descending", "C.NAME Ascending", "C.CUSTNO Ascending"}));
    EXPECT_EQ(Enabled(), "0001000");
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(),
              std::string(kPrefix) + "ORDER BY\r\n  C.CITY DESC,\r\n  C.NAME,\r\n  C.CUSTNO\r\n");
    EXPECT_EQ(Changed->count(), 1);
}

TEST_F(VdOrderPanelTest, AddAllTakesTheFieldsInTheirOrder)
{
    Load("SELECT C.NAME FROM CUSTOMER C", 3);
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO", "C.NAME", "C.CITY"}));
    Order().HandleAddAllClick();
    EXPECT_EQ(Sorted(),
              QStringList({"C.CUSTNO Ascending", "C.NAME Ascending", "C.CITY Ascending"}));
    EXPECT_EQ(Enabled(), "0001000");
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.CUSTNO,\r\n"
                     "  C.NAME,\r\n  C.CITY\r\n");
    // Once per field.
    EXPECT_EQ(Changed->count(), 3);
}

TEST_F(VdOrderPanelTest, RemovingAnEntryPutsTheFieldLastAndLeavesTheButtonsAsTheyWere)
{
    Load("SELECT C.NAME FROM CUSTOMER C ORDER BY C.NAME", 3);
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO", "C.CITY"}));
    SelectSorted(0);
    const std::string before = Enabled();
    EXPECT_EQ(before, "0111100");
    Order().HandleRemoveClick();
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO", "C.CITY", "C.NAME"}));
    EXPECT_EQ(Sorted(), QStringList());
    EXPECT_EQ(Enabled(), before);
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n");
}

TEST_F(VdOrderPanelTest, RemoveAllPutsEveryEntryBackInOrderAndLeavesTheButtons)
{
    Load(kSorted, 3);
    SelectSorted(1);
    const std::string before = Enabled();
    Order().HandleRemoveAllClick();
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO", "C.CITY", "C.NAME"}));
    EXPECT_EQ(Sorted(), QStringList());
    EXPECT_EQ(Enabled(), before);
    EXPECT_EQ(Sql(), kPrefix);
    EXPECT_EQ(Changed->count(), 2);
}

TEST_F(VdOrderPanelTest, TheDirectionButtonOnAnAscendingEntryMakesItDescendingAndReadsAToZ)
{
    Load(kSorted, 3);
    SelectSorted(1);
    EXPECT_EQ(Order().DirectionButton()->text(), QStringLiteral("Z..A"));
    QTest::mouseClick(Order().DirectionButton(), Qt::LeftButton);
    EXPECT_EQ(Sorted(), QStringList({"C.CITY Descending", "C.NAME Descending"}));
    EXPECT_EQ(Order().DirectionButton()->text(), QStringLiteral("A..Z"));
    EXPECT_EQ(Sql(), std::string(kPrefix) + "ORDER BY\r\n  C.CITY DESC,\r\n  C.NAME DESC\r\n");
    QTest::mouseClick(Order().DirectionButton(), Qt::LeftButton);
    EXPECT_EQ(Sorted(), QStringList({"C.CITY Descending", "C.NAME Ascending"}));
    EXPECT_EQ(Order().DirectionButton()->text(), QStringLiteral("Z..A"));
}

TEST_F(VdOrderPanelTest, UpAndDownMoveTheEntryAndFollowItsPlace)
{
    Load("SELECT C.NAME FROM CUSTOMER C ORDER BY C.NAME, C.CITY DESC, C.CUSTNO", 3);
    SelectSorted(0);
    EXPECT_EQ(Enabled(), "0011101");
    QTest::mouseClick(Order().DownButton(), Qt::LeftButton);
    EXPECT_EQ(Sorted(),
              QStringList({"C.CITY Descending", "C.NAME Ascending", "C.CUSTNO Ascending"}));
    EXPECT_EQ(Enabled(), "0011111");
    QTest::mouseClick(Order().DownButton(), Qt::LeftButton);
    EXPECT_EQ(Sorted(),
              QStringList({"C.CITY Descending", "C.CUSTNO Ascending", "C.NAME Ascending"}));
    EXPECT_EQ(Enabled(), "0011110");
    EXPECT_EQ(Order().SortedList()->currentItem()->text(0), QStringLiteral("C.NAME"));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.CITY DESC,\r\n"
                     "  C.CUSTNO,\r\n  C.NAME\r\n");
    QTest::mouseClick(Order().UpButton(), Qt::LeftButton);
    QTest::mouseClick(Order().UpButton(), Qt::LeftButton);
    EXPECT_EQ(Sorted(),
              QStringList({"C.NAME Ascending", "C.CITY Descending", "C.CUSTNO Ascending"}));
    EXPECT_EQ(Enabled(), "0011101");
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
}

TEST_F(VdOrderPanelTest, AnUnchangedSetOfAvailableFieldsLeavesBothListsAsTheyAre)
{
    Load("SELECT C.NAME FROM CUSTOMER C", 3);
    SelectUnsorted(1);
    QListWidgetItem* selected = Order().UnsortedList()->item(1);
    // The model's ORDER BY changes behind the page's back: with the same fields nothing is
    // read again.
    Parser().OrderByItems().AddOrdered("C.CITY", okDesc);
    Order().RefreshFields();
    EXPECT_EQ(Order().UnsortedList()->item(1), selected);
    EXPECT_TRUE(selected->isSelected());
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO", "C.NAME", "C.CITY"}));
    EXPECT_EQ(Sorted(), QStringList());
    // Other fields: both lists are filled anew.
    Host.Table(QStringLiteral("CUSTOMER")).AddField(QStringLiteral("ZIP"), ftString);
    Vandor->SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C ORDER BY C.CITY DESC"));
    EXPECT_EQ(Unsorted(), QStringList({"C.CUSTNO", "C.NAME", "C.ZIP"}));
    EXPECT_EQ(Sorted(), QStringList({"C.CITY Descending"}));
}

TEST_F(VdOrderPanelTest, DragsBetweenTheListsAddAndRemove)
{
    Load(kSorted, 3);
    QListWidget* unsorted = Order().UnsortedList();
    QTreeWidget* sorted = Order().SortedList();
    EXPECT_TRUE(Order().HandleDragOverOrder(unsorted));
    EXPECT_FALSE(Order().HandleDragOverOrder(Vandor->WorkArea()));
    EXPECT_TRUE(Order().HandleDragOverUnOrder(sorted));
    EXPECT_FALSE(Order().HandleDragOverUnOrder(unsorted));
    SelectUnsorted(0);
    Order().HandleDragDropOrder(unsorted, QPoint(5, 5));
    EXPECT_EQ(Sorted(),
              QStringList({"C.CITY Descending", "C.NAME Ascending", "C.CUSTNO Ascending"}));
    SelectSorted(0);
    Order().HandleDragDropUnOrder(sorted);
    EXPECT_EQ(Unsorted(), QStringList({"C.CITY"}));
    EXPECT_EQ(Sql(), std::string(kPrefix) + "ORDER BY\r\n  C.NAME,\r\n  C.CUSTNO\r\n");
}

TEST_F(VdOrderPanelTest, DraggingAnEntryInsideTheSortedListReordersIt)
{
    Load("SELECT C.NAME FROM CUSTOMER C ORDER BY C.NAME, C.CITY DESC, C.CUSTNO", 3);
    QTreeWidget* sorted = Order().SortedList();
    SelectSorted(2);
    const QPoint first = sorted->visualItemRect(sorted->topLevelItem(0)).center();
    Order().HandleDragDropOrder(sorted, first);
    EXPECT_EQ(Sorted(),
              QStringList({"C.CUSTNO Ascending", "C.NAME Ascending", "C.CITY Descending"}));
    EXPECT_EQ(Enabled(), "0011101");
    // Below the last entry it goes last.
    Order().HandleDragDropOrder(sorted, QPoint(5, sorted->viewport()->height() - 2));
    EXPECT_EQ(Sorted(),
              QStringList({"C.NAME Ascending", "C.CITY Descending", "C.CUSTNO Ascending"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.NAME,\r\n"
                     "  C.CITY DESC,\r\n  C.CUSTNO\r\n");
}

TEST_F(VdOrderPanelTest, DoubleClicksAddAndRemove)
{
    Load(kSorted, 3);
    QListWidget* unsorted = Order().UnsortedList();
    const QPoint item = unsorted->visualItemRect(unsorted->item(0)).center();
    QTest::mouseClick(unsorted->viewport(), Qt::LeftButton, {}, item);
    QTest::mouseDClick(unsorted->viewport(), Qt::LeftButton, {}, item);
    EXPECT_EQ(Sorted(),
              QStringList({"C.CITY Descending", "C.NAME Ascending", "C.CUSTNO Ascending"}));
    QTreeWidget* sorted = Order().SortedList();
    const QPoint entry = sorted->visualItemRect(sorted->topLevelItem(0)).center();
    QTest::mouseClick(sorted->viewport(), Qt::LeftButton, {}, entry);
    EXPECT_EQ(Enabled(), "0011101");
    QTest::mouseDClick(sorted->viewport(), Qt::LeftButton, {}, entry);
    EXPECT_EQ(Sorted(), QStringList({"C.NAME Ascending", "C.CUSTNO Ascending"}));
    EXPECT_EQ(Unsorted(), QStringList({"C.CITY"}));
}

TEST_F(VdOrderPanelTest, KeysAddRemoveFlipAndMove)
{
    Load("SELECT C.NAME FROM CUSTOMER C", 3);
    QListWidget* unsorted = Order().UnsortedList();
    QTreeWidget* sorted = Order().SortedList();
    unsorted->setFocus();
    QTest::keyClick(unsorted, Qt::Key_End);
    QTest::keyClick(unsorted, Qt::Key_Home);
    EXPECT_EQ(Enabled(), "1100000");
    QTest::keyClick(unsorted, Qt::Key_Return);
    QTest::keyClick(unsorted, Qt::Key_Home);
    QTest::keyClick(unsorted, Qt::Key_Return);
    EXPECT_EQ(Sorted(), QStringList({"C.CUSTNO Ascending", "C.NAME Ascending"}));
    SelectSorted(1);
    QTest::keyClick(sorted, Qt::Key_Space);
    QTest::keyClick(sorted, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Sorted(), QStringList({"C.NAME Descending", "C.CUSTNO Ascending"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.NAME DESC,\r\n"
                     "  C.CUSTNO\r\n");
    QTest::keyClick(sorted, Qt::Key_Delete);
    EXPECT_EQ(Sorted(), QStringList({"C.CUSTNO Ascending"}));
    EXPECT_EQ(Unsorted(), QStringList({"C.CITY", "C.NAME"}));
}

TEST_F(VdOrderPanelTest, UpdateParserWithoutADirectionSortsAscending)
{
    Load("SELECT C.NAME FROM CUSTOMER C", 3);
    auto* entry = new QTreeWidgetItem(Order().SortedList(), {QStringLiteral("C.CITY")});
    entry->setText(1, QString());
    Order().UpdateParser();
    ASSERT_EQ(Parser().OrderByItems().Count(), 1);
    EXPECT_EQ(Parser().OrderByItems().Orders(0), okAsc);
}

TEST_F(VdOrderPanelTest, ClearEmptiesBothListsAndResetsTheDirectionCaption)
{
    Load(kSorted, 3);
    SelectSorted(1);
    EXPECT_EQ(Order().DirectionButton()->text(), QStringLiteral("Z..A"));
    Order().Clear();
    EXPECT_EQ(Unsorted(), QStringList());
    EXPECT_EQ(Sorted(), QStringList());
    EXPECT_EQ(Order().DirectionButton()->text(), QStringLiteral("A..Z"));
}
