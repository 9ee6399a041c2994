#pragma once

// The statement as text: follows the builder, and applies an edited text back
// (Ctrl+Return). A text the parser refuses leaves the pane as typed, shows the parser's
// message and puts the cursor where the parser stopped.

#include <QWidget>

class QLabel;
class QPlainTextEdit;

namespace vd {

class TVdSqlPane : public QWidget
{
    Q_OBJECT

public:
    explicit TVdSqlPane(QWidget* parent = nullptr);

    QPlainTextEdit* Editor() const { return FEditor; }
    // The builder's print, shown with the editor's line breaks (the builder's are CR LF).
    void ShowSql(const QString& sql);
    // The pane's text with CR LF line breaks, as the parser reads lines.
    QString Text() const;
    // An error of the last apply at line and position (1-based); clears with an empty text.
    void ShowError(const QString& message, int line, int position);
    void ClearError();
    QString ErrorText() const;

signals:
    void applyRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* FEditor;
    QLabel* FMessage;
};

} // namespace vd
