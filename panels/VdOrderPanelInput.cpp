// The order panel's mouse, keyboard and drag and drop.

#include "panels/VdOrderPanel.h"

#include "builder/VdDialogService.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

namespace vd {

bool TVdOrderPanel::HandleDragOverOrder(QObject* source)
{
    return source == FUnsorted || source == FSorted;
}

void TVdOrderPanel::HandleDragDropOrder(QObject* source, const QPoint& pos)
{
    if (source == FUnsorted) {
        HandleAddClick();
        return;
    }
    if (source != FSorted)
        return;
    // Reordering: the entry lands where it is dropped, at the end below the last one.
    QTreeWidgetItem* target = FSorted->itemAt(pos);
    const int index =
        target ? FSorted->indexOfTopLevelItem(target) : FSorted->topLevelItemCount() - 1;
    QTreeWidgetItem* entry = FSorted->selectedItems().value(0);
    if (!entry || FSorted->indexOfTopLevelItem(entry) == index)
        return;
    MoveSelectedTo(index);
    UpdateParser();
    HandleSelectItem();
}

bool TVdOrderPanel::HandleDragOverUnOrder(QObject* source) { return source == FSorted; }

void TVdOrderPanel::HandleDragDropUnOrder(QObject* source)
{
    if (source == FSorted)
        HandleRemoveClick();
}

bool TVdOrderPanel::DragEvent(QObject* list, QEvent* event)
{
    auto* drag = static_cast<QDropEvent*>(event);
    const bool sorted = list == FSorted->viewport();
    const bool accepted =
        sorted ? HandleDragOverOrder(drag->source()) : HandleDragOverUnOrder(drag->source());
    if (!accepted) {
        drag->ignore();
        return true;
    }
    if (event->type() == QEvent::Drop) {
        VdRunGuarded(this, [&] {
            if (sorted)
                HandleDragDropOrder(drag->source(), drag->position().toPoint());
            else
                HandleDragDropUnOrder(drag->source());
        });
        // The panel moved the entry itself: the source view must not remove anything.
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
        return true;
    }
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    return true;
}

bool TVdOrderPanel::ListKey(QObject* list, int key, Qt::KeyboardModifiers modifiers)
{
    const bool ctrl = modifiers & Qt::ControlModifier;
    if (list == FUnsorted) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Insert) {
            HandleAddClick();
            return true;
        }
        return false;
    }
    switch (key) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        HandleRemoveClick();
        return true;
    case Qt::Key_Space:
        HandleChangeOrder();
        return true;
    case Qt::Key_Up:
        if (!ctrl)
            return false;
        if (FUp->isEnabled())
            HandleMoveUp();
        return true;
    case Qt::Key_Down:
        if (!ctrl)
            return false;
        if (FDown->isEnabled())
            HandleMoveDown();
        return true;
    default:
        return false;
    }
}

bool TVdOrderPanel::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (watched == FSorted->viewport() || watched == FUnsorted->viewport())
            return DragEvent(watched, event);
        break;
    case QEvent::MouseButtonRelease:
        // A click in either list: the buttons follow the selections.
        if (watched == FSorted->viewport() || watched == FUnsorted->viewport())
            HandleSelectItem();
        break;
    case QEvent::KeyPress:
        if (watched == FSorted || watched == FUnsorted) {
            auto* key = static_cast<QKeyEvent*>(event);
            bool handled = false;
            VdRunGuarded(this, [&] { handled = ListKey(watched, key->key(), key->modifiers()); });
            return handled;
        }
        break;
    case QEvent::KeyRelease:
        // Moving through a list with the keys selects as a click does.
        if (watched == FSorted || watched == FUnsorted) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home ||
                key == Qt::Key_End || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
                HandleSelectItem();
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace vd
