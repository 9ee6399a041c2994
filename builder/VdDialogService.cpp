#include "builder/VdDialogService.h"

#include "resources/VdResource.h"

#include <QtGlobal>

#include <exception>

namespace vd {

namespace {

TVdDialogService* InstalledService = nullptr;

QString TextOf(const std::exception& error) { return QString::fromUtf8(error.what()); }

// Shows the refusal; a failing service must not take the event loop down either.
void ReportError(QWidget* parent, const QString& text) noexcept
{
    try {
        VdShowError(parent, text);
    } catch (const std::exception& error) {
        qWarning("vd: %s (while reporting: %s)", qPrintable(text), error.what());
    } catch (...) {
        qWarning("vd: %s", qPrintable(text));
    }
}

} // namespace

TVdDialogService& TVdDialogService::Current()
{
    static TVdMessageBoxService messageBoxes;
    return InstalledService ? *InstalledService : messageBoxes;
}

TVdDialogService* TVdDialogService::Install(TVdDialogService* service)
{
    TVdDialogService* previous = InstalledService;
    InstalledService = service;
    return previous;
}

void TVdMessageBoxService::ShowMessage(QWidget* parent, TVdMessageKind kind, const QString& caption,
                                       const QString& text)
{
    const QMessageBox::Icon icon =
        kind == vdmError ? QMessageBox::Critical : QMessageBox::Information;
    QMessageBox box(icon, caption, text, QMessageBox::Ok, parent);
    box.exec();
}

QMessageBox::StandardButton TVdMessageBoxService::AskYesNo(QWidget* parent, const QString& caption,
                                                           const QString& text)
{
    QMessageBox box(QMessageBox::Question, caption, text, QMessageBox::Yes | QMessageBox::No,
                    parent);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::No ? QMessageBox::No : QMessageBox::Yes;
}

void VdShowError(QWidget* parent, const QString& text)
{
    TVdDialogService::Current().ShowMessage(parent, vdmError, VdResource::ErrorCaption(), text);
}

void VdShowInformation(QWidget* parent, const QString& caption, const QString& text)
{
    TVdDialogService::Current().ShowMessage(parent, vdmInformation, caption, text);
}

QMessageBox::StandardButton VdAskYesNo(QWidget* parent, const QString& caption, const QString& text)
{
    return TVdDialogService::Current().AskYesNo(parent, caption, text);
}

bool VdRunGuarded(QWidget* parent, const std::function<void()>& action) noexcept
{
    try {
        if (action)
            action();
        return true;
    } catch (const std::exception& error) {
        ReportError(parent, TextOf(error));
    } catch (...) {
        ReportError(parent, VdResource::UnknownError());
    }
    return false;
}

} // namespace vd
