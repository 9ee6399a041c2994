// Stored procedure objects: parameter rows, the visible-row rule, the argument list with its
// placeholders and values, the colour, and the host asked for a parameter's value.

#include "VdFakeHost.h"
#include "VdShot.h"
#include "tests/core/ModelCheck.h"

#include "builder/VdProc.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"

#include <QDate>
#include <QLocale>
#include <QMouseEvent>

#include <list>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::TFakeHost;
using vd::test::ViewportPixel;

namespace {

class VdProcTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Host.Attach(Vandor);
        Vandor.resize(800, 600);
        Area = Vandor.WorkArea();
    }
    void TearDown() override { QLocale::setDefault(QLocale::c()); }

    // A procedure with the given result fields and parameters, added through the work area.
    TVdStoredProc* Proc(int fields, const TParams& params, const char* name = "GET_ORDERS")
    {
        TDataSet& dataSet = FDataSets.emplace_back();
        dataSet.SetName(QString::fromLatin1(name));
        for (int i = 0; i < fields; ++i)
            dataSet.AddField(QStringLiteral("F%1").arg(i), ftInteger);
        TParams& kept = FParams.emplace_back(params);
        return dynamic_cast<TVdStoredProc*>(
            Area->AddProc(QString::fromLatin1(name), &dataSet, &kept));
    }
    static TParams Inputs(int count)
    {
        TParams params;
        for (int i = 0; i < count; ++i)
            params.Add(TParam(QStringLiteral("P%1").arg(i), ptInput, ftInteger));
        return params;
    }
    static TParam With(TParam param, const QVariant& value)
    {
        param.SetValue(value);
        return param;
    }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdWorkArea* Area = nullptr;

private:
    std::list<TDataSet> FDataSets;
    std::list<TParams> FParams;
};

} // namespace

TEST_F(VdProcTest, TenParametersOnNoRowsShowSix)
{
    TVdStoredProc* proc = Proc(0, Inputs(10));
    ASSERT_NE(proc, nullptr);
    EXPECT_EQ(proc->Count(), 10);
    EXPECT_EQ(proc->VisibleItems(), 6);
    EXPECT_EQ(proc->Height(), (proc->ItemHeight() + 1) * 6 + proc->CaptionHeight() + 6);
}

TEST_F(VdProcTest, ParametersAddRowsWhileTheSumStaysBelowSeven)
{
    EXPECT_EQ(Proc(3, Inputs(2), "A")->VisibleItems(), 5);
    EXPECT_EQ(Proc(3, Inputs(3), "B")->VisibleItems(), 6);
    // Deliberately 6 once the sum reaches 7.
    EXPECT_EQ(Proc(3, Inputs(4), "C")->VisibleItems(), 6);
    EXPECT_EQ(Proc(6, Inputs(1), "D")->VisibleItems(), 6);
    EXPECT_EQ(Proc(2, TParams(), "E")->VisibleItems(), 2);
}

TEST_F(VdProcTest, ParameterRowsFollowTheFieldRowsWithTheirTypes)
{
    TParams params;
    params.Add(TParam(QStringLiteral("CUST"), ptInput, ftInteger));
    params.Add(TParam(QStringLiteral("MODE"), ptInputOutput, ftString));
    TVdStoredProc* proc = Proc(2, params);
    ASSERT_EQ(proc->Count(), 4);
    EXPECT_EQ(proc->Items(0)->ParamType(), ptOutput);
    EXPECT_EQ(proc->Items(2)->Name(), QStringLiteral("CUST"));
    EXPECT_EQ(proc->Items(2)->ParamType(), ptInput);
    EXPECT_EQ(proc->Items(2)->DataType(), ftInteger);
    EXPECT_EQ(proc->Items(3)->ParamType(), ptInputOutput);
    EXPECT_EQ(proc->Params().Count(), 2);
}

TEST_F(VdProcTest, AParameterWithAValueIsTickedWithoutAskingAnyone)
{
    TParams params;
    params.Add(With(TParam(QStringLiteral("CUST"), ptInput, ftInteger), 42));
    params.Add(With(TParam(QStringLiteral("NOTE"), ptInput, ftString),
                    QVariant(QMetaType(QMetaType::QString))));
    params.Add(TParam(QStringLiteral("EMPTY"), ptInput, ftInteger));
    int asked = 0;
    Vandor.OnEnterProcParameter = [&](QObject*, TVdTable*, TVdListItem*) { ++asked; };
    TVdStoredProc* proc = Proc(0, params);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(proc->Items(0)->Checked());
    EXPECT_FALSE(proc->Items(0)->IsNull());
    EXPECT_EQ(proc->Items(0)->Value(), QVariant(42));
    EXPECT_TRUE(proc->Items(1)->Checked());
    EXPECT_TRUE(proc->Items(1)->IsNull());
    EXPECT_FALSE(proc->Items(2)->Checked());
    EXPECT_EQ(proc->GetParameters(), QStringLiteral("42, NULL, :EMPTY"));
}

TEST_F(VdProcTest, PlaceholderNamesKeepLettersDigitsDollarAndUnderscore)
{
    TParams params;
    params.Add(TParam(QStringLiteral("my param"), ptInput, ftInteger));
    params.Add(TParam(QStringLiteral("%-#"), ptInput, ftInteger));
    params.Add(TParam(QStringLiteral("a$b_9.c"), ptInput, ftInteger));
    TVdStoredProc* proc = Proc(1, params);
    // The number is the row's index in the object's list (the field row is 0).
    EXPECT_EQ(proc->GetParameters(), QStringLiteral(":MY_PARAM, :Par2, :A$B_9C"));
    EXPECT_EQ(TVdStoredProc::PlaceholderName(QStringLiteral("***"), 7), QStringLiteral("Par7"));
}

TEST_F(VdProcTest, ADoubleUnderACommaLocalePrintsAPoint)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    TParams params;
    params.Add(With(TParam(QStringLiteral("RATE"), ptInput, ftFloat), 1.5));
    params.Add(With(TParam(QStringLiteral("BIG"), ptInput, ftFloat), 12345.25));
    EXPECT_EQ(Proc(0, params)->GetParameters(), QStringLiteral("1.5, 12345.25"));
}

TEST_F(VdProcTest, InputOutputParametersAreNeverArguments)
{
    TParams params;
    params.Add(With(TParam(QStringLiteral("A"), ptInput, ftInteger), 1));
    params.Add(With(TParam(QStringLiteral("B"), ptInputOutput, ftInteger), 2));
    params.Add(TParam(QStringLiteral("C"), ptInputOutput, ftInteger));
    params.Add(TParam(QStringLiteral("D"), ptInput, ftInteger));
    EXPECT_EQ(Proc(0, params)->GetParameters(), QStringLiteral("1, :D"));
}

TEST_F(VdProcTest, ValuesPrintByTheirKind)
{
    QLocale::setDefault(QLocale::c());
    TParams params;
    params.Add(With(TParam(QStringLiteral("I"), ptInput, ftInteger), qint64(-7)));
    params.Add(With(TParam(QStringLiteral("B"), ptInput, ftBoolean), true));
    params.Add(With(TParam(QStringLiteral("F"), ptInput, ftBoolean), false));
    params.Add(With(TParam(QStringLiteral("S"), ptInput, ftString), QStringLiteral("O'Neil")));
    params.Add(With(TParam(QStringLiteral("D"), ptInput, ftDate), QDate(2024, 3, 9)));
    EXPECT_EQ(Proc(0, params)->GetParameters(),
              QStringLiteral("-7, T, F, 'O''Neil', '") +
                  QLocale().toString(QDate(2024, 3, 9), QLocale::ShortFormat) + QLatin1Char('\''));
}

TEST_F(VdProcTest, NoInputParametersGiveAnEmptyList)
{
    TParams params;
    params.Add(TParam(QStringLiteral("OUT"), ptOutput, ftInteger));
    EXPECT_EQ(Proc(1, params)->GetParameters(), QString());
}

TEST_F(VdProcTest, TheClientColourIsTheProcedureColour)
{
    Vandor.GetPalette()->SetProcClient(0x00C0FFFF);
    TVdStoredProc* proc = Proc(1, Inputs(1));
    EXPECT_EQ(proc->GetClientColor(), TColor(0x00C0FFFF));
    const QPoint probe = proc->GetClientRect().bottomRight() - QPoint(3, 2) - Area->ScrollOffset();
    EXPECT_EQ(ViewportPixel(*Area, probe), ColorToQColor(0x00C0FFFF));
}

TEST_F(VdProcTest, TickingAParameterAsksTheHostThroughTheWorkArea)
{
    TParams params;
    params.Add(TParam(QStringLiteral("CUST NO"), ptInput, ftInteger));
    TVdStoredProc* proc = Proc(1, params);
    std::vector<std::pair<TVdTable*, TVdListItem*>> asked;
    Vandor.OnEnterProcParameter = [&](QObject* sender, TVdTable* table, TVdListItem* item) {
        EXPECT_EQ(sender, &Vandor);
        asked.emplace_back(table, item);
        EXPECT_TRUE(item->Entering());
        item->SetValue(1001);
        item->SetCheck(true); // arrives while the guard is set: just ticks
    };
    TVdListItem* row = proc->Items(1);
    proc->SetCurrentItem(row);
    int key = Qt::Key_Space;
    proc->KeyDown(key, Qt::NoModifier);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].first, proc);
    EXPECT_EQ(asked[0].second, row);
    EXPECT_FALSE(row->Entering());
    EXPECT_TRUE(row->Checked());
    EXPECT_EQ(proc->GetParameters(), QStringLiteral("1001"));
    // The tick-all state counts field rows only.
    EXPECT_EQ(proc->FieldState(), 0);
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

TEST_F(VdProcTest, UntickingAParameterGoesBackToItsPlaceholder)
{
    TParams params;
    params.Add(With(TParam(QStringLiteral("CUST"), ptInput, ftInteger), 5));
    TVdStoredProc* proc = Proc(0, params);
    Vandor.OnEnterProcParameter = [](QObject*, TVdTable*, TVdListItem*) {};
    proc->Items(0)->SetCheck(false);
    EXPECT_FALSE(proc->Items(0)->Checked());
    EXPECT_EQ(proc->GetParameters(), QStringLiteral(":CUST"));
}

TEST_F(VdProcTest, TickAllLeavesParametersAlone)
{
    TVdStoredProc* proc = Proc(2, Inputs(2));
    int asked = 0;
    Vandor.OnEnterProcParameter = [&](QObject*, TVdTable*, TVdListItem*) { ++asked; };
    proc->SetFieldState(2);
    EXPECT_TRUE(proc->Items(0)->Checked());
    EXPECT_TRUE(proc->Items(1)->Checked());
    EXPECT_FALSE(proc->Items(2)->Checked());
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(proc->FieldState(), 2);
}

TEST_F(VdProcTest, ShotOfAProcedureBesideATable)
{
    TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
    customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
    customer.AddField(QStringLiteral("COMPANY"), ftString);
    Vandor.TableList()->AddTable(QStringLiteral("CUSTOMER"), &customer);
    TParams params;
    params.Add(With(TParam(QStringLiteral("CUSTNO"), ptInput, ftInteger), 1221));
    params.Add(TParam(QStringLiteral("FROM_DATE"), ptInput, ftDate));
    params.Add(TParam(QStringLiteral("TO_DATE"), ptInput, ftDate));
    TVdStoredProc* proc = Proc(3, params, "ORDERS_OF");
    ASSERT_NE(proc, nullptr);
    proc->Items(0)->SetCheck(true);
    proc->SetTop(40);
    Area->resize(420, 220);
    ASSERT_FALSE(vd::test::SaveShot(*Area, QStringLiteral("procedure_object")).isNull());
}
