#include "kernel/curve/arc_chords.h"
#include "kernel/curve/curve_path.h"

#include <numbers>

namespace
{

constexpr double kFlattenShare = 1e-5;

/// Calls `visit` for the points of an arc between its ends.
template <typename Visit>
void visitChordPoints(const Segment2d& arc, double tolerance, Visit visit)
{
    // Without a tolerance of its own an arc gets one by its size.
    const int chords = chordsWithin(arc, tolerance > 0.0 ? tolerance : kFlattenShare * arc.radius());
    for (int i = 1; i < chords; ++i)
        visit(arc.at(static_cast<double>(i) / chords));
}

/// Calls `visit` for the points of an arc that are outermost along an axis of the world. `toWorld` carries the plane.
template <typename Visit>
void visitOutermost(const Segment2d& arc, const AcGeMatrix3d& toWorld, Visit visit)
{
    const AcGeVector2d toCenter = arc.startNormal() * (0.5 / arc.curvature());
    const double startAngle = std::atan2(-toCenter.y, -toCenter.x);
    for (int axis = 0; axis < 3; ++axis)
    {
        const double top = std::atan2(toWorld.entry[axis][1], toWorld.entry[axis][0]);
        for (const double angle : {top, top + std::numbers::pi})
        {
            double turn = std::fmod(angle - startAngle, 2.0 * std::numbers::pi);
            if (turn * arc.sweep() < 0.0)
                turn += std::copysign(2.0 * std::numbers::pi, arc.sweep());
            if (turn / arc.sweep() > 0.0 && turn / arc.sweep() < 1.0)
                visit(arc.at(turn / arc.sweep()));
        }
    }
}

/// Whether the map keeps circles of the plane with these axes circles.
bool scalesAlike(const AcGeVector3d& x, const AcGeVector3d& y)
{
    constexpr double kAlike = 1e-9;
    const double square = x.lengthSqrd();
    return std::fabs(square - y.lengthSqrd()) <= kAlike * square && std::fabs(x.dotProduct(y)) <= kAlike * square;
}

} // namespace

AcGeExtents CurvePath::extents() const
{
    const AcGeMatrix3d world = toWorld();
    AcGeExtents box;
    for (const PathVertex& vertex : m_vertices)
        box.addPoint(world * AcGePoint3d(vertex.x, vertex.y, m_plane ? m_elevation : vertex.z));
    for (std::size_t i = 0; hasArcs() && i < segmentCount(); ++i)
    {
        const Segment2d piece{segmentStart(i), segmentEnd(i)};
        if (piece.isUsable() && piece.isArc())
            visitOutermost(piece, world,
                           [&](const AcGePoint2d& p) { box.addPoint(world * AcGePoint3d(p.x, p.y, m_elevation)); });
    }
    return box;
}

AcGePoint3dArray CurvePath::flatten(double tolerance) const
{
    const AcGeMatrix3d world = toWorld();
    AcGePoint3dArray points;
    points.reserve(m_vertices.size() + 1);
    for (std::size_t i = 0; i < m_vertices.size(); ++i)
    {
        const PathVertex& vertex = m_vertices[i];
        points.push_back(world * AcGePoint3d(vertex.x, vertex.y, m_plane ? m_elevation : vertex.z));
        if (vertex.bulge == 0.0 || i >= segmentCount())
            continue;
        const Segment2d arc{vertex, segmentEnd(i)};
        if (arc.isUsable())
            visitChordPoints(arc, tolerance,
                             [&](const AcGePoint2d& p)
                             { points.push_back(world * AcGePoint3d(p.x, p.y, m_elevation)); });
    }
    if (m_closed && segmentCount() > 0)
        points.push_back(points.front());
    return points;
}

CurvePath CurvePath::withoutArcs() const
{
    CurvePath path = *this;
    path.m_vertices.clear();
    for (std::size_t i = 0; i < m_vertices.size(); ++i)
    {
        const PathVertex& vertex = m_vertices[i];
        path.m_vertices.push_back({vertex.x, vertex.y});
        if (vertex.bulge == 0.0 || i >= segmentCount())
            continue;
        const Segment2d arc{vertex, segmentEnd(i)};
        if (arc.isUsable())
            visitChordPoints(arc, 0.0, [&](const AcGePoint2d& p) { path.m_vertices.push_back({p.x, p.y}); });
    }
    return path;
}

std::optional<CurvePath> CurvePath::carriedPlane(const AcGeMatrix3d& map) const
{
    const AcGeMatrix3d world = map * toWorld();
    const AcGeVector3d xAxis = world.column(0);
    const AcGeVector3d yAxis = world.column(1);
    const AcGeVector3d across = xAxis.crossProduct(yAxis);
    if (!(across.length() > 1e-12 * xAxis.length() * yAxis.length()))
        return std::nullopt;
    AcGeVector3d normal = across / across.length();
    // A level path stays level, also when it is mirrored: its arcs turn the other way round instead.
    const bool mirrored = normal.isEqualTo(-AcGeVector3d::kZAxis);
    if (mirrored || normal.isEqualTo(AcGeVector3d::kZAxis))
        normal = AcGeVector3d::kZAxis;
    const AcGeMatrix3d toNew = AcGeMatrix3d::worldToPlane(normal) * world;
    std::vector<PathVertex> vertices;
    vertices.reserve(m_vertices.size());
    for (const PathVertex& vertex : m_vertices)
    {
        const AcGePoint3d p = toNew * AcGePoint3d(vertex.x, vertex.y, m_elevation);
        vertices.push_back({p.x, p.y, mirrored ? -vertex.bulge : vertex.bulge});
    }
    return plane(std::move(vertices), m_closed, (toNew * AcGePoint3d(0, 0, m_elevation)).z, normal);
}

CurvePath CurvePath::transformed(const AcGeMatrix3d& map) const
{
    if (m_plane)
    {
        const AcGeMatrix3d world = map * toWorld();
        if (hasArcs() && !scalesAlike(world.column(0), world.column(1)))
            return withoutArcs().transformed(map);
        if (std::optional<CurvePath> carried = carriedPlane(map))
            return *std::move(carried);
    }
    AcGePoint3dArray points;
    points.reserve(m_vertices.size());
    for (const PathVertex& vertex : m_vertices)
        points.push_back(map * worldPoint(vertex));
    return space(points, m_closed);
}
