#include "bench/support/crossing_case.h"

#include <algorithm>
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <iterator>

namespace bench
{

namespace
{

namespace bg = boost::geometry;
using Point = bg::model::point<double, 2, bg::cs::cartesian>;
using Box = bg::model::box<Point>;
using Entry = std::pair<Box, uint32_t>;
using Tree = bg::index::rtree<Entry, bg::index::quadratic<16>>;

Box boxed(const Box2d& box)
{
    return {Point(box.minX, box.minY), Point(box.maxX, box.maxY)};
}

/// Built from all boxes at once, which packs the tree: faster to make and to ask than one filled by inserting.
Tree treeOf(const CrossingCase& input)
{
    std::vector<Entry> entries;
    entries.reserve(input.paths.size());
    for (uint32_t path = 0; path < input.paths.size(); ++path)
        entries.emplace_back(boxed(boxOf(input.paths[path])), path);
    return Tree(entries);
}

} // namespace

CrossingRows rTreeRows(const CrossingCase& input)
{
    const Tree tree = treeOf(input);
    CrossingRows rows(input.lines.size());
    std::vector<Entry> found;
    for (size_t line = 0; line < input.lines.size(); ++line)
    {
        found.clear();
        tree.query(bg::index::intersects(boxed(boxOf(input.lines[line]))), std::back_inserter(found));
        std::sort(found.begin(), found.end(), [](const Entry& a, const Entry& b) { return a.second < b.second; });
        for (const Entry& entry : found)
            if (const auto row = crossSegments(input, entry.second, line))
                rows[line].push_back(*row);
    }
    return rows;
}

} // namespace bench
