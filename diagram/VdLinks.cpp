#include "diagram/VdLinks.h"

#include "builder/VdDialogService.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdUtils.h"
#include "resources/VdResource.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>

#include <algorithm>
#include <cstdlib>

namespace vd {

TVdJoin::TVdJoin(TVdWorkArea* workArea, TVdTable* table1, TVdTable* table2)
    : FTables{table1, table2}, FWorkArea(workArea)
{
}

QString TVdJoin::GetTableName(int index) const
{
    const TVdTable* table = GetTable(index);
    return table ? table->GetAlias() : QString();
}

void TVdJoin::ForgetTable(const TVdTable* table)
{
    for (TVdTable*& own : FTables)
        if (own == table)
            own = nullptr;
}

TVdLink::TVdLink(TVdWorkArea* workArea, TVdJoin* join, TVdListItem* row1, TVdListItem* row2)
    : TVdFloatObject(workArea), FJoin(join), FRow1(row1), FRow2(row2), FPoints(4),
      FSerial(workArea->NextSerial())
{
    SetBoundaryRect();
}

QString TVdLink::ConditionText(int condition)
{
    static const char* const texts[] = {"=", ">", "<", ">=", "<=", "<>"};
    return condition >= 0 && condition < 6 ? QString::fromLatin1(texts[condition]) : QString();
}

QPoint TVdLink::GetPoint(int index) const
{
    if (index < 0 || index >= GetCountPoints())
        throw EVdError(ToStdString(VdResource::InvalidIndex(index)));
    return FPoints[size_t(index)] - FWorkArea->ScrollOffset();
}

void TVdLink::SetPoint(int index, const QPoint& point)
{
    if (index < 0 || index >= GetCountPoints())
        throw EVdError(ToStdString(VdResource::InvalidIndex(index)));
    FPoints[size_t(index)] = point + FWorkArea->ScrollOffset();
}

void TVdLink::InsertPoint(int index, const QPoint& contentPoint)
{
    if (index < 2 || index > GetCountPoints() - 2)
        throw EVdError(ToStdString(VdResource::InvalidIndex(index)));
    FPoints.insert(FPoints.begin() + index, contentPoint);
    SetBoundaryRect();
}

// The ends attach to the outer edges of the box at the row's height, so that the markers sit
// on the stub outside the box rather than under its border.
static QRect AttachRect(const TVdTable& table, const TVdListItem* row)
{
    const QRect bounds = table.GetBoundsRect();
    const QRect full = table.GetFullItemRect(row);
    return QRect(bounds.left(), full.top(), bounds.width(), full.height());
}

void TVdLink::SetBoundaryRect()
{
    for (int i = 0; i < 2; ++i)
        if (!FJoin->GetTable(i))
            throw EVdError(ToStdString(VdResource::InvalidTableInLink(FJoin->GetTableName(i))));
    const QRect r1 = AttachRect(*FJoin->GetTable(0), FRow1);
    const QRect r2 = AttachRect(*FJoin->GetTable(1), FRow2);
    const size_t n = FPoints.size();
    // Right edges are the first pixel outside the box.
    const int r1Right = r1.left() + r1.width();
    const int r2Right = r2.left() + r2.width();
    const int y1 = r1.top() + r1.height() / 2;
    const int y2 = r2.top() + r2.height() / 2;
    // The left edge, not the centre, decides: a partner overlapping the box horizontally
    // attaches on the right.
    const int startRef = n < 5 ? r2Right : FPoints[2].x();
    const bool startRight = startRef >= r1.left();
    const int x0 = startRight ? r1Right : r1.left();
    FPoints[0] = QPoint(x0, y1);
    FPoints[1] = QPoint(x0 + (startRight ? StubLength : -StubLength), y1);
    const int endRef = n < 5 ? r1Right : FPoints[n - 3].x();
    const bool endRight = endRef >= r2.left();
    const int xn = endRight ? r2Right : r2.left();
    FPoints[n - 1] = QPoint(xn, y2);
    FPoints[n - 2] = QPoint(xn + (endRight ? StubLength : -StubLength), y2);
    QRect bounds(FPoints[0], FPoints[0]);
    for (const QPoint& p : FPoints)
        bounds = bounds.united(QRect(p, p));
    FBounds = bounds.adjusted(-3, -3, 3, 3);
}

QString TVdLink::GetHint() const
{
    return FJoin->GetTableName(0) + QLatin1Char('.') + FRow1->Name() + ConditionText(Condition) +
           FJoin->GetTableName(1) + QLatin1Char('.') + FRow2->Name();
}

// ---- Painting ----

void TVdLink::DrawLink(QPainter& painter, const std::vector<QPoint>& points, TVdJoinKind kind,
                       bool selected, const QColor& color)
{
    const size_t n = points.size();
    if (n < 4)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    // A one-pixel line on pixel centres stays sharp at 100 %.
    const QPointF half(0.5, 0.5);
    const QPoint p0 = points[0];
    const QPoint pn = points[n - 1];
    const int d1 = p0.x() >= points[1].x() ? -6 : 6;
    const int d2 = points[n - 2].x() >= pn.x() ? -6 : 6;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, selected ? 2 : 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    const QPointF shift = selected ? QPointF(0.0, 0.0) : half;
    QPolygonF line;
    line.reserve(int(n));
    for (const QPoint& p : points)
        line << QPointF(p) + shift;
    if (d1 < 1)
        line[0].rx() -= 1;
    painter.drawPolyline(line);
    painter.setBrush(color);
    for (size_t i = 2; i + 2 < n; ++i)
        painter.drawEllipse(QPointF(points[i]) + shift, 3.0, 3.0);
    painter.setPen(QPen(color, 1));
    const auto circle = [&](double from, double to, double y) {
        painter.drawEllipse(
            QRectF(QPointF(std::min(from, to), y - 3.0), QPointF(std::max(from, to), y + 3.0)));
    };
    const auto triangle = [&](QPointF apex, double baseX) {
        const QPointF shape[] = {apex, QPointF(baseX, apex.y() - 3.0),
                                 QPointF(baseX, apex.y() + 3.0)};
        painter.drawPolygon(shape, 3);
    };
    const QPointF a0 = QPointF(p0) + half;
    const QPointF an = QPointF(pn) + half;
    // The triangle marks the table all of whose rows are included.
    if (kind == vdjLOuterJoin || kind == vdjFOuterJoin)
        triangle(a0, a0.x() + d1);
    else
        circle(a0.x(), a0.x() + d1, a0.y());
    if (kind == vdjROuterJoin || kind == vdjFOuterJoin)
        triangle(an, an.x() - d2);
    else
        circle(an.x() - d2, an.x(), an.y());
    painter.restore();
}

void TVdLink::Paint(QPainter& painter)
{
    painter.save();
    painter.translate(-FWorkArea->ScrollOffset());
    DrawLink(painter, FPoints, FJoin->JoinKind, FSelected, FWorkArea->LinkColor());
    painter.restore();
}

// ---- Regions ----

// The marker at an end: from one pixel behind the end to past the marker, on the stub side.
static QRect MarkerRect(const QPoint& end, const QPoint& stub)
{
    const int towards = stub.x() >= end.x() ? 1 : -1;
    const int a = end.x() - 2 * towards;
    const int b = end.x() + 8 * towards;
    return QRect(QPoint(std::min(a, b), end.y() - 5), QPoint(std::max(a, b), end.y() + 5));
}

// A band around a segment, wide enough for the selected pen and its antialiasing. A slanted
// segment is covered by boxes along it rather than by an exact polygon, whose region would
// hold one rectangle per scan line and make every later clip and repaint slower.
static QRegion SegmentRegion(const QPoint& a, const QPoint& b)
{
    constexpr int Side = 3;
    constexpr int Step = 12;
    const int dx = b.x() - a.x();
    const int dy = b.y() - a.y();
    const int length = std::max(std::abs(dx), std::abs(dy));
    if (dx == 0 || dy == 0 || length <= Step)
        return QRegion(QRect(a, b).normalized().adjusted(-Side, -Side, Side + 1, Side + 1));
    QRegion band;
    const int steps = (length + Step - 1) / Step;
    QPoint from = a;
    for (int i = 1; i <= steps; ++i) {
        const QPoint to(a.x() + dx * i / steps, a.y() + dy * i / steps);
        band += QRect(from, to).normalized().adjusted(-Side, -Side, Side + 1, Side + 1);
        from = to;
    }
    return band;
}

QRegion TVdLink::GetClipRgn(TVdLinkPart part) const
{
    const int n = GetCountPoints();
    int firstSegment = 0;
    int lastSegment = n - 2;
    // Without user points the middle segment belongs to both ends: the whole link then.
    if (n > 4 && part == vdlpStart)
        lastSegment = 1;
    else if (n > 4 && part == vdlpEnd)
        firstSegment = n - 3;
    QRegion region;
    if (firstSegment == 0)
        region += MarkerRect(FPoints[0], FPoints[1]);
    for (int i = firstSegment; i <= lastSegment; ++i) {
        region += SegmentRegion(FPoints[size_t(i)], FPoints[size_t(i + 1)]);
        if (i >= 2 && i <= n - 3)
            region += QRect(FPoints[size_t(i)] - QPoint(5, 5), QSize(11, 11));
        if (i + 1 >= 2 && i + 1 <= n - 3)
            region += QRect(FPoints[size_t(i + 1)] - QPoint(5, 5), QSize(11, 11));
    }
    if (lastSegment == n - 2)
        region += MarkerRect(FPoints[size_t(n - 1)], FPoints[size_t(n - 2)]);
    return region;
}

void TVdLink::RepaintRegion(const QRegion& region) const { FWorkArea->InvalidateRegion(region); }

// ---- Hits and the mouse ----

TTableHitTest TVdLink::HitTest(const QPoint& windowPoint) const
{
    const QPoint p = windowPoint + FWorkArea->ScrollOffset();
    // The tolerance grows with the points on purpose.
    TTableHitTest hit =
        IsPointNearLine(FPoints, p, double(FPoints.size())) >= 0 ? htTClient : htTOutSide;
    const size_t n = FPoints.size();
    for (size_t i = 0; i < n; ++i) {
        if (i == 1 || i == n - 2)
            continue;
        if (std::abs(p.x() - FPoints[i].x()) < PointGrip &&
            std::abs(p.y() - FPoints[i].y()) < PointGrip)
            hit = (i == 0 || i == n - 1) ? htTEndLine : htTPoint;
    }
    return hit;
}

int TVdLink::UserPointAt(const QPoint& contentPoint) const
{
    for (int i = 2; i <= GetCountPoints() - 3; ++i) {
        const QPoint d = contentPoint - FPoints[size_t(i)];
        if (std::abs(d.x()) < PointGrip && std::abs(d.y()) < PointGrip)
            return i;
    }
    return -1;
}

void TVdLink::MouseDown(QMouseEvent* event, TTableHitTest hit)
{
    const QPoint p = event->position().toPoint() + FWorkArea->ScrollOffset();
    FDragPoint = -1;
    FRubberShown = false;
    if (hit == htTPoint) {
        FDragPoint = UserPointAt(p);
        if (FDragPoint >= 0)
            FMenuPoint = FPoints[size_t(FDragPoint)];
    } else if (hit == htTEndLine) {
        const QPoint d = p - FPoints[0];
        FDragPoint =
            std::abs(d.x()) < PointGrip && std::abs(d.y()) < PointGrip ? 0 : GetCountPoints() - 1;
    }
}

bool TVdLink::RubberBand(QPoint& from, QPoint& at, QPoint& to) const
{
    if (!FRubberShown || FDragPoint < 2 || FDragPoint > GetCountPoints() - 3)
        return false;
    from = FPoints[size_t(FDragPoint - 1)];
    at = FMenuPoint;
    to = FPoints[size_t(FDragPoint + 1)];
    return true;
}

static QRect RubberRect(const QPoint& from, const QPoint& at, const QPoint& to)
{
    return QRect(from, at).normalized().united(QRect(at, to).normalized()).adjusted(-2, -2, 2, 2);
}

void TVdLink::MouseMove(QMouseEvent* event, TTableHitTest hit)
{
    if (!(event->buttons() & Qt::LeftButton) || hit != htTPoint || FDragPoint < 2 ||
        FDragPoint > GetCountPoints() - 3)
        return;
    // No inverting pen in Qt: the band is an overlay the work area paints over everything.
    QPoint from, at, to;
    if (RubberBand(from, at, to))
        FWorkArea->InvalidateContent(RubberRect(from, at, to));
    FMenuPoint = event->position().toPoint() + FWorkArea->ScrollOffset();
    FRubberShown = true;
    RubberBand(from, at, to);
    FWorkArea->InvalidateContent(RubberRect(from, at, to));
}

void TVdLink::MouseUp(QMouseEvent*, TTableHitTest)
{
    if (FDragPoint >= 2 && FDragPoint <= GetCountPoints() - 3 && FRubberShown) {
        QPoint from, at, to;
        RubberBand(from, at, to);
        FWorkArea->InvalidateContent(RubberRect(from, at, to));
        RepaintRegion(GetClipRgn());
        FPoints[size_t(FDragPoint)] = FMenuPoint;
        // The moved point may change the side an end attaches to.
        SetBoundaryRect();
        RepaintRegion(GetClipRgn());
    }
    FRubberShown = false;
    FDragPoint = -1;
}

// ---- The menu ----

void TVdLink::PopupMenu(QMenu* menu, int x, int y, TTableHitTest hit)
{
    FMenuPoint = QPoint(x, y) + FWorkArea->ScrollOffset();
    QWidget* parent = FWorkArea;
    const auto guarded = [parent](void (TVdLink::*handler)(), TVdLink* link) {
        return [parent, handler, link] { VdRunGuarded(parent, [&] { (link->*handler)(); }); };
    };
    if (hit == htTPoint)
        QObject::connect(menu->addAction(VdResource::DeletePointItem()), &QAction::triggered,
                         guarded(&TVdLink::HandleDeletePoint, this));
    else if (hit == htTClient)
        QObject::connect(menu->addAction(VdResource::InsertPointItem()), &QAction::triggered,
                         guarded(&TVdLink::HandleInsertPoint, this));
    else
        return;
    menu->addSeparator();
    QObject::connect(menu->addAction(VdResource::DeleteLinkItem()), &QAction::triggered,
                     guarded(&TVdLink::HandleDeleteLink, this));
    QObject::connect(menu->addAction(VdResource::PropertyItem()), &QAction::triggered,
                     guarded(&TVdLink::HandleLinkProperties, this));
}

void TVdLink::HandleInsertPoint()
{
    const int segment = IsPointNearLine(FPoints, FMenuPoint, double(FPoints.size()));
    // Not on the stubs.
    if (segment < 1 || segment > GetCountPoints() - 3)
        return;
    RepaintRegion(GetClipRgn());
    InsertPoint(segment + 1, FMenuPoint);
    RepaintRegion(GetClipRgn());
}

void TVdLink::HandleDeletePoint()
{
    if (GetCountPoints() < 5)
        return;
    const int index = UserPointAt(FMenuPoint);
    if (index < 0)
        return;
    RepaintRegion(GetClipRgn());
    FPoints.erase(FPoints.begin() + index);
    SetBoundaryRect();
    RepaintRegion(GetClipRgn());
}

void TVdLink::HandleDeleteLink()
{
    const QString text =
        VdResource::DeleteLinkQuestion(FJoin->GetTableName(0), FJoin->GetTableName(1));
    if (VdAskYesNo(FWorkArea, VdResource::AttentionCaption(), text) == QMessageBox::No)
        return;
    // Posted: this handler runs inside the link's own menu, which must not free it.
    FWorkArea->PostDeleteLink(this);
}

void TVdLink::HandleLinkProperties()
{
    if (FWorkArea->ShowLinkProperties(this))
        RepaintRegion(GetClipRgn());
}

void TVdLink::Remove() { HandleDeleteLink(); }

} // namespace vd
