// Loading a statement through the builder with a host that answers the table-fields question:
// table objects, ticks, dropped fields, links, procedures, and the printed text.

#include "VdFakeHost.h"

#include "builder/VdColor.h"
#include "builder/VdProc.h"
#include "builder/VdQtText.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "panels/VdOrderPanel.h"
#include "panels/VdSelectGrid.h"
#include "panels/VdSelectPanel.h"

#include <QDir>
#include <QImage>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;

namespace {

// Three tables: orders joined to customer and to employee.
class VdVandorLoadTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Host.Table(QStringLiteral("ORDERS"), {{"ORDERNO", ftInteger},
                                              {"CUSTNO", ftInteger},
                                              {"EMPNO", ftInteger},
                                              {"AMOUNT", ftCurrency}});
        Host.Table(QStringLiteral("CUSTOMER"), {{"CUSTNO", ftInteger}, {"NAME", ftString}});
        Host.Table(QStringLiteral("EMPLOYEE"), {{"EMPNO", ftInteger}, {"LASTNAME", ftString}});
        Host.Attach(Vandor);
    }

    TVdTable* Table(const char* alias) const
    {
        return Vandor.TableList()->FindByAlias(QString::fromUtf8(alias));
    }

    static QString Print(const QString& text)
    {
        TVdSelectParser parser;
        parser.SetExpression(ToStdString(text));
        return ToQString(parser.GetExpression());
    }

    TFakeHost Host;
    TSQLVandor Vandor;
};

const char* const ThreeTables = "SELECT O.ORDERNO, C.NAME, E.LASTNAME\r\n"
                                "FROM ORDERS O\r\n"
                                "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)\r\n"
                                "  LEFT OUTER JOIN EMPLOYEE E ON (O.EMPNO = E.EMPNO)";

} // namespace

TEST_F(VdVandorLoadTest, EveryTableAnsweredGetsAnObjectWithItsAliasAndTicks)
{
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    EXPECT_EQ(Host.Asked, (std::vector<QString>{"ORDERS", "CUSTOMER", "EMPLOYEE"}));
    ASSERT_EQ(Vandor.TableList()->GetTablesCount(), 3);
    TVdTable* orders = Table("O");
    ASSERT_NE(orders, nullptr);
    EXPECT_EQ(orders->TableName(), QStringLiteral("ORDERS"));
    EXPECT_EQ(orders->Count(), 4);
    EXPECT_TRUE(orders->FindItem(QStringLiteral("ORDERNO"))->Checked());
    EXPECT_FALSE(orders->FindItem(QStringLiteral("AMOUNT"))->Checked());
    EXPECT_EQ(orders->FieldState(), 1);
    ASSERT_NE(Table("C"), nullptr);
    EXPECT_TRUE(Table("C")->FindItem(QStringLiteral("NAME"))->Checked());
    ASSERT_NE(Table("E"), nullptr);
    EXPECT_TRUE(Table("E")->FindItem(QStringLiteral("LASTNAME"))->Checked());
}

TEST_F(VdVandorLoadTest, CaptionWithTheAliasShowsWhole)
{
    // The alias comes after the object was sized for its name alone.
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    for (const char* alias : {"O", "C", "E"}) {
        SCOPED_TRACE(alias);
        const TVdTable* table = Table(alias);
        ASSERT_NE(table, nullptr);
        EXPECT_TRUE(table->GetCaption().endsWith(QStringLiteral(" (") + QString::fromUtf8(alias) +
                                                 QLatin1Char(')')));
        EXPECT_LE(table->CaptionRect(false).width(), table->GetCaptionRect().width());
    }
}

TEST_F(VdVandorLoadTest, JoinsBecomeLinksWithTheirKind)
{
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    TVdWorkArea* area = Vandor.WorkArea();
    ASSERT_EQ(area->LinksCount(), 2);
    ASSERT_EQ(area->JoinsCount(), 2);
    const TVdLink* toCustomer = area->FindLink(
        Table("O"), Table("C"), Table("O")->FindItem("CUSTNO"), Table("C")->FindItem("CUSTNO"));
    ASSERT_NE(toCustomer, nullptr);
    EXPECT_EQ(toCustomer->Join()->JoinKind, vdjInnerJoin);
    const TVdLink* toEmployee = area->FindLink(
        Table("O"), Table("E"), Table("O")->FindItem("EMPNO"), Table("E")->FindItem("EMPNO"));
    ASSERT_NE(toEmployee, nullptr);
    EXPECT_EQ(toEmployee->Join()->JoinKind, vdjLOuterJoin);
    EXPECT_EQ(toEmployee->GetHint(), QStringLiteral("O.EMPNO=E.EMPNO"));
    EXPECT_EQ(Host.LinkQuestions, (std::vector<TVdAction>{vdaAdd, vdaAdd}));
}

TEST_F(VdVandorLoadTest, PrintedTextIsWhatTheModelPrintsWhenEverythingExists)
{
    const QString text =
        QStringLiteral("SELECT O.ORDERNO, C.NAME AS CUSTOMER_NAME, SUM(O.AMOUNT) AS TOTAL\r\n"
                       "FROM ORDERS O\r\n"
                       "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)\r\n"
                       "WHERE O.AMOUNT > 10\r\n"
                       "GROUP BY O.ORDERNO, C.NAME\r\n"
                       "HAVING SUM(O.AMOUNT) > 100\r\n"
                       "ORDER BY 3 DESC");
    Vandor.SetSQL(text);
    EXPECT_EQ(Vandor.GetSQL(), Print(text));
    EXPECT_EQ(Vandor.property("SQL").toString(), Print(text));
}

TEST_F(VdVandorLoadTest, SetSqlWithThreeTablesHostAnsweringOnlyTheFirstMakesOneTableAndNoLinks)
{
    TFakeHost firstOnly;
    firstOnly.Table(QStringLiteral("ORDERS")).AddField(QStringLiteral("CUSTNO"), ftInteger);
    firstOnly.Table(QStringLiteral("ORDERS")).AddField(QStringLiteral("EMPNO"), ftInteger);
    firstOnly.Attach(Vandor);
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    // Loading stops at the first table without a data set: the third is not even asked.
    EXPECT_EQ(firstOnly.Asked, (std::vector<QString>{"ORDERS", "CUSTOMER"}));
    ASSERT_EQ(Vandor.TableList()->GetTablesCount(), 1);
    EXPECT_NE(Table("O"), nullptr);
    EXPECT_EQ(Vandor.WorkArea()->LinksCount(), 0);
    EXPECT_EQ(Vandor.WorkArea()->JoinsCount(), 0);
    EXPECT_TRUE(firstOnly.LinkQuestions.empty());
}

TEST_F(VdVandorLoadTest, NoHostMeansNoTablesAndNoError)
{
    TSQLVandor bare;
    QSignalSpy changed(&bare, &TCustomVandor::sqlChanged);
    EXPECT_NO_THROW(bare.SetSQL(QString::fromUtf8(ThreeTables)));
    EXPECT_EQ(bare.TableList()->GetTablesCount(), 0);
    EXPECT_EQ(bare.Parser()->TableDefs().Count(), 3);
    EXPECT_GE(changed.count(), 1);
}

TEST_F(VdVandorLoadTest, AnIdentifierFieldTheDataSetLacksIsRemovedFromTheModel)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME, C.GONE, C.CUSTNO, UPPER(C.NAME) AS U FROM "
                                 "CUSTOMER C"));
    const TVdTableDef* def = Vandor.Parser()->TableDefs().FindByAlias("C");
    ASSERT_NE(def, nullptr);
    ASSERT_EQ(def->FieldDefs().Count(), 3);
    EXPECT_EQ(def->FieldDefs().Items(0)->Name(), "NAME");
    EXPECT_EQ(def->FieldDefs().Items(1)->Name(), "CUSTNO");
    // Not an identifier: kept, whatever it names.
    EXPECT_NE(int(def->FieldDefs().Items(2)->Kind()), int(fkIdentifier));
    EXPECT_EQ(def->FieldDefs().Items(2)->Alias(), "U");
    EXPECT_EQ(Vandor.GetSQL().indexOf(QStringLiteral("GONE")), -1);
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("UPPER")), -1);
}

TEST_F(VdVandorLoadTest, TwoMissingFieldsInARowAreBothRemoved)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.X, C.Y, C.NAME FROM CUSTOMER C"));
    const TVdTableDef* def = Vandor.Parser()->TableDefs().FindByAlias("C");
    ASSERT_EQ(def->FieldDefs().Count(), 1);
    EXPECT_EQ(def->FieldDefs().Items(0)->Name(), "NAME");
}

TEST_F(VdVandorLoadTest, AJoinWhoseTableIsMissingIsSkipped)
{
    Host.Table(QStringLiteral("ORDERS")); // still answered
    TFakeHost noCustomer;
    TDataSet& orders = noCustomer.Table(QStringLiteral("ORDERS"));
    orders.AddField(QStringLiteral("CUSTNO"), ftInteger);
    orders.AddField(QStringLiteral("EMPNO"), ftInteger);
    TDataSet& employee = noCustomer.Table(QStringLiteral("EMPLOYEE"));
    employee.AddField(QStringLiteral("EMPNO"), ftInteger);
    noCustomer.Attach(Vandor);
    Vandor.SetSQL(QStringLiteral("SELECT O.CUSTNO FROM ORDERS O\r\n"
                                 "  LEFT OUTER JOIN EMPLOYEE E ON (O.EMPNO = E.EMPNO)\r\n"
                                 "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
    EXPECT_EQ(Vandor.TableList()->GetTablesCount(), 2);
    ASSERT_EQ(Vandor.WorkArea()->LinksCount(), 1);
    EXPECT_EQ(Vandor.WorkArea()->Links(0)->Join()->GetTable(1), Table("E"));
}

TEST_F(VdVandorLoadTest, LoadingReplacesEverything)
{
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    Vandor.SetSQL(QStringLiteral("SELECT NAME FROM CUSTOMER"));
    EXPECT_EQ(Vandor.TableList()->GetTablesCount(), 1);
    EXPECT_EQ(Vandor.WorkArea()->LinksCount(), 0);
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 1);
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->DataRowCount(), 1);
}

TEST_F(VdVandorLoadTest, SelectAndOrderPanelsAreRefreshedAfterLoading)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME, C.CUSTNO FROM CUSTOMER C ORDER BY C.NAME"));
    TVdSelectGrid* grid = Vandor.SelectPanel()->Grid();
    ASSERT_EQ(grid->DataRowCount(), 2);
    EXPECT_EQ(grid->CellText(0, 2), QStringLiteral("C.NAME"));
    EXPECT_EQ(grid->CellText(1, 2), QStringLiteral("C.CUSTNO"));
    EXPECT_EQ(Vandor.OrderPanel()->GetFields(), QStringList({"C.CUSTNO", "C.NAME"}));
}

TEST_F(VdVandorLoadTest, ParseErrorsReachTheHostOnlyThroughTheErrorEvent)
{
    std::string message;
    Vandor.SetOnParserError([&](TVdSelectParser*, const std::string& text, const std::string&, int,
                                int) { message = text; });
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    EXPECT_NO_THROW(Vandor.SetSQL(QStringLiteral("SELECT NAME FROM CUSTOMER WHERE ((")));
    EXPECT_FALSE(message.empty());
    EXPECT_GE(changed.count(), 1);
}

TEST_F(VdVandorLoadTest, AStoredProcedureGetsItsInputParametersOnly)
{
    Host.Table(QStringLiteral("GET_ORDERS"), {{"ORDERNO", ftInteger}});
    TParams& params = Host.Params(QStringLiteral("GET_ORDERS"));
    params.Add(TParam(QStringLiteral("CUST"), ptInput, ftInteger));
    params.Add(TParam(QStringLiteral("ORDERNO"), ptOutput, ftInteger));
    params.Add(TParam(QStringLiteral("MODE"), ptInputOutput, ftString));
    Vandor.SetSQL(QStringLiteral("SELECT P.ORDERNO FROM GET_ORDERS(:CUST, 'X') P"));
    ASSERT_EQ(Vandor.TableList()->GetTablesCount(), 1);
    auto* loaded = dynamic_cast<TVdStoredProc*>(Table("P"));
    ASSERT_NE(loaded, nullptr);
    ASSERT_EQ(loaded->Params().Count(), 2);
    EXPECT_EQ(loaded->Params().Items(0).Name(), QStringLiteral("CUST"));
    EXPECT_EQ(loaded->Params().Items(1).Name(), QStringLiteral("MODE"));
    EXPECT_TRUE(loaded->FindItem(QStringLiteral("ORDERNO"))->Checked());
    EXPECT_EQ(Vandor.GetSQL(),
              Print(QStringLiteral("SELECT P.ORDERNO FROM GET_ORDERS(:CUST, 'X') P")));
}

TEST_F(VdVandorLoadTest, ARefusedTableIsNotLoaded)
{
    Host.AcceptTables = false;
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    EXPECT_EQ(Vandor.TableList()->GetTablesCount(), 0);
    EXPECT_EQ(Host.TableQuestions.size(), 3u);
}

TEST_F(VdVandorLoadTest, ClearEmptiesModelDiagramAndViews)
{
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    Vandor.Clear();
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 0);
    EXPECT_EQ(Vandor.TableList()->GetTablesCount(), 0);
    EXPECT_EQ(Vandor.WorkArea()->LinksCount(), 0);
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->DataRowCount(), 0);
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(VdVandorLoadTest, LoadedBuilderRendersTablesAndPages)
{
    Vandor.resize(640, 480);
    Vandor.SetSQL(QString::fromUtf8(ThreeTables));
    const QImage shot = Vandor.grab().toImage();
    ASSERT_TRUE(QDir().mkpath(QStringLiteral(VD_SHOT_DIR)));
    ASSERT_TRUE(shot.save(QStringLiteral(VD_SHOT_DIR "/builder-loaded.png")));
    // The front table's caption is painted in the active caption colour at its place.
    const TVdTable* front = Vandor.WorkArea()->Tables(0);
    const QPoint caption(front->Left() + front->Width() / 2, front->Top() + 2);
    // The grab is in device pixels: twice the logical ones when the run is scaled.
    const QPoint pixel = (QPointF(caption) * shot.devicePixelRatio()).toPoint();
    EXPECT_EQ(shot.pixelColor(pixel), ColorToQColor(Vandor.GetPalette()->ActiveCaption()));
}
