// The builder component: construction order and layout, design mode, the published properties
// (defaults, stored-when rules, setter rules) read and written through QMetaProperty, and the
// visible tabs.

#include "builder/VdCustomVandor.h"
#include "builder/VdPageControl.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdStored.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"
#include "panels/VdHavingPanel.h"
#include "panels/VdOrderPanel.h"
#include "panels/VdSelectGrid.h"
#include "panels/VdSelectPanel.h"
#include "panels/VdWherePanel.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QSplitter>

#include <gtest/gtest.h>

using namespace vd;

namespace {

QMetaProperty Property(const QObject& object, const char* name)
{
    const QMetaObject* meta = object.metaObject();
    return meta->property(meta->indexOfProperty(name));
}

// Builder shown at its own size, so that geometry is laid out.
struct TShownVandor {
    TShownVandor()
    {
        Vandor.show();
        Vandor.resize(300, 340);
    }
    TSQLVandor Vandor;
};

QStringList VisibleCaptions(const TVdPageControl& pages)
{
    QStringList captions;
    for (int i = 0; i < pages.count(); ++i)
        if (pages.isTabVisible(i))
            captions.append(pages.tabText(i));
    return captions;
}

} // namespace

TEST(VdCustomVandorTest, ConstructionMakesEveryPartInItsPlace)
{
    TSQLVandor vandor;
    EXPECT_EQ(vandor.size(), QSize(300, 340));
    ASSERT_NE(vandor.Parser(), nullptr);
    ASSERT_NE(vandor.PageControl(), nullptr);
    EXPECT_EQ(vandor.PageControl()->objectName(), QStringLiteral("PageCtrl"));
    ASSERT_EQ(vandor.PageControl()->count(), 4);
    EXPECT_EQ(VisibleCaptions(*vandor.PageControl()),
              QStringList({"Criteria", "Selection", "Grouping criteria", "Sorting"}));
    ASSERT_NE(vandor.WorkArea(), nullptr);
    ASSERT_NE(vandor.TableList(), nullptr);
    EXPECT_EQ(vandor.TableList()->WorkArea(), vandor.WorkArea());
    EXPECT_EQ(vandor.WherePanel()->parentWidget(), vandor.PageControl()->widget(0));
    EXPECT_EQ(vandor.SelectPanel()->parentWidget(), vandor.PageControl()->widget(1));
    EXPECT_EQ(vandor.HavingPanel()->parentWidget(), vandor.PageControl()->widget(2));
    EXPECT_EQ(vandor.OrderPanel()->parentWidget(), vandor.PageControl()->widget(3));
    EXPECT_EQ(vandor.WherePanel()->Parser(), vandor.Parser());
    EXPECT_EQ(vandor.SelectPanel()->Parser(), vandor.Parser());
    EXPECT_EQ(vandor.HavingPanel()->Parser(), vandor.Parser());
    EXPECT_EQ(vandor.OrderPanel()->Parser(), vandor.Parser());
    EXPECT_EQ(vandor.WorkArea()->Vandor(), &vandor);
    EXPECT_EQ(vandor.GetOptions(), TVdOptions(vdoRowSelect));
    ASSERT_EQ(vandor.Images().size(), 2);
    EXPECT_FALSE(vandor.Images()[0].isNull());
    EXPECT_FALSE(vandor.Images()[1].isNull());
}

TEST(VdCustomVandorTest, PagesAtTheBottomSplitterAboveThemWorkAreaFillsTheRest)
{
    TShownVandor shown;
    TSQLVandor& vandor = shown.Vandor;
    const QRect pages = vandor.PageControl()->geometry();
    const QRect area = vandor.WorkArea()->geometry();
    QWidget* handle = vandor.SplitterHandle();
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(vandor.PageControl()->height(), 170);
    EXPECT_EQ(pages.bottom(), vandor.height() - 1);
    EXPECT_EQ(handle->height(), 5);
    EXPECT_EQ(handle->geometry().bottom() + 1, pages.top());
    EXPECT_EQ(area.top(), 0);
    EXPECT_EQ(area.bottom() + 1, handle->geometry().top());
    EXPECT_EQ(area.width(), vandor.width());
    // Growing the builder grows the diagram, not the pages.
    vandor.resize(400, 500);
    EXPECT_EQ(vandor.PageControl()->height(), 170);
    EXPECT_EQ(vandor.WorkArea()->height(), 500 - 170 - 5);
}

TEST(VdCustomVandorTest, DesignModeMakesOnlyThePages)
{
    TSQLVandor vandor(nullptr, true);
    EXPECT_TRUE(vandor.DesignMode());
    ASSERT_NE(vandor.PageControl(), nullptr);
    EXPECT_EQ(vandor.PageControl()->count(), 4);
    EXPECT_EQ(vandor.WorkArea(), nullptr);
    EXPECT_EQ(vandor.TableList(), nullptr);
    EXPECT_EQ(vandor.WherePanel(), nullptr);
    EXPECT_EQ(vandor.SelectPanel(), nullptr);
    EXPECT_EQ(vandor.HavingPanel(), nullptr);
    EXPECT_EQ(vandor.OrderPanel(), nullptr);
    // Properties still work on the parser.
    EXPECT_TRUE(vandor.setProperty("QuoteIdentifiers", false));
    EXPECT_FALSE(vandor.Parser()->Scanner().QuoteIdentifiers());
    vandor.SetSQL(QStringLiteral("SELECT A FROM T"));
    EXPECT_NE(vandor.GetSQL().indexOf(QStringLiteral("FROM")), -1);
}

TEST(VdCustomVandorTest, AWidgetOwnerBecomesTheParentAnyOtherOwnerDoesNot)
{
    QWidget form;
    auto* placed = new TSQLVandor(&form);
    EXPECT_EQ(placed->parentWidget(), &form);
    QObject plain;
    TSQLVandor loose(&plain);
    EXPECT_EQ(loose.parentWidget(), nullptr);
    EXPECT_EQ(loose.parent(), nullptr);
}

TEST(VdCustomVandorTest, ConstructRunsOnce)
{
    struct TTwice : TSQLVandor {
        TTwice() : TSQLVandor(nullptr, false) { Construct(); }
    } twice;
    EXPECT_EQ(twice.PageControl()->count(), 4);
    EXPECT_EQ(twice.findChildren<TVdWorkArea*>().size(), 1);
}

TEST(VdCustomVandorTest, PropertyDefaultsThroughMetaProperties)
{
    TSQLVandor vandor;
    EXPECT_EQ(vandor.property("TabHeight").toInt(), 170);
    EXPECT_TRUE(vandor.property("QuoteIdentifiers").toBool());
    EXPECT_EQ(vandor.property("Options").value<TVdOptions>(), TVdOptions(vdoRowSelect));
    EXPECT_EQ(vandor.property("VisibleTabs").value<TVdVisibleTabs>(), AllVisibleTabs);
    EXPECT_EQ(vandor.property("_Version").toString(), QStringLiteral("2.02"));
    EXPECT_EQ(vandor.property("Palette").value<TVdPalette*>(), vandor.GetPalette());
    EXPECT_EQ(vandor.property("Style").value<TVdStyle*>(), vandor.GetStyle());
    EXPECT_EQ(vandor.property("Operators").value<TVdOperators*>(), &vandor.Parser()->Operators());
    EXPECT_FALSE(vandor.property("Aggregates").toStringList().isEmpty());
    EXPECT_FALSE(vandor.property("Functions").toStringList().isEmpty());
    EXPECT_FALSE(vandor.property("Keywords").toStringList().isEmpty());
}

TEST(VdCustomVandorTest, DefaultValuesAreNotStoredAlwaysStoredOnesAre)
{
    TSQLVandor vandor;
    for (const char* name : {"Aggregates", "Functions", "Keywords", "Options", "QuoteIdentifiers",
                             "TabHeight", "VisibleTabs", "_Version", "SQL"})
        EXPECT_FALSE(IsPropertyStored(&vandor, name)) << name;
    for (const char* name : {"Operators", "Palette", "ScriptFormat", "Style"})
        EXPECT_TRUE(IsPropertyStored(&vandor, name)) << name;
}

TEST(VdCustomVandorTest, ChangedValuesAreStoredAndResetBringsTheDefaultBack)
{
    TSQLVandor vandor;
    ASSERT_TRUE(vandor.setProperty("Options", QVariant::fromValue(TVdOptions(vdoShowFieldTypes))));
    ASSERT_TRUE(vandor.setProperty("QuoteIdentifiers", false));
    ASSERT_TRUE(vandor.setProperty("TabHeight", 200));
    ASSERT_TRUE(vandor.setProperty("VisibleTabs", QVariant::fromValue(TVdVisibleTabs(vdtSorting))));
    for (const char* name : {"Options", "QuoteIdentifiers", "TabHeight", "VisibleTabs"}) {
        EXPECT_TRUE(IsPropertyStored(&vandor, name)) << name;
        EXPECT_TRUE(Property(vandor, name).isResettable()) << name;
        Property(vandor, name).reset(&vandor);
        EXPECT_FALSE(IsPropertyStored(&vandor, name)) << name;
    }
    EXPECT_EQ(vandor.GetOptions(), TVdOptions(vdoRowSelect));
    EXPECT_TRUE(vandor.GetQuoteIdentifiers());
    EXPECT_EQ(vandor.GetTabHeight(), 170);
    EXPECT_EQ(vandor.GetVisibleTabs(), AllVisibleTabs);
}

TEST(VdCustomVandorTest, TabHeight150LeavesTheHeightAt170And171Applies)
{
    TShownVandor shown;
    TSQLVandor& vandor = shown.Vandor;
    vandor.SetTabHeight(150);
    EXPECT_EQ(vandor.GetTabHeight(), 170);
    EXPECT_EQ(vandor.PageControl()->height(), 170);
    vandor.SetTabHeight(170);
    EXPECT_EQ(vandor.GetTabHeight(), 170);
    ASSERT_TRUE(vandor.setProperty("TabHeight", 171));
    EXPECT_EQ(vandor.GetTabHeight(), 171);
    EXPECT_EQ(vandor.PageControl()->height(), 171);
    // Once higher, lower values above 170 apply; 170 and below still do not.
    vandor.SetTabHeight(180);
    vandor.SetTabHeight(100);
    EXPECT_EQ(vandor.PageControl()->height(), 180);
}

TEST(VdCustomVandorTest, VersionReadsTwoPointOhTwoAndIgnoresWrites)
{
    TSQLVandor vandor;
    EXPECT_TRUE(Property(vandor, "_Version").isWritable());
    EXPECT_FALSE(Property(vandor, "_Version").isStored());
    vandor.setProperty("_Version", QStringLiteral("9.99"));
    EXPECT_EQ(vandor.property("_Version").toString(), QStringLiteral("2.02"));
}

TEST(VdCustomVandorTest, StringListsAreStoredOnlyWhenTheyDifferFromTheSortedDefaults)
{
    TSQLVandor vandor;
    for (const char* name : {"Aggregates", "Functions", "Keywords"}) {
        QStringList list = vandor.property(name).toStringList();
        const QStringList original = list;
        list.append(QStringLiteral("ZZZ_EXTRA"));
        ASSERT_TRUE(vandor.setProperty(name, list)) << name;
        EXPECT_TRUE(vandor.property(name).toStringList().contains(QStringLiteral("ZZZ_EXTRA")))
            << name;
        EXPECT_TRUE(IsPropertyStored(&vandor, name)) << name;
        Property(vandor, name).reset(&vandor);
        EXPECT_EQ(vandor.property(name).toStringList(), original) << name;
        EXPECT_FALSE(IsPropertyStored(&vandor, name)) << name;
    }
}

TEST(VdCustomVandorTest, AggregatesWriteReachesParserAndGrid)
{
    TSQLVandor vandor;
    vandor.SetAggregates({QStringLiteral("MEDIAN"), QStringLiteral("SUM")});
    ASSERT_EQ(vandor.Parser()->Aggregates().Count(), 2);
    EXPECT_TRUE(vandor.Parser()->Aggregates().Contains("MEDIAN"));
    EXPECT_EQ(vandor.SelectPanel()->Grid()->Aggregates(),
              QStringList({QStringLiteral("MEDIAN"), QStringLiteral("SUM")}));
}

TEST(VdCustomVandorTest, QuoteIdentifiersGoesStraightToTheScanner)
{
    TSQLVandor vandor;
    QSignalSpy changed(&vandor, &TCustomVandor::sqlChanged);
    vandor.SetQuoteIdentifiers(false);
    EXPECT_FALSE(vandor.Parser()->Scanner().QuoteIdentifiers());
    EXPECT_EQ(changed.count(), 1);
    vandor.Parser()->Scanner().SetQuoteIdentifiers(true);
    EXPECT_TRUE(vandor.GetQuoteIdentifiers());
}

TEST(VdCustomVandorTest, OperatorsWriteCopiesIntoTheParsersCollection)
{
    TSQLVandor source;
    TSQLVandor vandor;
    TVdOperators* own = vandor.GetOperators();
    const int count = own->Count();
    source.GetOperators()->Delete(0);
    vandor.SetOperators(source.GetOperators());
    EXPECT_EQ(vandor.GetOperators(), own);
    EXPECT_EQ(own->Count(), count - 1);
    vandor.SetOperators(own);
    EXPECT_EQ(own->Count(), count - 1);
}

TEST(VdCustomVandorTest, ScriptFormatWriteGoesThroughTheParser)
{
    TSQLVandor vandor;
    TVdScriptFormat format = vandor.GetScriptFormat();
    format.KeywordsFormat = qfmLowerCase;
    ASSERT_TRUE(vandor.setProperty("ScriptFormat", QVariant::fromValue(format)));
    EXPECT_EQ(vandor.Parser()->ScriptFormat().KeywordsFormat, qfmLowerCase);
    vandor.SetSQL(QStringLiteral("SELECT A FROM T"));
    EXPECT_TRUE(vandor.GetSQL().startsWith(QStringLiteral("select")));
}

TEST(VdCustomVandorTest, ParserErrorEventPassesThroughToTheParser)
{
    TSQLVandor vandor;
    int calls = 0;
    int line = 0;
    vandor.SetOnParserError(
        [&](TVdSelectParser*, const std::string&, const std::string&, int lineNo, int) {
            ++calls;
            line = lineNo;
        });
    EXPECT_TRUE(bool(vandor.Parser()->OnError));
    EXPECT_TRUE(bool(vandor.GetOnParserError()));
    EXPECT_NO_THROW(vandor.SetSQL(QStringLiteral("SELECT A\r\nFROM T WHERE (")));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(line, 2);
    vandor.SetOnParserError(nullptr);
    EXPECT_FALSE(bool(vandor.Parser()->OnError));
}

TEST(VdCustomVandorTest, OptionsWriteOnlyStores)
{
    TSQLVandor vandor;
    QSignalSpy changed(&vandor, &TCustomVandor::sqlChanged);
    vandor.SetOptions(vdoDragFieldName | vdoHideSelection);
    EXPECT_EQ(vandor.GetOptions(), TVdOptions(vdoDragFieldName | vdoHideSelection));
    EXPECT_EQ(changed.count(), 0);
}

// ---- Visible tabs ----

TEST(VdCustomVandorTest, VisibleTabsShowsExactlyTheTabsInTheSet)
{
    TSQLVandor vandor;
    vandor.SetVisibleTabs(vdtSelection | vdtSorting);
    EXPECT_EQ(VisibleCaptions(*vandor.PageControl()), QStringList({"Selection", "Sorting"}));
    EXPECT_EQ(vandor.PageControl()->VisibleTabIndex(1), 0);
    EXPECT_EQ(vandor.PageControl()->VisibleTabIndex(3), 1);
    EXPECT_EQ(vandor.PageControl()->VisibleTabIndex(0), -1);
    EXPECT_EQ(vandor.PageControl()->VisibleTabIndex(2), -1);
}

TEST(VdCustomVandorTest, EmptyVisibleTabsHidesPagesAndSplitterRestoringShowsThemAndTheSheet)
{
    TShownVandor shown;
    TSQLVandor& vandor = shown.Vandor;
    vandor.PageControl()->setCurrentIndex(2);
    vandor.SetVisibleTabs({});
    EXPECT_FALSE(vandor.PageControl()->isVisible());
    EXPECT_FALSE(vandor.SplitterHandle()->isVisible());
    EXPECT_FALSE(IsPropertyStored(&vandor, "TabHeight"));
    EXPECT_TRUE(IsPropertyStored(&vandor, "VisibleTabs"));
    vandor.SetVisibleTabs(AllVisibleTabs);
    EXPECT_TRUE(vandor.PageControl()->isVisible());
    EXPECT_TRUE(vandor.SplitterHandle()->isVisible());
    EXPECT_EQ(vandor.PageControl()->currentIndex(), 2);
}

TEST(VdCustomVandorTest, HidingTheActiveSheetActivatesTheNextVisibleOneForwardWrapping)
{
    TSQLVandor vandor;
    vandor.PageControl()->setCurrentIndex(1);
    vandor.SetVisibleTabs(vdtCriterions | vdtSorting);
    EXPECT_EQ(vandor.PageControl()->currentIndex(), 3);
    vandor.SetVisibleTabs(vdtCriterions | vdtSelection);
    // From Sorting, forward wraps round to Criteria.
    EXPECT_EQ(vandor.PageControl()->currentIndex(), 0);
}

TEST(VdCustomVandorTest, SettingTheSameVisibleTabsChangesNothing)
{
    TSQLVandor vandor;
    vandor.PageControl()->setCurrentIndex(3);
    QSignalSpy pages(vandor.PageControl(), &QTabWidget::currentChanged);
    vandor.SetVisibleTabs(AllVisibleTabs);
    EXPECT_EQ(pages.count(), 0);
    EXPECT_EQ(vandor.PageControl()->currentIndex(), 3);
}

TEST(VdCustomVandorTest, WithCriterionsHiddenActivatingSelectionRunsTheRefreshOfTabIndexZero)
{
    TSQLVandor vandor;
    TDataSet customer;
    customer.AddField(QStringLiteral("NAME"), ftString);
    vandor.OnGetTableFields = [&](const QString&, TDataSet*& dataSet, TParams*&) {
        dataSet = &customer;
    };
    vandor.SetSQL(QStringLiteral("SELECT NAME FROM CUSTOMER WHERE NAME = 'A'"));
    vandor.PageControl()->setCurrentIndex(3);
    vandor.SetVisibleTabs(vdtSelection | vdtGroupCriterions | vdtSorting);
    vandor.SelectPanel()->Grid()->Fields().clear();
    vandor.WherePanel()->Clear();
    vandor.PageControl()->setCurrentIndex(1); // "Selection", now the first visible tab
    // The where panel's refresh ran; the selection's did not.
    EXPECT_NE(vandor.WherePanel()->Text().indexOf(QStringLiteral("NAME")), -1);
    EXPECT_TRUE(vandor.SelectPanel()->Grid()->Fields().isEmpty());

    // With every tab visible the same sheet runs its own refresh.
    vandor.PageControl()->setCurrentIndex(3);
    vandor.SetVisibleTabs(AllVisibleTabs);
    vandor.WherePanel()->Clear();
    vandor.PageControl()->setCurrentIndex(1);
    EXPECT_EQ(vandor.SelectPanel()->Grid()->Fields(), QStringList({"CUSTOMER.NAME"}));
    EXPECT_TRUE(vandor.WherePanel()->Text().isEmpty());
}
