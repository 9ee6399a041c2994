#include "diagram/VdFloatObject.h"

#include "diagram/VdFloatPanel.h"

namespace vd {

TVdFloatObject::~TVdFloatObject() = default;

void TVdFloatObject::SetSelect(bool value)
{
    FSelected = value;
    if (value && FWorkArea)
        FWorkArea->TableToFront(this);
}

void TVdFloatObject::MouseDown(QMouseEvent*, TTableHitTest) {}

void TVdFloatObject::MouseMove(QMouseEvent*, TTableHitTest) {}

void TVdFloatObject::MouseUp(QMouseEvent*, TTableHitTest) {}

void TVdFloatObject::LeaveHit(QMouseEvent*, TTableHitTest) {}

void TVdFloatObject::PopupMenu(QMenu*, int, int, TTableHitTest) {}

} // namespace vd
