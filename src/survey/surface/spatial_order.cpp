#include "survey/surface/spatial_order.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace survey
{

namespace
{

constexpr size_t kFirstRound = 1000;
constexpr size_t kGrowth = 4; ///< how many times larger a round is than all before it together
constexpr int kCurveBits = 29;

/// How far along the Hilbert curve over all grid places one lies.
uint64_t placeOnCurve(GridPoint at)
{
    constexpr int64_t kMask = (int64_t{1} << kCurveBits) - 1;
    uint64_t along = 0;
    for (int64_t side = int64_t{1} << (kCurveBits - 1); side > 0; side >>= 1)
    {
        const bool right = (at.x & side) != 0;
        const bool upper = (at.y & side) != 0;
        along = along << 2 | (right ? (upper ? 2U : 3U) : (upper ? 1U : 0U));
        if (upper)
            continue;
        if (right)
            at = {~at.x & kMask, ~at.y & kMask};
        std::swap(at.x, at.y);
    }
    return along;
}

} // namespace

std::vector<uint32_t> spatialOrder(std::span<const GridPoint> points)
{
    std::vector<uint32_t> order(points.size());
    std::iota(order.begin(), order.end(), 0U);
    std::shuffle(order.begin(), order.end(), std::minstd_rand{});

    std::vector<uint64_t> along(points.size());
    std::transform(points.begin(), points.end(), along.begin(), placeOnCurve);
    const auto sortRound = [&](size_t from, size_t to)
    {
        const auto begin = order.begin();
        std::sort(begin + static_cast<std::ptrdiff_t>(from), begin + static_cast<std::ptrdiff_t>(to),
                  [&](uint32_t a, uint32_t b) { return along[a] < along[b]; });
    };
    size_t end = points.size();
    while (end > kFirstRound)
    {
        sortRound(end / (kGrowth + 1), end);
        end /= kGrowth + 1;
    }
    sortRound(0, end);
    return order;
}

} // namespace survey
