// Pictures of the criteria pages at whatever scale the run uses (QT_SCALE_FACTOR=2 gives the
// @2x files): nested groups under "All", "Any" and "Not all" with every operator kind, an
// argument that does not suit its field, and HAVING with aggregates.

#include "VdCriterionTestSupport.h"
#include "VdFakeHost.h"
#include "VdShot.h"

#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "panels/VdCriterionPanel.h"

#include <QImage>

using namespace vd;
using namespace vd::test;

namespace {

const char* const WhereSql =
    "SELECT C.COMPANY FROM CUSTOMERS C INNER JOIN ORDERS O ON (C.ID = O.CUSTOMER_ID) "
    "WHERE (O.STATUS IN ('SHIPPED', 'PAID')) "
    "AND ((C.COUNTRY = 'DE') OR (C.COUNTRY <> 'US') "
    "OR (NOT ((O.FREIGHT BETWEEN 10 AND 50) OR (O.FREIGHT NOT BETWEEN 100 AND 200) "
    "OR ((C.CITY LIKE 'B%') AND (C.CITY NOT LIKE '%burg'))))) "
    "AND (O.SHIPPED IS NOT NULL) AND (C.NOTES IS NULL) "
    "AND (C.CREDIT_LIMIT >= 1000) AND (C.CREDIT_LIMIT <= 50000) "
    "AND (O.ORDER_DATE > '2023-01-01') AND (O.ORDER_DATE < '2024-01-01') "
    "AND (C.COUNTRY NOT IN ('FR', 'IT')) AND (O.FREIGHT = 'a lot')";

const char* const HavingSql =
    "SELECT C.COUNTRY, COUNT(O.ID) FROM CUSTOMERS C INNER JOIN ORDERS O ON (C.ID = O.CUSTOMER_ID) "
    "GROUP BY C.COUNTRY HAVING (COUNT(O.ID) > 5) AND ((SUM(O.FREIGHT) BETWEEN 100 AND 5000) OR "
    "(MAX(O.FREIGHT) >= AVG(O.FREIGHT)) OR (MIN(O.ORDER_DATE) < '2023-06-01'))";

class VdCriteriaShotsTest : public ::testing::Test
{
protected:
    VdCriteriaShotsTest()
    {
        TDataSet& customers = Host.Table(QStringLiteral("CUSTOMERS"));
        for (const char* name : {"ID", "COMPANY", "CITY", "COUNTRY", "NOTES"})
            customers.AddField(QString::fromLatin1(name), ftString);
        customers.AddField(QStringLiteral("CREDIT_LIMIT"), ftFloat);
        TDataSet& orders = Host.Table(QStringLiteral("ORDERS"));
        orders.AddField(QStringLiteral("ID"), ftInteger);
        orders.AddField(QStringLiteral("CUSTOMER_ID"), ftInteger);
        orders.AddField(QStringLiteral("STATUS"), ftString);
        orders.AddField(QStringLiteral("FREIGHT"), ftFloat);
        orders.AddField(QStringLiteral("ORDER_DATE"), ftDate);
        orders.AddField(QStringLiteral("SHIPPED"), ftDateTime);
        Host.Attach(Vandor);
        Vandor.SetQuoteIdentifiers(false);
        Vandor.resize(760, 760);
        Vandor.SetTabHeight(420);
        Vandor.show();
    }

    // The panel's picture, with the colours it must hold counted.
    QImage Shot(TVdCriterionPanel& panel, const QString& name)
    {
        const QPixmap shot = SaveShot(panel, name);
        EXPECT_FALSE(shot.isNull());
        return shot.toImage();
    }

    static int Count(const QImage& image, QColor colour)
    {
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += image.pixelColor(x, y) == colour;
        return n;
    }

    TFakeHost Host;
    TSQLVandor Vandor;
};

} // namespace

TEST_F(VdCriteriaShotsTest, WherePageWithThreeLevelsOfGroups)
{
    Vandor.SetSQL(QString::fromLatin1(WhereSql));
    Vandor.PageControl();
    TVdWherePanel& panel = *Vandor.WherePanel();
    EXPECT_EQ(panel.Text(), QStringLiteral("1. O.STATUS IN ('SHIPPED', 'PAID')\n"
                                           "2. Any of following are met\n"
                                           "  2.1. C.COUNTRY = 'DE'\n"
                                           "  2.2. C.COUNTRY <> 'US'\n"
                                           "  2.3. Not all of following are met\n"
                                           "    2.3.1. O.FREIGHT BETWEEN 10 50\n"
                                           "    2.3.2. O.FREIGHT NOT BETWEEN 100 200\n"
                                           "    2.3.3. All of following are met\n"
                                           "      2.3.3.1. C.CITY LIKE 'B%'\n"
                                           "      2.3.3.2. C.CITY NOT LIKE '%burg'\n"
                                           "3. O.SHIPPED IS NOT NULL\n"
                                           "4. C.NOTES IS NULL\n"
                                           "5. C.CREDIT_LIMIT >= 1000\n"
                                           "6. C.CREDIT_LIMIT <= 50000\n"
                                           "7. O.ORDER_DATE > '2023-01-01'\n"
                                           "8. O.ORDER_DATE < '2024-01-01'\n"
                                           "9. C.COUNTRY NOT IN ('FR', 'IT')\n"
                                           "10. O.FREIGHT = 'a lot'"));
    TVdCriterionRow* invalid = RowAt(panel, QStringLiteral("10."));
    ASSERT_NE(invalid, nullptr);
    EXPECT_FALSE(invalid->Valid);
    panel.SetFocusElement(RowAt(panel, QStringLiteral("2.3."))->Controls(vdpAggregate1));
    panel.SetActiveElement(RowAt(panel, QStringLiteral("2.1."))->Controls(vdpOperator));
    const QImage image = Shot(panel, QStringLiteral("criteria-where"));
    // Items in navy, the invalid row in red, plain words in black.
    EXPECT_GT(Count(image, QColor(0, 0, 0x80)), 100);
    EXPECT_GT(Count(image, QColor(0xFF, 0, 0)), 20);
    EXPECT_GT(Count(image, QColor(0, 0, 0)), 20);
}

TEST_F(VdCriteriaShotsTest, HavingPageWithAggregates)
{
    Vandor.SetSQL(QString::fromLatin1(HavingSql));
    TVdHavingPanel& panel = *Vandor.HavingPanel();
    EXPECT_EQ(panel.Text(), QStringLiteral("1. COUNT O.ID > 5\n"
                                           "2. Any of following are met\n"
                                           "  2.1. SUM O.FREIGHT BETWEEN 100 5000\n"
                                           "  2.2. MAX O.FREIGHT >= AVG\n"
                                           "  2.3. MIN O.ORDER_DATE < '2023-06-01'"));
    panel.SetFocusElement(RowAt(panel, QStringLiteral("2.1."))->Controls(vdpAggregate1));
    const QImage image = Shot(panel, QStringLiteral("criteria-having"));
    EXPECT_GT(Count(image, QColor(0, 0, 0x80)), 100);
}
