#include "dialects/VdFBOptionsPanel.h"
#include "dialects/VdIBOptionsPanel.h"
#include "dialects/VdIBParser.h"

#include <QCheckBox>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using vd::TVdFBOptionsPanel;
using vd::TVdIBOptionsPanel;
using vd::TVdIBSelectParser;

namespace {

const std::string kInterBaseBase = "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n";

} // namespace

TEST(VdOptionsPanelTest, InterBaseEditsStoreIntoTheParserAndPrint)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T");
    TVdIBOptionsPanel panel;
    panel.SetParser(&parser);
    QSignalSpy changed(&panel, &TVdIBOptionsPanel::optionsChanged);

    panel.RowsFromEdit()->setText(QStringLiteral("10"));
    panel.RowsToEdit()->setText(QStringLiteral("20"));
    panel.RowsByEdit()->setText(QStringLiteral("2"));
    panel.PercentBox()->setChecked(true);
    panel.TiesBox()->setChecked(true);

    EXPECT_EQ(parser.IBOptions().RowsFrom, 10);
    EXPECT_EQ(parser.IBOptions().RowsTo, 20);
    EXPECT_EQ(parser.IBOptions().RowsBy, 2);
    EXPECT_TRUE(parser.IBOptions().Percent);
    EXPECT_TRUE(parser.IBOptions().Ties);
    EXPECT_EQ(changed.count(), 5);
    EXPECT_EQ(parser.GetExpression(), kInterBaseBase + "ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
}

TEST(VdOptionsPanelTest, TypingIntoTheEditsStoresEachValue)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T");
    TVdIBOptionsPanel panel;
    panel.SetParser(&parser);
    QTest::keyClicks(panel.RowsFromEdit(), QStringLiteral("15"));
    QTest::mouseClick(panel.TiesBox(), Qt::LeftButton);
    EXPECT_EQ(parser.IBOptions().RowsFrom, 15);
    EXPECT_TRUE(parser.IBOptions().Ties);
    EXPECT_EQ(parser.GetExpression(), kInterBaseBase + "ROWS 15 WITH TIES");
    QTest::mouseClick(panel.TiesBox(), Qt::LeftButton);
    EXPECT_FALSE(parser.IBOptions().Ties);
}

TEST(VdOptionsPanelTest, OptionEditHoldingAbcStoresZeroWhichPrintsNothing)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T");
    TVdIBOptionsPanel panel;
    panel.SetParser(&parser);
    panel.RowsFromEdit()->setText(QStringLiteral("5"));
    ASSERT_EQ(parser.GetExpression(), kInterBaseBase + "ROWS 5");
    panel.RowsFromEdit()->setText(QStringLiteral("abc"));
    EXPECT_EQ(parser.IBOptions().RowsFrom, 0);
    EXPECT_EQ(parser.GetExpression(), kInterBaseBase);
}

TEST(VdOptionsPanelTest, PercentAndTiesAlonePrintNothing)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T");
    TVdIBOptionsPanel panel;
    panel.SetParser(&parser);
    panel.PercentBox()->setChecked(true);
    panel.TiesBox()->setChecked(true);
    EXPECT_TRUE(parser.IBOptions().Percent);
    EXPECT_EQ(parser.GetExpression(), kInterBaseBase);
    panel.RowsToEdit()->setText(QStringLiteral("7"));
    EXPECT_EQ(parser.GetExpression(), kInterBaseBase + "ROWS 0 TO 7 PERCENT WITH TIES");
}

TEST(VdOptionsPanelTest, NonNumbersAndOverflowStoreZero)
{
    TVdIBSelectParser parser;
    TVdIBOptionsPanel panel;
    panel.SetParser(&parser);
    panel.RowsByEdit()->setText(QStringLiteral(" 12 "));
    EXPECT_EQ(parser.IBOptions().RowsBy, 12);
    panel.RowsByEdit()->setText(QStringLiteral("12x"));
    EXPECT_EQ(parser.IBOptions().RowsBy, 0);
    panel.RowsByEdit()->setText(QStringLiteral("99999999999"));
    EXPECT_EQ(parser.IBOptions().RowsBy, 0);
    panel.RowsByEdit()->setText(QStringLiteral("-3"));
    EXPECT_EQ(parser.IBOptions().RowsBy, -3);
}

TEST(VdOptionsPanelTest, PanelsWithoutParserIgnoreEdits)
{
    TVdIBOptionsPanel ib;
    QSignalSpy ibChanged(&ib, &TVdIBOptionsPanel::optionsChanged);
    ib.RowsFromEdit()->setText(QStringLiteral("10"));
    ib.PercentBox()->setChecked(true);
    ib.HandleTiesBoxClick();
    TVdFBOptionsPanel fb;
    QSignalSpy fbChanged(&fb, &TVdFBOptionsPanel::optionsChanged);
    fb.FirstEdit()->setText(QStringLiteral("5"));
    fb.HandleSkipEditChange();
    EXPECT_EQ(ib.Parser(), nullptr);
    EXPECT_EQ(ibChanged.count(), 0);
    EXPECT_EQ(fbChanged.count(), 0);
}

TEST(VdOptionsPanelTest, FirebirdEditsStoreIntoTheParserAndPrint)
{
    TVdIBSelectParser parser;
    parser.SetSQLServer(vd::qssFireBird);
    parser.SetExpression("SELECT A FROM T");
    TVdFBOptionsPanel panel;
    panel.SetParser(&parser);
    panel.FirstEdit()->setText(QStringLiteral("5"));
    panel.SkipEdit()->setText(QStringLiteral("10"));
    EXPECT_EQ(parser.FBOptions().First, 5);
    EXPECT_EQ(parser.FBOptions().Skip, 10);
    EXPECT_EQ(parser.GetExpression(), "SELECT FIRST 5 SKIP 10 \r\n  T.A\r\nFROM\r\n  T\r\n");
    panel.FirstEdit()->setText(QStringLiteral("abc"));
    EXPECT_EQ(parser.GetExpression(), "SELECT SKIP 10 \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST(VdOptionsPanelTest, SettingTheParserShowsItsValuesWithoutWritingBack)
{
    TVdIBSelectParser parser;
    parser.SetExpression("SELECT A FROM T ROWS 3 TO 9 WITH TIES");
    ASSERT_EQ(parser.IBOptions().RowsTo, 9);
    TVdIBOptionsPanel panel;
    QSignalSpy changed(&panel, &TVdIBOptionsPanel::optionsChanged);
    panel.SetParser(&parser);
    EXPECT_EQ(panel.RowsFromEdit()->text(), QStringLiteral("3"));
    EXPECT_EQ(panel.RowsToEdit()->text(), QStringLiteral("9"));
    EXPECT_EQ(panel.RowsByEdit()->text(), QString());
    EXPECT_FALSE(panel.PercentBox()->isChecked());
    EXPECT_TRUE(panel.TiesBox()->isChecked());
    EXPECT_EQ(changed.count(), 0);

    parser.SetExpression("SELECT A FROM T");
    panel.RefreshFromParser();
    EXPECT_EQ(panel.RowsFromEdit()->text(), QString());
    EXPECT_FALSE(panel.TiesBox()->isChecked());
    EXPECT_EQ(changed.count(), 0);
}

TEST(VdOptionsPanelTest, FirebirdPanelPlacesItsLabelsAndEdits)
{
    TVdFBOptionsPanel panel;
    EXPECT_EQ(panel.FirstLabel()->text(), QStringLiteral("First"));
    EXPECT_EQ(panel.SkipLabel()->text(), QStringLiteral("Skip"));
    EXPECT_EQ(panel.FirstLabel()->pos(), QPoint(8, 8));
    EXPECT_EQ(panel.SkipLabel()->pos(), QPoint(8, 32));
    EXPECT_EQ(panel.FirstEdit()->y(), 6);
    EXPECT_EQ(panel.SkipEdit()->y(), 30);
    EXPECT_EQ(panel.FirstEdit()->x(), panel.SkipEdit()->x());
    // The edits start at 30, or right of the labels' text when a wider font needs the room.
    const int labels = 8 + std::max(panel.FirstLabel()->width(), panel.SkipLabel()->width());
    EXPECT_EQ(panel.FirstEdit()->x(), std::max(30, labels + 4));
    EXPECT_GE(panel.FirstEdit()->x(), labels);

    QFont tiny(QStringLiteral("DejaVu Sans"));
    tiny.setPixelSize(6);
    panel.setFont(tiny);
    EXPECT_EQ(panel.FirstEdit()->pos(), QPoint(30, 6));
    EXPECT_EQ(panel.SkipEdit()->pos(), QPoint(30, 30));
}

TEST(VdOptionsPanelTest, FirebirdLabelsShareTheLineOfTheirEdits)
{
    TVdFBOptionsPanel panel;
    const auto expectCentred = [](const QLabel* label, const QLineEdit* edit) {
        EXPECT_EQ(label->geometry().center().y(), edit->geometry().center().y());
        EXPECT_TRUE(label->alignment().testFlag(Qt::AlignVCenter));
        EXPECT_GE(label->height(), label->sizeHint().height());
    };
    expectCentred(panel.FirstLabel(), panel.FirstEdit());
    expectCentred(panel.SkipLabel(), panel.SkipEdit());
    EXPECT_FALSE(panel.FirstLabel()->geometry().intersects(panel.SkipLabel()->geometry()));
}
