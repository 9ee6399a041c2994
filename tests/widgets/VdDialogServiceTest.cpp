#include "builder/VdDialogService.h"
#include "builder/VdRecordingDialogService.h"

#include "core/VdError.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <stdexcept>

using vd::TVdDialogService;
using vd::TVdRecordingDialogService;

namespace {

// What a modal box looked like when it came up, before a timer closed it.
struct TSeenBox {
    bool Seen = false;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;
    QString Caption;
    QString Text;
    QMessageBox::StandardButtons Buttons;
};

// Arms a zero timer that finds the modal message box once the nested loop runs, records it,
// and presses the given button (or Escape when none is given).
void CloseNextBox(TSeenBox& seen, QMessageBox::StandardButton press)
{
    QTimer::singleShot(0, [&seen, press] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        seen = TSeenBox{true, box->icon(), box->windowTitle(), box->text(), box->standardButtons()};
        if (press == QMessageBox::NoButton)
            QTest::keyClick(box, Qt::Key_Escape);
        else
            box->button(press)->click();
    });
}

// A widget whose mouse handler refuses, as the views do, through the guard.
class TRefusingWidget : public QWidget
{
public:
    bool Refuse = true;
    int Completed = 0;

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        vd::VdRunGuarded(this, [this] {
            if (Refuse)
                throw vd::EVdError("Can't delete first row");
            ++Completed;
        });
    }
};

class TThrowingService : public TVdDialogService
{
public:
    void ShowMessage(QWidget*, vd::TVdMessageKind, const QString&, const QString&) override
    {
        throw std::runtime_error("no display");
    }
    QMessageBox::StandardButton AskYesNo(QWidget*, const QString&, const QString&) override
    {
        return QMessageBox::No;
    }
};

} // namespace

TEST(VdDialogServiceTest, MessageBoxServiceIsUsedUnlessAnotherIsInstalled)
{
    EXPECT_NE(dynamic_cast<vd::TVdMessageBoxService*>(&TVdDialogService::Current()), nullptr);
    {
        TVdRecordingDialogService recorder;
        EXPECT_EQ(&TVdDialogService::Current(), &recorder);
        {
            TVdRecordingDialogService inner;
            EXPECT_EQ(&TVdDialogService::Current(), &inner);
        }
        EXPECT_EQ(&TVdDialogService::Current(), &recorder);
    }
    EXPECT_NE(dynamic_cast<vd::TVdMessageBoxService*>(&TVdDialogService::Current()), nullptr);
}

TEST(VdDialogServiceTest, QuestionsAreAnsweredFromTheScriptThenByDefault)
{
    TVdRecordingDialogService recorder;
    recorder.Answer(QMessageBox::No);
    QWidget parent;
    EXPECT_EQ(vd::VdAskYesNo(&parent, QStringLiteral("Confirmation"), QStringLiteral("Sure?")),
              QMessageBox::No);
    EXPECT_EQ(vd::VdAskYesNo(nullptr, QStringLiteral("Attention!"), QStringLiteral("Again?")),
              QMessageBox::Yes);
    recorder.SetDefaultAnswer(QMessageBox::No);
    EXPECT_EQ(vd::VdAskYesNo(nullptr, QStringLiteral("Attention!"), QStringLiteral("Third?")),
              QMessageBox::No);
    ASSERT_EQ(recorder.Questions().size(), 3);
    EXPECT_EQ(recorder.Questions()[0].Caption, QStringLiteral("Confirmation"));
    EXPECT_EQ(recorder.Questions()[0].Text, QStringLiteral("Sure?"));
    EXPECT_EQ(recorder.Questions()[0].Parent, &parent);
    EXPECT_TRUE(recorder.Messages().isEmpty());
}

TEST(VdDialogServiceTest, ErrorsAndInformationAreRecordedWithTheirKind)
{
    TVdRecordingDialogService recorder;
    vd::VdShowError(nullptr, QStringLiteral("Invalid link"));
    vd::VdShowInformation(nullptr, QStringLiteral("Note"), QStringLiteral("Done"));
    ASSERT_EQ(recorder.Messages().size(), 2);
    EXPECT_EQ(recorder.Messages()[0].Kind, vd::vdmError);
    EXPECT_EQ(recorder.Messages()[0].Caption, QStringLiteral("Error!"));
    EXPECT_EQ(recorder.Messages()[0].Text, QStringLiteral("Invalid link"));
    EXPECT_EQ(recorder.Messages()[1].Kind, vd::vdmInformation);
    EXPECT_EQ(recorder.Messages()[1].Caption, QStringLiteral("Note"));
}

TEST(VdDialogServiceTest, GuardRunsTheActionAndReportsNothingWhenItSucceeds)
{
    TVdRecordingDialogService recorder;
    int runs = 0;
    EXPECT_TRUE(vd::VdRunGuarded(nullptr, [&runs] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(vd::VdRunGuarded(nullptr, {}));
    EXPECT_TRUE(recorder.Dialogs().isEmpty());
}

TEST(VdDialogServiceTest, GuardShowsALibraryRefusalAsAnErrorBox)
{
    TVdRecordingDialogService recorder;
    QWidget parent;
    EXPECT_FALSE(vd::VdRunGuarded(&parent, [] { throw vd::EVdError("Can't delete last row!"); }));
    ASSERT_EQ(recorder.Messages().size(), 1);
    EXPECT_EQ(recorder.Messages()[0].Kind, vd::vdmError);
    EXPECT_EQ(recorder.Messages()[0].Text, QStringLiteral("Can't delete last row!"));
    EXPECT_EQ(recorder.Messages()[0].Parent, &parent);
}

TEST(VdDialogServiceTest, GuardShowsParserErrorsAndOtherExceptionsWithTheirText)
{
    TVdRecordingDialogService recorder;
    EXPECT_FALSE(vd::VdRunGuarded(nullptr, [] { throw vd::EVdParserError(1, "FROM", 2, 7); }));
    EXPECT_FALSE(vd::VdRunGuarded(nullptr, [] { throw std::out_of_range("index 9"); }));
    EXPECT_FALSE(vd::VdRunGuarded(nullptr, [] { throw 42; }));
    ASSERT_EQ(recorder.Messages().size(), 3);
    EXPECT_EQ(recorder.Messages()[0].Text,
              QString::fromStdString(vd::EVdParserError::MessageFor(1, "FROM", 2, 7)));
    EXPECT_EQ(recorder.Messages()[1].Text, QStringLiteral("index 9"));
    EXPECT_EQ(recorder.Messages()[2].Text, QStringLiteral("Unknown error"));
}

TEST(VdDialogServiceTest, GuardSurvivesAServiceThatFailsToReport)
{
    TThrowingService failing;
    TVdDialogService* previous = TVdDialogService::Install(&failing);
    const bool completed = vd::VdRunGuarded(nullptr, [] { throw vd::EVdError("refused"); });
    TVdDialogService::Install(previous);
    EXPECT_FALSE(completed);
}

TEST(VdDialogServiceTest, NothingThrownInAMouseHandlerReachesTheEventLoop)
{
    TVdRecordingDialogService recorder;
    TRefusingWidget widget;
    widget.resize(40, 40);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(widget.Completed, 0);
    ASSERT_EQ(recorder.Messages().size(), 1);
    EXPECT_EQ(recorder.Messages()[0].Text, QStringLiteral("Can't delete first row"));
    EXPECT_EQ(recorder.Messages()[0].Parent, &widget);

    widget.Refuse = false;
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(widget.Completed, 1);
    EXPECT_EQ(recorder.Messages().size(), 1);
}

TEST(VdDialogServiceTest, MessageBoxQuestionHasTheQuestionIconAndYesNo)
{
    vd::TVdMessageBoxService service;
    TSeenBox seen;
    CloseNextBox(seen, QMessageBox::No);
    EXPECT_EQ(service.AskYesNo(nullptr, QStringLiteral("Confirmation"),
                               QStringLiteral("Are you sure you want to delete current row?")),
              QMessageBox::No);
    ASSERT_TRUE(seen.Seen);
    EXPECT_EQ(seen.Icon, QMessageBox::Question);
    EXPECT_EQ(seen.Caption, QStringLiteral("Confirmation"));
    EXPECT_EQ(seen.Text, QStringLiteral("Are you sure you want to delete current row?"));
    EXPECT_EQ(seen.Buttons, QMessageBox::Yes | QMessageBox::No);

    CloseNextBox(seen, QMessageBox::Yes);
    EXPECT_EQ(service.AskYesNo(nullptr, QStringLiteral("c"), QStringLiteral("t")),
              QMessageBox::Yes);
}

TEST(VdDialogServiceTest, MessageBoxQuestionEscapeAnswersNo)
{
    vd::TVdMessageBoxService service;
    TSeenBox seen;
    CloseNextBox(seen, QMessageBox::NoButton);
    EXPECT_EQ(service.AskYesNo(nullptr, QStringLiteral("c"), QStringLiteral("t")), QMessageBox::No);
    EXPECT_TRUE(seen.Seen);
}

TEST(VdDialogServiceTest, MessageBoxErrorHasTheCriticalIconAndOk)
{
    vd::TVdMessageBoxService service;
    TSeenBox seen;
    CloseNextBox(seen, QMessageBox::Ok);
    service.ShowMessage(nullptr, vd::vdmError, QStringLiteral("Error!"),
                        QStringLiteral("Invalid link"));
    ASSERT_TRUE(seen.Seen);
    EXPECT_EQ(seen.Icon, QMessageBox::Critical);
    EXPECT_EQ(seen.Caption, QStringLiteral("Error!"));
    EXPECT_EQ(seen.Text, QStringLiteral("Invalid link"));
    EXPECT_EQ(seen.Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));

    CloseNextBox(seen, QMessageBox::Ok);
    service.ShowMessage(nullptr, vd::vdmInformation, QStringLiteral("i"), QStringLiteral("t"));
    EXPECT_EQ(seen.Icon, QMessageBox::Information);
}
