// Editing a statement through the diagram: every interaction writes the model, the model
// stays consistent, and the printed statement follows at once.

#include "VdFakeHost.h"

#include "builder/VdQtText.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "tests/core/ModelCheck.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;

namespace {

class VdDiagramEditTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Host.Table(QStringLiteral("ORDERS"),
                   {{"ORDERNO", ftInteger}, {"CUSTNO", ftInteger}, {"AMOUNT", ftCurrency}});
        Host.Table(QStringLiteral("CUSTOMER"), {{"CUSTNO", ftInteger}, {"NAME", ftString}});
        Host.Attach(Vandor);
        Vandor.resize(900, 700);
        // Laid out, so the diagram has its real size and moves do not auto-scroll.
        Vandor.show();
        Area = Vandor.WorkArea();
    }

    TVdTable* Table(const char* alias) const
    {
        return Vandor.TableList()->FindByAlias(QString::fromUtf8(alias));
    }

    // The statement as the core alone prints it.
    static QString CorePrint(const QString& text)
    {
        TVdSelectParser parser;
        parser.SetExpression(ToStdString(text));
        return ToQString(parser.GetExpression());
    }

    // The builder's statement, as bytes so that a difference reads.
    std::string Printed() { return ToStdString(Vandor.GetSQL()); }

    QPoint Window(const QPoint& content) const { return content - Area->ScrollOffset(); }

    void Click(const QPoint& content)
    {
        QWidget* view = Area->viewport();
        QMouseEvent move(QEvent::MouseMove, Window(content), view->mapToGlobal(Window(content)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &move);
        QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, Window(content));
    }

    static QPoint CheckOf(const TVdTable* table, const char* field)
    {
        const QRect r = table->GetItemRect(table->FindItem(QString::fromLatin1(field)));
        return QPoint(r.left() + 5, r.center().y());
    }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;
};

const char* const Joined = "SELECT\r\n"
                           "  O.ORDERNO,\r\n"
                           "  C.NAME\r\n"
                           "FROM\r\n"
                           "  ORDERS O\r\n"
                           "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)";

// Joined as the builder prints it: quoted names, each clause on its lines.
const char* const JoinedPrint =
    "SELECT \r\n"
    "  \"O\".\"ORDERNO\",\r\n"
    "  \"C\".\"NAME\"\r\n"
    "FROM\r\n"
    "  \"ORDERS\" O \r\n"
    "  INNER JOIN \"CUSTOMER\" C ON (\"O\".\"CUSTNO\" = \"C\".\"CUSTNO\")\r\n";

} // namespace

TEST_F(VdDiagramEditTest, LoadingDrawsTablesAndLinksAndPrintsWhatTheCorePrints)
{
    Vandor.SetSQL(QString::fromLatin1(Joined));
    EXPECT_EQ(Area->TablesCount(), 2);
    ASSERT_EQ(Area->LinksCount(), 1);
    EXPECT_EQ(Area->Links(0)->GetHint(), QStringLiteral("O.CUSTNO=C.CUSTNO"));
    EXPECT_EQ(Printed(), ToStdString(CorePrint(QString::fromLatin1(Joined))));
    EXPECT_EQ(Printed(), std::string(JoinedPrint));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, TickingARowPrintsItsField)
{
    Vandor.SetSQL(QString::fromLatin1(Joined));
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    Click(CheckOf(Table("O"), "AMOUNT"));
    EXPECT_TRUE(Table("O")->FindItem(QStringLiteral("AMOUNT"))->Checked());
    EXPECT_GE(changed.count(), 1);
    EXPECT_EQ(
        Printed(),
        std::string("SELECT \r\n"
                    "  \"O\".\"ORDERNO\",\r\n"
                    "  \"C\".\"NAME\",\r\n"
                    "  \"O\".\"AMOUNT\"\r\n"
                    "FROM\r\n"
                    "  \"ORDERS\" O \r\n"
                    "  INNER JOIN \"CUSTOMER\" C ON (\"O\".\"CUSTNO\" = \"C\".\"CUSTNO\")\r\n"));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    Click(CheckOf(Table("O"), "AMOUNT"));
    EXPECT_EQ(Printed(), std::string(JoinedPrint));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, LinkingTwoAddedTablesPrintsTheJoin)
{
    TVdTable* orders = Area->AddPanel(QStringLiteral("ORDERS"), &Host.Table("ORDERS"));
    TVdTable* customer = Area->AddPanel(QStringLiteral("CUSTOMER"), &Host.Table("CUSTOMER"));
    orders->FindItem(QStringLiteral("ORDERNO"))->SetCheck(true);
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    // The drag from ORDERS.CUSTNO onto CUSTOMER.CUSTNO.
    Area->SetSelected(orders);
    orders->SetCurrentItem(orders->FindItem(QStringLiteral("CUSTNO")));
    const QRect target = customer->FindItem(QStringLiteral("CUSTNO"))->GetBoundsRect();
    ASSERT_TRUE(Area->HandleDragOver(Area, Window(target.center()), false));
    Area->HandleDragEnd(true);
    EXPECT_GE(changed.count(), 1);
    EXPECT_EQ(Printed(), std::string("SELECT \r\n"
                                     "  \"ORDERS\".\"ORDERNO\"\r\n"
                                     "FROM\r\n"
                                     "  \"ORDERS\" \r\n"
                                     "  INNER JOIN \"CUSTOMER\" ON (\"ORDERS\".\"CUSTNO\" = "
                                     "\"CUSTOMER\".\"CUSTNO\")\r\n"));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, RenamingATablePrintsItsAlias)
{
    Vandor.SetSQL(QString::fromLatin1(Joined));
    Table("C")->HandleRenameTable();
    Area->AliasEdit()->setText(QStringLiteral("CU"));
    QTest::keyClick(Area->AliasEdit(), Qt::Key_Return);
    EXPECT_EQ(
        Printed(),
        std::string("SELECT \r\n"
                    "  \"O\".\"ORDERNO\",\r\n"
                    "  \"CU\".\"NAME\"\r\n"
                    "FROM\r\n"
                    "  \"ORDERS\" O \r\n"
                    "  INNER JOIN \"CUSTOMER\" CU ON (\"O\".\"CUSTNO\" = \"CU\".\"CUSTNO\")\r\n"));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, MovingATableLeavesTheStatementAlone)
{
    Vandor.SetSQL(QString::fromLatin1(Joined));
    TVdTable* c = Table("C");
    const QPoint caption = c->GetCaptionRect().center();
    const QPoint before(c->Left(), c->Top());
    QWidget* view = Area->viewport();
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, Window(caption));
    QMouseEvent move(QEvent::MouseMove, Window(caption + QPoint(30, 200)),
                     view->mapToGlobal(Window(caption + QPoint(30, 200))), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &move);
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, Window(caption + QPoint(30, 200)));
    EXPECT_EQ(QPoint(c->Left(), c->Top()), before + QPoint(30, 200));
    // The link followed the table.
    const TVdLink* link = Area->Links(0);
    EXPECT_EQ(link->Points().back().y(), c->GetFullItemRect(link->Row2()).top() +
                                             c->GetFullItemRect(link->Row2()).height() / 2);
    EXPECT_EQ(Printed(), std::string(JoinedPrint));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, ClosingATableDropsItAndItsJoinFromTheStatement)
{
    Vandor.SetSQL(QString::fromLatin1(Joined));
    TVdTable* c = Table("C");
    const QRect buttons = c->GetButtonRect();
    Click(QPoint(buttons.left() + 13 * 2 + 7, buttons.center().y()));
    QCoreApplication::processEvents();
    EXPECT_EQ(Area->TablesCount(), 1);
    EXPECT_EQ(Area->LinksCount(), 0);
    EXPECT_EQ(Printed(), std::string("SELECT \r\n"
                                     "  \"O\".\"ORDERNO\"\r\n"
                                     "FROM\r\n"
                                     "  \"ORDERS\" O\r\n"));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, DeletingTheLinkDropsTheJoinCondition)
{
    Vandor.SetSQL(QString::fromLatin1(Joined));
    Area->CMDeleteLink(Area->Links(0));
    EXPECT_EQ(Area->LinksCount(), 0);
    const QString printed = Vandor.GetSQL();
    EXPECT_FALSE(printed.contains(QStringLiteral("JOIN")));
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramEditTest, LoadingKeepsAColumnsOwnAliasBesideTheSameColumnUnaliased)
{
    // The second column is the user's N2, not a renewed NAME1: the load prints what the core
    // prints.
    const QString text = QStringLiteral("SELECT C.NAME, C.NAME AS N2 FROM CUSTOMER C");
    Vandor.SetSQL(text);
    EXPECT_EQ(Printed(), ToStdString(CorePrint(text)));
    EXPECT_EQ(Printed(), "SELECT \r\n  \"C\".\"NAME\",\r\n  \"C\".\"NAME\" AS N2\r\nFROM\r\n"
                         "  \"CUSTOMER\" C\r\n");
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}
