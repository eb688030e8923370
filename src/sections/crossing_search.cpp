#include "sections/crossing_search.h"

#include "kernel/crossing/level_crossing.h"

#include <utility>

namespace
{

/// Vertices are looked at in runs of this many segments.
constexpr size_t kRun = 16;

PathVertex vertexOf(const AcGePoint2d& p)
{
    return {p.x, p.y};
}

Box2d boxOf(const AcGePoint2d& a, const AcGePoint2d& b)
{
    Box2d box;
    box.add(a.x, a.y);
    box.add(b.x, b.y);
    return box;
}

bool isUsable(const StraightWay& way)
{
    return boxOf(way.from, way.to).magnitude() < kLargestCoordinate;
}

/// Kept out of line: it is seldom needed.
[[gnu::noinline]] void addByCloserLook(const BoxedSegment& own, const BoxedSegment& line, CrossingList& list)
{
    if (addCrossings(own, line, 0.0, list))
        endCrossingsOfSegment(own, list);
}

Box2d widened(const Box2d& box)
{
    const double gap = placeTolerance(box.magnitude());
    return {box.minX - gap, box.minY - gap, box.maxX + gap, box.maxY + gap};
}

} // namespace

CrossingSearch::Gate::Gate(const SearchLine& line)
    : from(line.from), way(line.to - line.from), size(way.length()),
      ownGap(placeTolerance(boxOf(line.from, line.to).magnitude()))
{
}

/// A bit for each segment of a run that does not lie on one side of the line as a whole. Never leaves out what the
/// exact test lets meet the line: the slack is more than tolerance and rounding can bridge. Without a branch, since
/// nobody could guess it.
uint32_t CrossingSearch::Gate::crossedBy(std::span<const AcGePoint2d> vertices, double slack) const
{
    constexpr uint32_t kTop = uint32_t{1} << 31;
    uint32_t left = 0;
    uint32_t right = 0;
    for (const AcGePoint2d& vertex : vertices)
    {
        const double side = way.crossProduct(vertex - from);
        left = (left >> 1) | (side > slack ? kTop : 0);
        right = (right >> 1) | (side < -slack ? kTop : 0);
    }
    const uint32_t segments = (uint32_t{1} << (vertices.size() - 1)) - 1;
    const uint32_t oneSide = (left & (left >> 1)) | (right & (right >> 1));
    return ~(oneSide >> (32 - vertices.size())) & segments;
}

/// False for a box that lies on one side of the line as a whole.
bool CrossingSearch::Gate::mayMeet(const Box2d& box, double gap) const
{
    const AcGeVector2d half{0.5 * (box.maxX - box.minX), 0.5 * (box.maxY - box.minY)};
    const AcGeVector2d toMiddle = AcGePoint2d{box.minX, box.minY} + half - from;
    const double reach = std::fabs(way.x) * half.y + std::fabs(way.y) * half.x;
    return std::fabs(way.crossProduct(toMiddle)) <= reach + slack(gap);
}

/// Whether a segment lies before the line's start or behind its end as a whole.
bool CrossingSearch::Gate::isPassed(const AcGePoint2d& a, const AcGePoint2d& b, double slack) const
{
    const double aAlong = way.dotProduct(a - from);
    const double bAlong = way.dotProduct(b - from);
    const double end = size * size + slack;
    return (aAlong > end && bAlong > end) || (aAlong < -slack && bAlong < -slack);
}

CrossingSearch::CrossingSearch(std::span<const SearchLine> lines)
    : m_grid(lines), m_gates(lines.begin(), lines.end()), m_lastTest(lines.size(), 0)
{
    m_segments.reserve(lines.size());
    for (const SearchLine& line : lines)
    {
        m_segments.emplace_back(vertexOf(line.from), vertexOf(line.to));
        m_extents.add(m_segments.back().box);
    }
    m_extents = widened(m_extents);
}

const std::vector<LineCrossing>& CrossingSearch::find(std::span<const AcGePoint2d> path)
{
    m_pairs.clear();
    m_crossings.clear();
    for (size_t first = 0; first + 1 < path.size(); first += kRun)
        collect(path, first, std::min(first + kRun, path.size() - 1));

    if (m_pairs.size() > 1)
        std::sort(m_pairs.begin(), m_pairs.end());
    const std::span<const Pair> pairs = m_pairs;
    for (size_t first = 0; first < pairs.size();)
    {
        size_t last = first + 1;
        while (last < pairs.size() && pairs[last].line == pairs[first].line)
            ++last;
        cross(path, pairs.subspan(first, last - first));
        first = last;
    }
    return m_crossings;
}

/// Whether a line comes up for the first time in this test.
inline bool CrossingSearch::isFirstAsked(uint32_t line)
{
    return std::exchange(m_lastTest[line], m_testNumber) != m_testNumber;
}

/// Adds the segments between two vertices that may meet a line.
inline void CrossingSearch::test(uint32_t line, std::span<const AcGePoint2d> path, size_t first, size_t last,
                                 double gap)
{
    const Gate& gate = m_gates[line];
    const double slack = gate.slack(gap);
    for (uint32_t crossed = gate.crossedBy(path.subspan(first, last - first + 1), slack); crossed != 0;
         crossed &= crossed - 1)
    {
        const size_t segment = first + static_cast<size_t>(std::countr_zero(crossed));
        if (!gate.isPassed(path[segment], path[segment + 1], slack))
            m_pairs.push_back({line, static_cast<uint32_t>(segment)});
    }
}

/// Collects which lines the segments between the vertices `first` and `last` may meet. A run that covers many cells is
/// halved.
void CrossingSearch::collect(std::span<const AcGePoint2d> path, size_t first, size_t last)
{
    Box2d box;
    for (size_t i = first; i <= last; ++i)
        box.add(path[i].x, path[i].y);
    const double gap = placeTolerance(std::min(box.magnitude(), kLargestCoordinate));
    if (box.isApart(m_extents, gap))
        return;
    if (m_grid.isSmall(box, gap))
    {
        ++m_testNumber;
        m_grid.visitNear(box, gap,
                         [&](uint32_t line)
                         {
                             if (isFirstAsked(line) && m_gates[line].mayMeet(box, gap))
                                 test(line, path, first, last, gap);
                         });
        return;
    }
    if (last - first == 1)
        return collectLongSegment(path, first, gap);
    const size_t middle = (first + last) / 2;
    collect(path, first, middle);
    collect(path, middle, last);
}

/// A long segment looks into the cells along it piece by piece; one with more pieces than there are lines, or too far
/// out for cells, asks all of them.
void CrossingSearch::collectLongSegment(std::span<const AcGePoint2d> path, size_t segment, double gap)
{
    ++m_testNumber;
    const AcGePoint2d& a = path[segment];
    const AcGePoint2d& b = path[segment + 1];
    const AcGeVector2d way = b - a;
    const double pieces = std::floor(std::max(std::fabs(way.x), std::fabs(way.y)) / m_grid.cellSize()) + 1.0;
    const auto visit = [&](uint32_t line)
    {
        if (isFirstAsked(line))
            test(line, path, segment, segment + 1, gap);
    };
    if (!(pieces < static_cast<double>(m_gates.size())) || !(boxOf(a, b).magnitude() < m_grid.reach()))
    {
        for (uint32_t line = 0; line < m_gates.size(); ++line)
            visit(line);
        return;
    }
    AcGePoint2d from = a;
    for (double piece = 1.0; piece <= pieces; ++piece)
    {
        const AcGePoint2d to = piece == pieces ? b : a + way * (piece / pieces);
        m_grid.visitNear(boxOf(from, to), gap, visit);
        from = to;
    }
}

/// Crosses the segments of a path that may meet one line with it, up to the second place. On a path that ends where it
/// began, a last place that is the first again is never one of the first two: as the second it would follow the first
/// and be the same place.
void CrossingSearch::cross(std::span<const AcGePoint2d> path, std::span<const Pair> pairs)
{
    const BoxedSegment& line = m_segments[pairs.front().line];
    const double gap = m_gates[pairs.front().line].ownGap;
    CrossingList list{m_points};
    for (const Pair& pair : pairs)
    {
        const StraightWay own{path[pair.segment], path[pair.segment + 1]};
        if (!isUsable(own) || !addClearCrossing(own, {line.from, line.to}, gap, 0.0, list))
            addByCloserLook({vertexOf(own.from), vertexOf(own.to)}, line, list);
        if (m_points.size() > 1)
            break;
    }
    if (m_points.empty())
        return;
    LineCrossing& crossing = m_crossings.emplace_back();
    crossing.line = pairs.front().line;
    crossing.first = m_points[0];
    if (m_points.size() > 1)
        crossing.second.emplace(m_points[1]);
}
