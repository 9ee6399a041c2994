#include "builder/VdRecordingDialogService.h"

namespace vd {

TVdRecordingDialogService::TVdRecordingDialogService() : FPrevious(TVdDialogService::Install(this))
{
}

TVdRecordingDialogService::~TVdRecordingDialogService() { TVdDialogService::Install(FPrevious); }

void TVdRecordingDialogService::ShowMessage(QWidget* parent, TVdMessageKind kind,
                                            const QString& caption, const QString& text)
{
    FDialogs.append(TVdRecordedDialog{false, kind, caption, text, parent});
}

QMessageBox::StandardButton
TVdRecordingDialogService::AskYesNo(QWidget* parent, const QString& caption, const QString& text)
{
    FDialogs.append(TVdRecordedDialog{true, vdmInformation, caption, text, parent});
    return FAnswers.isEmpty() ? FDefaultAnswer : FAnswers.takeFirst();
}

QList<TVdRecordedDialog> TVdRecordingDialogService::Messages() const
{
    QList<TVdRecordedDialog> messages;
    for (const TVdRecordedDialog& dialog : FDialogs)
        if (!dialog.Question)
            messages.append(dialog);
    return messages;
}

QList<TVdRecordedDialog> TVdRecordingDialogService::Questions() const
{
    QList<TVdRecordedDialog> questions;
    for (const TVdRecordedDialog& dialog : FDialogs)
        if (dialog.Question)
            questions.append(dialog);
    return questions;
}

} // namespace vd
