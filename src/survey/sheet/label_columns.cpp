#include "survey/sheet/label_columns.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace survey
{

namespace
{

constexpr double kStraight = 0.005; ///< metres: ground that leaves a straight line by less has no bend

struct ByOffset
{
    bool operator()(const GroundPoint& a, const GroundPoint& b) const { return a.offset < b.offset; }
};

struct Bend
{
    double depth; ///< metres from the straight line between its neighbours of a coarser line
    size_t index;
};

double heightBetween(const GroundPoint& from, const GroundPoint& to, double offset)
{
    const double width = to.offset - from.offset;
    return width > 0.0 ? from.elevation + (to.elevation - from.elevation) * (offset - from.offset) / width
                       : from.elevation;
}

/// The bends of a line by a coarser line through the deepest ones first.
std::vector<Bend> bendsOf(const GroundPiece& ground)
{
    std::vector<Bend> bends;
    std::vector<std::pair<size_t, size_t>> parts{{0, ground.size() - 1}};
    while (!parts.empty())
    {
        const auto [from, to] = parts.back();
        parts.pop_back();
        Bend deepest{kStraight, from};
        for (size_t i = from + 1; i < to; ++i)
            if (const double depth =
                    std::abs(ground[i].elevation - heightBetween(ground[from], ground[to], ground[i].offset));
                depth > deepest.depth)
                deepest = {depth, i};
        if (deepest.index == from)
            continue;
        bends.push_back(deepest);
        parts.insert(parts.end(), {{from, deepest.index}, {deepest.index, to}});
    }
    std::stable_sort(bends.begin(), bends.end(), [](const Bend& a, const Bend& b) { return a.depth > b.depth; });
    return bends;
}

} // namespace

std::vector<GroundPoint> labelColumns(const GroundPiece& ground, double leastGap, bool isMeasured)
{
    std::set<GroundPoint, ByOffset> columns;
    const auto offer = [&](const GroundPoint& point)
    {
        const auto next = columns.lower_bound(point);
        const bool isFree = (next == columns.end() || next->offset - point.offset >= leastGap) &&
                            (next == columns.begin() || point.offset - std::prev(next)->offset >= leastGap);
        if (isFree)
            columns.insert(next, point);
    };
    offer(ground.front());
    offer(ground.back());
    const auto behind = std::lower_bound(ground.begin(), ground.end(), GroundPoint{0.0, 0.0}, ByOffset{});
    if (behind != ground.begin() && behind != ground.end())
        offer({0.0, heightBetween(*std::prev(behind), *behind, 0.0)});
    for (const Bend& bend : bendsOf(ground))
        offer(ground[bend.index]);
    if (isMeasured)
        std::for_each(ground.begin(), ground.end(), offer);
    return {columns.begin(), columns.end()};
}

} // namespace survey
