// The builder's handlers of the views' events, called the way the views call them, plus the
// host questions and the table list.

#include "VdFakeHost.h"

#include "builder/VdPageControl.h"
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
#include "panels/VdWherePanel.h"

#include <QSignalSpy>
#include <QTreeWidget>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;

namespace {

class VdVandorHandlersTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
        customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
        customer.AddField(QStringLiteral("NAME"), ftString);
        customer.AddField(QStringLiteral("DB.NAME"), ftString);
        TDataSet& orders = Host.Table(QStringLiteral("ORDERS"));
        orders.AddField(QStringLiteral("CUSTNO"), ftInteger);
        orders.AddField(QStringLiteral("AMOUNT"), ftCurrency);
        Host.Attach(Vandor);
    }

    TVdTable* Add(const char* name)
    {
        const QString table = QString::fromUtf8(name);
        return Vandor.TableList()->AddTable(table, &Host.Table(table));
    }

    TVdTableDef* Def(const char* alias) const
    {
        return Vandor.Parser()->TableDefs().FindByAlias(alias);
    }

    TFakeHost Host;
    TSQLVandor Vandor;
};

} // namespace

TEST_F(VdVandorHandlersTest, AddingATableAddsItsDefinitionUnlessTheHostRefuses)
{
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    TVdTable* customer = Add("CUSTOMER");
    ASSERT_NE(customer, nullptr);
    ASSERT_NE(Def("CUSTOMER"), nullptr);
    EXPECT_EQ(Def("CUSTOMER")->Name(), "CUSTOMER");
    EXPECT_EQ(Def("CUSTOMER")->TableType(), qttTable);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(Host.TableQuestions, std::vector<TVdAction>{vdaAdd});
    Host.AcceptTables = false;
    EXPECT_EQ(Add("ORDERS"), nullptr);
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 1);
}

TEST_F(VdVandorHandlersTest, TheSameTableTwiceGetsANumberedAliasAndItsOwnDefinition)
{
    Add("CUSTOMER");
    TVdTable* second = Add("CUSTOMER");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->GetAlias(), QStringLiteral("CUSTOMER1"));
    ASSERT_NE(Def("CUSTOMER1"), nullptr);
    EXPECT_EQ(Def("CUSTOMER1")->Name(), "CUSTOMER");
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 2);
}

TEST_F(VdVandorHandlersTest, HandleAddTableFindsAnExistingDefinitionByAliasThenByName)
{
    TVdTableDef* def = Vandor.Parser()->TableDefs().Add();
    def->SetName("OLDNAME");
    def->SetAlias("CUSTOMER");
    Add("CUSTOMER");
    ASSERT_EQ(Vandor.Parser()->TableDefs().Count(), 1);
    EXPECT_EQ(def->Name(), "CUSTOMER");
}

TEST_F(VdVandorHandlersTest, HandleAddTableRecordsAProceduresInputParameters)
{
    TParams params;
    params.Add(TParam(QStringLiteral("CUST"), ptInput, ftInteger));
    params.Add(TParam(QStringLiteral("RESULT"), ptOutput, ftInteger));
    params.Add(TParam(QStringLiteral("MODE"), ptInputOutput, ftString));
    TVdTable* proc =
        Vandor.TableList()->AddProc(QStringLiteral("ORDERS"), &Host.Table("ORDERS"), &params);
    ASSERT_NE(dynamic_cast<TVdStoredProc*>(proc), nullptr);
    TVdTableDef* def = Def("ORDERS");
    ASSERT_NE(def, nullptr);
    EXPECT_EQ(def->TableType(), qttStoredProc);
    ASSERT_EQ(def->FieldDefs().Count(), 2);
    EXPECT_EQ(def->FieldDefs().Items(0)->Name(), "CUST");
    EXPECT_EQ(def->FieldDefs().Items(0)->ParamType(), ptInput);
    EXPECT_EQ(def->FieldDefs().Items(1)->Name(), "MODE");
    EXPECT_EQ(def->FieldDefs().Items(1)->ParamType(), ptInputOutput);
}

TEST_F(VdVandorHandlersTest, RemovingATableDeletesItsDefinitionButLeavesCriteria)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C, ORDERS O WHERE C.CUSTNO = 1"));
    ASSERT_EQ(Vandor.TableList()->GetTablesCount(), 2);
    Vandor.TableList()->DeleteTable(Vandor.TableList()->FindByAlias(QStringLiteral("C")));
    EXPECT_EQ(Host.TableQuestions.back(), vdaRemove);
    EXPECT_EQ(Vandor.TableList()->GetTablesCount(), 1);
    EXPECT_EQ(Def("C"), nullptr);
    EXPECT_NE(Def("O"), nullptr);
    EXPECT_EQ(Vandor.Parser()->WhereItems().Count(), 1);
}

TEST_F(VdVandorHandlersTest, ARefusedRemovalKeepsTableAndDefinition)
{
    TVdTable* customer = Add("CUSTOMER");
    Host.AcceptTables = false;
    customer->Close();
    EXPECT_EQ(Vandor.TableList()->GetTablesCount(), 1);
    EXPECT_FALSE(customer->Closing());
    EXPECT_NE(Def("CUSTOMER"), nullptr);
}

TEST_F(VdVandorHandlersTest, RemovingATableRemovesItsLinksAndTheirJoins)
{
    Vandor.SetSQL(QStringLiteral(
        "SELECT C.NAME FROM CUSTOMER C INNER JOIN ORDERS O ON (C.CUSTNO = O.CUSTNO)"));
    ASSERT_EQ(Vandor.WorkArea()->LinksCount(), 1);
    Vandor.TableList()->DeleteTable(Vandor.TableList()->FindByAlias(QStringLiteral("O")));
    EXPECT_EQ(Vandor.WorkArea()->LinksCount(), 0);
    EXPECT_EQ(Vandor.WorkArea()->JoinsCount(), 0);
    EXPECT_EQ(Def("C")->JoinDefs().Count(), 0);
    EXPECT_EQ(Host.LinkQuestions, std::vector<TVdAction>{vdaAdd});
}

TEST_F(VdVandorHandlersTest, TickingAFieldAddsItsDefinitionUntickingDeletesIt)
{
    TVdTable* customer = Add("CUSTOMER");
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    customer->FindItem(QStringLiteral("NAME"))->SetCheck(true);
    ASSERT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 1);
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Items(0)->Name(), "NAME");
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Items(0)->Kind(), fkIdentifier);
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("NAME")), -1);
    EXPECT_EQ(changed.count(), 1);
    customer->FindItem(QStringLiteral("NAME"))->SetCheck(false);
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 0);
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(VdVandorHandlersTest, HandleCheckFieldAddsNothingForATableUnknownToTheModel)
{
    TVdTable* customer = Add("CUSTOMER");
    Vandor.Parser()->TableDefs().Clear();
    customer->FindItem(QStringLiteral("NAME"))->SetCheck(true);
    EXPECT_EQ(Vandor.Parser()->TableDefs().Count(), 0);
}

TEST_F(VdVandorHandlersTest, TickingTwiceAddsOneDefinition)
{
    TVdTable* customer = Add("CUSTOMER");
    TVdListItem* name = customer->FindItem(QStringLiteral("NAME"));
    name->SetCheck(true);
    Vandor.HandleCheckField(customer, name);
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 1);
}

TEST_F(VdVandorHandlersTest, HandleChangeAliasRenamesDefinitionCriteriaAndGrid)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    TVdTable* customer = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(customer, nullptr);
    customer->SetAlias(QStringLiteral("K"));
    Vandor.HandleChangeAlias(customer, QStringLiteral("C"));
    EXPECT_EQ(Def("C"), nullptr);
    ASSERT_NE(Def("K"), nullptr);
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->CellText(0, 2), QStringLiteral("K.NAME"));
    const QString sql = Vandor.GetSQL();
    EXPECT_NE(sql.indexOf(QStringLiteral("(\"K\".\"CUSTNO\" = 1)")), -1) << sql.toStdString();
    EXPECT_EQ(sql.indexOf(QStringLiteral("\"C\".")), -1) << sql.toStdString();
}

TEST_F(VdVandorHandlersTest, HandleChangeAliasFromTheNameLooksTheDefinitionUpByName)
{
    TVdTable* customer = Add("CUSTOMER");
    customer->SetAlias(QStringLiteral("CU"));
    Vandor.HandleChangeAlias(customer, QStringLiteral("CUSTOMER"));
    ASSERT_NE(Def("CU"), nullptr);
    EXPECT_EQ(Def("CU")->Name(), "CUSTOMER");
}

// The grid's events address "table.field"; file-based tables keep their extension.
TEST_F(VdVandorHandlersTest, SelectingLowerCaseDbExtensionAddressesTheTableWithIt)
{
    TDataSet& file = Host.Table(QStringLiteral("customer.db"));
    file.AddField(QStringLiteral("NAME"), ftString);
    TVdTable* table = Add("customer.db");
    Vandor.HandleSelectField(QStringLiteral("customer.db.NAME"), QString(), QStringLiteral("NAME"));
    EXPECT_TRUE(table->FindItem(QStringLiteral("NAME"))->Checked());
    TVdTableDef* def = Def("customer.db");
    ASSERT_NE(def, nullptr);
    ASSERT_EQ(def->FieldDefs().Count(), 1);
    EXPECT_EQ(def->FieldDefs().Items(0)->Name(), "NAME");
}

TEST_F(VdVandorHandlersTest, SelectingUpperCaseDbIsAFieldNameWithADot)
{
    TVdTable* customer = Add("CUSTOMER");
    Vandor.HandleSelectField(QStringLiteral("CUSTOMER.DB.NAME"), QString(),
                             QStringLiteral("DB_NAME"));
    EXPECT_TRUE(customer->FindItem(QStringLiteral("DB.NAME"))->Checked());
    EXPECT_FALSE(customer->FindItem(QStringLiteral("NAME"))->Checked());
    ASSERT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 1);
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Items(0)->Name(), "DB.NAME");
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Items(0)->Alias(), "DB_NAME");
}

TEST_F(VdVandorHandlersTest, SelectingDbfExtensionWinsOverDb)
{
    TDataSet& file = Host.Table(QStringLiteral("orders.dbf"));
    file.AddField(QStringLiteral("db.X"), ftString);
    Add("orders.dbf");
    Vandor.HandleSelectField(QStringLiteral("orders.dbf.db.X"), QString(), QStringLiteral("X"));
    TVdTableDef* def = Def("orders.dbf");
    ASSERT_NE(def, nullptr);
    ASSERT_EQ(def->FieldDefs().Count(), 1);
    EXPECT_EQ(def->FieldDefs().Items(0)->Name(), "db.X");
}

TEST_F(VdVandorHandlersTest, SelectingAnUnknownTableOrFieldChangesNothing)
{
    Add("CUSTOMER");
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    Vandor.HandleSelectField(QStringLiteral("NOWHERE.NAME"), QString(), QStringLiteral("NAME"));
    Vandor.HandleSelectField(QStringLiteral("CUSTOMER.NOTHING"), QString(), QStringLiteral("N"));
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 0);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(VdVandorHandlersTest, SelectingWithAnAggregateWrapsTheFieldAndLeavesNoTick)
{
    TVdTable* orders = Add("ORDERS");
    Vandor.HandleSelectField(QStringLiteral("ORDERS.AMOUNT"), QStringLiteral("SUM"),
                             QStringLiteral("TOTAL"));
    EXPECT_FALSE(orders->FindItem(QStringLiteral("AMOUNT"))->Checked());
    const TVdFieldDef* field = Def("ORDERS")->FieldDefs().FindByAlias("TOTAL");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->Name(), "SUM");
    EXPECT_EQ(field->Kind(), fkFunction);
    ASSERT_EQ(field->ArgumentCount(), 1);
    EXPECT_EQ(field->Argument(0)->Name(), "AMOUNT");
    EXPECT_EQ(field->Argument(0)->Kind(), fkIdentifier);
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->CellText(0, 0), QStringLiteral("TOTAL"));
}

TEST_F(VdVandorHandlersTest, SelectingAddsTheTableDefinitionWhenItIsMissing)
{
    TVdTable* customer = Add("CUSTOMER");
    customer->SetAlias(QStringLiteral("C"));
    Vandor.Parser()->TableDefs().Clear();
    Vandor.HandleSelectField(QStringLiteral("C.NAME"), QString(), QStringLiteral("NAME"));
    ASSERT_NE(Def("C"), nullptr);
    EXPECT_EQ(Def("C")->Name(), "CUSTOMER");
}

TEST_F(VdVandorHandlersTest, ClearingTheAggregateCellTurnsTheRowBackIntoThePlainField)
{
    Add("ORDERS");
    Vandor.HandleSelectField(QStringLiteral("ORDERS.AMOUNT"), QStringLiteral("SUM"),
                             QStringLiteral("TOTAL"));
    const TVdFieldDef* field = Def("ORDERS")->FieldDefs().FindByAlias("TOTAL");
    ASSERT_NE(field, nullptr);
    // The unselect event with the old cells changes nothing.
    Vandor.HandleUnselectField(QStringLiteral("ORDERS.AMOUNT"), QStringLiteral("SUM"),
                               QStringLiteral("TOTAL"));
    EXPECT_EQ(field->Name(), "SUM");
    EXPECT_EQ(field->Kind(), fkFunction);
    EXPECT_EQ(field->ArgumentCount(), 1);
    // The select event with the new cells makes the plain field.
    Vandor.HandleSelectField(QStringLiteral("ORDERS.AMOUNT"), QString(), QStringLiteral("TOTAL"));
    EXPECT_EQ(field->Name(), "AMOUNT");
    EXPECT_EQ(field->Kind(), fkIdentifier);
    EXPECT_EQ(field->ArgumentCount(), 0);
    EXPECT_EQ(Def("ORDERS")->FieldDefs().Count(), 1);
}

TEST_F(VdVandorHandlersTest, UnselectWithAnotherAggregateRenamesTheFunctionEvenToEmpty)
{
    Add("ORDERS");
    Vandor.HandleSelectField(QStringLiteral("ORDERS.AMOUNT"), QStringLiteral("SUM"),
                             QStringLiteral("TOTAL"));
    const TVdFieldDef* field = Def("ORDERS")->FieldDefs().FindByAlias("TOTAL");
    Vandor.HandleUnselectField(QStringLiteral("ORDERS.AMOUNT"), QStringLiteral("MAX"),
                               QStringLiteral("TOTAL"));
    EXPECT_EQ(field->Name(), "MAX");
    Vandor.HandleUnselectField(QStringLiteral("ORDERS.AMOUNT"), QString(), QStringLiteral("TOTAL"));
    EXPECT_EQ(field->Name(), "");
    EXPECT_EQ(field->Kind(), fkFunction);
    EXPECT_EQ(field->ArgumentCount(), 1);
}

TEST_F(VdVandorHandlersTest, UnselectWithAnAggregateWrapsAPlainField)
{
    TVdTable* orders = Add("ORDERS");
    orders->FindItem(QStringLiteral("AMOUNT"))->SetCheck(true);
    const TVdFieldDef* field = Def("ORDERS")->FieldDefs().FindByName("AMOUNT");
    ASSERT_NE(field, nullptr);
    const std::string alias = field->Alias();
    Vandor.HandleUnselectField(QStringLiteral("ORDERS.AMOUNT"), QStringLiteral("AVG"),
                               ToQString(alias));
    EXPECT_FALSE(orders->FindItem(QStringLiteral("AMOUNT"))->Checked());
    EXPECT_EQ(field->Name(), "AVG");
    EXPECT_EQ(field->Kind(), fkFunction);
    ASSERT_EQ(field->ArgumentCount(), 1);
    EXPECT_EQ(field->Argument(0)->Name(), "AMOUNT");
    // A plain field unselected without an aggregate stays as it is.
    orders->FindItem(QStringLiteral("CUSTNO"))->SetCheck(true);
    const TVdFieldDef* custno = Def("ORDERS")->FieldDefs().FindByName("CUSTNO");
    Vandor.HandleUnselectField(QStringLiteral("ORDERS.CUSTNO"), QString(),
                               ToQString(custno->Alias()));
    EXPECT_EQ(custno->Kind(), fkIdentifier);
    EXPECT_EQ(custno->Name(), "CUSTNO");
}

TEST_F(VdVandorHandlersTest, DeletingARowUnticksAndDeletesTheDefinitionByAlias)
{
    TVdTable* customer = Add("CUSTOMER");
    customer->FindItem(QStringLiteral("NAME"))->SetCheck(true);
    const std::string alias = Def("CUSTOMER")->FieldDefs().Items(0)->Alias();
    QSignalSpy changed(&Vandor, &TCustomVandor::sqlChanged);
    Vandor.HandleDeleteField(QStringLiteral("CUSTOMER.NAME"), QString(), ToQString(alias));
    EXPECT_FALSE(customer->FindItem(QStringLiteral("NAME"))->Checked());
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 0);
    EXPECT_EQ(changed.count(), 1);
    Vandor.HandleDeleteField(QStringLiteral("CUSTOMER.NAME"), QString(), ToQString(alias));
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(VdVandorHandlersTest, ChangingAFieldAliasRenamesTheDefinition)
{
    Add("CUSTOMER");
    Vandor.HandleSelectField(QStringLiteral("CUSTOMER.NAME"), QString(), QStringLiteral("NAME"));
    QString newAlias = QStringLiteral("CUSTOMER_NAME");
    Vandor.HandleChangeFieldAlias(QStringLiteral("CUSTOMER.NAME"), QStringLiteral("NAME"),
                                  newAlias);
    ASSERT_NE(Def("CUSTOMER")->FieldDefs().FindByAlias("CUSTOMER_NAME"), nullptr);
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("CUSTOMER_NAME")), -1);
}

TEST_F(VdVandorHandlersTest, TheGridsEventsReachTheHandlers)
{
    Add("CUSTOMER");
    TVdSelectGrid* grid = Vandor.SelectPanel()->Grid();
    ASSERT_TRUE(bool(grid->OnSelectField));
    grid->OnSelectField(QStringLiteral("CUSTOMER.NAME"), QString(), QStringLiteral("N"));
    ASSERT_NE(Def("CUSTOMER")->FieldDefs().FindByAlias("N"), nullptr);
    QString renamed = QStringLiteral("M");
    grid->OnChangeAlias(QStringLiteral("CUSTOMER.NAME"), QStringLiteral("N"), renamed);
    ASSERT_NE(Def("CUSTOMER")->FieldDefs().FindByAlias("M"), nullptr);
    grid->OnUnselectField(QStringLiteral("CUSTOMER.NAME"), QStringLiteral("COUNT"),
                          QStringLiteral("M"));
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().FindByAlias("M")->Name(), "COUNT");
    grid->OnDeleteField(QStringLiteral("CUSTOMER.NAME"), QString(), QStringLiteral("M"));
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 0);
}

TEST_F(VdVandorHandlersTest, AvailableFieldsListEveryFieldOfEveryOpenTable)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C, ORDERS O"));
    QStringList list{QStringLiteral("stale")};
    Vandor.GetAvailableFields(&list);
    EXPECT_EQ(list, QStringList({"O.CUSTNO", "O.AMOUNT", "C.CUSTNO", "C.NAME", "C.DB.NAME"}));
    Vandor.TableList()->FindByAlias(QStringLiteral("O"))->SetClosing(true);
    Vandor.GetAvailableFields(&list);
    EXPECT_EQ(list, QStringList({"C.CUSTNO", "C.NAME", "C.DB.NAME"}));
    Vandor.GetAvailableFields(nullptr); // nothing to fill: no crash
    QStringList asked;
    Vandor.OrderPanel()->OnGetFields(Vandor.OrderPanel(), asked);
    EXPECT_EQ(asked, list);
}

TEST_F(VdVandorHandlersTest, SelectGridFieldsIncludeClosingTables)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C, ORDERS O"));
    Vandor.TableList()->FindByAlias(QStringLiteral("O"))->SetClosing(true);
    Vandor.RefreshSelectGridFields();
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->Fields(),
              QStringList({"O.CUSTNO", "O.AMOUNT", "C.CUSTNO", "C.NAME", "C.DB.NAME"}));
}

TEST_F(VdVandorHandlersTest, HostQuestionsStartAccepted)
{
    TSQLVandor bare;
    EXPECT_TRUE(bare.DoAddRemoveTable(nullptr, vdaAdd));
    EXPECT_TRUE(bare.DoAddRemoveLink(nullptr, vdaRemove));
    Host.AcceptLinks = false;
    EXPECT_FALSE(Vandor.DoAddRemoveLink(nullptr, vdaRemove));
    EXPECT_EQ(Host.LinkQuestions, std::vector<TVdAction>{vdaRemove});
}

TEST_F(VdVandorHandlersTest, ARefusedLinkIsNotMade)
{
    TVdTable* customer = Add("CUSTOMER");
    TVdTable* orders = Add("ORDERS");
    Host.AcceptLinks = false;
    EXPECT_EQ(Vandor.WorkArea()->AddLink(customer, orders, customer->FindItem("CUSTNO"),
                                         orders->FindItem("CUSTNO")),
              nullptr);
    EXPECT_EQ(Vandor.WorkArea()->JoinsCount(), 0);
    EXPECT_EQ(Def("CUSTOMER")->JoinDefs().Count(), 0);
    Host.AcceptLinks = true;
    TVdLink* link = Vandor.WorkArea()->AddLink(customer, orders, customer->FindItem("CUSTNO"),
                                               orders->FindItem("CUSTNO"));
    ASSERT_NE(link, nullptr);
    ASSERT_EQ(Def("CUSTOMER")->JoinDefs().Count(), 1);
    EXPECT_EQ(Def("CUSTOMER")->JoinDefs().Items(0)->JoinTable, "ORDERS");
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("JOIN")), -1);
}

TEST_F(VdVandorHandlersTest, PageChangesRefreshTheActivePage)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C ORDER BY C.NAME"));
    Vandor.OrderPanel()->Clear();
    Vandor.PageControl()->setCurrentIndex(3);
    EXPECT_EQ(Vandor.OrderPanel()->SortedList()->topLevelItemCount(), 1);
    Vandor.SelectPanel()->Grid()->Fields().clear();
    Vandor.HandlePagesChange(Vandor.PageControl());
    EXPECT_TRUE(Vandor.SelectPanel()->Grid()->Fields().isEmpty());
    Vandor.PageControl()->setCurrentIndex(1);
    EXPECT_FALSE(Vandor.SelectPanel()->Grid()->Fields().isEmpty());
}

TEST_F(VdVandorHandlersTest, HideFieldListLetsThePageChangeWhenNoListIsOpen)
{
    bool allow = true;
    Vandor.HandleHideFieldList(Vandor.PageControl(), allow);
    EXPECT_TRUE(allow);
    Vandor.PageControl()->setCurrentIndex(2);
    EXPECT_EQ(Vandor.PageControl()->currentIndex(), 2);
}

TEST_F(VdVandorHandlersTest, ARefusedPageChangePutsThePreviousPageBack)
{
    Vandor.PageControl()->setCurrentIndex(1);
    Vandor.PageControl()->OnChanging = [](QObject*, bool& allow) { allow = false; };
    Vandor.PageControl()->setCurrentIndex(3);
    EXPECT_EQ(Vandor.PageControl()->currentIndex(), 1);
}

TEST_F(VdVandorHandlersTest, HandleAddRemoveFieldRefreshesPanelsWhenTheFieldIsInTheModel)
{
    TVdTable* customer = Add("CUSTOMER");
    Vandor.HandleSelectField(QStringLiteral("CUSTOMER.NAME"), QString(), QStringLiteral("NAME"));
    Vandor.SelectPanel()->Clear();
    Vandor.HandleAddRemoveField(customer, customer->FindItem(QStringLiteral("CUSTNO")));
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->DataRowCount(), 0);
    Vandor.HandleAddRemoveField(customer, customer->FindItem(QStringLiteral("NAME")));
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->DataRowCount(), 1);
}

TEST_F(VdVandorHandlersTest, HandleAddRemoveFieldIsNotWired)
{
    // The check event goes to HandleCheckField: ticking changes the model and leaves the
    // selection grid (refreshed only by the unwired handler or its page) as it was.
    TVdTable* customer = Add("CUSTOMER");
    Vandor.PageControl()->setCurrentIndex(0);
    customer->FindItem(QStringLiteral("NAME"))->SetCheck(true);
    EXPECT_EQ(Def("CUSTOMER")->FieldDefs().Count(), 1);
    EXPECT_EQ(Vandor.SelectPanel()->Grid()->DataRowCount(), 0);
}

TEST_F(VdVandorHandlersTest, BeginAndEndReloadKeepTheCriteriaShown)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    Vandor.BeginReload();
    Vandor.WherePanel()->Clear();
    Vandor.EndReload();
    EXPECT_NE(Vandor.WherePanel()->Text().indexOf(QStringLiteral("CUSTNO")), -1);
}

TEST_F(VdVandorHandlersTest, TableListSearchesAreExactAndCaseSensitive)
{
    TVdTable* customer = Add("CUSTOMER");
    customer->SetAlias(QStringLiteral("C"));
    TVdTableList* list = Vandor.TableList();
    EXPECT_EQ(list->GetTablesCount(), 1);
    EXPECT_EQ(list->GetTable(0), customer);
    EXPECT_EQ(list->FindByName(QStringLiteral("CUSTOMER")), customer);
    EXPECT_EQ(list->FindByName(QStringLiteral("customer")), nullptr);
    EXPECT_EQ(list->FindByName(QStringLiteral("C")), nullptr);
    EXPECT_EQ(list->FindByAlias(QStringLiteral("C")), customer);
    EXPECT_EQ(list->FindByAlias(QStringLiteral("c")), nullptr);
    EXPECT_EQ(list->FindByAlias(QStringLiteral("CUSTOMER")), nullptr);
}

TEST_F(VdVandorHandlersTest, EnterProcParameterReachesTheHost)
{
    TParams params;
    params.Add(TParam(QStringLiteral("CUST"), ptInput, ftInteger));
    TVdTable* proc =
        Vandor.TableList()->AddProc(QStringLiteral("ORDERS"), &Host.Table("ORDERS"), &params);
    TVdTable* reportedTable = nullptr;
    TVdListItem* reportedItem = nullptr;
    Vandor.OnEnterProcParameter = [&](QObject* sender, TVdTable* table, TVdListItem* item) {
        EXPECT_EQ(sender, &Vandor);
        reportedTable = table;
        reportedItem = item;
    };
    TVdListItem* cust = proc->FindItem(QStringLiteral("CUST"));
    cust->SetCheck(true);
    EXPECT_EQ(reportedTable, proc);
    EXPECT_EQ(reportedItem, cust);
}
