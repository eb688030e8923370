#include "kernel/curve/curve_path.h"

#include <numbers>

namespace
{

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kOnPathTolerance = 1e-6;

AcGePoint2d onCircle(const AcGePoint3d& center, double radius, double angle)
{
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

bool isUsable(const AcGePoint3d& p)
{
    return std::fabs(p.x) < kLargestCoordinate && std::fabs(p.y) < kLargestCoordinate &&
           std::fabs(p.z) < kLargestCoordinate;
}

/// Distance of `p` from the straight way between two points of space, and how far along it, 0 to 1.
struct Nearest
{
    double distance;
    double fraction;
};

Nearest nearestOnLine(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint3d& p)
{
    const AcGeVector3d way = to - from;
    const double square = way.lengthSqrd();
    const double fraction = square > 0.0 ? std::clamp((p - from).dotProduct(way) / square, 0.0, 1.0) : 0.0;
    return {p.distanceTo(fraction < 1.0 ? from + way * fraction : to), fraction};
}

} // namespace

CurvePath CurvePath::plane(std::vector<PathVertex> vertices, bool closed, double elevation, const AcGeVector3d& normal)
{
    CurvePath path;
    path.m_vertices = std::move(vertices);
    path.m_closed = closed;
    path.m_elevation = elevation;
    path.m_normal = normal.normal();
    if (!(path.m_normal.lengthSqrd() > 0.5 && path.m_normal.lengthSqrd() < 2.0))
        path.m_normal = AcGeVector3d::kZAxis;
    path.m_level = path.m_normal.x == 0.0 && path.m_normal.y == 0.0 && path.m_normal.z == 1.0;
    return path;
}

CurvePath CurvePath::space(std::span<const AcGePoint3d> points, bool closed)
{
    CurvePath path;
    path.m_closed = closed;
    path.m_vertices.reserve(points.size());
    for (const AcGePoint3d& p : points)
        path.m_vertices.push_back({p.x, p.y, 0.0, p.z});
    path.m_elevation = points.empty() ? 0.0 : points.front().z;
    path.m_plane =
        std::all_of(points.begin(), points.end(), [&](const AcGePoint3d& p) { return p.z == path.m_elevation; });
    path.m_level = path.m_plane;
    return path;
}

CurvePath CurvePath::line(const AcGePoint3d& from, const AcGePoint3d& to)
{
    const AcGePoint3d points[] = {from, to};
    return space(points);
}

CurvePath CurvePath::circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal)
{
    return plane({{center.x + radius, center.y, 1.0}, {center.x - radius, center.y, 1.0}}, true, center.z, normal);
}

CurvePath CurvePath::arc(const AcGePoint3d& center, double radius, double startAngle, double endAngle,
                         const AcGeVector3d& normal)
{
    double sweep = std::fmod(endAngle - startAngle, kTurn);
    if (sweep <= 0.0)
        sweep += kTurn;
    const int pieces = sweep > std::numbers::pi ? 2 : 1;
    std::vector<PathVertex> vertices;
    for (int i = 0; i <= pieces; ++i)
    {
        const AcGePoint2d p = onCircle(center, radius, startAngle + sweep * i / pieces);
        vertices.push_back({p.x, p.y, i < pieces ? std::tan(sweep / pieces / 4.0) : 0.0});
    }
    return plane(std::move(vertices), false, center.z, normal);
}

bool CurvePath::hasArcs() const
{
    return std::any_of(m_vertices.begin(), m_vertices.end(), [](const PathVertex& v) { return v.bulge != 0.0; });
}

AcGeMatrix3d CurvePath::toWorld() const
{
    return isLevel() || !m_plane ? AcGeMatrix3d::kIdentity : AcGeMatrix3d::planeToWorld(m_normal);
}

AcGePoint3d CurvePath::worldPoint(const PathVertex& vertex) const
{
    const AcGePoint3d p{vertex.x, vertex.y, m_plane ? m_elevation : vertex.z};
    return isLevel() || !m_plane ? p : toWorld() * p;
}

double CurvePath::segmentLength(std::size_t segment) const
{
    const PathVertex& from = segmentStart(segment);
    const PathVertex& to = segmentEnd(segment);
    if (m_plane)
    {
        const Segment2d piece{from, to};
        return piece.isUsable() ? piece.length() : 0.0;
    }
    const AcGePoint3d a = worldPoint(from);
    const AcGePoint3d b = worldPoint(to);
    return isUsable(a) && isUsable(b) ? a.distanceTo(b) : 0.0;
}

double CurvePath::length() const
{
    double sum = 0.0;
    for (std::size_t i = 0; i < segmentCount(); ++i)
        sum += segmentLength(i);
    return sum;
}

std::optional<CurvePath::OnPath> CurvePath::find(const AcGePoint3d& point, double tolerance) const
{
    const AcGeMatrix3d toPath = isLevel() || !m_plane ? AcGeMatrix3d::kIdentity : AcGeMatrix3d::worldToPlane(m_normal);
    const AcGePoint3d p = toPath * point;
    if (!isUsable(p) || (m_plane && !(std::fabs(p.z - m_elevation) <= tolerance)))
        return std::nullopt;
    for (std::size_t i = 0; i < segmentCount(); ++i)
    {
        const PathVertex& from = segmentStart(i);
        const PathVertex& to = segmentEnd(i);
        if (m_plane)
        {
            const Segment2d piece{from, to};
            if (piece.isNear({p.x, p.y}, tolerance))
                return OnPath{i, piece.isUsable() ? piece.fractionAt({p.x, p.y}) : 0.0};
            continue;
        }
        const Nearest nearest = nearestOnLine(worldPoint(from), worldPoint(to), p);
        if (nearest.distance <= tolerance)
            return OnPath{i, nearest.fraction};
    }
    if (m_vertices.size() == 1 && worldPoint(m_vertices[0]).distanceTo(point) <= tolerance)
        return OnPath{0, 0.0};
    return std::nullopt;
}

std::optional<double> CurvePath::distAtPoint(const AcGePoint3d& point) const
{
    const double magnitude = std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
    const double near = placeTolerance(magnitude);
    std::optional<OnPath> place = find(point, near);
    if (!place)
        place = find(point, std::max(kOnPathTolerance, near));
    if (!place)
        return std::nullopt;
    double sum = 0.0;
    for (std::size_t i = 0; i < place->segment; ++i)
        sum += segmentLength(i);
    return m_vertices.size() == 1 ? sum : sum + segmentLength(place->segment) * place->fraction;
}

bool CurvePath::passesThrough(const AcGePoint3d& point, double tolerance) const
{
    return find(point, tolerance).has_value();
}
