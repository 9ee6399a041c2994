// The link properties dialog: texts and boxes from the link, OK writing the join kind and the
// comparison into the diagram and the model, Cancel, the minimum width and the fixed height.

#include "VdFakeHost.h"
#include "VdShot.h"
#include "VdSqlLines.h"
#include "tests/core/ModelCheck.h"

#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "core/VdError.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinkProp.h"
#include "diagram/VdLinks.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::Sql;
using vd::test::TFakeHost;

namespace {

class VdLinkPropTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Host.Table(QStringLiteral("ORDERS"),
                   {{"ORDERNO", ftInteger}, {"CUSTNO", ftInteger}, {"EMPNO", ftInteger}});
        Host.Table(QStringLiteral("CUSTOMER"),
                   {{"CUSTNO", ftInteger}, {"EMPNO", ftInteger}, {"COMPANY", ftString}});
        Host.Attach(Vandor);
        Vandor.resize(800, 600);
        Vandor.SetSQL(QStringLiteral("SELECT O.ORDERNO, C.COMPANY\r\nFROM ORDERS O\r\n"
                                     "  INNER JOIN CUSTOMER C ON (O.CUSTNO = C.CUSTNO)"));
        Area = Vandor.WorkArea();
        Dialog = Area->LinkPropDialog();
    }

    TVdLink* Link() const { return Area->LinksCount() > 0 ? Area->Links(0) : nullptr; }
    TVdJoinDef* JoinDef() const
    {
        TVdTableDef* def = Vandor.Parser()->TableDefs().FindByAlias("O");
        return def && def->JoinDefs().Count() > 0 ? def->JoinDefs().Items(0) : nullptr;
    }
    void Open(TVdFloatObject* link)
    {
        Dialog->SetCurrentLnk(link);
        Dialog->FormShow();
    }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;
    TfmLinkProp* Dialog = nullptr;
};

} // namespace

TEST_F(VdLinkPropTest, ControlsAreCreatedWithTheirTexts)
{
    EXPECT_EQ(Dialog->windowTitle(), QStringLiteral("Link properties"));
    EXPECT_EQ(Dialog->buOK()->text(), QStringLiteral("OK"));
    EXPECT_TRUE(Dialog->buOK()->isDefault());
    EXPECT_EQ(Dialog->buCancel()->text(), QStringLiteral("Cancel"));
    QStringList items;
    for (int i = 0; i < Dialog->cbConditions()->count(); ++i)
        items << Dialog->cbConditions()->itemText(i);
    EXPECT_EQ(items, (QStringList{"=", ">", "<", ">=", "<=", "<>"}));
    EXPECT_TRUE(Dialog->laCaption()->font().bold());
    EXPECT_GT(Dialog->laLeftField()->font().pointSizeF(), Dialog->font().pointSizeF());
}

TEST_F(VdLinkPropTest, AnInnerJoinShowsBothBoxesUnchecked)
{
    ASSERT_NE(Link(), nullptr);
    Open(Link());
    EXPECT_EQ(Dialog->laCaption()->text(), QStringLiteral("join tables: O and C"));
    EXPECT_EQ(Dialog->laLeftField()->text(), QStringLiteral("CUSTNO"));
    EXPECT_EQ(Dialog->laRightField()->text(), QStringLiteral("CUSTNO"));
    EXPECT_EQ(Dialog->chLeftOuter()->text(), QStringLiteral("Include all from O"));
    EXPECT_EQ(Dialog->chRightOuter()->text(), QStringLiteral("Include all from C"));
    EXPECT_FALSE(Dialog->chLeftOuter()->isChecked());
    EXPECT_FALSE(Dialog->chRightOuter()->isChecked());
    EXPECT_EQ(Dialog->cbConditions()->currentIndex(), 0);
}

TEST_F(VdLinkPropTest, TheBoxesShowEachOuterKind)
{
    ASSERT_NE(Link(), nullptr);
    const std::pair<TVdJoinKind, std::pair<bool, bool>> cases[] = {{vdjLOuterJoin, {true, false}},
                                                                   {vdjROuterJoin, {false, true}},
                                                                   {vdjFOuterJoin, {true, true}},
                                                                   {vdjInnerJoin, {false, false}}};
    for (const auto& [kind, boxes] : cases) {
        Link()->Join()->JoinKind = kind;
        Open(Link());
        EXPECT_EQ(Dialog->chLeftOuter()->isChecked(), boxes.first) << int(kind);
        EXPECT_EQ(Dialog->chRightOuter()->isChecked(), boxes.second) << int(kind);
    }
    Link()->Condition = 5;
    Open(Link());
    EXPECT_EQ(Dialog->cbConditions()->currentText(), QStringLiteral("<>"));
}

TEST_F(VdLinkPropTest, CheckingBothMakesEveryLinkOfThePairAFullOuterJoin)
{
    TVdTable* o = Area->GetTable(QStringLiteral("O"));
    TVdTable* c = Area->GetTable(QStringLiteral("C"));
    ASSERT_TRUE(o && c);
    TVdLink* second = Area->AddLink(o, c, o->FindItem(QStringLiteral("EMPNO")),
                                    c->FindItem(QStringLiteral("EMPNO")));
    ASSERT_NE(second, nullptr);
    ASSERT_EQ(Area->LinksCount(), 2);
    Open(Link());
    Dialog->chLeftOuter()->setChecked(true);
    Dialog->chRightOuter()->setChecked(true);
    Dialog->buOKClick();
    EXPECT_EQ(Dialog->result(), int(QDialog::Accepted));
    EXPECT_EQ(Area->Links(0)->Join()->JoinKind, vdjFOuterJoin);
    EXPECT_EQ(Area->Links(1)->Join()->JoinKind, vdjFOuterJoin);
    EXPECT_EQ(Area->Links(0)->Join(), Area->Links(1)->Join());
    ASSERT_NE(JoinDef(), nullptr);
    EXPECT_EQ(JoinDef()->JoinKind, vdjFOuterJoin);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    // Both definitions of the pair carry the kind, so the printed joins agree.
    TVdTableDef* def = Vandor.Parser()->TableDefs().FindByAlias("O");
    ASSERT_EQ(def->JoinDefs().Count(), 2);
    EXPECT_EQ(def->JoinDefs().Items(1)->JoinKind, vdjFOuterJoin);
    EXPECT_NE(Vandor.GetSQL().indexOf(QStringLiteral("FULL OUTER JOIN")), -1);
    EXPECT_EQ(Vandor.GetSQL().indexOf(QStringLiteral("INNER JOIN")), -1);
}

TEST_F(VdLinkPropTest, OkWritesTheLeftKindAndTheOperator)
{
    Open(Link());
    Dialog->chLeftOuter()->setChecked(true);
    Dialog->cbConditions()->setCurrentIndex(3);
    Dialog->buOKClick();
    EXPECT_EQ(Link()->Join()->JoinKind, vdjLOuterJoin);
    EXPECT_EQ(Link()->Condition, 3);
    ASSERT_NE(JoinDef(), nullptr);
    EXPECT_EQ(JoinDef()->JoinKind, vdjLOuterJoin);
    EXPECT_EQ(JoinDef()->Operation, ">=");
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    EXPECT_EQ(
        Vandor.GetSQL(),
        Sql({R"(SELECT )", R"(  "O"."ORDERNO",)", R"(  "C"."COMPANY")", "FROM", R"(  "ORDERS" O )",
             R"(  LEFT OUTER JOIN "CUSTOMER" C ON ("O"."CUSTNO" >= "C"."CUSTNO"))"}));
    Open(Link());
    Dialog->chLeftOuter()->setChecked(false);
    Dialog->chRightOuter()->setChecked(true);
    Dialog->buOKClick();
    EXPECT_EQ(JoinDef()->JoinKind, vdjROuterJoin);
    Open(Link());
    Dialog->chRightOuter()->setChecked(false);
    Dialog->buOKClick();
    EXPECT_EQ(JoinDef()->JoinKind, vdjInnerJoin);
}

TEST_F(VdLinkPropTest, CancelChangesNothing)
{
    const QString before = Vandor.GetSQL();
    Dialog->SetCurrentLnk(Link());
    QTimer::singleShot(0, Dialog, [this] {
        Dialog->chLeftOuter()->setChecked(true);
        Dialog->cbConditions()->setCurrentIndex(2);
        Dialog->buCancel()->click();
    });
    EXPECT_FALSE(ShowLinkProperties(Link()));
    EXPECT_EQ(Link()->Join()->JoinKind, vdjInnerJoin);
    EXPECT_EQ(Link()->Condition, 0);
    EXPECT_EQ(JoinDef()->JoinKind, vdjInnerJoin);
    EXPECT_EQ(JoinDef()->Operation, "=");
    EXPECT_EQ(Vandor.GetSQL(), before);
}

TEST_F(VdLinkPropTest, ShowLinkPropertiesReturnsTrueOnOk)
{
    QTimer::singleShot(0, Dialog, [this] {
        Dialog->chRightOuter()->setChecked(true);
        Dialog->buOK()->click();
    });
    EXPECT_TRUE(ShowLinkProperties(Link()));
    EXPECT_EQ(Link()->Join()->JoinKind, vdjROuterJoin);
    EXPECT_EQ(Dialog->CurrentLnk(), nullptr);
}

TEST_F(VdLinkPropTest, AnObjectThatIsNotALinkIsRefused)
{
    Dialog->SetCurrentLnk(nullptr);
    try {
        Dialog->FormShow();
        FAIL() << "shown";
    } catch (const EVdError& e) {
        EXPECT_STREQ(e.what(), "Invalid link");
    }
    Dialog->SetCurrentLnk(Area->GetTable(QStringLiteral("O")));
    EXPECT_THROW(Dialog->FormShow(), EVdError);
    EXPECT_THROW(ShowLinkProperties(nullptr), EVdError);
}

TEST_F(VdLinkPropTest, WithShortNamesTheDialogIsAtLeast360Wide)
{
    Open(Link());
    EXPECT_EQ(Dialog->MinWidth(), 360);
    EXPECT_EQ(Dialog->width(), 360);
    // Centred on the middle.
    const int w = Dialog->width();
    EXPECT_EQ(Dialog->cbConditions()->x(), (w - Dialog->cbConditions()->width()) / 2);
    EXPECT_EQ(Dialog->chRightOuter()->x(), w / 2 + 4);
    EXPECT_EQ(Dialog->chLeftOuter()->x() + Dialog->chLeftOuter()->width(), w / 2 - 4);
    EXPECT_EQ(Dialog->buCancel()->x(), w / 2 + 20);
    EXPECT_EQ(Dialog->buOK()->x() + Dialog->buOK()->width(), w / 2 - 20);
    EXPECT_EQ(Dialog->laRightField()->x(), (Dialog->cbConditions()->width() + w) / 2 + 1);
    EXPECT_EQ(Dialog->laLeftField()->x() + Dialog->laLeftField()->width(),
              (w - Dialog->cbConditions()->width()) / 2 - 1);
    EXPECT_EQ(Dialog->laCaption()->width(), w);
    Dialog->show();
    Dialog->resize(900, Dialog->height());
    EXPECT_EQ(Dialog->chRightOuter()->x(), 454);
    Dialog->resize(360, Dialog->height());
    EXPECT_FALSE(vd::test::SaveShot(*Dialog, QStringLiteral("link_properties")).isNull());
}

TEST_F(VdLinkPropTest, WithLongNamesBothCheckBoxCaptionsFitSideBySide)
{
    Host.Table(QStringLiteral("CUSTOMER_ORDER_HISTORY_ARCHIVE"), {{"ID", ftInteger}});
    Host.Table(QStringLiteral("SALES_REPRESENTATIVE_ASSIGNMENTS"), {{"ID", ftInteger}});
    Vandor.SetSQL(QStringLiteral(
        "SELECT A.ID FROM CUSTOMER_ORDER_HISTORY_ARCHIVE A INNER JOIN "
        "SALES_REPRESENTATIVE_ASSIGNMENTS SALES_REPRESENTATIVE_ASSIGNMENTS_2026 ON (A.ID = "
        "SALES_REPRESENTATIVE_ASSIGNMENTS_2026.ID)"));
    ASSERT_NE(Link(), nullptr);
    Open(Link());
    EXPECT_GT(Dialog->MinWidth(), 360);
    EXPECT_EQ(Dialog->width(), Dialog->MinWidth());
    QCheckBox* l = Dialog->chLeftOuter();
    QCheckBox* r = Dialog->chRightOuter();
    EXPECT_GE(l->x(), 0);
    EXPECT_LE(r->x() + r->width(), Dialog->width());
    EXPECT_LE(l->x() + l->width(), r->x());
    EXPECT_GE(l->width(), l->sizeHint().width());
    EXPECT_GE(r->width(), r->sizeHint().width());
    EXPECT_GE(
        Dialog->width(),
        QFontMetrics(Dialog->laCaption()->font()).horizontalAdvance(Dialog->laCaption()->text()));
    Dialog->show();
    EXPECT_FALSE(vd::test::SaveShot(*Dialog, QStringLiteral("link_properties_long")).isNull());
    Dialog->hide();
}

TEST_F(VdLinkPropTest, DraggingTheBorderVerticallyHasNoEffect)
{
    Open(Link());
    const int height = Dialog->height();
    EXPECT_FALSE(Dialog->FormCanResize(Dialog->width(), height + 40));
    EXPECT_FALSE(Dialog->FormCanResize(Dialog->width(), height - 10));
    EXPECT_FALSE(Dialog->FormCanResize(Dialog->MinWidth() - 1, height));
    EXPECT_TRUE(Dialog->FormCanResize(Dialog->MinWidth() + 50, height));
    Dialog->resize(Dialog->width(), height + 40);
    EXPECT_EQ(Dialog->height(), height);
    Dialog->resize(100, height);
    EXPECT_EQ(Dialog->width(), Dialog->MinWidth());
}

TEST_F(VdLinkPropTest, AJoinUnknownToTheModelUpdatesOnlyTheDiagram)
{
    TVdTableDef* def = Vandor.Parser()->TableDefs().FindByAlias("O");
    ASSERT_NE(def, nullptr);
    def->JoinDefs().Clear();
    Open(Link());
    Dialog->chLeftOuter()->setChecked(true);
    Dialog->buOKClick();
    EXPECT_EQ(Link()->Join()->JoinKind, vdjLOuterJoin);
    EXPECT_EQ(def->JoinDefs().Count(), 0);
}
