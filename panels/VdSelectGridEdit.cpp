// The select grid's in-place editors, keys and pop-up menu.

#include "panels/VdSelectGrid.h"

#include "builder/VdDialogService.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "resources/VdResource.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>

namespace vd {

void TVdSelectGrid::CreateEditors()
{
    // The editors live on the grid's parent, above the grid, as the cell they cover.
    FComboEditor = new QComboBox(parentWidget());
    FComboEditor->setObjectName(QStringLiteral("SelectGridCombo"));
    FComboEditor->setEditable(true);
    FComboEditor->setInsertPolicy(QComboBox::NoInsert);
    FComboEditor->setMaxVisibleItems(12);
    FComboEditor->hide();
    FComboEditor->installEventFilter(this);
    FComboEditor->lineEdit()->installEventFilter(this);

    FTextEditor = new QLineEdit(parentWidget());
    FTextEditor->setObjectName(QStringLiteral("SelectGridEdit"));
    FTextEditor->setFixedHeight(DefaultRowHeight);
    FTextEditor->hide();
    FTextEditor->installEventFilter(this);
}

void TVdSelectGrid::CreatePopupMenu()
{
    FPopupMenu = new QMenu(this);
    FDeleteRowAction = FPopupMenu->addAction(VdResource::DeleteCurrentRowItem());
    connect(FDeleteRowAction, &QAction::triggered, this,
            [this] { VdRunGuarded(this, [this] { HandleDeleteCurrentRow(); }); });
}

QWidget* TVdSelectGrid::ActiveEditor() const
{
    if (FEditRow < 0)
        return nullptr;
    return FEditColumn == 0 ? static_cast<QWidget*>(FTextEditor)
                            : static_cast<QWidget*>(FComboEditor);
}

void TVdSelectGrid::HandleEditText(int column, int row)
{
    if (row < 0 || row >= rowCount() || column < 0 || column > 2)
        return;
    // An editor still open on another cell is closed first, as leaving it would.
    if (QWidget* open = ActiveEditor())
        HandleSetCellText(open);
    setCurrentCell(row, column);
    scrollToItem(item(row, column));
    const QRect rect = visualRect(model()->index(row, column));
    const QRect cell(viewport()->mapTo(parentWidget(), rect.topLeft()), rect.size());
    FEditRow = row;
    FEditColumn = column;
    if (column == 0) {
        ShowEditor(FTextEditor, cell, CellText(row, column));
        FTextEditor->selectAll();
        return;
    }
    FComboEditor->clear();
    FComboEditor->addItems(column == 1 ? FAggregates : FFields);
    FComboEditor->setFixedHeight(cell.height() + 1);
    ShowEditor(FComboEditor, cell, CellText(row, column));
    FComboEditor->lineEdit()->selectAll();
}

void TVdSelectGrid::ShowEditor(QWidget* editor, const QRect& cell, const QString& text)
{
    editor->setGeometry(cell.left(), cell.top(), cell.width() + 1, editor->height());
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        combo->setEditText(text);
    else
        static_cast<QLineEdit*>(editor)->setText(text);
    editor->raise();
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
}

void TVdSelectGrid::HandleSetCellText(QWidget* editor)
{
    if (!editor || editor != ActiveEditor())
        return;
    const int row = FEditRow;
    const int column = FEditColumn;
    // Closed before hiding: the focus leaving the hidden editor must not close it again.
    FEditRow = FEditColumn = -1;
    editor->hide();
    if (editor == FComboEditor) {
        RaiseSelectEvent(OnUnselectField, row);
        SetCell(row, column, FComboEditor->currentText());
        RaiseSelectEvent(OnSelectField, row);
    } else {
        QString text = FTextEditor->text();
        if (OnChangeAlias)
            OnChangeAlias(CellText(row, 2), CellText(row, 0), text);
        SetCell(row, 0, text);
    }
    AppendBlankRowAfterEdit(row, column);
    setFocus(Qt::OtherFocusReason);
}

void TVdSelectGrid::AppendBlankRowAfterEdit(int row, int column)
{
    if (column != 2 || row != LastRow() || CellText(row, 2).isEmpty())
        return;
    insertRow(rowCount());
    for (int c = 0; c < 3; ++c)
        SetCell(LastRow(), c, QString());
}

void TVdSelectGrid::CancelEdit()
{
    QWidget* editor = ActiveEditor();
    if (!editor)
        return;
    // Forgetting the cell first keeps the focus change from writing it.
    FEditRow = FEditColumn = -1;
    editor->hide();
    setFocus(Qt::OtherFocusReason);
}

bool TVdSelectGrid::EditorKey(QWidget* editor, QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (editor == FComboEditor && FComboEditor->view()->isVisible())
            return false;
        VdRunGuarded(this, [&] { HandleSetCellText(editor); });
        return true;
    case Qt::Key_Escape:
        if (editor == FComboEditor && FComboEditor->view()->isVisible())
            return false;
        CancelEdit();
        return true;
    default:
        return false;
    }
}

bool TVdSelectGrid::eventFilter(QObject* watched, QEvent* event)
{
    QWidget* editor = nullptr;
    if (watched == FTextEditor)
        editor = FTextEditor;
    else if (watched == FComboEditor || watched == FComboEditor->lineEdit())
        editor = FComboEditor;
    if (editor && editor == ActiveEditor()) {
        if (event->type() == QEvent::KeyPress)
            return EditorKey(editor, static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            // The combo's own list and another window taking the focus do not leave the cell;
            // the combo's line edit handing focus to the combo neither.
            const bool leaves = reason != Qt::PopupFocusReason &&
                                reason != Qt::ActiveWindowFocusReason &&
                                !editor->isAncestorOf(QApplication::focusWidget()) &&
                                QApplication::focusWidget() != editor;
            if (leaves)
                VdRunGuarded(this, [&] { HandleSetCellText(editor); });
        }
        return false;
    }
    return DragEventFilter(watched, event) || QTableWidget::eventFilter(watched, event);
}

void TVdSelectGrid::keyPressEvent(QKeyEvent* event)
{
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    if (event->key() == Qt::Key_Delete && ctrl) {
        AskAndDeleteCurrentRow();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
        event->key() == Qt::Key_F2) {
        if (currentRow() >= 0 && currentColumn() >= 0)
            HandleEditText(currentColumn(), currentRow());
        return;
    }
    QTableWidget::keyPressEvent(event);
}

void TVdSelectGrid::AskAndDeleteCurrentRow()
{
    if (VdAskYesNo(this, VdResource::ConfirmationCaption(),
                   VdResource::DeleteCurrentRowQuestion()) == QMessageBox::No)
        return;
    VdRunGuarded(this, [this] { HandleDeleteCurrentRow(); });
}

void TVdSelectGrid::HandleDeleteCurrentRow()
{
    // Without a current cell the first data row is current, as in a fresh grid.
    const int row = currentRow() < 0 ? 0 : currentRow();
    if (row == LastRow())
        throw EVdError(ToStdString(VdResource::CantDeleteLastRow()));
    const QString field = CellText(row, 2);
    const QString aggregate = CellText(row, 1);
    const QString alias = CellText(row, 0);
    removeRow(row);
    if (OnDeleteField)
        OnDeleteField(field, aggregate, alias);
}

void TVdSelectGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) {
        QTableWidget::mouseDoubleClickEvent(event);
        return;
    }
    setCurrentCell(index.row(), index.column());
    HandleEditText(index.column(), index.row());
}

void TVdSelectGrid::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid())
        setCurrentCell(index.row(), index.column());
    FPopupMenu->exec(event->globalPos());
}

} // namespace vd
