#include "diagram/VdPlacement.h"

#include <algorithm>
#include <functional>
#include <queue>
#include <utility>

namespace vd {

QPoint PlaceByWalk(const std::vector<QRect>& tables, const QSize& size)
{
    QRect candidate(PlacementStart, size);
    for (size_t i = 0; i < tables.size();) {
        const QRect& bounds = tables[i];
        if (candidate.intersects(bounds)) {
            candidate.moveLeft(bounds.left() + bounds.width() + PlacementGap);
            i = 0;
            continue;
        }
        ++i;
    }
    return candidate.topLeft();
}

QPoint PlaceTable(const std::vector<QRect>& tables, const QSize& size)
{
    const QRect start(PlacementStart, size);
    if (start.isEmpty())
        return PlaceByWalk(tables, size);
    // Only tables on the candidate's rows can ever be met; the row band never moves.
    struct TSpan {
        int Left;
        int Right;
        int Index;
    };
    std::vector<TSpan> spans;
    for (size_t i = 0; i < tables.size(); ++i) {
        const QRect& r = tables[i];
        if (!r.isEmpty() && r.top() <= start.bottom() && start.top() <= r.bottom())
            spans.push_back({r.left(), r.right(), int(i)});
    }
    std::sort(spans.begin(), spans.end(),
              [](const TSpan& a, const TSpan& b) { return a.Left < b.Left; });
    // Reachable tables by index, lowest first; a dead one is dropped when it reaches the top.
    using TEntry = std::pair<int, int>; // index, right
    std::priority_queue<TEntry, std::vector<TEntry>, std::greater<>> reachable;
    size_t next = 0;
    int x = start.left();
    const int width = size.width();
    for (;;) {
        while (next < spans.size() && spans[next].Left <= x + width - 1) {
            reachable.push({spans[next].Index, spans[next].Right});
            ++next;
        }
        while (!reachable.empty() && reachable.top().second < x)
            reachable.pop();
        if (reachable.empty())
            return QPoint(x, start.top());
        const QRect& hit = tables[size_t(reachable.top().first)];
        x = hit.left() + hit.width() + PlacementGap;
    }
}

} // namespace vd
