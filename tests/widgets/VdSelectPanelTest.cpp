// The "Selection" page around its grid: what is grouped by beyond the output fields, shown and
// removable, and the DISTINCT switch in the MySQL dialect.

#include "VdSelectionFixture.h"

#include "dialects/VdMyWindow.h"
#include "panels/VdKeptGroupingList.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTest>
#include <QToolButton>

using namespace vd;
using vd::test::SelectionFixture;

namespace {

class VdSelectPanelTest : public SelectionFixture
{
protected:
    TVdKeptGroupingList& Kept() const { return *Vandor->SelectPanel()->KeptGrouping(); }

    QStringList KeptShown() const
    {
        QStringList items;
        for (int i = 0; i < Kept().List()->count(); ++i)
            items.append(Kept().List()->item(i)->text());
        return items;
    }
};

} // namespace

TEST_F(VdSelectPanelTest, GroupingBeyondTheOutputFieldsIsShownUnderTheGrid)
{
    Load("SELECT C.CITY, COUNT(C.CUSTNO) AS N FROM CUSTOMER C GROUP BY C.CITY, C.NAME, 1", 1);
    // C.CITY is grouped by anyway as the plain column beside the aggregate.
    EXPECT_EQ(KeptShown(), QStringList({"C.NAME", "1"}));
    EXPECT_TRUE(Kept().isVisible());
    EXPECT_TRUE(Kept().RemoveButton()->isEnabled());
    Load("SELECT C.CITY, COUNT(C.CUSTNO) AS N FROM CUSTOMER C GROUP BY C.CITY", 1);
    EXPECT_EQ(KeptShown(), QStringList());
    EXPECT_FALSE(Kept().isVisible());
}

TEST_F(VdSelectPanelTest, RemovingAKeptGroupingItemPrintsAtOnce)
{
    Load("SELECT C.CITY, COUNT(C.CUSTNO) AS N FROM CUSTOMER C GROUP BY C.CITY, C.NAME", 1);
    Kept().List()->setCurrentRow(0);
    QTest::mouseClick(Kept().RemoveButton(), Qt::LeftButton);
    EXPECT_EQ(KeptShown(), QStringList());
    EXPECT_FALSE(Kept().isVisible());
    EXPECT_TRUE(vdcheck::CheckModel(Parser()));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.CITY,\r\n  COUNT(C.CUSTNO) AS N\r\nFROM\r\n  CUSTOMER C\r\n"
                     "GROUP BY\r\n  C.CITY\r\n");
    EXPECT_EQ(Changed->count(), 1);
}

TEST_F(VdSelectPanelTest, TheDeleteKeyRemovesTheSelectedKeptItem)
{
    Load("SELECT C.CITY, COUNT(C.CUSTNO) AS N FROM CUSTOMER C GROUP BY C.CITY, C.NAME, C.CUSTNO",
         1);
    EXPECT_EQ(KeptShown(), QStringList({"C.NAME", "C.CUSTNO"}));
    Kept().List()->setCurrentRow(1);
    QTest::keyClick(Kept().List(), Qt::Key_Delete);
    EXPECT_EQ(KeptShown(), QStringList({"C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.CITY,\r\n  COUNT(C.CUSTNO) AS N\r\nFROM\r\n  CUSTOMER C\r\n"
                     "GROUP BY\r\n  C.CITY,\r\n  C.NAME\r\n");
}

TEST_F(VdSelectPanelTest, AKeptItemShowsOnceAGridEditMakesItMatter)
{
    Load("SELECT C.NAME, COUNT(*) AS N FROM CUSTOMER C GROUP BY C.NAME", 1);
    EXPECT_EQ(KeptShown(), QStringList());
    // Without the aggregate nothing is derived: the kept C.NAME alone groups now.
    Grid().setCurrentCell(1, 0);
    Grid().DeleteRowAction()->trigger();
    EXPECT_EQ(KeptShown(), QStringList({"C.NAME"}));
}

TEST(VdSelectPanelMySQLTest, TheDistinctBoxSetsDistinctAndDropsDistinctrowAndAll)
{
    vd::test::TFakeHost host;
    host.Table(QStringLiteral("T")).AddField(QStringLiteral("A"), ftInteger);
    TMySQLVandor vandor;
    host.Attach(vandor);
    vandor.SetQuoteIdentifiers(false);
    vandor.PageControl()->setCurrentIndex(1);
    QCheckBox* box = vandor.SelectPanel()->DistinctBox();
    vandor.SetSQL(QStringLiteral("SELECT DISTINCTROW T.A FROM T"));
    EXPECT_FALSE(box->isChecked());
    box->click();
    EXPECT_EQ(vandor.GetSQL().toStdString(), "SELECT DISTINCT \r\n  T.A\r\nFROM\r\n  T\r\n");
    box->click();
    EXPECT_EQ(vandor.GetSQL().toStdString(), "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n");
    vandor.SetSQL(QStringLiteral("SELECT ALL T.A FROM T"));
    box->click();
    EXPECT_EQ(vandor.GetSQL().toStdString(), "SELECT DISTINCT \r\n  T.A\r\nFROM\r\n  T\r\n");
}
