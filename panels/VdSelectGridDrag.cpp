// The select grid as a drop target: fields dragged from the diagram, and its own rows.

#include "panels/VdSelectGrid.h"

#include "builder/VdDialogService.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>

namespace vd {

TVdTable* TVdSelectGrid::DraggedTable(QObject* source) const
{
    auto* workArea = qobject_cast<TVdWorkArea*>(source);
    auto* table = workArea ? dynamic_cast<TVdTable*>(workArea->Selected()) : nullptr;
    return table && table->CurrentItem() ? table : nullptr;
}

bool TVdSelectGrid::CanDragRow(int row) const { return row >= 0 && row < LastRow(); }

bool TVdSelectGrid::DropCell(const QPoint& pos, int& row, int& column) const
{
    if (pos.y() < 0)
        return false;
    row = rowAt(pos.y());
    column = columnAt(pos.x());
    if (row < 0 || column < 0) {
        row = LastRow();
        column = 2;
    }
    return true;
}

bool TVdSelectGrid::HandleDragOver(QObject* source, const QPoint& pos)
{
    int row = -1;
    int column = -1;
    if (!DropCell(pos, row, column))
        return false;
    if (source == this)
        return CanDragRow(currentRow());
    TVdTable* table = DraggedTable(source);
    if (!table)
        return false;
    FDraggedItem = table->CurrentItem();
    return true;
}

bool TVdSelectGrid::HandleDragDrop(QObject* source, const QPoint& pos)
{
    if (!HandleDragOver(source, pos))
        return false;
    int row = -1;
    int column = -1;
    DropCell(pos, row, column);
    if (source == this) {
        // The blank row stays last: a row dropped on it or below goes just above it.
        MoveRow(currentRow(), std::min(row, LastRow() - 1));
        return true;
    }
    TVdTable* table = DraggedTable(source);
    DropField(table, FDraggedItem ? FDraggedItem : table->CurrentItem(), row, column);
    FDraggedItem = nullptr;
    return true;
}

void TVdSelectGrid::DropField(TVdTable* table, TVdListItem* item, int row, int column)
{
    setCurrentCell(row, column);
    if (row != LastRow()) {
        // The row is replaced: first it stops selecting what it did.
        RaiseSelectEvent(OnUnselectField, row);
    } else {
        insertRow(rowCount());
        for (int c = 0; c < 3; ++c)
            SetCell(LastRow(), c, QString());
    }
    SetCell(row, 1, QString());
    SetCell(row, 0, item->Name());
    SetCell(row, 2, table->GetAlias() + QLatin1Char('.') + item->Name());
    RaiseSelectEvent(OnSelectField, row);
}

void TVdSelectGrid::MoveRow(int from, int to)
{
    if (from < 0 || to < 0 || from == to || !CanDragRow(from))
        return;
    const int column = std::max(currentColumn(), 0);
    const QString cells[3] = {CellText(from, 0), CellText(from, 1), CellText(from, 2)};
    removeRow(from);
    insertRow(to);
    for (int c = 0; c < 3; ++c)
        SetCell(to, c, cells[c]);
    setCurrentCell(to, column);
    // The select list follows the grid's order.
    if (OnMoveField)
        OnMoveField(from, to);
}

void TVdSelectGrid::mousePressEvent(QMouseEvent* event)
{
    QTableWidget::mousePressEvent(event);
    FPressed = event->button() == Qt::LeftButton;
    FPressPos = event->position().toPoint();
}

void TVdSelectGrid::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if (FPressed && (event->buttons() & Qt::LeftButton) && pos != FPressPos &&
        CanDragRow(rowAt(FPressPos.y()))) {
        FPressed = false;
        setCurrentCell(rowAt(FPressPos.y()), std::max(columnAt(FPressPos.x()), 0));
        StartRowDrag();
        return;
    }
    QTableWidget::mouseMoveEvent(event);
}

void TVdSelectGrid::StartRowDrag()
{
    auto* drag = new QDrag(this);
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(RowMimeType), QByteArray::number(currentRow()));
    data->setText(CellText(currentRow(), 2));
    drag->setMimeData(data);
    drag->exec(Qt::MoveAction);
}

void TVdSelectGrid::dragEnterEvent(QDragEnterEvent* event) { dragMoveEvent(event); }

void TVdSelectGrid::dragMoveEvent(QDragMoveEvent* event)
{
    if (HandleDragOver(event->source(), event->position().toPoint()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void TVdSelectGrid::dropEvent(QDropEvent* event)
{
    bool dropped = false;
    VdRunGuarded(this,
                 [&] { dropped = HandleDragDrop(event->source(), event->position().toPoint()); });
    if (dropped) {
        // Nothing leaves the source: the diagram keeps its field, the grid moved its row.
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

bool TVdSelectGrid::DragEventFilter(QObject* watched, QEvent* event)
{
    if (watched != horizontalHeader()->viewport())
        return false;
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        // Over the header the position lies above the first row, where nothing is taken.
        auto* drag = static_cast<QDropEvent*>(event);
        const QPoint pos = viewport()->mapFromGlobal(
            horizontalHeader()->viewport()->mapToGlobal(drag->position().toPoint()));
        if (event->type() != QEvent::Drop && HandleDragOver(drag->source(), pos))
            drag->acceptProposedAction();
        else
            drag->ignore();
        return true;
    }
    default:
        return false;
    }
}

} // namespace vd
