// The work area: numbered aliases and placement, field drags with their type rules, alias
// editing, moving with auto-scroll, keyboard, hints, cursors, menus, dirty regions, and the
// drags it passes on to the builder.

#include "VdFakeHost.h"

#include "builder/VdRecordingDialogService.h"
#include "builder/VdSQLVandor.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "diagram/VdPlacement.h"
#include "tests/core/ModelCheck.h"

#include <QAction>
#include <QCoreApplication>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;

namespace {

// Records the region of every paint the viewport gets.
class TPaintSpy : public QObject
{
public:
    explicit TPaintSpy(QWidget* widget) { widget->installEventFilter(this); }
    QRegion Painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            Painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

// A mouse move as the platform delivers it, with the buttons held.
void Move(QWidget* view, const QPoint& at, Qt::MouseButtons buttons = Qt::NoButton)
{
    QMouseEvent move(QEvent::MouseMove, at, view->mapToGlobal(at), Qt::NoButton, buttons,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(view, &move);
}

// Drag events reach the widget that accepted the drag's enter event.
bool SendDrag(QWidget* view, const QPoint& at, Qt::DropAction action, QMimeData* data)
{
    QDragEnterEvent enter(at, action, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &enter);
    QDragMoveEvent move(at, action, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &move);
    return move.isAccepted();
}

class VdWorkAreaTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TDataSet& orders = Host.Table(QStringLiteral("ORDERS"));
        orders.AddField(QStringLiteral("ORDERNO"), ftInteger);
        orders.AddField(QStringLiteral("CUSTNO"), ftSmallint);
        orders.AddField(QStringLiteral("SHIPNAME"), ftString);
        orders.AddField(QStringLiteral("SALEDATE"), ftDate);
        TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
        customer.AddField(QStringLiteral("CUSTNO"), ftLargeint);
        customer.AddField(QStringLiteral("NAME"), ftString);
        customer.AddField(QStringLiteral("SINCE"), ftDateTime);
        customer.AddField(QStringLiteral("CODE"), ftInteger);
        Host.Attach(Vandor);
        Vandor.resize(900, 700);
        Area = Vandor.WorkArea();
    }

    TVdTable* Add(const char* name)
    {
        return Area->AddPanel(QString::fromLatin1(name), &Host.Table(QString::fromLatin1(name)));
    }

    // Window point at the middle of a row's text.
    QPoint RowPoint(TVdListItem* row) const
    {
        const QRect r = row->GetBoundsRect().translated(-Area->ScrollOffset());
        return QPoint(r.left() + r.width() / 2, r.top() + r.height() / 2);
    }

    // Selects the source table with its current row, as a press on the row does.
    void Grab(TVdTable* table, const char* field)
    {
        Area->SetSelected(table);
        table->SetCurrentItem(table->FindItem(QString::fromLatin1(field)));
    }

    bool DragOver(TVdTable* target, const char* field)
    {
        return Area->HandleDragOver(Area, RowPoint(target->FindItem(QString::fromLatin1(field))),
                                    false);
    }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;
};

} // namespace

TEST_F(VdWorkAreaTest, SameTableThreeTimesGetsNumberedAliasesSideBySide)
{
    TVdTable* first = Add("ORDERS");
    TVdTable* second = Add("ORDERS");
    TVdTable* third = Add("ORDERS");
    EXPECT_EQ(first->GetAlias(), QStringLiteral("ORDERS"));
    EXPECT_TRUE(first->Alias().isEmpty());
    EXPECT_EQ(second->GetAlias(), QStringLiteral("ORDERS1"));
    EXPECT_EQ(third->GetAlias(), QStringLiteral("ORDERS2"));
    EXPECT_EQ(first->Left(), 50);
    EXPECT_EQ(first->Top(), 20);
    EXPECT_EQ(second->Left(), first->Left() + first->Width() + 10);
    EXPECT_EQ(third->Left(), second->Left() + second->Width() + 10);
    EXPECT_EQ(third->Top(), 20);
    // The newest is in front and selected.
    EXPECT_EQ(Area->Tables(0), third);
    EXPECT_EQ(Area->Selected(), third);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdWorkAreaTest, PlacementEqualsTheLiteralWalkOnRandomDiagrams)
{
    QRandomGenerator random(16);
    for (int round = 0; round < 300; ++round) {
        std::vector<QRect> tables;
        const int count = random.bounded(0, 40);
        for (int i = 0; i < count; ++i)
            tables.emplace_back(random.bounded(0, 900), random.bounded(0, 200),
                                random.bounded(40, 200), random.bounded(30, 160));
        const QSize size(random.bounded(40, 200), random.bounded(30, 160));
        SCOPED_TRACE(round);
        ASSERT_EQ(PlaceTable(tables, size), PlaceByWalk(tables, size));
    }
}

TEST_F(VdWorkAreaTest, PlacementEqualsTheWalkWhereOrderDecides)
{
    // Both overlap the start; the first in the list stops the walk at its right edge + 10,
    // short of the other's.
    const std::vector<QRect> tables{QRect(0, 0, 96, 50), QRect(0, 0, 101, 50)};
    EXPECT_EQ(PlaceTable(tables, QSize(100, 40)), QPoint(106, 20));
    EXPECT_EQ(PlaceByWalk(tables, QSize(100, 40)), QPoint(106, 20));
}

TEST_F(VdWorkAreaTest, HostRefusingATableLeavesNothing)
{
    Host.AcceptTables = false;
    EXPECT_EQ(Add("ORDERS"), nullptr);
    EXPECT_EQ(Area->TablesCount(), 0);
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 0);
}

TEST_F(VdWorkAreaTest, DragFromStringToIntegerIsRefused)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Grab(orders, "SHIPNAME");
    EXPECT_FALSE(DragOver(customer, "CODE"));
    EXPECT_EQ(Area->DragTarget(), nullptr);
    EXPECT_TRUE(DragOver(customer, "NAME"));
}

TEST_F(VdWorkAreaTest, DragFromSmallintToLargeintIsAccepted)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Grab(orders, "CUSTNO");
    ASSERT_TRUE(DragOver(customer, "CUSTNO"));
    EXPECT_EQ(Area->DragTarget(), customer->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_EQ(Area->DropHighlightRow(), customer->FindItem(QStringLiteral("CUSTNO")));
}

TEST_F(VdWorkAreaTest, DragFromDateToDateTimeIsRefused)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Grab(orders, "SALEDATE");
    EXPECT_FALSE(DragOver(customer, "SINCE"));
}

TEST_F(VdWorkAreaTest, TypeCompatibilitySets)
{
    EXPECT_TRUE(TVdWorkArea::CompatibleTypes(ftSmallint, ftLargeint));
    EXPECT_TRUE(TVdWorkArea::CompatibleTypes(ftFloat, ftCurrency));
    EXPECT_FALSE(TVdWorkArea::CompatibleTypes(ftInteger, ftFloat));
    EXPECT_TRUE(TVdWorkArea::CompatibleTypes(ftMemo, ftString));
    EXPECT_FALSE(TVdWorkArea::CompatibleTypes(ftDate, ftDateTime));
    EXPECT_TRUE(TVdWorkArea::CompatibleTypes(ftTime, ftTime));
}

TEST_F(VdWorkAreaTest, DropLinksTheRowsAndASecondDragBetweenThemIsRefused)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Grab(orders, "CUSTNO");
    ASSERT_TRUE(DragOver(customer, "CUSTNO"));
    Area->HandleDragEnd(true);
    ASSERT_EQ(Area->LinksCount(), 1);
    TVdLink* link = Area->Links(0);
    EXPECT_EQ(link->Row1(), orders->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_EQ(link->Row2(), customer->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_EQ(Area->DropHighlightRow(), nullptr);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    Grab(orders, "CUSTNO");
    EXPECT_FALSE(DragOver(customer, "CUSTNO"));
    // Either way round.
    Grab(customer, "CUSTNO");
    EXPECT_FALSE(DragOver(orders, "CUSTNO"));
}

TEST_F(VdWorkAreaTest, BuiltDragEventsReachTheHandlersThroughTheViewport)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Grab(orders, "CUSTNO");
    QMimeData data;
    data.setData(QLatin1String(TVdWorkArea::FieldMimeType),
                 QByteArray::number(reinterpret_cast<quintptr>(Area)));
    const QPointF at = RowPoint(customer->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_TRUE(SendDrag(Area->viewport(), at.toPoint(), Qt::LinkAction, &data));
    QDropEvent drop(at, Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Area->viewport(), &drop);
    EXPECT_EQ(Area->LinksCount(), 1);
}

TEST_F(VdWorkAreaTest, RowsScrollWhileAFieldIsDraggedOverTheBottomBand)
{
    TDataSet& wide = Host.Table(QStringLiteral("WIDE"));
    for (int i = 0; i < 20; ++i)
        wide.AddField(QStringLiteral("F%1").arg(i), ftInteger);
    TVdTable* orders = Add("ORDERS");
    TVdTable* target = Area->AddPanel(QStringLiteral("WIDE"), &wide);
    ASSERT_LT(target->VisibleItems(), target->Count());
    Grab(orders, "ORDERNO");
    const QRect bounds = target->GetBoundsRect().translated(-Area->ScrollOffset());
    // The lowest point of the field list, above the bottom edge's sizing band.
    int y = bounds.bottom();
    while (y > bounds.top() && target->HitTest(QPoint(bounds.center().x(), y)) != htTClient)
        --y;
    ASSERT_GT(y, bounds.bottom() - TVdWorkArea::RowScrollBottomBand);
    Area->HandleDragOver(Area, QPoint(bounds.center().x(), y), true);
    EXPECT_TRUE(Area->RowScrollActive(2));
    EXPECT_FALSE(Area->RowScrollActive(1));
    Area->HandleRowScrollTimer(2);
    EXPECT_EQ(target->FirstVisibleItem(), 1);
    // One row per tick: the next move arms it again.
    EXPECT_FALSE(Area->RowScrollActive(2));
    Area->HandleDragOver(Area, QPoint(bounds.center().x(), bounds.top() + 22), true);
    EXPECT_TRUE(Area->RowScrollActive(1));
    Area->HandleRowScrollTimer(1);
    EXPECT_EQ(target->FirstVisibleItem(), 0);
    Area->HandleDragEnd(false);
    EXPECT_FALSE(Area->RowScrollActive(1));
}

TEST_F(VdWorkAreaTest, RenamingToADottedAliasDropsTheDot)
{
    TVdTable* orders = Add("ORDERS");
    std::vector<QString> changes;
    Area->OnChangeAlias = [&](TVdTable* table, const QString& old) {
        changes.push_back(table->GetAlias() + QLatin1Char('<') + old);
    };
    orders->HandleRenameTable();
    QLineEdit* edit = Area->AliasEdit();
    ASSERT_FALSE(edit->isHidden());
    edit->setText(QStringLiteral("A.B"));
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_TRUE(edit->isHidden());
    EXPECT_EQ(orders->Alias(), QStringLiteral("AB"));
    EXPECT_EQ(changes, (std::vector<QString>{QStringLiteral("AB<")}));
}

TEST_F(VdWorkAreaTest, EscapeLeavesTheAliasAlone)
{
    TVdTable* orders = Add("ORDERS");
    orders->HandleRenameTable();
    Area->AliasEdit()->setText(QStringLiteral("O"));
    QTest::keyClick(Area->AliasEdit(), Qt::Key_Escape);
    EXPECT_TRUE(Area->AliasEdit()->isHidden());
    EXPECT_TRUE(orders->Alias().isEmpty());
}

TEST_F(VdWorkAreaTest, DuplicateAliasIsRefusedWithItsMessage)
{
    TVdRecordingDialogService dialogs;
    Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    customer->HandleRenameTable();
    Area->AliasEdit()->setText(QStringLiteral("ORDERS"));
    QTest::keyClick(Area->AliasEdit(), Qt::Key_Return);
    EXPECT_TRUE(customer->Alias().isEmpty());
    ASSERT_EQ(dialogs.Messages().size(), 1);
    EXPECT_EQ(dialogs.Messages().first().Text,
              QStringLiteral("Table with alias ORDERS already exist"));
}

TEST_F(VdWorkAreaTest, AliasEqualToTheNameClearsIt)
{
    TVdTable* orders = Add("ORDERS");
    Area->CommitAlias(orders, QStringLiteral("O"));
    EXPECT_EQ(orders->Alias(), QStringLiteral("O"));
    Area->CommitAlias(orders, QStringLiteral("ORDERS"));
    EXPECT_TRUE(orders->Alias().isEmpty());
}

TEST_F(VdWorkAreaTest, MovingPastTheRightEdgeScrollsAndStopsAt5000)
{
    TVdTable* orders = Add("ORDERS");
    QWidget* view = Area->viewport();
    const QPoint caption = orders->GetCaptionRect().center() - Area->ScrollOffset();
    Move(view, caption);
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, caption);
    ASSERT_EQ(Area->HitKind(), htTCaption);
    const int width = view->width();
    Move(view, QPoint(width + 40, caption.y()), Qt::LeftButton);
    EXPECT_EQ(Area->horizontalScrollBar()->value(), 40);
    for (int i = 0; i < 200; ++i)
        Move(view, QPoint(width + 100, caption.y()), Qt::LeftButton);
    EXPECT_EQ(Area->horizontalScrollBar()->value(), Area->horizontalScrollBar()->maximum());
    EXPECT_EQ(orders->Left() + orders->Width(), TVdWorkArea::Extent);
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, QPoint(width + 100, caption.y()));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdWorkAreaTest, ResizingKeepsTheMinimumSize)
{
    TVdTable* orders = Add("ORDERS");
    const QRect bounds = orders->GetBoundsRect();
    QWidget* view = Area->viewport();
    const QPoint edge(bounds.right(), bounds.center().y());
    Move(view, edge);
    ASSERT_EQ(Area->HitKind(), htTRight);
    EXPECT_EQ(view->cursor().shape(), Qt::SizeHorCursor);
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, edge);
    Move(view, QPoint(bounds.left() + 5, edge.y()), Qt::LeftButton);
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, QPoint(bounds.left() + 5, edge.y()));
    EXPECT_EQ(orders->Width(), orders->CaptionHeight() + TVdTable::ButtonsWidth + 20);
    EXPECT_EQ(orders->Left(), bounds.left());
}

TEST_F(VdWorkAreaTest, CursorsFollowTheHit)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    QWidget* view = Area->viewport();
    const QRect bounds = orders->GetBoundsRect();
    Move(view, bounds.bottomRight());
    EXPECT_EQ(view->cursor().shape(), Qt::SizeFDiagCursor);
    Move(view, QPoint(bounds.center().x(), bounds.bottom()));
    EXPECT_EQ(view->cursor().shape(), Qt::SizeVerCursor);
    Move(view, Area->Links(0)->GetPoint(0));
    EXPECT_EQ(Area->HitKind(), htTEndLine);
    EXPECT_EQ(view->cursor().shape(), Qt::UpArrowCursor);
    Move(view, QPoint(4000 % view->width(), view->height() - 2));
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(VdWorkAreaTest, HintShowsAfterItsDelayAndHidesAfterItsLife)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TVdLink* link =
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    const QPoint middle = (link->GetPoint(1) + link->GetPoint(2)) / 2;
    Move(Area->viewport(), middle);
    ASSERT_EQ(Area->HitObject(), link);
    EXPECT_TRUE(Area->HintTimerActive());
    EXPECT_FALSE(Area->HintWindow()->isVisible());
    Area->HandleHintTimer();
    EXPECT_FALSE(Area->HintTimerActive());
    EXPECT_TRUE(Area->HintWindow()->isVisible());
    EXPECT_EQ(Area->HintWindow()->text(), QStringLiteral("ORDERS.CUSTNO=CUSTOMER.CUSTNO"));
    EXPECT_TRUE(Area->HintLifeTimerActive());
    Area->HandleHintLifeTimer();
    EXPECT_FALSE(Area->HintWindow()->isVisible());
}

TEST_F(VdWorkAreaTest, TabWalksThroughEveryTable)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TVdTable* third = Add("ORDERS");
    ASSERT_EQ(Area->Selected(), third);
    std::vector<TVdFloatObject*> seen;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(Area, Qt::Key_Tab);
        seen.push_back(Area->Selected());
    }
    EXPECT_EQ(seen, (std::vector<TVdFloatObject*>{orders, customer, third}));
    EXPECT_EQ(Area->Tables(0), third);
}

TEST_F(VdWorkAreaTest, DeleteClosesTheSelectedTableWhenTheHostAgrees)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    Area->SetSelected(customer);
    QTest::keyClick(Area, Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_EQ(Area->TablesCount(), 1);
    EXPECT_EQ(Area->LinksCount(), 0);
    EXPECT_EQ(Area->JoinsCount(), 0);
    EXPECT_EQ(Area->Selected(), nullptr);
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 1);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdWorkAreaTest, DeleteOnALinkAsksFirst)
{
    TVdRecordingDialogService dialogs;
    dialogs.Answer(QMessageBox::No);
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TVdLink* link =
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    Area->SetSelected(link);
    QTest::keyClick(Area, Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_EQ(Area->LinksCount(), 1);
    EXPECT_EQ(dialogs.Questions().size(), 1);
    Area->SetSelected(link);
    QTest::keyClick(Area, Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_EQ(Area->LinksCount(), 0);
}

TEST_F(VdWorkAreaTest, HostRefusingALinkLeavesNoJoin)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Host.AcceptLinks = false;
    EXPECT_EQ(
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO")),
        nullptr);
    EXPECT_EQ(Area->JoinsCount(), 0);
    EXPECT_EQ(Vandor.Parser()->TableDefs().Items(0)->JoinDefs().Count(), 0);
}

TEST_F(VdWorkAreaTest, LinksBetweenTheSameTablesShareOneJoin)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TVdLink* first =
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    // Given the other way round, the rows are swapped into the join's order.
    TVdLink* second =
        Area->AddLink(customer, orders, customer->FindItem("NAME"), orders->FindItem("SHIPNAME"));
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first->Join(), second->Join());
    EXPECT_EQ(second->Row1(), orders->FindItem("SHIPNAME"));
    EXPECT_EQ(Area->JoinsCount(), 1);
    Area->RemoveLink(first, 0, true);
    EXPECT_EQ(Area->JoinsCount(), 1);
    Area->RemoveLink(second, 0, true);
    EXPECT_EQ(Area->JoinsCount(), 0);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdWorkAreaTest, RightClickOnALinkShowsItsMenu)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TVdLink* link =
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    const QPoint middle = (link->GetPoint(1) + link->GetPoint(2)) / 2;
    ASSERT_TRUE(Area->PopupAt(middle, Area->viewport()->mapToGlobal(middle)));
    EXPECT_EQ(Area->Selected(), link);
    QStringList texts;
    for (QAction* action : Area->PopupMenuWidget()->actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    EXPECT_EQ(texts, QStringList({"Insert point", "-", "Delete link", "Property"}));
    Area->PopupMenuWidget()->hide();
    EXPECT_FALSE(Area->PopupAt(QPoint(5, Area->viewport()->height() - 5), QPoint()));
}

TEST_F(VdWorkAreaTest, PressOnFreeSpaceClearsTheSelection)
{
    Add("ORDERS");
    ASSERT_NE(Area->Selected(), nullptr);
    QTest::mouseClick(Area->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(10, Area->viewport()->height() - 10));
    EXPECT_EQ(Area->Selected(), nullptr);
}

TEST_F(VdWorkAreaTest, AMovedTableRepaintsOnlyItsRectanglesAndItsLinks)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TDataSet& far = Host.Table(QStringLiteral("FAR"));
    far.AddField(QStringLiteral("ID"), ftInteger);
    TVdTable* other = Area->AddPanel(QStringLiteral("FAR"), &far);
    other->SetLeft(600);
    other->SetTop(400);
    Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    Vandor.show();
    QCoreApplication::processEvents();
    TPaintSpy spy(Area->viewport());
    const QRect old = orders->GetBoundsRect();
    const QPoint caption = orders->GetCaptionRect().center();
    QWidget* view = Area->viewport();
    Move(view, caption);
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, caption);
    QCoreApplication::processEvents();
    spy.Painted = QRegion();
    Move(view, caption + QPoint(0, 150), Qt::LeftButton);
    QCoreApplication::processEvents();
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, caption + QPoint(0, 150));
    EXPECT_TRUE(spy.Painted.contains(old.center()));
    EXPECT_TRUE(spy.Painted.contains(orders->GetBoundsRect().center()));
    EXPECT_FALSE(spy.Painted.intersects(other->GetBoundsRect()));
    EXPECT_LT(spy.Painted.boundingRect().width() * spy.Painted.boundingRect().height(),
              view->width() * view->height() / 2);
    Vandor.hide();
}

TEST_F(VdWorkAreaTest, ForeignDropsGoToTheBuildersDragEvents)
{
    QPoint over;
    QString dropped;
    Vandor.OnDragOver = [&](QObject*, QObject*, const QMimeData* data, const QPoint& at,
                            bool& accept) {
        over = at;
        accept = data->hasText();
    };
    Vandor.OnDragDrop = [&](QObject*, QObject*, const QMimeData* data, const QPoint&) {
        dropped = data->text();
    };
    QMimeData data;
    data.setText(QStringLiteral("CUSTOMER"));
    EXPECT_TRUE(SendDrag(Area->viewport(), QPoint(30, 40), Qt::CopyAction, &data));
    EXPECT_EQ(over, Area->viewport()->mapTo(&Vandor, QPoint(30, 40)));
    QDropEvent drop(QPointF(30, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Area->viewport(), &drop);
    EXPECT_EQ(dropped, QStringLiteral("CUSTOMER"));
    EXPECT_EQ(Area->LinksCount(), 0);
}

TEST_F(VdWorkAreaTest, ClearContentsRemovesEverything)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    Area->ClearContents();
    EXPECT_EQ(Area->TablesCount(), 0);
    EXPECT_EQ(Area->LinksCount(), 0);
    EXPECT_EQ(Area->JoinsCount(), 0);
    EXPECT_EQ(Area->Selected(), nullptr);
}

TEST_F(VdWorkAreaTest, AWrongParentIsRefused)
{
    QWidget plain;
    try {
        TVdWorkArea area(&plain);
        FAIL() << "no exception";
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "Given parent is not valid for WorkArea!");
    }
}

TEST_F(VdWorkAreaTest, SelectingALinkReportsItsRows)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    TVdLink* link =
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    std::vector<QString> reports;
    Area->OnSelectionLink = [&](QObject*, TVdTable* t1, TVdTable* t2, TVdListItem* r1,
                                TVdListItem* r2, bool state) {
        reports.push_back(t1->GetAlias() + QLatin1Char('.') + r1->Name() + QLatin1Char('-') +
                          t2->GetAlias() + QLatin1Char('.') + r2->Name() +
                          (state ? QStringLiteral(" on") : QStringLiteral(" off")));
    };
    const QPoint middle = (link->GetPoint(1) + link->GetPoint(2)) / 2;
    QTest::mouseClick(Area->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(Area->Selected(), link);
    EXPECT_TRUE(link->Selected());
    QTest::mouseClick(Area->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(10, Area->viewport()->height() - 10));
    EXPECT_EQ(reports, (std::vector<QString>{QStringLiteral("ORDERS.CUSTNO-CUSTOMER.CUSTNO on"),
                                             QStringLiteral("ORDERS.CUSTNO-CUSTOMER.CUSTNO off")}));
}

TEST_F(VdWorkAreaTest, AUserPointIsDraggedWithTheMouseAndEndPointsStay)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    customer->SetTop(200);
    TVdLink* link =
        Area->AddLink(orders, customer, orders->FindItem("CUSTNO"), customer->FindItem("CUSTNO"));
    const QPoint bend = (link->Points()[1] + link->Points()[2]) / 2;
    link->InsertPoint(2, bend);
    QWidget* view = Area->viewport();
    const QPoint at = bend - Area->ScrollOffset();
    Move(view, at);
    ASSERT_EQ(Area->HitKind(), htTPoint);
    EXPECT_EQ(view->cursor().shape(), Qt::SizeAllCursor);
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, at);
    Move(view, at + QPoint(40, -30), Qt::LeftButton);
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, at + QPoint(40, -30));
    EXPECT_EQ(link->Points()[2], bend + QPoint(40, -30));
    // An end point is recorded on a press but never moves.
    const QPoint end = link->GetPoint(0);
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, end);
    EXPECT_EQ(link->DragPoint(), 0);
    Move(view, end + QPoint(30, 30), Qt::LeftButton);
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, end + QPoint(30, 30));
    EXPECT_EQ(link->GetPoint(0), end);
}

TEST_F(VdWorkAreaTest, ALargerFontGrowsTheTablesAndKeepsTheirRows)
{
    TVdTable* orders = Add("ORDERS");
    const int rows = orders->VisibleItems();
    const int caption = orders->CaptionHeight();
    const int height = orders->Height();
    QFont large = Area->GetFont();
    large.setPointSize(large.pointSize() * 2);
    Area->SetFont(large);
    EXPECT_GT(orders->CaptionHeight(), caption);
    EXPECT_GT(orders->Height(), height);
    EXPECT_EQ(orders->VisibleItems(), rows);
    EXPECT_LE(orders->CaptionRect(false).width(), orders->GetCaptionRect().width());
}
