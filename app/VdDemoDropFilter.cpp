#include "VdDemoDropFilter.h"

#include "VdObjectList.h"
#include "diagram/VdFloatPanel.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>

namespace vd {

TVdDemoDropFilter::TVdDemoDropFilter(TVdWorkArea* workArea, TDropEvent onDrop)
    : QObject(workArea), FWorkArea(workArea), FOnDrop(std::move(onDrop))
{
    FWorkArea->viewport()->setAcceptDrops(true);
    FWorkArea->viewport()->installEventFilter(this);
}

QString TVdDemoDropFilter::ObjectOf(const QMimeData* data)
{
    const QString type = QString::fromLatin1(TVdObjectList::ObjectMimeType);
    if (!data || !data->hasFormat(type))
        return QString();
    return QString::fromUtf8(data->data(type));
}

bool TVdDemoDropFilter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDragMoveEvent*>(event);
        if (ObjectOf(drag->mimeData()).isEmpty())
            return false;
        drag->acceptProposedAction();
        return true;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        const QString name = ObjectOf(drop->mimeData());
        if (name.isEmpty())
            return false;
        drop->acceptProposedAction();
        FOnDrop(name, drop->position().toPoint() + FWorkArea->ScrollOffset());
        return true;
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace vd
