// The demo's window over the sample database: loading statements, the SQL pane both ways,
// adding objects by double-click and drop, and running the built statement.

#include "VdDemoWindow.h"
#include "VdDemoBuilders.h"
#include "VdDemoFixture.h"
#include "VdObjectList.h"
#include "VdResultsPane.h"
#include "VdSqlPane.h"
#include "builder/VdCustomVandor.h"
#include "builder/VdPageControl.h"
#include "builder/VdQtText.h"
#include "builder/VdTableList.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "dialects/VdIBWindow.h"
#include "dialects/VdMyWindow.h"
#include "dialects/VdOptionsPanel.h"

#include <QAction>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTest>

#include <gtest/gtest.h>

using namespace vd;

namespace {

QString CorePrint(const QString& text)
{
    TVdSelectParser parser;
    parser.SetExpression(ToStdString(text));
    return ToQString(parser.GetExpression());
}

QString CrLf(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

QTreeWidgetItem* ObjectItem(TVdObjectList* list, const QString& name)
{
    const QList<QTreeWidgetItem*> found =
        list->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
}

class VdDemoWindowTest : public vd::test::VdDemoFixture
{
protected:
    void SetUp() override
    {
        VdDemoFixture::SetUp();
        Window = std::make_unique<TVdDemoWindow>(*Catalog, QString());
        Window->resize(1280, 800);
    }
    void TearDown() override
    {
        Window.reset();
        VdDemoFixture::TearDown();
    }
    TVdWorkArea* Area() const { return Window->Builder()->WorkArea(); }

    std::unique_ptr<TVdDemoWindow> Window;
};

} // namespace

TEST_F(VdDemoWindowTest, EveryStatementPrintsAsTheCoreAndRunsOnSQLite)
{
    const QDir dir(QStringLiteral(VD_SOURCE_DIR "/tests/app/statements"));
    const QStringList files = dir.entryList({QStringLiteral("*.sql")}, QDir::Files);
    ASSERT_GE(files.size(), 10);
    for (const QString& name : files) {
        QFile file(dir.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = CrLf(QString::fromUtf8(file.readAll()));
        QString error;
        ASSERT_TRUE(Window->LoadSql(text, &error))
            << name.toStdString() << ": " << error.toStdString();
        EXPECT_EQ(Window->Builder()->GetSQL(), CorePrint(text)) << name.toStdString();
        EXPECT_EQ(Window->Builder()->TableList()->GetTablesCount(),
                  Window->Builder()->Parser()->TableDefs().Count())
            << name.toStdString();
        EXPECT_TRUE(Window->RunQuery())
            << name.toStdString() << ": " << Window->ResultsPane()->Summary().toStdString();
        EXPECT_GT(Window->ResultsPane()->RowCount(), 0) << name.toStdString();
    }
}

TEST_F(VdDemoWindowTest, TheSqlPaneFollowsEveryEdit)
{
    ASSERT_TRUE(Window->LoadSql(QStringLiteral("SELECT C.COMPANY FROM CUSTOMERS C")));
    const QString shown = Window->SqlPane()->Editor()->toPlainText();
    EXPECT_EQ(CrLf(shown), Window->Builder()->GetSQL());
    TVdTable* customers = Window->Builder()->TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(customers, nullptr);
    // As a click on the row's box does: the row reports to the diagram, the diagram to the
    // builder.
    customers->FindItem(QStringLiteral("CITY"))->SetCheck(true);
    EXPECT_TRUE(
        Window->SqlPane()->Editor()->toPlainText().contains(QStringLiteral("\"C\".\"CITY\"")));
    EXPECT_EQ(CrLf(Window->SqlPane()->Editor()->toPlainText()), Window->Builder()->GetSQL());
}

TEST_F(VdDemoWindowTest, AnEditedTextIsAppliedWithCtrlReturn)
{
    Window->SqlPane()->Editor()->setPlainText(
        QStringLiteral("SELECT P.NAME, P.UNIT_PRICE\nFROM PRODUCTS P\nWHERE P.UNIT_PRICE > 50"));
    QTest::keyClick(Window->SqlPane()->Editor(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Window->Builder()->TableList()->GetTablesCount(), 1);
    EXPECT_EQ(Window->Builder()->GetSQL(),
              CorePrint(QStringLiteral("SELECT P.NAME, P.UNIT_PRICE\r\nFROM PRODUCTS P\r\n"
                                       "WHERE P.UNIT_PRICE > 50")));
    EXPECT_TRUE(Window->SqlPane()->ErrorText().isEmpty());
}

TEST_F(VdDemoWindowTest, AParseErrorIsShownAtItsPlaceAndTheBuilderKeepsItsStatement)
{
    ASSERT_TRUE(Window->LoadSql(QStringLiteral("SELECT C.COMPANY FROM CUSTOMERS C")));
    const QString before = Window->Builder()->GetSQL();
    const QString typed = QStringLiteral("SELECT C.COMPANY\nFROM CUSTOMERS C\nWHERE C.ID = = 1");
    Window->SqlPane()->Editor()->setPlainText(typed);
    EXPECT_FALSE(Window->ApplySqlText());
    EXPECT_EQ(Window->SqlPane()->ErrorText(),
              QStringLiteral("Invalid token '=' at position 14 of line 3."));
    const QTextCursor cursor = Window->SqlPane()->Editor()->textCursor();
    EXPECT_EQ(cursor.blockNumber(), 2);
    EXPECT_EQ(cursor.positionInBlock(), 13);
    EXPECT_EQ(Window->SqlPane()->Editor()->toPlainText(), typed);
    EXPECT_EQ(Window->Builder()->GetSQL(), before);
    EXPECT_EQ(Window->Builder()->TableList()->GetTablesCount(), 1);
}

TEST_F(VdDemoWindowTest, DoubleClickAddsTheObjectToTheDiagram)
{
    QTreeWidgetItem* item = ObjectItem(Window->ObjectList(), QStringLiteral("ORDER_TOTALS"));
    ASSERT_NE(item, nullptr);
    QSignalSpy changed(Window->Builder(), &TCustomVandor::sqlChanged);
    emit Window->ObjectList()->itemActivated(item, 0);
    ASSERT_EQ(Area()->TablesCount(), 1);
    EXPECT_EQ(Area()->Tables(0)->TableName(), QStringLiteral("ORDER_TOTALS"));
    EXPECT_EQ(Area()->Tables(0)->Count(), 6);
    EXPECT_GE(changed.count(), 1);
    EXPECT_TRUE(Window->Builder()->GetSQL().contains(QStringLiteral("\"ORDER_TOTALS\"")));
}

TEST_F(VdDemoWindowTest, ADropOnTheDiagramAddsTheObjectWhereItFell)
{
    const std::unique_ptr<QMimeData> owned(
        TVdObjectList::ObjectMimeData(QStringLiteral("PRODUCTS")));
    QMimeData* data = owned.get();
    EXPECT_EQ(TVdObjectList::ObjectOf(data), QStringLiteral("PRODUCTS"));
    // Qt delivers drag events only to visible widgets.
    Window->show();
    QWidget* viewport = Area()->viewport();
    ASSERT_TRUE(viewport->acceptDrops());
    const QPoint at(300, 120);
    // The enter makes the viewport the drag's target; moves and the drop go to the target.
    QDragEnterEvent enter(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragMoveEvent over(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &over);
    EXPECT_TRUE(over.isAccepted());
    QDropEvent drop(QPointF(at), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &drop);
    ASSERT_EQ(Area()->TablesCount(), 1);
    EXPECT_EQ(Area()->Tables(0)->Left(), 300 + Area()->ScrollOffset().x());
    EXPECT_EQ(Area()->Tables(0)->Top(), 120 + Area()->ScrollOffset().y());
}

TEST_F(VdDemoWindowTest, OtherDragsAreLeftToTheDiagram)
{
    Window->show();
    QMimeData text;
    text.setText(QStringLiteral("PRODUCTS"));
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Area()->viewport(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    EXPECT_EQ(Area()->TablesCount(), 0);
}

TEST_F(VdDemoWindowTest, UnknownObjectsAreNotAdded)
{
    EXPECT_FALSE(Window->AddObject(QStringLiteral("INVOICES")));
    EXPECT_EQ(Area()->TablesCount(), 0);
}

TEST_F(VdDemoWindowTest, TheEnginesRefusalIsShown)
{
    ASSERT_TRUE(Window->LoadSql(QStringLiteral("SELECT X.A FROM INVOICES X")));
    EXPECT_EQ(Area()->TablesCount(), 0);
    EXPECT_FALSE(Window->RunQuery());
    EXPECT_TRUE(Window->ResultsPane()->Summary().startsWith(
        QStringLiteral("The engine refused the statement: no such table: INVOICES")))
        << Window->ResultsPane()->Summary().toStdString();
    EXPECT_EQ(Window->ResultsPane()->RowCount(), 0);
}

TEST_F(VdDemoWindowTest, RowsAreCountedInTheSummary)
{
    ASSERT_TRUE(Window->LoadSql(QStringLiteral("SELECT G.NAME FROM CATEGORIES G")));
    ASSERT_TRUE(Window->RunQuery());
    EXPECT_EQ(Window->ResultsPane()->RowCount(), 8);
    EXPECT_TRUE(Window->ResultsPane()->Summary().startsWith(QStringLiteral("8 rows in ")));
}

TEST_F(VdDemoWindowTest, ArrangedTablesStandSideBySideInFromOrder)
{
    ASSERT_TRUE(Window->LoadSql(CrLf(QStringLiteral(
        "SELECT C.COMPANY, O.ID FROM CUSTOMERS C INNER JOIN ORDERS O ON (C.ID = O.CUSTOMER_ID)"))));
    TVdTable* customers = Area()->GetTable(QStringLiteral("C"));
    TVdTable* orders = Area()->GetTable(QStringLiteral("O"));
    ASSERT_TRUE(customers && orders);
    EXPECT_LT(customers->Left() + customers->Width(), orders->Left());
    EXPECT_EQ(customers->Top(), orders->Top());
    EXPECT_GE(customers->Width(), customers->CaptionRect(false).width() +
                                      customers->CaptionHeight() + TVdTable::ButtonsWidth);
}

TEST_F(VdDemoWindowTest, PageOptionShowsTheSheet)
{
    Window->ShowPage(3);
    EXPECT_EQ(Window->Builder()->PageControl()->currentIndex(), 3);
    Window->ShowPage(9);
    EXPECT_EQ(Window->Builder()->PageControl()->currentIndex(), 3);
}

TEST(VdDemoBuilders, TheDialectFollowsTheEngineUnlessAsked)
{
    EXPECT_EQ(DemoDialectFor(TVdSqlEngine::SQLite, QString()), QStringLiteral("generic"));
    EXPECT_EQ(DemoDialectFor(TVdSqlEngine::PostgreSQL, QString()), QStringLiteral("generic"));
    EXPECT_EQ(DemoDialectFor(TVdSqlEngine::MySQL, QString()), QStringLiteral("mysql"));
    EXPECT_EQ(DemoDialectFor(TVdSqlEngine::Firebird, QString()), QStringLiteral("firebird"));
    EXPECT_EQ(DemoDialectFor(TVdSqlEngine::SQLite, QStringLiteral("mysql")),
              QStringLiteral("mysql"));
}

TEST(VdDemoBuilders, EachDialectGetsItsBuilder)
{
    TVdDemoBuilder firebird =
        CreateDemoBuilder(QStringLiteral("firebird"), TVdSqlEngine::Firebird, nullptr);
    std::unique_ptr<TCustomVandor> fb(firebird.Builder);
    std::unique_ptr<TVdOptionsPanel> panel(firebird.OptionsPanel);
    auto* ib = dynamic_cast<TInterBaseVandor*>(fb.get());
    ASSERT_NE(ib, nullptr);
    EXPECT_EQ(ib->GetSQLServer(), qssFireBird);
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->Parser(), ib->IBParser());
    TVdDemoBuilder mysql = CreateDemoBuilder(QStringLiteral("mysql"), TVdSqlEngine::MySQL, nullptr);
    std::unique_ptr<TCustomVandor> my(mysql.Builder);
    EXPECT_NE(dynamic_cast<TMySQLVandor*>(my.get()), nullptr);
    EXPECT_EQ(mysql.OptionsPanel, nullptr);
    TVdDemoBuilder pg =
        CreateDemoBuilder(QStringLiteral("generic"), TVdSqlEngine::PostgreSQL, nullptr);
    std::unique_ptr<TCustomVandor> generic(pg.Builder);
    EXPECT_FALSE(generic->GetQuoteIdentifiers());
}

TEST_F(VdDemoWindowTest, ANewTableIsOfferedItsForeignKeyJoinsAndNothingJoinsByItself)
{
    ASSERT_TRUE(Window->AddObject(QStringLiteral("CUSTOMERS")));
    EXPECT_FALSE(Window->JoinAction()->isEnabled());
    ASSERT_TRUE(Window->AddObject(QStringLiteral("ORDERS")));
    EXPECT_EQ(Area()->LinksCount(), 0);
    ASSERT_TRUE(Window->JoinAction()->isEnabled());
    EXPECT_EQ(Window->JoinAction()->text(), QStringLiteral("Join ORDERS along foreign keys"));
    EXPECT_EQ(Window->JoinAlongForeignKeys(), 1);
    EXPECT_FALSE(Window->JoinAction()->isEnabled());
    // A third table, joined through the toolbar's action: a three-table query without a line
    // drawn by hand.
    ASSERT_TRUE(Window->AddObject(QStringLiteral("ORDER_LINES")));
    Window->JoinAction()->trigger();
    ASSERT_EQ(Area()->LinksCount(), 2);
    EXPECT_EQ(Area()->Links(0)->GetHint(), QStringLiteral("ORDERS.CUSTOMER_ID=CUSTOMERS.ID"));
    EXPECT_EQ(Area()->Links(1)->GetHint(), QStringLiteral("ORDER_LINES.ORDER_ID=ORDERS.ID"));
    EXPECT_EQ(Window->Builder()->GetSQL(),
              QStringLiteral("SELECT *\r\n"
                             "FROM\r\n"
                             "  \"ORDER_LINES\" \r\n"
                             "  INNER JOIN \"ORDERS\" ON (\"ORDER_LINES\".\"ORDER_ID\" = "
                             "\"ORDERS\".\"ID\") \r\n"
                             "  INNER JOIN \"CUSTOMERS\" ON (\"ORDERS\".\"CUSTOMER_ID\" = "
                             "\"CUSTOMERS\".\"ID\")\r\n"));
}
