// Palette, style and object style: defaults, stored-when rules, the setter rule (compare, then
// repaint only a running builder's views) and the copy orders.

#include "builder/VdPalette.h"
#include "builder/VdColor.h"
#include "builder/VdCustomVandor.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdStored.h"
#include "builder/VdStyle.h"
#include "core/VdError.h"

#include <QApplication>
#include <QMetaProperty>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace vd;

namespace {

struct TDefault {
    const char* Name;
    TColor Value;
};

const TDefault PublishedColours[] = {
    {"ActiveCondition", 0x00FFFFFF},  {"ProcClient", 0xFF000018},
    {"TableClient", 0x00FFFFFF},      {"ConditionItemText", 0x00800000},
    {"ConditionText", 0x00000000},    {"ItemText", 0x00000000},
    {"SelectedItemText", 0x00FFFFFF}, {"InactiveCaption", 0xFF00000F},
    {"ActiveCaption", 0x00C0C0C0},
};

TColor ReadColour(const QObject& object, const char* name)
{
    const QVariant value = object.property(name);
    EXPECT_TRUE(value.isValid()) << name;
    return value.value<TColor>();
}

// Every repaint a builder made for its palette or style, as target bits.
class TRepaints
{
public:
    explicit TRepaints(TCustomVandor& vandor) : FSpy(&vandor, &TCustomVandor::viewsRepainted) {}
    int Count() const { return int(FSpy.count()); }
    unsigned Targets(int index) const { return FSpy.at(index).at(0).toUInt(); }

private:
    QSignalSpy FSpy;
};

} // namespace

TEST(VdPaletteTest, PublishedDefaultsReadThroughMetaProperties)
{
    TVdPalette palette;
    for (const TDefault& colour : PublishedColours) {
        EXPECT_EQ(ReadColour(palette, colour.Name), colour.Value) << colour.Name;
        EXPECT_FALSE(IsPropertyStored(&palette, colour.Name)) << colour.Name;
    }
    EXPECT_EQ(palette.ConditionErrorText(), 0x000000FFu);
}

TEST(VdPaletteTest, ConditionErrorTextIsNotPublished)
{
    EXPECT_LT(TVdPalette::staticMetaObject.indexOfProperty("ConditionErrorText"), 0);
    EXPECT_EQ(TVdPalette::staticMetaObject.propertyCount() -
                  TVdPalette::staticMetaObject.propertyOffset(),
              9);
}

TEST(VdPaletteTest, ColourDifferingFromItsDefaultIsStoredAndResetRestoresIt)
{
    TVdPalette palette;
    ASSERT_TRUE(palette.setProperty("ItemText", QVariant::fromValue<TColor>(0x00123456)));
    EXPECT_EQ(palette.ItemText(), 0x00123456u);
    EXPECT_TRUE(IsPropertyStored(&palette, "ItemText"));
    const QMetaObject* meta = palette.metaObject();
    meta->property(meta->indexOfProperty("ItemText")).reset(&palette);
    EXPECT_EQ(palette.ItemText(), clBlack);
    EXPECT_FALSE(IsPropertyStored(&palette, "ItemText"));
}

TEST(VdPaletteTest, SettingTableClientToItsCurrentValueCausesNoRepaint)
{
    TSQLVandor vandor;
    TRepaints repaints(vandor);
    vandor.GetPalette()->SetTableClient(vandor.GetPalette()->TableClient());
    EXPECT_EQ(repaints.Count(), 0);
    vandor.GetPalette()->SetTableClient(0x00102030);
    ASSERT_EQ(repaints.Count(), 1);
    EXPECT_EQ(repaints.Targets(0), unsigned(vdrWorkArea));
}

TEST(VdPaletteTest, SettingConditionErrorTextNeverRepaints)
{
    TSQLVandor vandor;
    TRepaints repaints(vandor);
    vandor.GetPalette()->SetConditionErrorText(0x0000FF00);
    EXPECT_EQ(vandor.GetPalette()->ConditionErrorText(), 0x0000FF00u);
    vandor.GetPalette()->SetConditionErrorText(0x00FF0000);
    EXPECT_EQ(vandor.GetPalette()->ConditionErrorText(), 0x00FF0000u);
    EXPECT_EQ(repaints.Count(), 0);
}

TEST(VdPaletteTest, EachColourRepaintsTheViewsThatUseIt)
{
    TSQLVandor vandor;
    TVdPalette* palette = vandor.GetPalette();
    TRepaints repaints(vandor);
    palette->SetActiveCondition(0x00000001);
    palette->SetConditionItemText(0x00000001);
    palette->SetConditionText(0x00000001);
    palette->SetProcClient(0x00000001);
    palette->SetItemText(0x00000001);
    palette->SetSelectedItemText(0x00000001);
    palette->SetInactiveCaption(0x00000001);
    palette->SetActiveCaption(0x00000001);
    palette->SetTableClient(0x00000001);
    ASSERT_EQ(repaints.Count(), 9);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(repaints.Targets(i), unsigned(vdrCriteriaPanels)) << i;
    for (int i = 3; i < 9; ++i)
        EXPECT_EQ(repaints.Targets(i), unsigned(vdrWorkArea)) << i;
}

TEST(VdPaletteTest, DesignModeStoresWithoutRepaint)
{
    TSQLVandor vandor(nullptr, true);
    TRepaints repaints(vandor);
    vandor.GetPalette()->SetTableClient(0x00102030);
    vandor.GetStyle()->SetButtonStyle(vdsRaise);
    vandor.GetStyle()->ObjectStyle()->SetFlat(false);
    EXPECT_EQ(vandor.GetPalette()->TableClient(), 0x00102030u);
    EXPECT_EQ(vandor.GetStyle()->ButtonStyle(), vdsRaise);
    EXPECT_FALSE(vandor.GetStyle()->ObjectStyle()->Flat());
    EXPECT_EQ(repaints.Count(), 0);
}

TEST(VdPaletteTest, AssigningAPaletteCopiesAllTenColoursConditionErrorTextIncluded)
{
    TVdPalette source;
    TColor value = 0x00010101;
    source.SetActiveCondition(value++);
    source.SetProcClient(value++);
    source.SetTableClient(value++);
    source.SetConditionItemText(value++);
    source.SetConditionText(value++);
    source.SetConditionErrorText(value++);
    source.SetItemText(value++);
    source.SetSelectedItemText(value++);
    source.SetInactiveCaption(value++);
    source.SetActiveCaption(value++);
    TVdPalette target;
    target.Assign(&source);
    EXPECT_EQ(target.ActiveCondition(), source.ActiveCondition());
    EXPECT_EQ(target.ProcClient(), source.ProcClient());
    EXPECT_EQ(target.TableClient(), source.TableClient());
    EXPECT_EQ(target.ConditionItemText(), source.ConditionItemText());
    EXPECT_EQ(target.ConditionText(), source.ConditionText());
    EXPECT_EQ(target.ConditionErrorText(), source.ConditionErrorText());
    EXPECT_EQ(target.ItemText(), source.ItemText());
    EXPECT_EQ(target.SelectedItemText(), source.SelectedItemText());
    EXPECT_EQ(target.InactiveCaption(), source.InactiveCaption());
    EXPECT_EQ(target.ActiveCaption(), source.ActiveCaption());
}

TEST(VdPaletteTest, AssignGoesThroughTheSettersInItsOrder)
{
    TSQLVandor vandor;
    TVdPalette source;
    source.SetActiveCondition(0x00000001);    // criteria panels
    source.SetConditionErrorText(0x00000002); // no repaint
    source.SetTableClient(0x00000003);        // work area
    source.SetInactiveCaption(0x00000004);    // work area, last
    TRepaints repaints(vandor);
    vandor.GetPalette()->Assign(&source);
    ASSERT_EQ(repaints.Count(), 3);
    EXPECT_EQ(repaints.Targets(0), unsigned(vdrCriteriaPanels));
    EXPECT_EQ(repaints.Targets(1), unsigned(vdrWorkArea));
    EXPECT_EQ(repaints.Targets(2), unsigned(vdrWorkArea));
}

TEST(VdPaletteTest, AssigningFromAnotherKindOfObjectRaises)
{
    TVdPalette palette;
    TVdStyle style;
    EXPECT_THROW(palette.Assign(&style), EVdError);
    EXPECT_THROW(palette.Assign(nullptr), EVdError);
    EXPECT_THROW(style.Assign(&palette), EVdError);
    EXPECT_THROW(style.ObjectStyle()->Assign(&palette), EVdError);
}

TEST(VdPaletteTest, BuilderPaletteWriteCopiesAndIgnoresItsOwnPalette)
{
    TSQLVandor vandor;
    TVdPalette other;
    other.SetItemText(0x00ABCDEF);
    vandor.SetPalette(&other);
    EXPECT_EQ(vandor.GetPalette()->ItemText(), 0x00ABCDEFu);
    EXPECT_NE(vandor.GetPalette(), &other);
    TRepaints repaints(vandor);
    vandor.SetPalette(vandor.GetPalette());
    EXPECT_EQ(repaints.Count(), 0);
}

TEST(VdPaletteTest, OwnerIsTheBuilder)
{
    TSQLVandor vandor;
    EXPECT_EQ(vandor.GetPalette()->Owner(), &vandor);
    EXPECT_EQ(vandor.GetStyle()->Owner(), &vandor);
    EXPECT_EQ(vandor.GetStyle()->ObjectStyle()->Owner(), &vandor);
}

TEST(VdColorTest, PlainColoursAreBlueGreenRedFromTheHighByteDown)
{
    EXPECT_EQ(ColorToQColor(0x00800000), QColor(0, 0, 128));
    EXPECT_EQ(ColorToQColor(0x000000FF), QColor(255, 0, 0));
    EXPECT_EQ(ColorToQColor(0x00123456), QColor(0x56, 0x34, 0x12));
}

TEST(VdColorTest, SystemColoursFollowTheApplicationPalette)
{
    const QPalette palette = QApplication::palette();
    EXPECT_EQ(ColorToQColor(clInfoBk), palette.color(QPalette::Active, QPalette::ToolTipBase));
    EXPECT_EQ(ColorToQColor(clBtnFace), palette.color(QPalette::Active, QPalette::Button));
    EXPECT_TRUE(IsSystemColor(clInfoBk));
    EXPECT_FALSE(IsSystemColor(clSilver));
}

TEST(VdStyleTest, DefaultsAndStoredRules)
{
    TVdStyle style;
    EXPECT_EQ(style.property("ButtonStyle").value<TVdButtonStyle>(), vdsFlat);
    TVdObjectStyle* object = style.ObjectStyle();
    EXPECT_TRUE(object->property("Flat").toBool());
    EXPECT_TRUE(object->property("FlatButtons").toBool());
    EXPECT_EQ(object->property("BorderKind").value<TVdBorderKind>(), vdkRaised);
    for (const char* name : {"Flat", "FlatButtons", "BorderKind"})
        EXPECT_FALSE(IsPropertyStored(object, name)) << name;
    EXPECT_FALSE(IsPropertyStored(&style, "ButtonStyle"));
    object->SetBorderKind(vdkSunken);
    EXPECT_TRUE(IsPropertyStored(object, "BorderKind"));
}

TEST(VdStyleTest, ButtonStyleRepaintsTheCriteriaPanelsObjectStyleTheWorkArea)
{
    TSQLVandor vandor;
    TRepaints repaints(vandor);
    vandor.GetStyle()->SetButtonStyle(vdsFlat);
    EXPECT_EQ(repaints.Count(), 0);
    vandor.GetStyle()->SetButtonStyle(vds3DLook);
    vandor.GetStyle()->ObjectStyle()->SetFlatButtons(false);
    vandor.GetStyle()->ObjectStyle()->SetFlatButtons(false);
    ASSERT_EQ(repaints.Count(), 2);
    EXPECT_EQ(repaints.Targets(0), unsigned(vdrCriteriaPanels));
    EXPECT_EQ(repaints.Targets(1), unsigned(vdrWorkArea));
}

TEST(VdStyleTest, AssignCopiesButtonStyleThenTheObjectStyle)
{
    TSQLVandor vandor;
    TVdStyle source;
    source.SetButtonStyle(vdsRaise);
    source.ObjectStyle()->SetBorderKind(vdkEtched);
    source.ObjectStyle()->SetFlat(false);
    TRepaints repaints(vandor);
    vandor.SetStyle(&source);
    EXPECT_EQ(vandor.GetStyle()->ButtonStyle(), vdsRaise);
    EXPECT_EQ(vandor.GetStyle()->ObjectStyle()->BorderKind(), vdkEtched);
    EXPECT_FALSE(vandor.GetStyle()->ObjectStyle()->Flat());
    EXPECT_TRUE(vandor.GetStyle()->ObjectStyle()->FlatButtons());
    ASSERT_EQ(repaints.Count(), 3);
    EXPECT_EQ(repaints.Targets(0), unsigned(vdrCriteriaPanels));
    EXPECT_EQ(repaints.Targets(1), unsigned(vdrWorkArea));
    EXPECT_EQ(repaints.Targets(2), unsigned(vdrWorkArea));
}

TEST(VdStyleTest, ObjectStyleWriteAssignsIntoTheOwnedObject)
{
    TVdStyle style;
    TVdObjectStyle* owned = style.ObjectStyle();
    TVdObjectStyle other;
    other.SetFlat(false);
    ASSERT_TRUE(style.setProperty("ObjectStyle", QVariant::fromValue(&other)));
    EXPECT_EQ(style.ObjectStyle(), owned);
    EXPECT_FALSE(owned->Flat());
}
