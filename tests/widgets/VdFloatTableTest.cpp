// Table objects of the diagram: geometry, hit tests, the buttons, the tick-all box, rows,
// keyboard, find-as-you-type, rename, menu, the shared row scroll bar and the picture.

#include "VdFakeHost.h"
#include "VdShot.h"
#include "VdSqlLines.h"
#include "tests/core/ModelCheck.h"

#include "builder/VdQtText.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdStyle.h"
#include "builder/VdTableList.h"
#include "core/VdError.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QTransform>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::Sql;
using vd::test::TFakeHost;
using vd::test::ViewportPixel;

namespace {

class VdFloatTableTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TDataSet& orders = Host.Table(QStringLiteral("ORDERS"));
        for (const char* name : {"ORDERNO", "CUSTNO", "SALEDATE", "SHIPDATE", "EMPNO", "SHIPVIA",
                                 "TERMS", "PAYMENT", "TOTAL", "FREIGHT"})
            orders.AddField(QString::fromLatin1(name),
                            QByteArray(name).endsWith("DATE") ? ftDate : ftInteger);
        TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
        customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
        customer.AddField(QStringLiteral("COMPANY"), ftString);
        customer.AddField(QStringLiteral("CITY"), ftString);
        Host.Attach(Vandor);
        Vandor.resize(900, 700);
        Vandor.show();
        Area = Vandor.WorkArea();
    }

    TVdTable* Add(const char* name)
    {
        const QString table = QString::fromLatin1(name);
        return Vandor.TableList()->AddTable(table, &Host.Table(table));
    }

    QPoint Window(const QPoint& content) const { return content - Area->ScrollOffset(); }

    static QMouseEvent Mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button,
                             Qt::MouseButtons buttons)
    {
        return QMouseEvent(type, QPointF(at), QPointF(at), button, buttons, Qt::NoModifier);
    }
    void Down(TVdTable* table, const QPoint& content)
    {
        QMouseEvent e =
            Mouse(QEvent::MouseButtonPress, Window(content), Qt::LeftButton, Qt::LeftButton);
        table->MouseDown(&e, table->HitTest(Window(content)));
    }
    void Up(TVdTable* table, const QPoint& content)
    {
        QMouseEvent e =
            Mouse(QEvent::MouseButtonRelease, Window(content), Qt::LeftButton, Qt::NoButton);
        table->MouseUp(&e, table->HitTest(Window(content)));
    }
    void Move(TVdTable* table, const QPoint& content, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent e = Mouse(QEvent::MouseMove, Window(content), Qt::NoButton, buttons);
        table->MouseMove(&e, table->HitTest(Window(content)));
    }
    // The middle of button index (0 collapse/expand, 1 unlink, 2 close).
    static QPoint ButtonCentre(const TVdTable* table, int index)
    {
        const QRect r = table->GetButtonRect();
        return QPoint(r.left() + 13 * index + 7, r.center().y());
    }
    static QPoint CheckOf(const TVdTable* table, int row)
    {
        const QRect r = table->GetItemRect(table->Items(row));
        return QPoint(r.left() + 5, r.center().y());
    }
    static QPoint TextOf(const TVdTable* table, int row)
    {
        const QRect r = table->GetItemRect(table->Items(row));
        return QPoint(r.left() + table->ItemHeight() + 10, r.center().y());
    }
    int Key(TVdTable* table, int key, Qt::KeyboardModifiers shift = Qt::NoModifier)
    {
        table->KeyDown(key, shift);
        return key;
    }
    ::testing::AssertionResult ModelOk() const { return vdcheck::CheckModel(*Vandor.Parser()); }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;
};

} // namespace

TEST_F(VdFloatTableTest, TenFieldsShowSixRowsAndTheHeightFollows)
{
    TVdTable* orders = Add("ORDERS");
    ASSERT_NE(orders, nullptr);
    EXPECT_EQ(orders->VisibleItems(), 6);
    EXPECT_EQ(orders->Height(), (orders->ItemHeight() + 1) * 6 + orders->CaptionHeight() + 6);
    TVdTable* customer = Add("CUSTOMER");
    EXPECT_EQ(customer->VisibleItems(), 3);
    EXPECT_EQ(customer->Height(), (customer->ItemHeight() + 1) * 3 + customer->CaptionHeight() + 6);
}

TEST_F(VdFloatTableTest, ATwelvePixelFontGivesCaption20AndRows16)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    Area->setFont(font);
    TVdTable* orders = Add("ORDERS");
    EXPECT_EQ(orders->CaptionHeight(), 20);
    EXPECT_EQ(orders->ItemHeight(), 16);
}

TEST_F(VdFloatTableTest, ALargeFontGivesTallerCaptionAndRows)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(24);
    Area->setFont(font);
    TVdTable* orders = Add("ORDERS");
    EXPECT_EQ(orders->CaptionHeight(), 28);
    EXPECT_GE(orders->ItemHeight(), 24);
}

TEST_F(VdFloatTableTest, WithoutAWorkAreaConstructionIsRefused)
{
    try {
        TVdTable table(nullptr, nullptr, QStringLiteral("T"));
        FAIL() << "constructed";
    } catch (const EVdError& e) {
        EXPECT_STREQ(e.what(), "Invalid parent for table object!");
    }
}

TEST_F(VdFloatTableTest, GeometryRectanglesFollowLeftTopWidthHeight)
{
    TVdTable* t = Add("ORDERS");
    t->SetLeft(100);
    t->SetTop(50);
    t->SetWidth(150);
    const int ch = t->CaptionHeight();
    EXPECT_EQ(t->GetBoundsRect(), QRect(100, 50, 150, t->Height()));
    EXPECT_EQ(t->GetCaptionRect(),
              QRect(QPoint(100 + ch + 2, 52), QPoint(100 + 150 - 43, 52 + ch - 5)));
    EXPECT_EQ(t->GetButtonRect(), QRect(QPoint(208, 52), QPoint(247, 50 + ch - 1)));
    EXPECT_EQ(t->GetClientRect(),
              QRect(QPoint(104, 50 + ch + 2), QPoint(245, 50 + t->Height() - 5)));
    EXPECT_EQ(t->GetItemRect(t->Items(0)), QRect(104, 50 + ch + 1, 142, t->ItemHeight()));
    EXPECT_EQ(t->GetItemRect(t->Items(2)),
              QRect(104, 50 + ch + 1 + 2 * (t->ItemHeight() + 1), 142, t->ItemHeight()));
    TVdListItem stranger(nullptr, QStringLiteral("X"), ftInteger, ptOutput);
    EXPECT_TRUE(t->GetItemRect(&stranger).isEmpty());
    t->SetExpand(false);
    EXPECT_EQ(t->GetBoundsRect(), QRect(100, 50, 150, ch));
}

TEST_F(VdFloatTableTest, FullItemRectAttachesHiddenRowsToCaptionAndBottom)
{
    TVdTable* t = Add("ORDERS");
    t->SetFirstVisibleItem(2);
    const QRect bounds = t->GetBoundsRect();
    EXPECT_EQ(t->GetFullItemRect(t->Items(0)),
              QRect(bounds.left(), bounds.top(), bounds.width(), t->CaptionHeight()));
    EXPECT_EQ(t->GetFullItemRect(t->Items(9)),
              QRect(bounds.left(), bounds.bottom() - 4, bounds.width(), 4));
    EXPECT_EQ(t->GetFullItemRect(t->Items(7)).bottom(), bounds.bottom() - 4);
    EXPECT_EQ(t->GetFullItemRect(t->Items(3)), t->GetItemRect(t->Items(3)));
}

TEST_F(VdFloatTableTest, HitTestFindsEveryPartOfTheBox)
{
    TVdTable* t = Add("ORDERS");
    t->SetLeft(100);
    t->SetTop(100);
    const QRect b = t->GetBoundsRect();
    const int l = b.left(), r = b.right(), tp = b.top(), bt = b.bottom();
    auto hit = [&](int x, int y) { return t->HitTest(Window(QPoint(x, y))); };
    EXPECT_EQ(hit(l - 1, tp + 30), htTOutSide);
    EXPECT_EQ(hit(r + 1, tp + 30), htTOutSide);
    EXPECT_EQ(hit(l, tp + 30), htTLeft);
    EXPECT_EQ(hit(l + 3, tp + 30), htTLeft);
    EXPECT_EQ(hit(r, tp + 30), htTRight);
    EXPECT_EQ(hit(r - 2, tp + 30), htTRight);
    EXPECT_EQ(hit(l + 50, tp), htTTop);
    EXPECT_EQ(hit(l + 50, bt), htTBottom);
    EXPECT_EQ(hit(l, tp), htTLeftTop);
    EXPECT_EQ(hit(l, bt), htTLeftBottom);
    EXPECT_EQ(hit(r, tp), htTRightTop);
    EXPECT_EQ(hit(r, bt), htTRightBottom);
    EXPECT_EQ(hit(l + 50, tp + t->CaptionHeight()), htTClient);
    EXPECT_EQ(hit(ButtonCentre(t, 1).x(), tp + 8), htTbutton);
    EXPECT_EQ(hit(l + 8, tp + 8), htTCheck);
    EXPECT_EQ(hit(l + 15, tp + 13), htTCheck);
    EXPECT_EQ(hit(l + 16, tp + 8), htTCaption);
    EXPECT_EQ(hit(l + 40, tp + 8), htTCaption);
}

TEST_F(VdFloatTableTest, ACollapsedTableNeverReportsABorder)
{
    TVdTable* t = Add("ORDERS");
    t->SetLeft(100);
    t->SetTop(100);
    t->SetExpand(false);
    const QRect b = t->GetBoundsRect();
    EXPECT_EQ(b.height(), t->CaptionHeight());
    for (int y = b.top(); y <= b.bottom(); ++y)
        for (int x = b.left(); x <= b.right(); ++x) {
            const TTableHitTest hit = t->HitTest(Window(QPoint(x, y)));
            ASSERT_TRUE(hit == htTCaption || hit == htTbutton || hit == htTCheck)
                << x << "," << y << " gave " << int(hit);
        }
    EXPECT_EQ(t->HitTest(Window(QPoint(b.left(), b.top()))), htTCaption);
    EXPECT_EQ(t->HitTest(Window(QPoint(b.left() + 8, b.top() + 8))), htTCheck);
    EXPECT_EQ(t->HitTest(Window(ButtonCentre(t, 2))), htTbutton);
}

TEST_F(VdFloatTableTest, ButtonUnderTheMouseByItsThirds)
{
    TVdTable* t = Add("ORDERS");
    const QRect r = t->GetButtonRect();
    EXPECT_EQ(t->GetButtonAt(Window(QPoint(r.left(), r.top()))), 0);
    EXPECT_EQ(t->GetButtonAt(Window(QPoint(r.left() + 12, r.top()))), 0);
    EXPECT_EQ(t->GetButtonAt(Window(QPoint(r.left() + 13, r.top()))), 1);
    EXPECT_EQ(t->GetButtonAt(Window(QPoint(r.left() + 26, r.top()))), 1);
    EXPECT_EQ(t->GetButtonAt(Window(QPoint(r.left() + 27, r.top()))), 2);
    EXPECT_EQ(t->GetButtonAt(Window(QPoint(r.right(), r.top()))), 2);
}

TEST_F(VdFloatTableTest, CheckBoxOfSomeChecksAllThenClearsAll)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO\r\nFROM ORDERS O"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->FieldState(), 1);
    const QPoint box = Window(QPoint(t->Left() + 8, t->Top() + 8));
    QTest::mouseClick(Area->viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(t->FieldState(), 2);
    for (int i = 0; i < t->Count(); ++i)
        EXPECT_TRUE(t->Items(i)->Checked()) << i;
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(),
              Sql({R"(SELECT )", R"(  "O"."ORDERNO",)", R"(  "O"."CUSTNO",)",
                   R"(  "O"."SALEDATE",)", R"(  "O"."SHIPDATE",)", R"(  "O"."EMPNO",)",
                   R"(  "O"."SHIPVIA",)", R"(  "O"."TERMS",)", R"(  "O"."PAYMENT",)",
                   R"(  "O"."TOTAL",)", R"(  "O"."FREIGHT")", "FROM", R"(  "ORDERS" O)"}));
    QTest::mouseClick(Area->viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(t->FieldState(), 0);
    for (int i = 0; i < t->Count(); ++i)
        EXPECT_FALSE(t->Items(i)->Checked()) << i;
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(), Sql({"SELECT *", "FROM", R"(  "ORDERS" O)"}));
}

TEST_F(VdFloatTableTest, ReleasingOverAnotherButtonDoesNothing)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO, C.COMPANY\r\nFROM ORDERS O\r\n"
                                 "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    ASSERT_NE(t, nullptr);
    const QString before = Vandor.GetSQL();
    for (auto [pressed, released] : {std::pair{0, 1}, std::pair{1, 2}, std::pair{2, 0}}) {
        Down(t, ButtonCentre(t, pressed));
        EXPECT_EQ(t->PressedButton(), pressed);
        Up(t, ButtonCentre(t, released));
        EXPECT_EQ(t->PressedButton(), -1);
        EXPECT_TRUE(t->Expanded());
        EXPECT_EQ(Area->LinksCount(), 1);
        EXPECT_EQ(Area->TablesCount(), 2);
    }
    EXPECT_TRUE(Host.TableQuestions.empty() ||
                std::count(Host.TableQuestions.begin(), Host.TableQuestions.end(), vdaRemove) == 0);
    EXPECT_EQ(Vandor.GetSQL(), before);
    EXPECT_TRUE(ModelOk());
}

TEST_F(VdFloatTableTest, ButtonsActOnReleaseOverTheSameButton)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO, C.COMPANY\r\nFROM ORDERS O\r\n"
                                 "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    ASSERT_NE(t, nullptr);
    Down(t, ButtonCentre(t, 0));
    EXPECT_TRUE(t->Expanded()); // nothing happens on the press
    Up(t, ButtonCentre(t, 0));
    EXPECT_FALSE(t->Expanded());
    Down(t, ButtonCentre(t, 0));
    Up(t, ButtonCentre(t, 0));
    EXPECT_TRUE(t->Expanded());

    Down(t, ButtonCentre(t, 1));
    Up(t, ButtonCentre(t, 1));
    EXPECT_EQ(Area->LinksCount(), 0);
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(), Sql({R"(SELECT )", R"(  "O"."ORDERNO",)", R"(  "C"."COMPANY")",
                                    "FROM", R"(  "ORDERS" O,)", R"(  "CUSTOMER" C)"}));

    Down(t, ButtonCentre(t, 2));
    Up(t, ButtonCentre(t, 2));
    EXPECT_EQ(Area->TablesCount(), 1);
    EXPECT_EQ(Area->GetTable(QStringLiteral("O")), nullptr);
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(),
              Sql({R"(SELECT )", R"(  "C"."COMPANY")", "FROM", R"(  "CUSTOMER" C)"}));
}

TEST_F(VdFloatTableTest, PressedButtonShowsPressedOnlyWhileTheMouseIsOverIt)
{
    TVdTable* t = Add("ORDERS");
    Area->SetSelected(t);
    Move(t, ButtonCentre(t, 1));
    EXPECT_EQ(t->HotButton(), 1);
    EXPECT_EQ(t->GetHint(), QStringLiteral("Unlink table"));
    Move(t, ButtonCentre(t, 0));
    EXPECT_EQ(t->HotButton(), 0);
    EXPECT_EQ(t->GetHint(), QStringLiteral("Collapse/Expand table"));
    Move(t, ButtonCentre(t, 2));
    EXPECT_EQ(t->GetHint(), QStringLiteral("Close table"));
    Down(t, ButtonCentre(t, 2));
    Move(t, ButtonCentre(t, 1), Qt::LeftButton);
    EXPECT_EQ(t->PressedButton(), 2);
    QMouseEvent leave = Mouse(QEvent::MouseMove, QPoint(), Qt::NoButton, Qt::NoButton);
    t->LeaveHit(&leave, htTbutton);
    EXPECT_EQ(t->HotButton(), -1);
}

TEST_F(VdFloatTableTest, HintsOfTheCaptionTheBoxAndTheRows)
{
    TVdTable* t = Add("ORDERS");
    Move(t, QPoint(t->Left() + 40, t->Top() + 8));
    EXPECT_EQ(t->GetHint(), QStringLiteral("Double click for edit alias"));
    Move(t, QPoint(t->Left() + 8, t->Top() + 8));
    EXPECT_EQ(t->GetHint(), QStringLiteral("Select all fields"));
    t->SetFieldState(2);
    Move(t, QPoint(t->Left() + 8, t->Top() + 8));
    EXPECT_EQ(t->GetHint(), QStringLiteral("Unselect all fields"));
    Move(t, TextOf(t, 2));
    EXPECT_EQ(t->GetHint(), QStringLiteral("SALEDATE (Date)"));
    Move(t, TextOf(t, 0));
    EXPECT_EQ(t->GetHint(), QStringLiteral("ORDERNO (Integer)"));
}

TEST_F(VdFloatTableTest, ClickingARowsCheckImageTicksItAndTheSqlFollows)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO\r\nFROM ORDERS O"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    ASSERT_NE(t, nullptr);
    // A press on the text makes the row current and ticks nothing.
    QTest::mouseClick(Area->viewport(), Qt::LeftButton, {}, Window(TextOf(t, 1)));
    EXPECT_EQ(t->CurrentItem(), t->Items(1));
    EXPECT_FALSE(t->Items(1)->Checked());
    // Press and release on the check image tick it.
    Down(t, CheckOf(t, 1));
    Up(t, CheckOf(t, 1));
    EXPECT_TRUE(t->Items(1)->Checked());
    EXPECT_EQ(t->FieldState(), 1);
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(), Sql({R"(SELECT )", R"(  "O"."ORDERNO",)", R"(  "O"."CUSTNO")",
                                    "FROM", R"(  "ORDERS" O)"}));
    Down(t, CheckOf(t, 0));
    Up(t, CheckOf(t, 0));
    EXPECT_FALSE(t->Items(0)->Checked());
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(), Sql({R"(SELECT )", R"(  "O"."CUSTNO")", "FROM", R"(  "ORDERS" O)"}));
}

TEST_F(VdFloatTableTest, ReleasingOnAnotherRowTicksNothing)
{
    TVdTable* t = Add("ORDERS");
    Down(t, CheckOf(t, 1));
    Up(t, CheckOf(t, 2));
    EXPECT_FALSE(t->Items(1)->Checked());
    EXPECT_FALSE(t->Items(2)->Checked());
}

TEST_F(VdFloatTableTest, DraggingFromARowsTextStartsAFieldDrag)
{
    TVdTable* t = Add("ORDERS");
    Down(t, TextOf(t, 1));
    Move(t, CheckOf(t, 1), Qt::LeftButton);
    EXPECT_EQ(Area->FieldDragTable(), nullptr);
    Move(t, TextOf(t, 1) + QPoint(5, 0), Qt::LeftButton);
    EXPECT_EQ(Area->FieldDragTable(), t);
}

TEST_F(VdFloatTableTest, TickingAllFieldsSetsTheStateAndUntickingOneMakesItSome)
{
    TVdTable* t = Add("CUSTOMER");
    EXPECT_EQ(t->FieldState(), 0);
    t->Items(0)->SetCheck(true);
    EXPECT_EQ(t->FieldState(), 1);
    t->Items(1)->SetCheck(true);
    t->Items(2)->SetCheck(true);
    EXPECT_EQ(t->FieldState(), 2);
    t->Items(2)->SetCheck(false);
    EXPECT_EQ(t->FieldState(), 1);
    EXPECT_TRUE(ModelOk());
}

TEST_F(VdFloatTableTest, DoubleClicksRenameOnTheCaptionAndTickOnARow)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO\r\nFROM ORDERS O"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    ASSERT_NE(t, nullptr);
    Down(t, TextOf(t, 2));
    QMouseEvent dbl =
        Mouse(QEvent::MouseButtonDblClick, Window(TextOf(t, 2)), Qt::LeftButton, Qt::LeftButton);
    t->DblClick(&dbl, htTClient);
    EXPECT_TRUE(t->Items(2)->Checked());
    EXPECT_EQ(Vandor.GetSQL(), Sql({R"(SELECT )", R"(  "O"."ORDERNO",)", R"(  "O"."SALEDATE")",
                                    "FROM", R"(  "ORDERS" O)"}));
    EXPECT_TRUE(ModelOk());
    t->DblClick(&dbl, htTCaption);
    QLineEdit* alias = Area->AliasEdit();
    EXPECT_TRUE(alias->isVisible());
    EXPECT_EQ(alias->text(), QStringLiteral("O"));
    EXPECT_EQ(alias->geometry(),
              t->GetCaptionRect().translated(-Area->ScrollOffset()).translated(0, 1));
    EXPECT_EQ(Area->Selected(), t);
}

TEST_F(VdFloatTableTest, CursorKeysMoveTheCurrentRowAndScrollIt)
{
    TVdTable* t = Add("ORDERS");
    Area->SetSelected(t);
    ASSERT_TRUE(t->ScrollBarShown());
    EXPECT_EQ(Key(t, Qt::Key_Down), int(Qt::Key_Down));
    EXPECT_EQ(t->CurrentItem(), t->Items(1)); // no current row: from the first shown, + 1
    Key(t, Qt::Key_Up);
    EXPECT_EQ(t->CurrentItem(), t->Items(0));
    Key(t, Qt::Key_Left);
    EXPECT_EQ(t->CurrentItem(), t->Items(0)); // clamped
    Key(t, Qt::Key_PageDown);
    EXPECT_EQ(t->CurrentItem(), t->Items(5));
    EXPECT_EQ(t->FirstVisibleItem(), 0);
    Key(t, Qt::Key_Right);
    EXPECT_EQ(t->CurrentItem(), t->Items(6));
    EXPECT_EQ(t->FirstVisibleItem(), 1);
    EXPECT_EQ(Area->RowScrollBar()->value(), 1);
    Key(t, Qt::Key_End);
    EXPECT_EQ(t->CurrentItem(), t->Items(9));
    EXPECT_EQ(t->FirstVisibleItem(), 4);
    Key(t, Qt::Key_PageUp);
    EXPECT_EQ(t->CurrentItem(), t->Items(4));
    EXPECT_EQ(t->FirstVisibleItem(), 4);
    Key(t, Qt::Key_Home);
    EXPECT_EQ(t->CurrentItem(), t->Items(0));
    EXPECT_EQ(t->FirstVisibleItem(), 0);
    EXPECT_EQ(Area->RowScrollBar()->value(), 0);
}

TEST_F(VdFloatTableTest, EnterAndSpaceTickTheCurrentRow)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.CITY\r\nFROM CUSTOMER C"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(t, nullptr);
    t->SetCurrentItem(t->Items(1));
    Key(t, Qt::Key_Space);
    EXPECT_TRUE(t->Items(1)->Checked());
    Key(t, Qt::Key_Return);
    EXPECT_FALSE(t->Items(1)->Checked());
    Key(t, Qt::Key_Enter);
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(), Sql({R"(SELECT )", R"(  "C"."CITY",)", R"(  "C"."COMPANY")", "FROM",
                                    R"(  "CUSTOMER" C)"}));
}

TEST_F(VdFloatTableTest, TheKeyEventSlotSeesEveryKeyFirst)
{
    TVdTable* t = Add("CUSTOMER");
    std::vector<int> seen;
    t->OnKeyDown = [&](TVdFloatObject* sender, int& key, Qt::KeyboardModifiers) {
        EXPECT_EQ(sender, t);
        seen.push_back(key);
    };
    Key(t, Qt::Key_Down);
    Key(t, Qt::Key_F5);
    EXPECT_EQ(seen, (std::vector<int>{Qt::Key_Down, Qt::Key_F5}));
}

TEST_F(VdFloatTableTest, MouseEventSlotsGetPositionsRelativeToTheBox)
{
    TVdTable* t = Add("CUSTOMER");
    t->SetLeft(200);
    t->SetTop(120);
    QPoint down, up;
    t->OnMouseDown = [&](TVdFloatObject*, Qt::MouseButton b, Qt::KeyboardModifiers, int x, int y) {
        EXPECT_EQ(b, Qt::LeftButton);
        down = QPoint(x, y);
    };
    t->OnMouseUp = [&](TVdFloatObject*, Qt::MouseButton, Qt::KeyboardModifiers, int x, int y) {
        up = QPoint(x, y);
    };
    Down(t, QPoint(230, 125));
    Up(t, QPoint(231, 126));
    EXPECT_EQ(down, QPoint(30, 5));
    EXPECT_EQ(up, QPoint(31, 6));
}

TEST_F(VdFloatTableTest, TypingALetterOpensTheFindEditBelowTheBoxAndFindsTheRow)
{
    TVdTable* t = Add("ORDERS");
    TVdTable* other = Add("CUSTOMER");
    Area->SetSelected(other);
    Key(t, Qt::Key_T);
    EXPECT_EQ(Area->Selected(), t);
    QLineEdit* edit = Area->FindEdit();
    EXPECT_TRUE(edit->isVisible());
    EXPECT_EQ(edit->text(), QStringLiteral("T"));
    const QRect bounds = t->GetBoundsRect().translated(-Area->ScrollOffset());
    EXPECT_EQ(edit->geometry().topLeft(), QPoint(bounds.left(), bounds.bottom() + 2));
    EXPECT_EQ(edit->height(), 15);
    EXPECT_EQ(t->CurrentItem(), t->FindItem(QStringLiteral("TERMS")));
    EXPECT_EQ(t->FirstVisibleItem(), 1);
    QTest::keyClicks(edit, QStringLiteral("o"));
    EXPECT_EQ(t->CurrentItem(), t->FindItem(QStringLiteral("TOTAL")));
    QTest::keyClicks(edit, QStringLiteral("x"));
    EXPECT_EQ(t->CurrentItem(), t->FindItem(QStringLiteral("TOTAL"))); // no match: unchanged
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_FALSE(edit->isVisible());
    EXPECT_EQ(Area->FindTable(), nullptr);
}

TEST_F(VdFloatTableTest, TheFindEditEndsOnEnterAndTheRowKeys)
{
    TVdTable* t = Add("ORDERS");
    for (int key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_PageDown}) {
        Key(t, Qt::Key_S);
        ASSERT_TRUE(Area->FindEdit()->isVisible());
        QTest::keyClick(Area->FindEdit(), Qt::Key(key));
        EXPECT_FALSE(Area->FindEdit()->isVisible()) << key;
    }
    EXPECT_EQ(t->CurrentItem(), t->FindItem(QStringLiteral("SALEDATE")));
}

TEST_F(VdFloatTableTest, ClosingATableWhileItsFindEditIsOpenLeavesNoDanglingSearch)
{
    TVdTable* t = Add("ORDERS");
    Key(t, Qt::Key_S);
    t->Close();
    EXPECT_EQ(Area->FindTable(), nullptr);
    EXPECT_FALSE(Area->FindEdit()->isVisible());
    QTest::keyClicks(Area->FindEdit(), QStringLiteral("A")); // must not reach the freed table
}

TEST_F(VdFloatTableTest, MenuOnTheCaptionDeletesOrRenames)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO, C.COMPANY\r\nFROM ORDERS O, CUSTOMER C"));
    TVdTable* t = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    ASSERT_NE(t, nullptr);
    QMenu menu;
    t->PopupMenu(&menu, 0, 0, htTClient);
    EXPECT_TRUE(menu.actions().isEmpty());
    t->PopupMenu(&menu, 0, 0, htTCaption);
    ASSERT_EQ(menu.actions().size(), 3);
    EXPECT_EQ(menu.actions().at(0)->text(), QStringLiteral("Delete table"));
    EXPECT_TRUE(menu.actions().at(1)->isSeparator());
    EXPECT_EQ(menu.actions().at(2)->text(), QStringLiteral("Rename table"));
    menu.actions().at(2)->trigger();
    EXPECT_TRUE(Area->AliasEdit()->isVisible());
    EXPECT_EQ(Area->AliasEdit()->text(), QStringLiteral("O"));
    menu.actions().at(0)->trigger();
    EXPECT_EQ(Area->GetTable(QStringLiteral("O")), nullptr);
    EXPECT_TRUE(ModelOk());
    EXPECT_EQ(Vandor.GetSQL(),
              Sql({R"(SELECT )", R"(  "C"."COMPANY")", "FROM", R"(  "CUSTOMER" C)"}));
}

TEST_F(VdFloatTableTest, TheRowScrollBarShowsOnlyForTheSelectedTableWithMoreRows)
{
    TVdTable* orders = Add("ORDERS");
    TVdTable* customer = Add("CUSTOMER");
    QScrollBar* bar = Area->RowScrollBar();
    Area->SetSelected(customer);
    EXPECT_FALSE(customer->UpdateScrollBar());
    EXPECT_FALSE(bar->isVisible());
    Area->SetSelected(orders);
    EXPECT_TRUE(bar->isVisible());
    const QRect client = orders->GetClientRect().translated(-Area->ScrollOffset());
    EXPECT_EQ(bar->geometry(), QRect(client.right() + 1 - 16, client.top(), 16, client.height()));
    EXPECT_EQ(bar->minimum(), 0);
    EXPECT_EQ(bar->maximum(), 4);
    EXPECT_EQ(bar->pageStep(), 5);
    bar->setValue(3);
    EXPECT_EQ(orders->FirstVisibleItem(), 3);
    Area->SetSelected(nullptr);
    EXPECT_FALSE(bar->isVisible());
    orders->SetHeight(1000);
    Area->SetSelected(orders);
    EXPECT_FALSE(bar->isVisible()); // every row fits now
}

TEST_F(VdFloatTableTest, SetHeightRecomputesTheRowsAndPullsTheFirstRowBack)
{
    TVdTable* t = Add("ORDERS");
    t->SetFirstVisibleItem(4);
    EXPECT_EQ(t->FirstVisibleItem(), 4);
    const int ih = t->ItemHeight(), ch = t->CaptionHeight();
    t->SetHeight(ch + 2 + 4 + 1 + 8 * (ih + 1));
    EXPECT_EQ(t->VisibleItems(), 8);
    EXPECT_EQ(t->FirstVisibleItem(), 2);
    t->SetHeight(ch + 2 + 4 + 1 + 8 * (ih + 1) - 1);
    EXPECT_EQ(t->VisibleItems(), 7);
    t->SetHeight(0);
    EXPECT_EQ(t->Height(), 2 * ih + ch + 4);
    EXPECT_EQ(t->VisibleItems(), (t->Height() - ch - 2 - 4 - 1) / (ih + 1));
}

TEST_F(VdFloatTableTest, MinimumWidthAndMovingTheNearEdges)
{
    TVdTable* t = Add("CUSTOMER");
    t->SetLeft(300);
    t->SetTop(200);
    t->SetWidth(10);
    EXPECT_EQ(t->Width(), t->CaptionHeight() + 40 + 20);
    const int right = t->Left() + t->Width();
    t->MoveLeft(250);
    EXPECT_EQ(t->Left(), 250);
    EXPECT_EQ(t->Left() + t->Width(), right);
    t->MoveLeft(right - 5);
    EXPECT_EQ(t->Width(), t->MinWidth());
    EXPECT_EQ(t->Left() + t->Width(), right);
    const int bottom = t->Top() + t->Height();
    t->MoveUpper(150);
    EXPECT_EQ(t->Top(), 150);
    EXPECT_EQ(t->Top() + t->Height(), bottom);
    EXPECT_EQ(t->VisibleItems(),
              (t->Height() - t->CaptionHeight() - 2 - 4 - 1) / (t->ItemHeight() + 1));
    t->MoveUpper(bottom);
    EXPECT_EQ(t->Height(), t->MinHeight());
    EXPECT_EQ(t->Top() + t->Height(), bottom);
}

TEST_F(VdFloatTableTest, MovingATableReroutesItsLinks)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO\r\nFROM ORDERS O\r\n"
                                 "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
    TVdTable* c = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(c, nullptr);
    ASSERT_EQ(Area->LinksCount(), 1);
    const QRect before = Area->Links(0)->GetBounds();
    c->MoveTable(c->Left() + 100, c->Top() + 200);
    EXPECT_NE(Area->Links(0)->GetBounds(), before);
    EXPECT_EQ(c->Top(), 220);
}

TEST_F(VdFloatTableTest, DataNamesByTypeGroup)
{
    auto name = [](TFieldType type) {
        return TVdListItem(nullptr, QStringLiteral("F"), type, ptOutput).GetDataName();
    };
    EXPECT_EQ(name(ftFloat), QStringLiteral("Float"));
    EXPECT_EQ(name(ftCurrency), QStringLiteral("Float"));
    for (TFieldType t : {ftSmallint, ftInteger, ftWord, ftAutoInc, ftLargeint})
        EXPECT_EQ(name(t), QStringLiteral("Integer"));
    for (TFieldType t : {ftString, ftMemo, ftFmtMemo, ftFixedChar, ftWideString})
        EXPECT_EQ(name(t), QStringLiteral("String"));
    EXPECT_EQ(name(ftBCD), QStringLiteral("BCD"));
    EXPECT_EQ(name(ftDate), QStringLiteral("Date"));
    EXPECT_EQ(name(ftTime), QStringLiteral("Time"));
    EXPECT_EQ(name(ftDateTime), QStringLiteral("DateTime"));
    EXPECT_EQ(name(ftTypedBinary), QStringLiteral("Typed binary"));
    EXPECT_EQ(name(ftDataSet), QStringLiteral("Data set"));
    EXPECT_EQ(name(ftOraBlob), QStringLiteral("Ora blob"));
    EXPECT_EQ(name(ftOraClob), QStringLiteral("Ora clob"));
    EXPECT_EQ(name(ftGuid), QStringLiteral("Guid"));
    EXPECT_EQ(name(ftBoolean), QStringLiteral("Boolean"));
    EXPECT_EQ(name(ftUnknown), QString());
    EXPECT_EQ(name(ftTimeStamp), QString());
    EXPECT_EQ(name(ftFMTBcd), QString());
}

TEST_F(VdFloatTableTest, SelectedRowIsDrawnBoldAndTheCurrentRowGrey)
{
    TVdTable* t = Add("CUSTOMER");
    Area->SetSelected(t);
    const QRect row = t->GetItemRect(t->Items(1));
    QImage plain(row.size() + QSize(0, 2), QImage::Format_ARGB32);
    auto draw = [&](bool selected, TVdItemState state) {
        plain.fill(Qt::white);
        t->Items(1)->SetSelect(selected);
        QPainter p(&plain);
        t->DrawItem(p, t->Items(1), QRect(QPoint(0, 0), row.size()), true, state);
        return plain.copy();
    };
    const QImage normal = draw(false, {});
    const QImage bold = draw(true, {});
    EXPECT_NE(normal, bold);
    const QImage current = draw(false, {isSelected});
    EXPECT_EQ(current.pixelColor(row.width() - 2, row.height() / 2), QColor(192, 192, 192));
    const QImage dropped = draw(false, {isDroped});
    EXPECT_EQ(dropped.pixelColor(row.width() - 2, row.height() / 2), QColor(0, 128, 128));
}

TEST_F(VdFloatTableTest, HideSelectionHidesTheCurrentRowOfAnUnselectedTable)
{
    TVdTable* t = Add("CUSTOMER");
    t->SetCurrentItem(t->Items(0));
    Area->SetSelected(nullptr);
    const QPoint probe = Window(
        QPoint(t->GetItemRect(t->Items(0)).right() - 3, t->GetItemRect(t->Items(0)).center().y()));
    const QColor grey(192, 192, 192);
    EXPECT_EQ(ViewportPixel(*Area, probe), grey) << probe.x() << "," << probe.y();
    Vandor.SetOptions(Vandor.GetOptions() | vdoHideSelection);
    EXPECT_NE(ViewportPixel(*Area, probe), grey);
    Area->SetSelected(t);
    EXPECT_EQ(ViewportPixel(*Area, probe), grey);
}

TEST_F(VdFloatTableTest, FieldTypesShowUnderTheOption)
{
    TVdTable* t = Add("CUSTOMER");
    t->SetWidth(260);
    const QImage without = Area->viewport()->grab().toImage();
    Vandor.SetOptions(Vandor.GetOptions() | vdoShowFieldTypes);
    const QImage with = Area->viewport()->grab().toImage();
    const QRect row = t->GetItemRect(t->Items(1)).translated(-Area->ScrollOffset());
    const QRect tail(row.left() + 110, row.top(), 100, row.height());
    const qreal ratio = with.devicePixelRatio();
    const QRect pixels = QTransform::fromScale(ratio, ratio).mapRect(tail);
    EXPECT_NE(without.copy(pixels), with.copy(pixels));
}

TEST_F(VdFloatTableTest, CaptionColourTellsTheSelectedTable)
{
    TVdTable* t = Add("CUSTOMER");
    const QPoint probe = Window(QPoint(t->GetCaptionRect().right() - 2, t->Top() + 3));
    Area->SetSelected(nullptr);
    const QColor inactive = ViewportPixel(*Area, probe);
    Area->SetSelected(t);
    const QColor active = ViewportPixel(*Area, probe);
    EXPECT_EQ(active, ColorToQColor(Vandor.GetPalette()->ActiveCaption()));
    EXPECT_EQ(inactive, ColorToQColor(Vandor.GetPalette()->InactiveCaption()));
}

TEST_F(VdFloatTableTest, ShotOfTablesAtTheirStates)
{
    Vandor.SetOptions(Vandor.GetOptions() | vdoShowFieldTypes);
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO, O.SALEDATE, C.COMPANY\r\nFROM ORDERS O\r\n"
                                 "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
    TVdTable* o = Vandor.TableList()->FindByAlias(QStringLiteral("O"));
    TVdTable* c = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_TRUE(o && c);
    Area->SetSelected(o);
    o->SetCurrentItem(o->Items(2));
    c->SetTop(200);
    Area->resize(520, 340);
    const QPixmap shot = vd::test::SaveShot(*Area, QStringLiteral("table_objects"));
    ASSERT_FALSE(shot.isNull());
}

TEST_F(VdFloatTableTest, ButtonsLookPressedNormalAndHotEachTheirOwnWay)
{
    TVdTable* t = Add("CUSTOMER");
    const QRect area(0, 0, 40, t->CaptionHeight() - 2);
    auto draw = [&](int state) {
        QImage image(area.size(), QImage::Format_ARGB32);
        image.fill(Qt::lightGray);
        QPainter p(&image);
        t->DrawButton(p, state, 1, area);
        p.end();
        return image;
    };
    const QImage pressed = draw(0), normal = draw(1), hot = draw(2);
    EXPECT_NE(pressed, normal);
    EXPECT_NE(hot, normal);
    EXPECT_NE(pressed, hot);
    // Button 1's square starts 13 pixels in; pressed, its top-left frame is black.
    const int y = (area.height() - 12 - 2) / 2;
    EXPECT_EQ(pressed.pixelColor(13, y + 5), QColor(Qt::black));
    EXPECT_EQ(hot.pixelColor(13, y + 5), QColor(Qt::white));
    // Other indexes draw nothing.
    QImage untouched(area.size(), QImage::Format_ARGB32);
    untouched.fill(Qt::lightGray);
    const QImage before = untouched;
    QPainter p(&untouched);
    t->DrawButton(p, 1, 3, area);
    p.end();
    EXPECT_EQ(untouched, before);
}

TEST_F(VdFloatTableTest, TheRowScrollBarFollowsTheDiagramWhenItScrolls)
{
    TVdTable* t = Add("ORDERS");
    t->MoveTable(300, 300);
    Area->SetSelected(t);
    QScrollBar* bar = Area->RowScrollBar();
    const QPoint before = bar->pos();
    Area->verticalScrollBar()->setValue(40);
    Area->horizontalScrollBar()->setValue(25);
    EXPECT_EQ(bar->pos(), before - QPoint(25, 40));
}

TEST_F(VdFloatTableTest, CollapsingTheSelectedTableHidesItsScrollBar)
{
    TVdTable* t = Add("ORDERS");
    Area->SetSelected(t);
    EXPECT_FALSE(Area->RowScrollBar()->isHidden());
    t->SetExpand(false);
    EXPECT_TRUE(Area->RowScrollBar()->isHidden());
    t->SetExpand(true);
    EXPECT_FALSE(Area->RowScrollBar()->isHidden());
}

TEST_F(VdFloatTableTest, ShotOfEdgeKindsAndButtonStates)
{
    TVdObjectStyle* style = Vandor.GetStyle()->ObjectStyle();
    style->SetFlat(false);
    style->SetFlatButtons(false);
    const qreal ratio = Area->viewport()->grab().devicePixelRatio();
    QImage sheet(QSize(4 * 170, 2 * 130) * ratio, QImage::Format_ARGB32);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(Area->palette().color(QPalette::Base));
    // Copies the box with a margin from the viewport's picture to a logical place on the sheet.
    auto place = [&](TVdTable* table, const QPoint& at) {
        const QRect box = table->GetBoundsRect().adjusted(-10, -10, 10, 10);
        QPainter p(&sheet);
        p.drawImage(QRectF(at, box.size()), Area->viewport()->grab().toImage(),
                    QTransform::fromScale(ratio, ratio).mapRect(QRectF(box)));
    };
    TVdTable* t = Add("CUSTOMER");
    t->SetWidth(150);
    const TVdBorderKind kinds[] = {vdkRaised, vdkSunken, vdkEtched, vdkBump};
    for (int i = 0; i < 4; ++i) {
        style->SetBorderKind(kinds[i]);
        const QImage before = Area->viewport()->grab().toImage();
        Area->SetSelected(i % 2 ? t : nullptr);
        place(t, QPoint(170 * i, 0));
        if (i > 0)
            EXPECT_NE(before, Area->viewport()->grab().toImage()) << i;
    }
    // Hot over the unlink button, then pressed on close.
    Area->SetSelected(t);
    Move(t, ButtonCentre(t, 1));
    place(t, QPoint(0, 130));
    Down(t, ButtonCentre(t, 2));
    place(t, QPoint(170, 130));
    Up(t, ButtonCentre(t, 1));
    t->SetExpand(false);
    place(t, QPoint(340, 130));
    ASSERT_TRUE(QDir().mkpath(QStringLiteral(VD_SHOT_DIR)));
    const QString suffix = ratio > 1 ? QStringLiteral("@2x") : QString();
    EXPECT_TRUE(
        sheet.save(QStringLiteral(VD_SHOT_DIR "/table_edges") + suffix + QStringLiteral(".png")));
}
