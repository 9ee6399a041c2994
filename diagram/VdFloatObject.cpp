#include "diagram/VdFloatObject.h"

#include "diagram/VdFloatPanel.h"

#include <QMouseEvent>

namespace vd {

TVdFloatObject::~TVdFloatObject() = default;

void TVdFloatObject::SetSelect(bool value)
{
    FSelected = value;
    if (value && FWorkArea)
        FWorkArea->TableToFront(this);
}

void TVdFloatObject::FireMouse(QMouseEvent* event, const TVdObjectMouseEvent& slot)
{
    if (!event)
        return;
    const QPoint p = event->position().toPoint() - EventOrigin();
    if (slot)
        slot(this, event->button(), event->modifiers(), p.x(), p.y());
    event->accept();
}

void TVdFloatObject::MouseDown(QMouseEvent* event, TTableHitTest) { FireMouse(event, OnMouseDown); }

void TVdFloatObject::MouseMove(QMouseEvent* event, TTableHitTest)
{
    if (!event)
        return;
    const QPoint p = event->position().toPoint() - EventOrigin();
    if (OnMouseMove)
        OnMouseMove(this, event->modifiers(), p.x(), p.y());
    event->accept();
}

void TVdFloatObject::MouseUp(QMouseEvent* event, TTableHitTest) { FireMouse(event, OnMouseUp); }

void TVdFloatObject::KeyDown(int& key, Qt::KeyboardModifiers shift)
{
    if (OnKeyDown)
        OnKeyDown(this, key, shift);
}

void TVdFloatObject::KeyUp(int& key, Qt::KeyboardModifiers shift)
{
    if (OnKeyUp)
        OnKeyUp(this, key, shift);
}

void TVdFloatObject::LeaveHit(QMouseEvent*, TTableHitTest) {}

void TVdFloatObject::PopupMenu(QMenu*, int, int, TTableHitTest) {}

} // namespace vd
