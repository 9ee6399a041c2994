// Links between table objects: routing by the side rule, hits, the menu, the delete question,
// clip regions and painting behind the boxes.

#include "VdFakeHost.h"

#include "builder/VdRecordingDialogService.h"
#include "builder/VdSQLVandor.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "resources/VdResource.h"

#include <QAction>
#include <QCoreApplication>
#include <QImage>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;

namespace {

class VdLinksTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* name : {"A", "B"}) {
            TDataSet& data = Host.Table(QString::fromLatin1(name));
            data.AddField(QStringLiteral("ID"), ftInteger);
            data.AddField(QStringLiteral("NAME"), ftString);
        }
        Host.Attach(Vandor);
        Vandor.resize(900, 700);
        Area = Vandor.WorkArea();
        A = Area->AddPanel(QStringLiteral("A"), &Host.Table(QStringLiteral("A")));
        B = Area->AddPanel(QStringLiteral("B"), &Host.Table(QStringLiteral("B")));
        Place(A, 0, 0);
        Place(B, 200, 0);
        Link = Area->AddLink(A, B, A->FindItem(QStringLiteral("ID")),
                             B->FindItem(QStringLiteral("ID")));
    }

    static void Place(TVdTable* table, int left, int top)
    {
        table->SetWidth(100);
        table->SetLeft(left);
        table->SetTop(top);
    }

    // Window point of content point p (the view is not scrolled in these tests).
    QPoint Window(const QPoint& p) const { return p - Area->ScrollOffset(); }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;
    TVdTable* A = nullptr;
    TVdTable* B = nullptr;
    TVdLink* Link = nullptr;
};

} // namespace

TEST_F(VdLinksTest, EndsAttachToTheSidesThatFaceEachOther)
{
    ASSERT_NE(Link, nullptr);
    // B's right edge 300 >= A's left 0: out of A's right edge; A's right 100 < B's left 200:
    // into B's left edge.
    EXPECT_EQ(Link->Points()[0].x(), 100);
    EXPECT_EQ(Link->Points()[1].x(), 110);
    EXPECT_EQ(Link->Points()[3].x(), 200);
    EXPECT_EQ(Link->Points()[2].x(), 190);
    Place(B, 50, 200);
    EXPECT_EQ(Link->Points()[0].x(), 100);
    EXPECT_EQ(Link->Points()[1].x(), 110);
    EXPECT_EQ(Link->Points()[3].x(), 150);
    EXPECT_EQ(Link->Points()[2].x(), 160);
}

TEST_F(VdLinksTest, EndsSitAtTheRowsVerticalCentre)
{
    const QRect row = A->GetFullItemRect(Link->Row1());
    EXPECT_EQ(Link->Points()[0].y(), row.top() + row.height() / 2);
    const QRect bounds = Link->GetBounds();
    EXPECT_EQ(bounds.left(), 97);
    EXPECT_EQ(bounds.right(), 203);
}

TEST_F(VdLinksTest, AFirstUserPointLeftOfTheBoxTurnsTheStartAround)
{
    Link->InsertPoint(2, QPoint(-50 + 100, 300));
    // The user point's x 50 >= A's left 0: still the right edge; further left it flips.
    EXPECT_EQ(Link->Points()[0].x(), 100);
    Place(A, 400, 0);
    EXPECT_EQ(Link->Points()[0].x(), 400);
    EXPECT_EQ(Link->Points()[1].x(), 390);
}

TEST_F(VdLinksTest, LinkWithFourPointsCannotGetDeletePoint)
{
    const QPoint onLine = Window((Link->Points()[1] + Link->Points()[2]) / 2);
    QMenu menu;
    Link->PopupMenu(&menu, onLine.x(), onLine.y(), Link->HitTest(onLine));
    QStringList texts;
    for (QAction* action : menu.actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    EXPECT_EQ(texts, QStringList({"Insert point", "-", "Delete link", "Property"}));
    Link->SetMenuPoint(Link->Points()[1]);
    Link->HandleDeletePoint();
    EXPECT_EQ(Link->GetCountPoints(), 4);
}

TEST_F(VdLinksTest, InsertingOnAStubDoesNothing)
{
    const QPoint firstStub = (Link->Points()[0] + Link->Points()[1]) / 2;
    Link->SetMenuPoint(firstStub);
    Link->HandleInsertPoint();
    EXPECT_EQ(Link->GetCountPoints(), 4);
    const QPoint lastStub = (Link->Points()[2] + Link->Points()[3]) / 2;
    Link->SetMenuPoint(lastStub);
    Link->HandleInsertPoint();
    EXPECT_EQ(Link->GetCountPoints(), 4);
    // The middle segment takes one.
    Link->SetMenuPoint(QPoint(150, Link->Points()[1].y()));
    Link->HandleInsertPoint();
    ASSERT_EQ(Link->GetCountPoints(), 5);
    EXPECT_EQ(Link->Points()[2], QPoint(150, Link->Points()[1].y()));
}

TEST_F(VdLinksTest, UserPointMenuOffersDeletePointAndDeletesIt)
{
    const int y = Link->Points()[1].y();
    Link->InsertPoint(2, QPoint(150, y + 40));
    const QPoint at = Window(QPoint(151, y + 41));
    ASSERT_EQ(Link->HitTest(at), htTPoint);
    QMenu menu;
    Link->PopupMenu(&menu, at.x(), at.y(), htTPoint);
    ASSERT_FALSE(menu.actions().isEmpty());
    EXPECT_EQ(menu.actions().first()->text(), QStringLiteral("Delete point"));
    menu.actions().first()->trigger();
    EXPECT_EQ(Link->GetCountPoints(), 4);
}

TEST_F(VdLinksTest, HitToleranceIsThePointCount)
{
    const int y = Link->Points()[1].y();
    EXPECT_EQ(Link->HitTest(Window(QPoint(150, y + 4))), htTClient);
    EXPECT_EQ(Link->HitTest(Window(QPoint(150, y + 5))), htTOutSide);
    Link->InsertPoint(2, QPoint(130, y));
    Link->InsertPoint(3, QPoint(170, y));
    ASSERT_EQ(Link->GetCountPoints(), 6);
    EXPECT_EQ(Link->HitTest(Window(QPoint(150, y + 6))), htTClient);
    EXPECT_EQ(Link->HitTest(Window(QPoint(150, y + 7))), htTOutSide);
}

TEST_F(VdLinksTest, EndPointsHitAsEndLineAndStubsDoNot)
{
    EXPECT_EQ(Link->HitTest(Window(Link->Points()[0] + QPoint(1, 1))), htTEndLine);
    EXPECT_EQ(Link->HitTest(Window(Link->Points()[3] + QPoint(-3, 0))), htTEndLine);
    EXPECT_EQ(Link->HitTest(Window(Link->Points()[1])), htTClient);
}

TEST_F(VdLinksTest, AnsweringNoKeepsTheLink)
{
    TVdRecordingDialogService dialogs;
    dialogs.Answer(QMessageBox::No);
    Link->HandleDeleteLink();
    QCoreApplication::processEvents();
    EXPECT_EQ(Area->LinksCount(), 1);
    ASSERT_EQ(dialogs.Questions().size(), 1);
    EXPECT_EQ(dialogs.Questions().first().Caption, QStringLiteral("Attention!"));
    EXPECT_EQ(dialogs.Questions().first().Text,
              QStringLiteral("Do you really want to delete the link between \r\nA and B"));
}

TEST_F(VdLinksTest, AnyOtherAnswerDeletesTheLinkAfterTheHandlerReturns)
{
    TVdRecordingDialogService dialogs;
    dialogs.Answer(QMessageBox::Yes);
    Link->HandleDeleteLink();
    // Posted: the link is still there inside its own handler.
    EXPECT_EQ(Area->LinksCount(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(Area->LinksCount(), 0);
    EXPECT_EQ(Area->JoinsCount(), 0);
    EXPECT_EQ(Host.LinkQuestions, (std::vector<TVdAction>{vdaAdd, vdaRemove}));
}

TEST_F(VdLinksTest, HintNamesBothFieldsWithTheComparison)
{
    EXPECT_EQ(Link->GetHint(), QStringLiteral("A.ID=B.ID"));
    Link->Condition = 3;
    EXPECT_EQ(Link->GetHint(), QStringLiteral("A.ID>=B.ID"));
}

TEST_F(VdLinksTest, PointIndexOutOfRangeIsRefused)
{
    try {
        Link->GetPoint(4);
        FAIL() << "no exception";
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "Invalid index = 4 ");
    }
    EXPECT_THROW(Link->SetPoint(-1, QPoint()), std::exception);
}

TEST_F(VdLinksTest, ClipRegionCoversTheLineAndNotItsSurroundings)
{
    const QRegion region = Link->GetClipRgn();
    const int y = Link->Points()[1].y();
    EXPECT_TRUE(region.contains(QPoint(150, y)));
    EXPECT_TRUE(region.contains(QPoint(104, y + 2)));
    EXPECT_FALSE(region.contains(QPoint(150, y + 10)));
    Link->InsertPoint(2, QPoint(150, y + 100));
    const QRegion start = Link->GetClipRgn(vdlpStart);
    const QRegion end = Link->GetClipRgn(vdlpEnd);
    EXPECT_TRUE(start.contains(Link->Points()[0]));
    EXPECT_FALSE(start.contains(Link->Points()[4]));
    EXPECT_TRUE(end.contains(Link->Points()[4]));
    EXPECT_FALSE(end.contains(Link->Points()[0]));
}

TEST_F(VdLinksTest, DraggingAUserPointMovesItOnRelease)
{
    const int y = Link->Points()[1].y();
    Link->InsertPoint(2, QPoint(150, y + 40));
    Area->SetSelected(Link);
    const QPoint from = Window(QPoint(150, y + 40));
    QMouseEvent press(QEvent::MouseButtonPress, from, Area->viewport()->mapToGlobal(from),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    Link->MouseDown(&press, htTPoint);
    EXPECT_EQ(Link->DragPoint(), 2);
    const QPoint to = Window(QPoint(170, y + 80));
    QMouseEvent move(QEvent::MouseMove, to, Area->viewport()->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    Link->MouseMove(&move, htTPoint);
    QPoint a, at, b;
    ASSERT_TRUE(Link->RubberBand(a, at, b));
    EXPECT_EQ(at, QPoint(170, y + 80));
    // Not moved until the button is released.
    EXPECT_EQ(Link->Points()[2], QPoint(150, y + 40));
    QMouseEvent release(QEvent::MouseButtonRelease, to, Area->viewport()->mapToGlobal(to),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    Link->MouseUp(&release, htTPoint);
    EXPECT_EQ(Link->Points()[2], QPoint(170, y + 80));
    EXPECT_EQ(Link->DragPoint(), -1);
    EXPECT_TRUE(Link->GetBounds().contains(QPoint(170, y + 80)));
}

TEST_F(VdLinksTest, EndMarkersTellTheJoinKinds)
{
    // A triangle is solid next to its apex; a circle leaves its middle at the end open.
    const auto pixelAt = [](TVdJoinKind kind, const QPoint& probe) {
        QImage image(120, 40, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        TVdLink::DrawLink(painter, {{10, 20}, {20, 20}, {90, 20}, {100, 20}}, kind, false,
                          Qt::black);
        painter.end();
        return qGray(image.pixel(probe));
    };
    // Near the end point but off the line: inside a circle, outside a triangle's tip.
    const QPoint nearStart(11, 18);
    const QPoint nearEnd(99, 18);
    EXPECT_LT(pixelAt(vdjInnerJoin, nearStart), 128);
    EXPECT_LT(pixelAt(vdjInnerJoin, nearEnd), 128);
    EXPECT_GT(pixelAt(vdjLOuterJoin, nearStart), 200);
    EXPECT_LT(pixelAt(vdjLOuterJoin, nearEnd), 128);
    EXPECT_LT(pixelAt(vdjROuterJoin, nearStart), 128);
    EXPECT_GT(pixelAt(vdjROuterJoin, nearEnd), 200);
    EXPECT_GT(pixelAt(vdjFOuterJoin, nearStart), 200);
    EXPECT_GT(pixelAt(vdjFOuterJoin, nearEnd), 200);
    // The triangles' bases are solid.
    EXPECT_LT(pixelAt(vdjFOuterJoin, QPoint(15, 21)), 128);
    EXPECT_LT(pixelAt(vdjFOuterJoin, QPoint(95, 21)), 128);
}

TEST_F(VdLinksTest, LinksPassBehindTables)
{
    // C sits on top of the line from A to B.
    TDataSet& data = Host.Table(QStringLiteral("C"));
    data.AddField(QStringLiteral("ID"), ftInteger);
    TVdTable* c = Area->AddPanel(QStringLiteral("C"), &data);
    Place(c, 130, 0);
    Area->ClearSelection();
    QImage image(600, 300, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Area->PaintRegion(painter, QRegion(image.rect()));
    painter.end();
    image.save(QStringLiteral(VD_SHOT_DIR "/links-behind.png"));
    const int y = Link->Points()[1].y();
    const QColor lineColour = Area->LinkColor();
    // Outside C the line shows; inside C's field list it does not.
    EXPECT_EQ(QColor(image.pixel(120, y)).rgb(), lineColour.rgb());
    const QRect client = c->GetClientRect();
    ASSERT_TRUE(client.contains(QPoint(180, y)) || client.top() > y);
    EXPECT_NE(QColor(image.pixel(180, y)).rgb(), lineColour.rgb());
}

TEST_F(VdLinksTest, RoutingWithAGoneTableNamesIt)
{
    Link->Join()->ForgetTable(B);
    try {
        Link->SetBoundaryRect();
        FAIL() << "no exception";
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "Invalid table  in Link control");
    }
}
