#include "sections/crossing_search.h"

#include "host/geometry/level_crossing.h"

namespace
{

constexpr size_t kChunk = 16;

bool isUsable(const AcGePoint2d& p)
{
    return std::fabs(p.x) < kLargestCoordinate && std::fabs(p.y) < kLargestCoordinate;
}

PathVertex vertexOf(const AcGePoint2d& p)
{
    return {p.x, p.y};
}

Box2d boxOf(const AcGePoint2d& a, const AcGePoint2d& b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

} // namespace

CrossingSearch::Line::Line(const SearchLine& line)
    : segment(vertexOf(line.from), vertexOf(line.to)), from(line.from), way(line.to - line.from), size(way.length()),
      gap(placeTolerance(segment.magnitude))
{
}

/// Never false for a segment that the exact test lets meet the line: both ends on one side of it, farther out than what
/// rounding and tolerance can bridge.
bool CrossingSearch::Line::canMeet(const AcGePoint2d& a, const AcGePoint2d& b, double otherGap) const
{
    const double slack = 8.0 * size * (gap + otherGap);
    const double aSide = way.crossProduct(a - from);
    const double bSide = way.crossProduct(b - from);
    if ((aSide > slack && bSide > slack) || (aSide < -slack && bSide < -slack))
        return false;
    const double aAlong = way.dotProduct(a - from);
    const double bAlong = way.dotProduct(b - from);
    const double end = size * size + slack;
    return !((aAlong > end && bAlong > end) || (aAlong < -slack && bAlong < -slack));
}

CrossingSearch::CrossingSearch(std::span<const SearchLine> lines)
    : m_grid(lines), m_lines(lines.begin(), lines.end()), m_lastSegment(lines.size(), 0)
{
    for (const Line& line : m_lines)
        m_extents.add(line.segment.box);
}

const std::vector<LineCrossing>& CrossingSearch::find(std::span<const AcGePoint2d> path)
{
    m_pairs.clear();
    m_crossings.clear();
    for (size_t first = 0; first + 1 < path.size(); first += kChunk)
        collectChunk(path, first, std::min(first + kChunk, path.size() - 1));

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

/// Collects which lines the segments between the vertices `first` and `last` may meet.
void CrossingSearch::collectChunk(std::span<const AcGePoint2d> path, size_t first, size_t last)
{
    Box2d box;
    for (size_t i = first; i <= last; ++i)
        box.add(path[i].x, path[i].y);
    const double gap = placeTolerance(std::min(box.magnitude(), kLargestCoordinate));
    if (box.isApart(m_extents, gap + placeTolerance(m_extents.magnitude())))
        return;
    const bool hasCells = box.magnitude() < m_grid.reach();
    if (hasCells && m_grid.isEmptyNear(box, gap))
        return;
    for (size_t i = first; i < last; ++i)
    {
        if (!isUsable(path[i]) || !isUsable(path[i + 1]))
            continue;
        ++m_segmentNumber;
        if (hasCells)
            collectSegment(path[i], path[i + 1], static_cast<uint32_t>(i), gap);
        else
            for (uint32_t line = 0; line < m_lines.size(); ++line)
                add(line, static_cast<uint32_t>(i), path[i], path[i + 1], gap);
    }
}

void CrossingSearch::collectSegment(const AcGePoint2d& a, const AcGePoint2d& b, uint32_t segment, double gap)
{
    const Box2d box = boxOf(a, b);
    if (std::max(box.maxX - box.minX, box.maxY - box.minY) > 3.0 * m_grid.cellSize())
        return collectAlong(a, b, segment, gap);
    m_grid.visitNear(box, gap, [&](uint32_t line) { add(line, segment, a, b, gap); });
}

/// A long segment looks into the cells along it piece by piece; one with more pieces than there are lines asks all of
/// them.
void CrossingSearch::collectAlong(const AcGePoint2d& a, const AcGePoint2d& b, uint32_t segment, double gap)
{
    const AcGeVector2d way = b - a;
    const double pieces = std::floor(std::max(std::fabs(way.x), std::fabs(way.y)) / m_grid.cellSize()) + 1.0;
    if (!(pieces < static_cast<double>(m_lines.size())))
    {
        for (uint32_t line = 0; line < m_lines.size(); ++line)
            add(line, segment, a, b, gap);
        return;
    }
    AcGePoint2d from = a;
    for (double piece = 1.0; piece <= pieces; ++piece)
    {
        const AcGePoint2d to = piece == pieces ? b : a + way * (piece / pieces);
        m_grid.visitNear(boxOf(from, to), gap, [&](uint32_t line) { add(line, segment, a, b, gap); });
        from = to;
    }
}

void CrossingSearch::add(uint32_t line, uint32_t segment, const AcGePoint2d& a, const AcGePoint2d& b, double gap)
{
    if (m_lastSegment[line] == m_segmentNumber)
        return;
    m_lastSegment[line] = m_segmentNumber;
    if (m_lines[line].canMeet(a, b, gap))
        m_pairs.push_back({line, segment});
}

/// Crosses the segments of a path that may meet one line with it, and stops when what follows cannot change the first
/// two places. On a path that ends where it began, that needs a third: the last place may turn out to be the first
/// again.
void CrossingSearch::cross(std::span<const AcGePoint2d> path, std::span<const Pair> pairs)
{
    const bool isRing = path.front().x == path.back().x && path.front().y == path.back().y;
    const size_t enough = isRing ? 3 : 2;
    const Line& line = m_lines[pairs.front().line];
    CrossingList list{m_points};
    for (const Pair& pair : pairs)
    {
        const BoxedSegment own{vertexOf(path[pair.segment]), vertexOf(path[pair.segment + 1])};
        if (addCrossings(own, line.segment, 0.0, list))
            endCrossingsOfSegment(own, list);
        if (m_points.size() >= enough)
            break;
    }
    if (isRing)
        list.endClosed({path.front().x, path.front().y, 0.0});
    if (m_points.empty())
        return;
    LineCrossing crossing{pairs.front().line, m_points.front(), std::nullopt};
    if (m_points.size() > 1)
        crossing.second = m_points[1];
    m_crossings.push_back(crossing);
}
