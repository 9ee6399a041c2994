#pragma once

// Where a new table object goes: start at (50, 20); while the candidate rectangle overlaps a
// table (the first one in list order, front-most first), move it to that table's right edge
// + 10 and look again from the first table. The result depends on the list order, so a
// faster search must still find the first overlapping table at every step.

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace vd {

constexpr QPoint PlacementStart(50, 20);
constexpr int PlacementGap = 10;

// The walk as stated, restarting at the first table after every move: for checking.
QPoint PlaceByWalk(const std::vector<QRect>& tables, const QSize& size);

// The same position in O(m log m) for the m tables sharing the candidate's rows: x only
// grows, so a table becomes reachable once (its left is within the candidate) and dead once
// (its right is behind it); the reachable, living table with the lowest index is the one the
// walk meets first.
QPoint PlaceTable(const std::vector<QRect>& tables, const QSize& size);

} // namespace vd
