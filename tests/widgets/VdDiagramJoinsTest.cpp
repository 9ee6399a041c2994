// Joins on two pairs of fields and tables joined from two others, through the diagram: loading
// draws one link per condition, and adding or removing links prints each table once.

#include "VdFakeHost.h"

#include "builder/VdQtText.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "tests/core/ModelCheck.h"

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;

namespace {

class VdDiagramJoinsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Host.Table(QStringLiteral("ORDERS"), {{"ORDERNO", ftInteger},
                                              {"CUSTNO", ftInteger},
                                              {"EMPNO", ftInteger},
                                              {"REGION", ftString}});
        Host.Table(QStringLiteral("CUSTOMER"), {{"CUSTNO", ftInteger}, {"REGION", ftString}});
        Host.Table(QStringLiteral("EMPLOYEE"), {{"EMPNO", ftInteger}, {"NAME", ftString}});
        Host.Attach(Vandor);
        Vandor.SetQuoteIdentifiers(false);
        Vandor.resize(900, 700);
        Vandor.show();
        Area = Vandor.WorkArea();
    }

    TVdTable* Table(const char* alias) const
    {
        return Vandor.TableList()->FindByAlias(QString::fromUtf8(alias));
    }
    TVdListItem* Row(const char* alias, const char* field) const
    {
        return Table(alias)->FindItem(QString::fromUtf8(field));
    }
    std::string Printed() { return ToStdString(Vandor.GetSQL()); }
    // Loading the print again draws the same diagram and prints the same text.
    void ExpectStable()
    {
        const std::string printed = Printed();
        const int links = Area->LinksCount();
        Vandor.SetSQL(ToQString(printed));
        EXPECT_EQ(Printed(), printed);
        EXPECT_EQ(Area->LinksCount(), links);
    }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;
};

const char* const TwoConditions =
    "SELECT O.ORDERNO FROM ORDERS O INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO AND O.REGION = "
    "C.REGION)";

const char* const TwoConditionsPrint = "SELECT \r\n"
                                       "  O.ORDERNO\r\n"
                                       "FROM\r\n"
                                       "  ORDERS O \r\n"
                                       "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO AND "
                                       "O.REGION = C.REGION)\r\n";

} // namespace

TEST_F(VdDiagramJoinsTest, ATwoConditionJoinLoadsAsTwoLinksOfOneJoin)
{
    Vandor.SetSQL(QString::fromLatin1(TwoConditions));
    ASSERT_EQ(Area->LinksCount(), 2);
    EXPECT_EQ(Area->JoinsCount(), 1);
    EXPECT_EQ(Area->Links(0)->Join(), Area->Links(1)->Join());
    EXPECT_EQ(Printed(), TwoConditionsPrint);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramJoinsTest, DeletingOneOfTwoLinksKeepsTheOtherCondition)
{
    Vandor.SetSQL(QString::fromLatin1(TwoConditions));
    Area->CMDeleteLink(
        Area->FindLink(Table("O"), Table("C"), Row("O", "REGION"), Row("C", "REGION")));
    ASSERT_EQ(Area->LinksCount(), 1);
    EXPECT_EQ(Printed(), "SELECT \r\n  O.ORDERNO\r\nFROM\r\n  ORDERS O \r\n"
                         "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)\r\n");
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdDiagramJoinsTest, ASecondLinkBetweenTwoTablesJoinsTheirOnCondition)
{
    Vandor.SetSQL(QStringLiteral(
        "SELECT O.ORDERNO FROM ORDERS O INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
    // Drawn the other way round: from the customer's row to the order's.
    ASSERT_NE(Area->AddLink(Table("C"), Table("O"), Row("O", "REGION"), Row("C", "REGION")),
              nullptr);
    EXPECT_EQ(Area->LinksCount(), 2);
    EXPECT_EQ(Printed(), TwoConditionsPrint);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    ExpectStable();
}

TEST_F(VdDiagramJoinsTest, ATableLinkedFromTwoTablesIsNamedOnce)
{
    Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO, E.NAME FROM ORDERS O INNER JOIN CUSTOMER C ON "
                                 "(O.CUSTNO = C.CUSTNO), EMPLOYEE E"));
    ASSERT_NE(Area->AddLink(Table("E"), Table("O"), Row("O", "EMPNO"), Row("E", "EMPNO")), nullptr);
    const std::string printed = Printed();
    // The link was drawn from EMPLOYEE: it leads to ORDERS, which CUSTOMER's join follows.
    EXPECT_EQ(printed, "SELECT \r\n  O.ORDERNO,\r\n  E.NAME\r\nFROM\r\n  EMPLOYEE E \r\n"
                       "  INNER JOIN ORDERS O ON (E.EMPNO = O.EMPNO) \r\n"
                       "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)\r\n");
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    ExpectStable();
}
