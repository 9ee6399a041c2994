// Pictures of the dialect option panels and builders, at whatever scale the run uses
// (QT_SCALE_FACTOR=2 gives the @2x files), with checks that nothing in them is clipped.

#include "VdFakeHost.h"
#include "VdShot.h"

#include "dialects/VdFBOptionsPanel.h"
#include "dialects/VdIBOptionsPanel.h"
#include "dialects/VdIBWindow.h"
#include "dialects/VdMyWindow.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <string>

using namespace vd;
using vd::test::SaveShot;
using vd::test::TFakeHost;

namespace {

// Every visible control lies inside its panel, is at least as large as its own content needs,
// and covers no other control.
void ExpectNothingClipped(const QWidget& panel)
{
    const QList<QWidget*> controls = panel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* control : controls) {
        if (control->isHidden())
            continue;
        SCOPED_TRACE(control->metaObject()->className());
        EXPECT_TRUE(panel.rect().contains(control->geometry()));
        if (qobject_cast<const QLabel*>(control) || qobject_cast<const QCheckBox*>(control)) {
            EXPECT_GE(control->width(), control->sizeHint().width());
        }
        EXPECT_GE(control->height(), control->minimumSizeHint().height());
        for (const QWidget* other : controls) {
            if (other != control && !other->isHidden()) {
                EXPECT_FALSE(control->geometry().intersects(other->geometry()));
            }
        }
    }
}

void ExpectShotOf(const QWidget& widget, const QPixmap& shot)
{
    ASSERT_FALSE(shot.isNull());
    EXPECT_EQ(shot.deviceIndependentSize().toSize(), widget.size());
    // Not a blank page: the picture holds more than the background colour.
    const QImage image = shot.toImage();
    const QRgb background = image.pixel(0, 0);
    bool drawn = false;
    for (int y = 0; y < image.height() && !drawn; ++y)
        for (int x = 0; x < image.width() && !drawn; ++x)
            drawn = image.pixel(x, y) != background;
    EXPECT_TRUE(drawn);
}

void ShowAtHint(QWidget& widget)
{
    widget.resize(widget.sizeHint());
    widget.show();
}

// A small order database: orders with their customer and employee, for builder pictures.
void FillHost(TFakeHost& host)
{
    TDataSet& orders = host.Table(QStringLiteral("ORDERS"));
    orders.AddField(QStringLiteral("ORDERNO"), ftInteger);
    orders.AddField(QStringLiteral("CUSTNO"), ftInteger);
    orders.AddField(QStringLiteral("EMPNO"), ftInteger);
    orders.AddField(QStringLiteral("SALEDATE"), ftDateTime);
    orders.AddField(QStringLiteral("AMOUNT"), ftCurrency);
    TDataSet& customer = host.Table(QStringLiteral("CUSTOMER"));
    customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
    customer.AddField(QStringLiteral("COMPANY"), ftString);
    customer.AddField(QStringLiteral("CITY"), ftString);
    TDataSet& employee = host.Table(QStringLiteral("EMPLOYEE"));
    employee.AddField(QStringLiteral("EMPNO"), ftInteger);
    employee.AddField(QStringLiteral("LASTNAME"), ftString);
}

// The builder under its option panel, as a host would place them.
class TBuilderPage : public QWidget
{
public:
    TBuilderPage(TCustomVandor* vandor, QWidget* panel)
    {
        auto* layout = new QVBoxLayout(this);
        if (panel)
            layout->addWidget(panel);
        layout->addWidget(vandor, 1);
        resize(900, 620);
    }
};

const char* const kOrderQuery = "FROM ORDERS O "
                                "INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO) "
                                "LEFT OUTER JOIN EMPLOYEE E ON (O.EMPNO = E.EMPNO) "
                                "WHERE O.AMOUNT > 1000 ORDER BY O.SALEDATE DESC";

} // namespace

TEST(VdDialectShotsTest, InterBaseOptionsPanelShowsTheWholeRowsClause)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
    TVdIBOptionsPanel panel;
    panel.SetParser(&parser);
    ShowAtHint(panel);
    ExpectNothingClipped(panel);
    EXPECT_EQ(panel.RowsToEdit()->text(), QStringLiteral("20"));
    ExpectShotOf(panel, SaveShot(panel, QStringLiteral("ib-options-panel")));
}

TEST(VdDialectShotsTest, FirebirdOptionsPanelShowsFirstAndSkip)
{
    TVdIBSelectParser parser;
    parser.SetSQLServer(qssFireBird);
    parser.SetExpression("SELECT FIRST 5 SKIP 10 A FROM T");
    TVdFBOptionsPanel panel;
    panel.SetParser(&parser);
    ShowAtHint(panel);
    ExpectNothingClipped(panel);
    EXPECT_EQ(panel.SkipEdit()->text(), QStringLiteral("10"));
    ExpectShotOf(panel, SaveShot(panel, QStringLiteral("fb-options-panel")));
}

TEST(VdDialectShotsTest, FirebirdBuilderUnderItsOptionsPanel)
{
    TFakeHost host;
    FillHost(host);
    auto* vandor = new TInterBaseVandor;
    host.Attach(*vandor);
    std::string error;
    vandor->SetOnParserError([&error](TVdSelectParser*, const std::string& message,
                                      const std::string&, int, int) { error = message; });
    vandor->SetSQLServer(qssFireBird);
    auto* panel = new TVdFBOptionsPanel;
    TBuilderPage page(vandor, panel);
    vandor->SetSQL(QStringLiteral("SELECT FIRST 10 SKIP 20 O.ORDERNO, C.COMPANY, E.LASTNAME, "
                                  "O.AMOUNT ") +
                   QLatin1String(kOrderQuery));
    panel->SetParser(vandor->IBParser());
    page.show();
    EXPECT_EQ(error, "");
    EXPECT_EQ(panel->FirstEdit()->text(), QStringLiteral("10"));
    ExpectNothingClipped(*panel);
    ExpectShotOf(page, SaveShot(page, QStringLiteral("firebird-builder")));
}

TEST(VdDialectShotsTest, InterBaseBuilderUnderItsOptionsPanel)
{
    TFakeHost host;
    FillHost(host);
    auto* vandor = new TInterBaseVandor;
    host.Attach(*vandor);
    auto* panel = new TVdIBOptionsPanel;
    TBuilderPage page(vandor, panel);
    vandor->SetSQL(QStringLiteral("SELECT O.ORDERNO, C.COMPANY, O.AMOUNT ") +
                   QLatin1String(kOrderQuery) + QStringLiteral(" ROWS 1 TO 100 PERCENT"));
    panel->SetParser(vandor->IBParser());
    page.show();
    EXPECT_EQ(vandor->IBParser()->IBOptions().RowsTo, 100);
    EXPECT_TRUE(panel->PercentBox()->isChecked());
    ExpectNothingClipped(*panel);
    ExpectShotOf(page, SaveShot(page, QStringLiteral("interbase-builder")));
}

TEST(VdDialectShotsTest, MySQLBuilder)
{
    TFakeHost host;
    FillHost(host);
    auto* vandor = new TMySQLVandor;
    host.Attach(*vandor);
    TBuilderPage page(vandor, nullptr);
    vandor->SetSQL(QStringLiteral("SELECT SQL_BIG_RESULT DISTINCTROW O.ORDERNO, C.COMPANY ") +
                   QLatin1String(kOrderQuery) + QStringLiteral(" LIMIT 10, 20"));
    page.show();
    EXPECT_EQ(vandor->MyParser()->MySQLOptions().LimitRows, 20);
    EXPECT_NE(vandor->GetSQL().indexOf(QStringLiteral("LIMIT 10, 20")), -1);
    ExpectShotOf(page, SaveShot(page, QStringLiteral("mysql-builder")));
}
