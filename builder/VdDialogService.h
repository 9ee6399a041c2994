#pragma once

// Every message box and Yes/No question of the library goes through one replaceable service,
// so a host can restyle them and a test can answer them without a modal loop.

#include <QMessageBox>
#include <QString>

#include <cstdint>
#include <functional>

class QWidget;

namespace vd {

enum TVdMessageKind : std::uint8_t { vdmError, vdmInformation };

class TVdDialogService
{
public:
    virtual ~TVdDialogService() = default;

    // A message box with an OK button and the icon of its kind.
    virtual void ShowMessage(QWidget* parent, TVdMessageKind kind, const QString& caption,
                             const QString& text) = 0;

    // A question with Yes and No buttons and the question icon; answers QMessageBox::Yes or
    // QMessageBox::No. Callers proceed unless the answer is No.
    virtual QMessageBox::StandardButton AskYesNo(QWidget* parent, const QString& caption,
                                                 const QString& text) = 0;

    // The service in use: the installed one, else the message-box service.
    static TVdDialogService& Current();

    // Installs a service (not owned; it must outlive its installation) and returns the one it
    // replaces; null restores the message-box service.
    static TVdDialogService* Install(TVdDialogService* service);
};

// The service over QMessageBox, used unless another one is installed.
class TVdMessageBoxService : public TVdDialogService
{
public:
    void ShowMessage(QWidget* parent, TVdMessageKind kind, const QString& caption,
                     const QString& text) override;
    QMessageBox::StandardButton AskYesNo(QWidget* parent, const QString& caption,
                                         const QString& text) override;
};

// Shorthands through the current service.
void VdShowError(QWidget* parent, const QString& text);
void VdShowInformation(QWidget* parent, const QString& caption, const QString& text);
QMessageBox::StandardButton VdAskYesNo(QWidget* parent, const QString& caption,
                                       const QString& text);

// Runs an action at the boundary of a Qt event handler. Whatever it throws (EVdError and every
// other std::exception included) is shown as an error message through the service and goes no
// further, so nothing escapes into the event loop. Returns true when the action completed.
bool VdRunGuarded(QWidget* parent, const std::function<void()>& action) noexcept;

} // namespace vd
