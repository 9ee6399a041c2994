#pragma once

// Geometry helpers of the diagram: the polyline proximity test that finds the link under the
// mouse, the point-in-polygon test, an affine point transform, the transparent image copy the
// buttons and check boxes are drawn with, and upper-casing of a string list.

#include <QPoint>
#include <QStringList>

#include <cstdint>
#include <vector>

class QPainter;
class QPixmap;

namespace vd {

// The affine transform (a, b), (c, d), (e, f): x' = a*x + c*y + e, y' = b*x + d*y + f.
struct TVdTransformMatrix {
    std::int16_t a = 1;
    std::int16_t b = 0;
    std::int16_t c = 0;
    std::int16_t d = 1;
    std::int16_t e = 0;
    std::int16_t f = 0;
};

// The index of the first segment (points[i] to points[i+1]) that point is near, or -1.
// "Near" is the sum of the distances along both axes being <= tolerance; callers pass the
// link's point count as the tolerance.
int IsPointNearLine(const std::vector<QPoint>& points, const QPoint& point, double tolerance);

// Crossing-number test; the polygon closes from its last point back to the first.
bool IsPointInPoly(const std::vector<QPoint>& points, const QPoint& point);

// Applies the transform in place to the first count points, in integer arithmetic.
void TransformCoordinates(QPoint* points, int count, const TVdTransformMatrix& matrix);
void TransformCoordinates(std::vector<QPoint>& points, const TVdTransformMatrix& matrix);

// Replaces every item by its upper-case form in the current locale; a null list is ignored.
void UpperCaseItems(QStringList* strings);

// Draws image at (x, y) leaving the destination untouched where the image is transparent.
// Our images carry an alpha channel, so the mask and raster-operation dance of a bitmap copy
// is just drawing the pixmap; it exists so that every caller draws its glyphs one way.
// Always returns true.
bool TransparentBlt(QPainter& painter, int x, int y, const QPixmap& image);

} // namespace vd
