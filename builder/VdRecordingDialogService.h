#pragma once

// A dialog service that shows nothing: it records every message and question and answers the
// questions from a script. Tests (the library's and a host's) install it for their scope.

#include "builder/VdDialogService.h"

#include <QList>

namespace vd {

struct TVdRecordedDialog {
    bool Question = false;
    TVdMessageKind Kind = vdmInformation; // messages only
    QString Caption;
    QString Text;
    QWidget* Parent = nullptr;
};

class TVdRecordingDialogService : public TVdDialogService
{
public:
    // Installs itself for its lifetime and restores the previous service when destroyed.
    TVdRecordingDialogService();
    ~TVdRecordingDialogService() override;
    TVdRecordingDialogService(const TVdRecordingDialogService&) = delete;
    TVdRecordingDialogService& operator=(const TVdRecordingDialogService&) = delete;

    void ShowMessage(QWidget* parent, TVdMessageKind kind, const QString& caption,
                     const QString& text) override;
    // Answers with the next scripted answer, or with the default answer once the script is used
    // up.
    QMessageBox::StandardButton AskYesNo(QWidget* parent, const QString& caption,
                                         const QString& text) override;

    void Answer(QMessageBox::StandardButton answer) { FAnswers.append(answer); }
    void SetDefaultAnswer(QMessageBox::StandardButton answer) { FDefaultAnswer = answer; }

    const QList<TVdRecordedDialog>& Dialogs() const { return FDialogs; }
    QList<TVdRecordedDialog> Messages() const;
    QList<TVdRecordedDialog> Questions() const;
    void Clear() { FDialogs.clear(); }

private:
    TVdDialogService* FPrevious = nullptr;
    QList<TVdRecordedDialog> FDialogs;
    QList<QMessageBox::StandardButton> FAnswers;
    QMessageBox::StandardButton FDefaultAnswer = QMessageBox::Yes;
};

} // namespace vd
