// The work area's drags: a field row dragged onto a row of another table links the two;
// anything else dragged over the diagram is the builder's (and so its host's) business.

#include "diagram/VdFloatPanel.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QFontMetrics>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>

namespace vd {

bool TVdWorkArea::CompatibleTypes(TFieldType source, TFieldType target)
{
    if (IsNumericType(source))
        return IsNumericType(target);
    if (IsFloatType(source))
        return IsFloatType(target);
    if (IsStringType(source))
        return IsStringType(target);
    // Dates and times link only to the very same type.
    return target == source;
}

static QByteArray AreaTag(const TVdWorkArea* area)
{
    return QByteArray::number(reinterpret_cast<quintptr>(area));
}

bool TVdWorkArea::IsFieldDrag(QObject* source, const QMimeData* data) const
{
    if (source == this || source == viewport())
        return true;
    // A drop built without a running drag has no source: our own tag still tells.
    return !source && data && data->data(QLatin1String(FieldMimeType)) == AreaTag(this);
}

QPixmap TVdWorkArea::DragPicture(const QString& text) const
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    // Width rounded up to a multiple of 16, as cursor sizes are.
    const int width = (metrics.horizontalAdvance(text) + 4 + 15) / 16 * 16;
    const int height = metrics.height() + 4;
    const qreal ratio = devicePixelRatioF();
    QPixmap picture(QSize(width, height) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRect(QRectF(0.5, 0.5, width - 1, height - 1));
    painter.setFont(bold);
    painter.drawText(QRect(0, 0, width, height), Qt::AlignCenter, text);
    return picture;
}

void TVdWorkArea::StartFieldDrag(TVdTable* table)
{
    if (!table) {
        FFieldDragTable = nullptr;
        return;
    }
    // One drag per press: moves that arrive while it runs do not start another.
    if (FFieldDragTable || table != FSelected || !table->CurrentItem())
        return;
    FFieldDragTable = table;
    TVdListItem* row = table->CurrentItem();
    const QString text = table->GetAlias() + QLatin1Char('.') + row->Name();
    auto* data = new QMimeData;
    data->setData(QLatin1String(FieldMimeType), AreaTag(this));
    data->setText(text);
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    if (FVandor->GetOptions().testFlag(vdoDragFieldName)) {
        const QPixmap picture = DragPicture(text);
        drag->setPixmap(picture);
        drag->setHotSpot(QPoint(int(picture.width() / picture.devicePixelRatio()) / 2,
                                int(picture.height() / picture.devicePixelRatio()) / 2));
    }
    drag->exec(Qt::LinkAction | Qt::CopyAction, Qt::LinkAction);
    // Whatever happened, the drag is over (a drop has already linked); the table stays
    // recorded until the next press, so this press starts no second drag.
    StopRowScroll();
    SetDropHighlight(nullptr);
    FDragTarget = nullptr;
    FDropTable = nullptr;
}

bool TVdWorkArea::HandleDragOver(QObject* source, const QPoint& point, bool moving)
{
    auto* sourceTable = dynamic_cast<TVdTable*>(FSelected);
    if ((source != this && source != viewport()) || !sourceTable || !sourceTable->CurrentItem()) {
        SetDropHighlight(nullptr);
        FDragTarget = nullptr;
        return false;
    }
    TVdListItem* sourceRow = sourceTable->CurrentItem();
    TVdTable* target = nullptr;
    for (const auto& table : FTables)
        if (table.get() != sourceTable && table->HitTest(point) == htTClient) {
            target = table.get();
            break;
        }
    if (target != FDropTable)
        StopRowScroll();
    FDropTable = target;
    FDragTarget = nullptr;
    if (!target) {
        SetDropHighlight(nullptr);
        return false;
    }
    // The bands at the top and bottom of the target scroll its rows while the cursor moves.
    const QRect bounds = target->GetBoundsRect().translated(-ScrollOffset());
    const bool up = point.y() < bounds.top() + RowScrollTopBand;
    const bool down = point.y() > bounds.bottom() - RowScrollBottomBand;
    if (moving && (up || down)) {
        FAutoScrollPoint = point;
        (up ? FRowUpTimer : FRowDownTimer).start(RowScrollPeriod, this);
    } else {
        StopRowScroll();
    }
    TVdListItem* row = target->GetItemAt(point.x(), point.y());
    bool accept = row && row->ParamType() == ptOutput &&
                  CompatibleTypes(sourceRow->DataType(), row->DataType()) &&
                  !FindLink(sourceTable, target, sourceRow, row);
    if (accept)
        FDragTarget = row;
    SetDropHighlight(accept ? row : nullptr);
    return accept;
}

void TVdWorkArea::SetDropHighlight(TVdListItem* row)
{
    if (FDropHighlightRow == row)
        return;
    if (FDropHighlightRow && HasTable(FDropHighlightRow->Table()))
        InvalidateContent(FDropHighlightRow->GetBoundsRect());
    FDropHighlightRow = row;
    if (row)
        InvalidateContent(row->GetBoundsRect());
}

void TVdWorkArea::StopRowScroll()
{
    FRowUpTimer.stop();
    FRowDownTimer.stop();
}

bool TVdWorkArea::RowScrollActive(int id) const
{
    return id == 1 ? FRowUpTimer.isActive() : id == 2 ? FRowDownTimer.isActive() : false;
}

void TVdWorkArea::HandleRowScrollTimer(int id)
{
    // One row per tick; the next drag move arms the timer again.
    (id == 1 ? FRowUpTimer : FRowDownTimer).stop();
    if (!HasTable(FDropTable))
        return;
    const int first = FDropTable->FirstVisibleItem() + (id == 1 ? -1 : 1);
    const int last = std::max(0, FDropTable->Count() - FDropTable->VisibleItems());
    FDropTable->SetFirstVisibleItem(std::clamp(first, 0, last));
    CMResizeControl(FDropTable);
}

void TVdWorkArea::HandleDragEnd(bool dropped)
{
    auto* sourceTable = dynamic_cast<TVdTable*>(FSelected);
    TVdListItem* target = FDragTarget;
    StopRowScroll();
    SetDropHighlight(nullptr);
    FDragTarget = nullptr;
    FDropTable = nullptr;
    if (!dropped || !sourceTable || !sourceTable->CurrentItem() || !target ||
        !HasTable(target->Table()))
        return;
    // Row1 belongs to the join's first table: the one the drag started from.
    AddLink(sourceTable, target->Table(), sourceTable->CurrentItem(), target);
}

// ---- Qt's drag events ----

void TVdWorkArea::dragEnterEvent(QDragEnterEvent* event)
{
    if (IsFieldDrag(event->source(), event->mimeData())) {
        event->accept();
        return;
    }
    if (PassDragOver(event))
        event->acceptProposedAction();
    else
        event->ignore();
}

void TVdWorkArea::dragMoveEvent(QDragMoveEvent* event)
{
    bool accept = false;
    if (IsFieldDrag(event->source(), event->mimeData()))
        VdRunGuarded(this,
                     [&] { accept = HandleDragOver(this, event->position().toPoint(), true); });
    else
        accept = PassDragOver(event);
    if (accept) {
        event->setDropAction(IsFieldDrag(event->source(), event->mimeData())
                                 ? Qt::LinkAction
                                 : event->proposedAction());
        event->accept();
    } else {
        event->ignore();
    }
}

void TVdWorkArea::dragLeaveEvent(QDragLeaveEvent*)
{
    StopRowScroll();
    SetDropHighlight(nullptr);
    FDragTarget = nullptr;
}

void TVdWorkArea::dropEvent(QDropEvent* event)
{
    if (!IsFieldDrag(event->source(), event->mimeData())) {
        if (PassDrop(event))
            event->acceptProposedAction();
        return;
    }
    VdRunGuarded(this, [&] {
        const bool accept = HandleDragOver(this, event->position().toPoint(), false);
        if (accept) {
            event->setDropAction(Qt::LinkAction);
            event->accept();
        }
        HandleDragEnd(accept);
    });
}

bool TVdWorkArea::PassDragOver(QDragMoveEvent* event)
{
    if (!FVandor->OnDragOver)
        return false;
    bool accept = false;
    const QPoint at = viewport()->mapTo(FVandor, event->position().toPoint());
    VdRunGuarded(this, [&] {
        FVandor->OnDragOver(FVandor, event->source(), event->mimeData(), at, accept);
    });
    return accept;
}

bool TVdWorkArea::PassDrop(QDropEvent* event)
{
    if (!FVandor->OnDragDrop)
        return false;
    const QPoint at = viewport()->mapTo(FVandor, event->position().toPoint());
    return VdRunGuarded(
        this, [&] { FVandor->OnDragDrop(FVandor, event->source(), event->mimeData(), at); });
}

} // namespace vd
