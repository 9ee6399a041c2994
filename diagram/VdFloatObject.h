#pragma once

// The base of everything the work area shows: table objects and links. They are not windows;
// the work area owns them, hit-tests them and lets them paint on its viewport.

#include "core/VdSet.h"

#include <QPoint>
#include <QString>

#include <cstdint>

class QMenu;
class QMouseEvent;
class QPainter;

namespace vd {

class TVdWorkArea;

enum TTableHitTest : std::uint8_t {
    htTOutSide,
    htTLeft,
    htTTop,
    htTRight,
    htTBottom,
    htTLeftTop,
    htTLeftBottom,
    htTRightTop,
    htTRightBottom,
    htTCaption,
    htTbutton,
    htTCheck,
    htTClient,
    htTEndLine,
    htTPoint
};
using TSetOfTableHits = TVdSet<TTableHitTest>;

class TVdFloatObject
{
public:
    explicit TVdFloatObject(TVdWorkArea* workArea) : FWorkArea(workArea) {}
    virtual ~TVdFloatObject();
    TVdFloatObject(const TVdFloatObject&) = delete;
    TVdFloatObject& operator=(const TVdFloatObject&) = delete;

    TVdWorkArea* WorkArea() const { return FWorkArea; }
    bool Selected() const { return FSelected; }

    // Stores the flag; selecting brings the object to the front.
    virtual void SetSelect(bool value);
    virtual QString GetHint() const = 0;
    // Paints in window coordinates: content coordinates minus the work area's scroll offset.
    virtual void Paint(QPainter& painter) = 0;
    virtual void MouseDown(QMouseEvent* event, TTableHitTest hit);
    virtual void MouseMove(QMouseEvent* event, TTableHitTest hit);
    virtual void MouseUp(QMouseEvent* event, TTableHitTest hit);
    virtual void LeaveHit(QMouseEvent* event, TTableHitTest hit);
    // point in window coordinates.
    virtual TTableHitTest HitTest(const QPoint& point) const = 0;
    virtual void PopupMenu(QMenu* menu, int x, int y, TTableHitTest hit);

protected:
    TVdWorkArea* FWorkArea;
    bool FSelected = false;
};

} // namespace vd
