// The work area's painting, mouse, keyboard, hints and menu.

#include "diagram/VdFloatPanel.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace vd {

// ---- Painting ----

void TVdWorkArea::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    PaintRegion(painter, event->region());
}

void TVdWorkArea::PaintRegion(QPainter& painter, const QRegion& region)
{
    const QPoint offset = ScrollOffset();
    const QRect dirty = region.boundingRect();
    // Links first and tables over them, back to front: every link passes behind the boxes.
    for (const auto& link : FLinks)
        if (region.intersects(link->GetBounds().translated(-offset)))
            link->Paint(painter);
    for (auto it = FTables.rbegin(); it != FTables.rend(); ++it) {
        const QRect bounds = (*it)->GetBoundsRect().translated(-offset);
        if (bounds.intersects(dirty) && region.intersects(bounds))
            (*it)->Paint(painter);
    }
    PaintRubberBand(painter);
}

void TVdWorkArea::PaintRubberBand(QPainter& painter)
{
    auto* link = dynamic_cast<TVdLink*>(FSelected);
    QPoint from, at, to;
    if (!link || !link->RubberBand(from, at, to))
        return;
    painter.save();
    painter.translate(-ScrollOffset());
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
    const QPointF half(0.5, 0.5);
    const QPointF band[] = {QPointF(from) + half, QPointF(at) + half, QPointF(to) + half};
    painter.drawPolyline(band, 3);
    painter.restore();
}

// ---- Hit testing and cursors ----

TVdFloatObject* TVdWorkArea::ObjectAt(const QPoint& point, TTableHitTest& hit) const
{
    for (const auto& table : FTables) {
        hit = table->HitTest(point);
        if (hit != htTOutSide)
            return table.get();
    }
    for (const auto& link : FLinks) {
        hit = link->HitTest(point);
        if (hit != htTOutSide)
            return link.get();
    }
    hit = htTOutSide;
    return nullptr;
}

void TVdWorkArea::SetupCursor(TTableHitTest hit)
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    switch (hit) {
    case htTLeft:
    case htTRight:
        shape = Qt::SizeHorCursor;
        break;
    case htTTop:
    case htTBottom:
        shape = Qt::SizeVerCursor;
        break;
    case htTLeftTop:
    case htTRightBottom:
        shape = Qt::SizeFDiagCursor;
        break;
    case htTLeftBottom:
    case htTRightTop:
        shape = Qt::SizeBDiagCursor;
        break;
    case htTEndLine:
        shape = Qt::UpArrowCursor;
        break;
    case htTPoint:
        shape = Qt::SizeAllCursor;
        break;
    default:
        break;
    }
    viewport()->setCursor(shape);
}

// ---- Hints ----

void TVdWorkArea::HideHint()
{
    FHintTimer.stop();
    FHintLifeTimer.stop();
    FHintWindow->hide();
}

void TVdWorkArea::HandleHintTimer()
{
    FHintTimer.stop();
    if (!FHitObject)
        return;
    const QString text = FHitObject->GetHint();
    if (text.isEmpty())
        return;
    FHintWindow->setText(text);
    const QRect area = FHintWindow->fontMetrics().boundingRect(QRect(0, 0, HintMaxWidth, 10000),
                                                               Qt::TextWordWrap, text);
    FHintWindow->resize(area.size() + QSize(8, 6));
    FHintWindow->move(viewport()->mapToGlobal(FHintPoint) + QPoint(0, 20));
    FHintWindow->show();
    FHintLifeTimer.start(HintLife, this);
}

void TVdWorkArea::HandleHintLifeTimer()
{
    FHintLifeTimer.stop();
    FHintWindow->hide();
}

void TVdWorkArea::timerEvent(QTimerEvent* event)
{
    const int id = event->timerId();
    if (id == FHintTimer.timerId())
        HandleHintTimer();
    else if (id == FHintLifeTimer.timerId())
        HandleHintLifeTimer();
    else if (id == FRowUpTimer.timerId())
        VdRunGuarded(this, [this] { HandleRowScrollTimer(1); });
    else if (id == FRowDownTimer.timerId())
        VdRunGuarded(this, [this] { HandleRowScrollTimer(2); });
    else
        QAbstractScrollArea::timerEvent(event);
}

// ---- The mouse ----

void TVdWorkArea::mouseMoveEvent(QMouseEvent* event)
{
    VdRunGuarded(this, [&] {
        if (event->buttons() & Qt::LeftButton)
            MouseMoveHeld(event);
        else
            MouseMoveFree(event);
    });
}

void TVdWorkArea::MouseMoveFree(QMouseEvent* event)
{
    const QPoint mouse = event->position().toPoint();
    if (mouse == FLastMouse)
        return;
    FLastMouse = mouse;
    HideHint();
    TTableHitTest hit = htTOutSide;
    TVdFloatObject* object = ObjectAt(mouse, hit);
    if (!object) {
        if (FHitObject)
            FHitObject->LeaveHit(event, FHitKind);
        FHitObject = nullptr;
        FHitKind = htTOutSide;
        SetupCursor(htTOutSide);
        return;
    }
    SetupCursor(hit);
    if (FHitObject && (FHitObject != object || FHitKind != hit))
        FHitObject->LeaveHit(event, FHitKind);
    FHitObject = object;
    FHitKind = hit;
    object->MouseMove(event, hit);
    FHintPoint = mouse;
    FHintTimer.start(HintDelay, this);
}

void TVdWorkArea::MouseMoveHeld(QMouseEvent* event)
{
    if (FAliasEdit)
        FAliasEdit->hide();
    const QPoint mouse = event->position().toPoint();
    FLastMouse = mouse;
    if (!FHitObject)
        return;
    if (!MoveHits.Contains(FPressHit)) {
        FHitObject->MouseMove(event, FPressHit);
        return;
    }
    if (FSelected != FHitObject || !dynamic_cast<TVdTable*>(FSelected))
        return;
    AutoScroll(mouse);
    if (FPressHit == htTCaption)
        MoveSelectedTable(mouse);
    else
        ResizeSelectedTable(mouse);
}

void TVdWorkArea::AutoScroll(const QPoint& mouse)
{
    QScrollBar* h = horizontalScrollBar();
    QScrollBar* v = verticalScrollBar();
    const QSize size = viewport()->size();
    if (mouse.x() > size.width() && h->value() < h->maximum())
        h->setValue(h->value() + mouse.x() - size.width());
    else if (mouse.x() < 0 && h->value() > 0)
        h->setValue(h->value() + mouse.x());
    if (mouse.y() > size.height() && v->value() < v->maximum())
        v->setValue(v->value() + mouse.y() - size.height());
    else if (mouse.y() < 0 && v->value() > 0)
        v->setValue(v->value() + mouse.y());
}

void TVdWorkArea::MoveSelectedTable(const QPoint& mouse)
{
    auto* table = static_cast<TVdTable*>(FSelected);
    const QRect old = table->GetBoundsRect();
    const QPoint p = mouse + ScrollOffset() - FGrabPoint;
    const int left = std::clamp(p.x(), 0, Extent - old.width());
    const int top = std::clamp(p.y(), 0, Extent - old.height());
    if (left == old.left() && top == old.top())
        return;
    InvalidateContent(old);
    table->SetLeft(left);
    table->SetTop(top);
    InvalidateContent(table->GetBoundsRect());
    CMMoveControl(table);
}

void TVdWorkArea::ResizeSelectedTable(const QPoint& mouse)
{
    auto* table = static_cast<TVdTable*>(FSelected);
    const QRect old = table->GetBoundsRect();
    const QPoint p = mouse + ScrollOffset();
    const int minWidth = table->CaptionHeight() + TVdTable::ButtonsWidth + 20;
    const int minHeight = table->CaptionHeight() + 2 * table->ItemHeight() + 4;
    const int right = table->Left() + table->Width();
    const int bottom = table->Top() + table->Height();
    const bool left = FPressHit == htTLeft || FPressHit == htTLeftTop || FPressHit == htTLeftBottom;
    const bool top = FPressHit == htTTop || FPressHit == htTLeftTop || FPressHit == htTRightTop;
    const bool farX =
        FPressHit == htTRight || FPressHit == htTRightTop || FPressHit == htTRightBottom;
    const bool farY =
        FPressHit == htTBottom || FPressHit == htTLeftBottom || FPressHit == htTRightBottom;
    InvalidateContent(old);
    if (left) {
        const int x = std::clamp(p.x(), 0, right - minWidth);
        table->SetLeft(x);
        table->SetWidth(right - x);
    } else if (farX) {
        table->SetWidth(std::clamp(p.x() - table->Left(), minWidth, Extent - table->Left()));
    }
    if (top) {
        const int y = std::clamp(p.y(), 0, bottom - minHeight);
        table->SetTop(y);
        table->SetHeight(bottom - y);
    } else if (farY) {
        table->SetHeight(std::clamp(p.y() - table->Top(), minHeight, Extent - table->Top()));
    }
    InvalidateContent(table->GetBoundsRect());
    CMResizeControl(table);
}

void TVdWorkArea::mousePressEvent(QMouseEvent* event)
{
    // A refusal raised by an object (or by the host through an event) ends here, shown.
    VdRunGuarded(this, [&] { MouseDownAt(event); });
}

void TVdWorkArea::MouseDownAt(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    HideHint();
    setFocus();
    FFieldDragTable = nullptr;
    const QPoint mouse = event->position().toPoint();
    // The object under the press, as the last move found it (also when no move came first).
    TTableHitTest hit = htTOutSide;
    FHitObject = ObjectAt(mouse, hit);
    FHitKind = hit;
    FLastMouse = mouse;
    if (FHitObject != FSelected)
        SetSelected(FHitObject);
    FPressHit = hit;
    if (!FHitObject)
        return;
    FHitObject->MouseDown(event, hit);
    if (MoveHits.Contains(hit)) {
        if (auto* table = dynamic_cast<TVdTable*>(FHitObject))
            FGrabPoint = mouse + ScrollOffset() - QPoint(table->Left(), table->Top());
        else
            FGrabPoint = mouse;
    }
}

void TVdWorkArea::mouseReleaseEvent(QMouseEvent* event)
{
    VdRunGuarded(this, [&] {
        if (event->button() != Qt::LeftButton)
            return;
        const TTableHitTest pressed = FPressHit;
        FPressHit = htTOutSide;
        auto* table = dynamic_cast<TVdTable*>(FSelected);
        if (table && pressed == htTCaption)
            for (const auto& link : FLinks)
                if (link->Join()->GetTable(0) == table || link->Join()->GetTable(1) == table)
                    InvalidateRegion(link->GetClipRgn());
        if (FHitObject)
            FHitObject->MouseUp(event, pressed);
    });
}

void TVdWorkArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    VdRunGuarded(this, [&] {
        if (event->button() != Qt::LeftButton)
            return;
        TTableHitTest hit = htTOutSide;
        TVdFloatObject* object = ObjectAt(event->position().toPoint(), hit);
        if (auto* link = dynamic_cast<TVdLink*>(object))
            link->HandleLinkProperties();
        else if (auto* table = dynamic_cast<TVdTable*>(object))
            table->DblClick(event, hit);
    });
}

// ---- The menu ----

bool TVdWorkArea::PopupAt(const QPoint& point, const QPoint& globalPoint)
{
    TTableHitTest hit = htTOutSide;
    TVdFloatObject* object = ObjectAt(point, hit);
    if (!object)
        return false;
    FMenu->clear();
    ClearSelection();
    SetSelected(object);
    FHitObject = object;
    FHitKind = hit;
    object->PopupMenu(FMenu, point.x(), point.y(), hit);
    if (FMenu->isEmpty())
        return false;
    FMenu->popup(globalPoint);
    return true;
}

void TVdWorkArea::contextMenuEvent(QContextMenuEvent* event)
{
    HideHint();
    VdRunGuarded(this, [&] { PopupAt(event->pos(), event->globalPos()); });
}

// ---- The keyboard ----

bool TVdWorkArea::event(QEvent* event)
{
    // Tab walks through the tables instead of leaving the diagram.
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            VdRunGuarded(this, [&] { KeyDown(key); });
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void TVdWorkArea::keyPressEvent(QKeyEvent* event)
{
    VdRunGuarded(this, [&] { KeyDown(event); });
}

void TVdWorkArea::KeyDown(QKeyEvent* event)
{
    HideHint();
    const int key = event->key();
    const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (tab && !FTables.empty()) {
        int index = int(FTables.size()) - 1;
        if (key == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier)) {
            int selected = -1;
            for (size_t i = 0; i < FTables.size(); ++i)
                if (FTables[i].get() == FSelected)
                    selected = int(i);
            index = std::clamp(selected + 1, 0, int(FTables.size()) - 1);
        }
        SetSelected(FTables[size_t(index)].get());
        if (auto* table = dynamic_cast<TVdTable*>(FSelected))
            ShowPanel(table);
        event->accept();
        return;
    }
    if (key == Qt::Key_Delete && FSelected) {
        TVdFloatObject* object = FSelected;
        FSelected = nullptr;
        object->SetSelect(false);
        InvalidateObject(object);
        if (auto* table = dynamic_cast<TVdTable*>(object))
            table->Close();
        else if (auto* link = dynamic_cast<TVdLink*>(object))
            link->Remove();
        event->accept();
        return;
    }
    if (FSelected) {
        int code = key;
        FSelected->KeyDown(code, event->modifiers());
        if (code == 0) {
            event->accept();
            return;
        }
    }
    event->ignore();
}

} // namespace vd
