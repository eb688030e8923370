#include "host/geometry/plan_polygon.h"

namespace
{

AcGePoint3d atVertex(const PathVertex& vertex)
{
    return {vertex.x, vertex.y, 0.0};
}

bool isUsable(const PathVertex& vertex)
{
    return std::fabs(vertex.x) < kLargestCoordinate && std::fabs(vertex.y) < kLargestCoordinate;
}

double toleranceAt(const PathVertex& vertex)
{
    return placeTolerance(std::max(std::fabs(vertex.x), std::fabs(vertex.y)));
}

bool hasVertexOn(const CurvePath& path, const CurvePath& other)
{
    return std::any_of(path.vertices().begin(), path.vertices().end(),
                       [&](const PathVertex& v)
                       { return isUsable(v) && other.passesThrough(atVertex(v), toleranceAt(v)); });
}

bool touchFlat(const CurvePath& a, const CurvePath& b)
{
    return hasVertexOn(a, b) || hasVertexOn(b, a) || !intersect(a, b).empty();
}

AcGeExtents grown(const AcGeExtents& box)
{
    if (!box.isValid())
        return box;
    const AcGePoint3d& low = box.minPoint();
    const AcGePoint3d& high = box.maxPoint();
    const double gap = placeTolerance(std::max({-low.x, high.x, -low.y, high.y}));
    return {low - AcGeVector3d(gap, gap, 0), high + AcGeVector3d(gap, gap, 0)};
}

} // namespace

CurvePath inPlan(const CurvePath& path)
{
    std::vector<PathVertex> vertices;
    if (path.isLevel() || !path.isPlane())
    {
        vertices = path.vertices();
        return CurvePath::plane(std::move(vertices), path.isClosed());
    }
    for (const AcGePoint3d& p : path.flatten())
        vertices.push_back({p.x, p.y});
    return CurvePath::plane(std::move(vertices));
}

bool touchInPlan(const CurvePath& a, const CurvePath& b)
{
    return grown(a.extents()).meetsInPlan(b.extents()) && touchFlat(inPlan(a), inPlan(b));
}

PlanPolygon::PlanPolygon(std::span<const AcGePoint3d> corners) : m_border(inPlan(CurvePath::space(corners, true)))
{
    m_extents = grown(m_border.extents());
}

bool PlanPolygon::isOnBorder(const AcGePoint2d& p) const
{
    return m_border.passesThrough({p.x, p.y, 0.0}, toleranceAt({p.x, p.y}));
}

/// Counts the border's crossings of the way from `p` to the right.
bool PlanPolygon::containsInPlan(const AcGePoint2d& p) const
{
    const AcGePoint3d place{p.x, p.y, 0.0};
    if (!m_extents.meetsInPlan(AcGeExtents(place, place)))
        return false;
    bool inside = false;
    for (std::size_t i = 0; i < m_border.segmentCount(); ++i)
    {
        const PathVertex& from = m_border.segmentStart(i);
        const PathVertex& to = m_border.segmentEnd(i);
        if ((from.y > p.y) == (to.y > p.y))
            continue;
        const double side = (to.x - from.x) * (p.y - from.y) - (to.y - from.y) * (p.x - from.x);
        if ((side > 0.0) == (to.y > from.y))
            inside = !inside;
    }
    return inside || isOnBorder(p);
}

bool PlanPolygon::contains(const AcGePoint3d& point) const
{
    return containsInPlan({point.x, point.y});
}

bool PlanPolygon::touches(const CurvePath& path) const
{
    if (!m_extents.meetsInPlan(path.extents()))
        return false;
    const CurvePath flat = inPlan(path);
    const auto inside = [&](const PathVertex& v) { return isUsable(v) && containsInPlan({v.x, v.y}); };
    return std::any_of(flat.vertices().begin(), flat.vertices().end(), inside) || touchFlat(flat, m_border);
}

/// A segment whose ends are inside leaves the polygon only between two places of its border.
bool PlanPolygon::enclosesSegment(const CurvePath& path, std::size_t segment, AcGePoint3dArray& places) const
{
    const Segment2d piece{path.segmentStart(segment), path.segmentEnd(segment)};
    if (!piece.isUsable())
        return true;
    PathVertex end = path.segmentEnd(segment);
    end.bulge = 0.0;
    intersect(CurvePath::plane({path.segmentStart(segment), end}), m_border, places);
    std::vector<double> fractions{0.0, 1.0};
    for (const AcGePoint3d& p : places)
        fractions.push_back(piece.fractionAt({p.x, p.y}));
    std::sort(fractions.begin(), fractions.end());
    for (std::size_t i = 0; i + 1 < fractions.size(); ++i)
        if (!containsInPlan(piece.at(0.5 * (fractions[i] + fractions[i + 1]))))
            return false;
    return true;
}

bool PlanPolygon::encloses(const CurvePath& path) const
{
    const CurvePath flat = inPlan(path);
    const auto inside = [&](const PathVertex& v) { return isUsable(v) && containsInPlan({v.x, v.y}); };
    if (flat.isEmpty() || !std::all_of(flat.vertices().begin(), flat.vertices().end(), inside))
        return false;
    AcGePoint3dArray places;
    for (std::size_t i = 0; i < flat.segmentCount(); ++i)
        if (!enclosesSegment(flat, i, places))
            return false;
    return true;
}
