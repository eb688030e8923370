#include "survey/surface/triangulate.h"

#include "survey/surface/delaunay.h"

#include <cmath>
#include <optional>
#include <unordered_set>

namespace survey
{

namespace
{

constexpr double kFarthest = 1e9;      ///< metres
constexpr double kSameHeight = 0.0005; ///< metres: half the last place that heights are written with

bool isUsable(const AcGePoint3d& point)
{
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest && std::abs(point.z) < kFarthest;
}

AcGeExtents extentsOf(std::span<const AcGePoint3d> points, std::span<const BreakLine> lines)
{
    AcGeExtents extents;
    const auto add = [&](std::span<const AcGePoint3d> part)
    {
        for (const AcGePoint3d& point : part)
            if (isUsable(point))
                extents.addPoint(point);
    };
    add(points);
    for (const BreakLine& line : lines)
        add(line.vertices);
    return extents;
}

/// Gathers the vertices and chords of a surface, and counts what did not fit.
class Gathering
{
public:
    Gathering(std::span<const AcGePoint3d> points, std::span<const BreakLine> lines, Triangulation& told)
        : m_vertices{SnapGrid{extentsOf(points, lines)}}, m_told{told}
    {
        m_vertices.reserve(points.size());
        for (const AcGePoint3d& point : points)
            addPoint(point);
        for (size_t line = 0; line < lines.size(); ++line)
            addLine(lines[line], static_cast<uint32_t>(line));
    }

    VertexSet& vertices() { return m_vertices; }
    std::vector<Chord>& chords() { return m_chords; }

private:
    std::optional<uint32_t> add(const AcGePoint3d& point)
    {
        if (!isUsable(point))
        {
            ++m_told.leftOut;
            return std::nullopt;
        }
        const uint32_t vertex = m_vertices.add(point);
        const double difference = std::abs(m_vertices.points()[vertex].z - point.z);
        m_told.conflicts += difference > kSameHeight ? 1 : 0;
        m_told.largestConflict = std::max(m_told.largestConflict, difference);
        return vertex;
    }

    void addPoint(const AcGePoint3d& point)
    {
        const size_t before = m_vertices.points().size();
        m_told.merged += add(point) && m_vertices.points().size() == before ? 1 : 0;
    }

    void addLine(const BreakLine& line, uint32_t number)
    {
        std::optional<uint32_t> first;
        std::optional<uint32_t> last;
        for (const AcGePoint3d& point : line.vertices)
        {
            const std::optional<uint32_t> vertex = add(point);
            if (last && vertex && *last != *vertex)
                m_chords.push_back({*last, *vertex, number});
            last = vertex;
            first = first ? first : vertex;
        }
        if (line.closed && first && last && *first != *last)
            m_chords.push_back({*last, *first, number});
    }

    VertexSet m_vertices;
    std::vector<Chord> m_chords;
    Triangulation& m_told;
};

/// Which edges may be as long as they are.
class EdgeLimit
{
public:
    EdgeLimit(const AcGePoint3dArray& points, const std::vector<Chord>& chords, double maxEdge)
        : m_points{points}, m_maxEdge{maxEdge}
    {
        for (const Chord& chord : chords)
            m_held.insert(keyOf(chord.from, chord.to));
    }

    bool isBroken(const Surface::Face& face) const
    {
        return isTooLong(face[0], face[1]) || isTooLong(face[1], face[2]) || isTooLong(face[2], face[0]);
    }

private:
    static uint64_t keyOf(uint32_t a, uint32_t b) { return uint64_t{std::min(a, b)} << 32 | std::max(a, b); }
    bool isTooLong(uint32_t a, uint32_t b) const
    {
        const AcGeVector3d edge = m_points[b] - m_points[a];
        return std::hypot(edge.x, edge.y) > m_maxEdge && !m_held.contains(keyOf(a, b));
    }

    const AcGePoint3dArray& m_points;
    double m_maxEdge;
    std::unordered_set<uint64_t> m_held;
};

} // namespace

Triangulation triangulate(std::span<const AcGePoint3d> points, std::span<const BreakLine> lines, double maxEdge)
{
    Triangulation result;
    Gathering gathered{points, lines, result};
    VertexSet& vertices = gathered.vertices();
    result.crossings = nodeChords(vertices, gathered.chords());
    result.tin.faces = delaunay(vertices.places(), gathered.chords());
    result.tin.points = vertices.points();
    if (std::isfinite(maxEdge))
    {
        const EdgeLimit limit{result.tin.points, gathered.chords(), maxEdge};
        std::erase_if(result.tin.faces, [&](const Surface::Face& face) { return limit.isBroken(face); });
    }
    return result;
}

} // namespace survey
