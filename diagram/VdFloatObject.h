#pragma once

// The base of everything the work area shows: table objects and links. They are not windows;
// the work area owns them, hit-tests them and lets them paint on its viewport.

#include "core/VdSet.h"

#include <QPoint>
#include <QString>
#include <Qt>

#include <cstdint>
#include <functional>

class QMenu;
class QMouseEvent;
class QPainter;

namespace vd {

class TVdWorkArea;
class TVdFloatObject;

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

// Coordinates are relative to the object (a table's Left/Top; the window for a link).
using TVdObjectMouseEvent = std::function<void(TVdFloatObject* sender, Qt::MouseButton button,
                                               Qt::KeyboardModifiers shift, int x, int y)>;
using TVdObjectMouseMoveEvent =
    std::function<void(TVdFloatObject* sender, Qt::KeyboardModifiers shift, int x, int y)>;
using TVdObjectKeyEvent =
    std::function<void(TVdFloatObject* sender, int& key, Qt::KeyboardModifiers shift)>;

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
    // The base handlers fire the matching event slot and accept the event; the event's
    // position is in window coordinates.
    virtual void MouseDown(QMouseEvent* event, TTableHitTest hit);
    virtual void MouseMove(QMouseEvent* event, TTableHitTest hit);
    virtual void MouseUp(QMouseEvent* event, TTableHitTest hit);
    // key is a Qt::Key; a handler may set it to 0 to consume it.
    virtual void KeyDown(int& key, Qt::KeyboardModifiers shift);
    virtual void KeyUp(int& key, Qt::KeyboardModifiers shift);
    // The mouse left the object, or moved to another of its parts.
    virtual void LeaveHit(QMouseEvent* event, TTableHitTest hit);
    // point in window coordinates.
    virtual TTableHitTest HitTest(const QPoint& point) const = 0;
    // Fills menu with the object's items for a click at (x, y) with that hit; the work area
    // shows the menu when it has any.
    virtual void PopupMenu(QMenu* menu, int x, int y, TTableHitTest hit);

    TVdObjectMouseEvent OnMouseDown;
    TVdObjectMouseEvent OnMouseUp;
    TVdObjectMouseMoveEvent OnMouseMove;
    TVdObjectKeyEvent OnKeyDown;
    TVdObjectKeyEvent OnKeyUp;

protected:
    // Window position of the object's origin, subtracted from mouse positions for the events.
    virtual QPoint EventOrigin() const { return QPoint(); }
    // Calls a button slot with the event's position relative to the object; accepts the event.
    void FireMouse(QMouseEvent* event, const TVdObjectMouseEvent& slot);

    TVdWorkArea* FWorkArea;
    bool FSelected = false;
};

} // namespace vd
