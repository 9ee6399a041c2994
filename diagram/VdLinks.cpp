#include "diagram/VdLinks.h"

#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "resources/VdResource.h"

#include <QPainter>
#include <QPolygon>

#include <algorithm>
#include <cmath>

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

TVdLink::TVdLink(TVdWorkArea* workArea, TVdJoin* join, TVdListItem* row1, TVdListItem* row2)
    : TVdFloatObject(workArea), FJoin(join), FRow1(row1), FRow2(row2), FPoints(4)
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

void TVdLink::SetBoundaryRect()
{
    for (int i = 0; i < 2; ++i)
        if (!FJoin->GetTable(i))
            throw EVdError(ToStdString(VdResource::InvalidTableInLink(FJoin->GetTableName(i))));
    const QRect r1 = FJoin->GetTable(0)->GetFullItemRect(FRow1);
    const QRect r2 = FJoin->GetTable(1)->GetFullItemRect(FRow2);
    const size_t n = FPoints.size();
    // Right edges as the box's own edges, not one pixel inside them.
    const int r1Right = r1.left() + r1.width();
    const int r2Right = r2.left() + r2.width();
    const int y1 = r1.top() + r1.height() / 2;
    const int y2 = r2.top() + r2.height() / 2;
    const int startRef = n < 5 ? r2Right : FPoints[2].x();
    if (startRef >= r1.left()) {
        FPoints[0] = QPoint(r1Right, y1);
        FPoints[1] = QPoint(r1Right + 10, y1);
    } else {
        FPoints[0] = QPoint(r1.left(), y1);
        FPoints[1] = QPoint(r1.left() - 10, y1);
    }
    const int endRef = n < 5 ? r1Right : FPoints[n - 3].x();
    if (endRef >= r2.left()) {
        FPoints[n - 1] = QPoint(r2Right, y2);
        FPoints[n - 2] = QPoint(r2Right + 10, y2);
    } else {
        FPoints[n - 1] = QPoint(r2.left(), y2);
        FPoints[n - 2] = QPoint(r2.left() - 10, y2);
    }
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

void TVdLink::Paint(QPainter& painter)
{
    painter.save();
    painter.translate(-FWorkArea->ScrollOffset());
    painter.setPen(QPen(Qt::black, FSelected ? 2 : 1));
    const size_t n = FPoints.size();
    const QPoint p0 = FPoints[0];
    const QPoint pn = FPoints[n - 1];
    const int d1 = p0.x() >= FPoints[1].x() ? -6 : 6;
    const int d2 = FPoints[n - 2].x() >= pn.x() ? -6 : 6;
    painter.drawPolyline(FPoints.data(), int(n));
    painter.setBrush(Qt::black);
    for (size_t i = 2; i + 2 < n; ++i)
        painter.drawEllipse(FPoints[i], 3, 3);
    painter.setPen(QPen(Qt::black, 1));
    const auto circle = [&](int from, int to, int y) {
        painter.drawEllipse(
            QRect(QPoint(std::min(from, to), y - 3), QPoint(std::max(from, to), y + 3)));
    };
    const auto triangle = [&](QPoint apex, int baseX) {
        painter.drawPolygon(
            QPolygon({apex, QPoint(baseX, apex.y() - 3), QPoint(baseX, apex.y() + 3)}));
    };
    const TVdJoinKind kind = FJoin->JoinKind;
    if (kind == vdjLOuterJoin || kind == vdjFOuterJoin)
        triangle(p0, p0.x() + d1);
    else
        circle(p0.x(), p0.x() + d1, p0.y());
    if (kind == vdjROuterJoin || kind == vdjFOuterJoin)
        triangle(pn, pn.x() - d2);
    else
        circle(pn.x() - d2, pn.x(), pn.y());
    painter.restore();
}

TTableHitTest TVdLink::HitTest(const QPoint& windowPoint) const
{
    const QPoint p = windowPoint + FWorkArea->ScrollOffset();
    const double tolerance = double(FPoints.size());
    TTableHitTest hit = htTOutSide;
    for (size_t i = 0; i + 1 < FPoints.size(); ++i) {
        const QPointF a = FPoints[i];
        const QPointF b = FPoints[i + 1];
        const QPointF ab = b - a;
        const double length2 = QPointF::dotProduct(ab, ab);
        const double t =
            length2 > 0 ? std::clamp(QPointF::dotProduct(QPointF(p) - a, ab) / length2, 0.0, 1.0)
                        : 0.0;
        const QPointF nearest = a + t * ab;
        if (std::hypot(p.x() - nearest.x(), p.y() - nearest.y()) <= tolerance)
            hit = htTClient;
    }
    const size_t n = FPoints.size();
    for (size_t i = 0; i < n; ++i) {
        if (i == 1 || i == n - 2)
            continue;
        if (std::abs(p.x() - FPoints[i].x()) < 4 && std::abs(p.y() - FPoints[i].y()) < 4)
            hit = (i == 0 || i == n - 1) ? htTEndLine : htTPoint;
    }
    return hit;
}

} // namespace vd
