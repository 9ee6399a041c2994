#include "VdSqlPane.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>

namespace vd {

TVdSqlPane::TVdSqlPane(QWidget* parent)
    : QWidget(parent), FEditor(new QPlainTextEdit(this)), FMessage(new QLabel(this))
{
    QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    mono.setStyleHint(QFont::Monospace);
    FEditor->setFont(mono);
    FEditor->setLineWrapMode(QPlainTextEdit::NoWrap);
    FEditor->setTabChangesFocus(false);
    FEditor->setPlaceholderText(tr("SQL: edit and press Ctrl+Return to apply"));
    FMessage->setWordWrap(true);
    FMessage->setTextInteractionFlags(Qt::TextSelectableByMouse);
    FMessage->setStyleSheet(QStringLiteral("color: #b00020;"));
    FMessage->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(FEditor, 1);
    layout->addWidget(FMessage);
    // Taken before the editor sees it, which would otherwise insert a line break.
    FEditor->installEventFilter(this);
}

bool TVdSqlPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == FEditor && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            (key->modifiers() & Qt::ControlModifier)) {
            emit applyRequested();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void TVdSqlPane::ShowSql(const QString& sql)
{
    QString text = sql;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    FEditor->setPlainText(text);
}

QString TVdSqlPane::Text() const
{
    QString text = FEditor->toPlainText();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return text;
}

void TVdSqlPane::ShowError(const QString& message, int line, int position)
{
    FMessage->setText(message);
    FMessage->show();
    const QTextBlock block = FEditor->document()->findBlockByNumber(qMax(0, line - 1));
    if (!block.isValid())
        return;
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor,
                        qBound(0, position - 1, qMax(0, block.length() - 1)));
    FEditor->setTextCursor(cursor);
    FEditor->setFocus();
}

void TVdSqlPane::ClearError()
{
    FMessage->clear();
    FMessage->hide();
}

QString TVdSqlPane::ErrorText() const
{
    return FMessage->isHidden() ? QString() : FMessage->text();
}

} // namespace vd
