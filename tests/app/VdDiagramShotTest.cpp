// Pictures of a realistic diagram over the sample database, for people to look at: six tables
// joined in all four ways, a stored procedure with its input parameters, a selected table
// with its row scroll bar, and a selected link bent by user points. Run once more with
// QT_SCALE_FACTOR=2 for the @2x pictures.

#include "VdDemoFixture.h"
#include "VdDemoWindow.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "tests/core/ModelCheck.h"
#include "tests/widgets/VdShot.h"

#include <QCoreApplication>
#include <QScrollBar>

#include <algorithm>
#include <memory>
#include <set>

#include <gtest/gtest.h>

using namespace vd;

namespace {

const char* const SalesQuery =
    "SELECT O.ID, C.COMPANY, E.LAST_NAME, S.COMPANY AS SHIPPER, P.NAME, L.QUANTITY\r\n"
    "FROM ORDERS O\r\n"
    "  INNER JOIN CUSTOMERS C ON (O.CUSTOMER_ID = C.ID)\r\n"
    "  LEFT OUTER JOIN EMPLOYEES E ON (O.EMPLOYEE_ID = E.ID)\r\n"
    "  RIGHT OUTER JOIN SHIPPERS S ON (O.SHIPPER_ID = S.ID)\r\n"
    "  INNER JOIN ORDER_LINES L ON (O.ID = L.ORDER_ID)\r\n"
    "  FULL OUTER JOIN PRODUCTS P ON (L.PRODUCT_ID = P.ID)";

class VdDiagramShotTest : public vd::test::VdDemoFixture
{
protected:
    void SetUp() override
    {
        VdDemoFixture::SetUp();
        Window = std::make_unique<TVdDemoWindow>(*Catalog, QString());
        Window->resize(1280, 860);
        Window->show();
        ASSERT_TRUE(Window->LoadSql(QString::fromLatin1(SalesQuery)));
        Area = Window->Builder()->WorkArea();
        // A procedure the sample engine cannot hold, added the way a host adds one.
        Balance.SetName(QStringLiteral("CUSTOMER_BALANCE"));
        Balance.AddField(QStringLiteral("CUSTOMER_ID"), ftInteger);
        Balance.AddField(QStringLiteral("BALANCE"), ftCurrency);
        Balance.AddField(QStringLiteral("LAST_ORDER"), ftDate);
        Params.Add(TParam(QStringLiteral("FROM_DATE"), ptInput, ftDate));
        Params.Add(TParam(QStringLiteral("TO_DATE"), ptInput, ftDate));
        Proc = Area->AddProc(QStringLiteral("CUSTOMER_BALANCE"), &Balance, &Params);
        ASSERT_NE(Proc, nullptr);
        Layout();
    }

    TVdTable* Table(const char* alias) const
    {
        return Window->Builder()->TableList()->FindByAlias(QString::fromLatin1(alias));
    }

    void Place(TVdTable* table, int left, int top)
    {
        table->SetLeft(left);
        table->SetTop(top);
        Area->CMMoveControl(table);
    }

    void Layout()
    {
        Place(Table("C"), 24, 12);
        Place(Table("O"), 270, 40);
        Place(Table("L"), 530, 12);
        Place(Table("P"), 790, 40);
        Place(Table("E"), 60, 175);
        Place(Table("S"), 450, 190);
        Place(Proc, 720, 185);
        Area->horizontalScrollBar()->setValue(0);
        Area->verticalScrollBar()->setValue(0);
    }

    TVdLink* LinkOf(TVdTable* a, TVdTable* b) const
    {
        for (int i = 0; i < Area->LinksCount(); ++i) {
            TVdLink* link = Area->Links(i);
            if ((link->Join()->GetTable(0) == a && link->Join()->GetTable(1) == b) ||
                (link->Join()->GetTable(0) == b && link->Join()->GetTable(1) == a))
                return link;
        }
        return nullptr;
    }

    std::unique_ptr<TVdDemoWindow> Window;
    TVdWorkArea* Area = nullptr;
    TDataSet Balance;
    TParams Params;
    TVdTable* Proc = nullptr;
};

} // namespace

TEST_F(VdDiagramShotTest, SalesDiagramWithASelectedTable)
{
    ASSERT_EQ(Area->TablesCount(), 7);
    ASSERT_EQ(Area->LinksCount(), 5);
    std::set<TVdJoinKind> kinds;
    for (int i = 0; i < Area->LinksCount(); ++i)
        kinds.insert(Area->Links(i)->Join()->JoinKind);
    EXPECT_EQ(kinds.size(), 4u);
    TVdTable* products = Table("P");
    Area->SetSelected(products);
    products->SetCurrentItem(products->FindItem(QStringLiteral("NAME")));
    QCoreApplication::processEvents();
    EXPECT_GT(products->Count(), products->VisibleItems());
    EXPECT_FALSE(Area->RowScrollBar()->isHidden());
    EXPECT_TRUE(vdcheck::CheckModel(*Window->Builder()->Parser()));
    EXPECT_FALSE(vd::test::SaveShot(*Area, QStringLiteral("diagram-selected-table")).isNull());
    EXPECT_FALSE(vd::test::SaveShot(*Window, QStringLiteral("demo-sales-diagram")).isNull());
}

TEST_F(VdDiagramShotTest, SalesDiagramWithASelectedBentLink)
{
    TVdLink* link = LinkOf(Table("L"), Table("P"));
    ASSERT_NE(link, nullptr);
    // Two bends that take the line down and along below the two boxes' gap.
    const QPoint start = link->Points()[1];
    const QPoint end = link->Points()[2];
    const int below = std::max(start.y(), end.y()) + 70;
    link->InsertPoint(2, QPoint(start.x() + 14, below));
    link->InsertPoint(3, QPoint(end.x() - 14, below));
    Area->SetSelected(link);
    QCoreApplication::processEvents();
    EXPECT_EQ(link->GetCountPoints(), 6);
    EXPECT_FALSE(vd::test::SaveShot(*Area, QStringLiteral("diagram-selected-link")).isNull());
}
