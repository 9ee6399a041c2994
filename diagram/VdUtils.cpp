#include "diagram/VdUtils.h"

#include <QLocale>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vd {

namespace {

bool Between(int value, int a, int b) { return value >= std::min(a, b) && value <= std::max(a, b); }

// A sloped segment seen along its main axis: for a main coordinate m the dependent coordinate
// is round((m - base) * slope + other).
struct TSlopedSegment {
    int Base;
    int Other;
    double Slope;
    int PointMain;
    int PointOther;

    long Distance(int m) const
    {
        const long dependent = std::lround((m - Base) * Slope + Other);
        return std::labs(long(m) - PointMain) + std::labs(dependent - PointOther);
    }
};

// Bisection towards the position nearest to the point, measured as the sum of the axis
// distances (not Euclidean, by design).
bool IsNearSloped(const TSlopedSegment& seg, int lo, int hi, double tolerance)
{
    long next = 0;
    for (;;) {
        const int m = lo + (hi - lo) / 2;
        const bool last = m == lo;
        const long here = seg.Distance(m);
        if (here <= tolerance)
            return true;
        next = seg.Distance(m + 1);
        if (next >= here)
            hi = m;
        else
            lo = m;
        if (last)
            break;
    }
    return next <= tolerance;
}

bool IsNearSegment(const QPoint& p1, const QPoint& p2, const QPoint& p, double tolerance)
{
    if (p1.x() == p2.x())
        return Between(p.y(), p1.y(), p2.y()) && std::abs(p1.x() - p.x()) <= tolerance;
    if (p1.y() == p2.y())
        return Between(p.x(), p1.x(), p2.x()) && std::abs(p1.y() - p.y()) <= tolerance;
    const double k = double(p1.y() - p2.y()) / double(p1.x() - p2.x());
    const double inverse = 1.0 / k;
    if (std::fabs(inverse) < std::fabs(k)) {
        // Steeper than 45 degrees: walk along y.
        const TSlopedSegment seg{p1.y(), p1.x(), inverse, p.y(), p.x()};
        return IsNearSloped(seg, std::min(p1.y(), p2.y()), std::max(p1.y(), p2.y()), tolerance);
    }
    const TSlopedSegment seg{p1.x(), p1.y(), k, p.x(), p.y()};
    return IsNearSloped(seg, std::min(p1.x(), p2.x()), std::max(p1.x(), p2.x()), tolerance);
}

} // namespace

int IsPointNearLine(const std::vector<QPoint>& points, const QPoint& point, double tolerance)
{
    for (size_t i = 0; i + 1 < points.size(); ++i)
        if (IsNearSegment(points[i], points[i + 1], point, tolerance))
            return int(i);
    return -1;
}

bool IsPointInPoly(const std::vector<QPoint>& points, const QPoint& point)
{
    int crossings = 0;
    const size_t count = points.size();
    for (size_t i = 0; i < count; ++i) {
        const QPoint& a = points[i];
        const QPoint& b = points[(i + 1) % count];
        // A horizontal edge has no single x at its height; its neighbours count for it.
        if (a.y() == b.y() || !Between(point.y(), a.y(), b.y()))
            continue;
        const int x =
            a.x() +
            int(std::lround(double(point.y() - a.y()) * (b.x() - a.x()) / double(b.y() - a.y())));
        if (point.x() >= x)
            ++crossings;
    }
    return crossings % 2 == 1;
}

void TransformCoordinates(QPoint* points, int count, const TVdTransformMatrix& m)
{
    for (int i = 0; i < count; ++i) {
        const int x = points[i].x();
        const int y = points[i].y();
        points[i] = QPoint(m.a * x + m.c * y + m.e, m.b * x + m.d * y + m.f);
    }
}

void TransformCoordinates(std::vector<QPoint>& points, const TVdTransformMatrix& matrix)
{
    TransformCoordinates(points.data(), int(points.size()), matrix);
}

void UpperCaseItems(QStringList* strings)
{
    if (!strings)
        return;
    const QLocale locale;
    for (QString& item : *strings)
        item = locale.toUpper(item);
}

bool TransparentBlt(QPainter& painter, int x, int y, const QPixmap& image)
{
    painter.drawPixmap(x, y, image);
    return true;
}

} // namespace vd
