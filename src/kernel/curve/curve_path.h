#pragma once

#include "kernel/extents.h"
#include "kernel/matrix3d.h"
#include "kernel/segment2d.h"

#include <optional>
#include <span>
#include <vector>

/// Everything that can be drawn or crossed, as one value: a plane path (straight segments and arcs in a plane at a
/// height along its normal) or a path in space (straight segments only). Drawing units, radians.
///
/// A plane path keeps the coordinates of its plane (`AcGeMatrix3d::planeToWorld` carries them into the world); with the
/// normal Z they are the world's. A path in space whose points share one height is kept as a plane path. One vertex is
/// a point; none is an empty path. Nothing fails: segments with a coordinate that is not a number, or of
/// `kLargestCoordinate` or more, stay in the path but have no length and meet nothing.
class CurvePath
{
public:
    CurvePath() = default;

    /// `normal` need not have length 1; without a length it counts as Z. The `z` of the vertices is not used.
    static CurvePath plane(std::vector<PathVertex> vertices, bool closed = false, double elevation = 0.0,
                           const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    /// Straight segments between points of the world.
    static CurvePath space(std::span<const AcGePoint3d> points, bool closed = false);
    static CurvePath line(const AcGePoint3d& from, const AcGePoint3d& to);
    /// `center` in the coordinates of the plane with this normal, its z the elevation. Counter-clockwise from angle 0.
    static CurvePath circle(const AcGePoint3d& center, double radius,
                            const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    /// Counter-clockwise from one angle to the other; equal angles make a full turn. Otherwise as `circle`.
    static CurvePath arc(const AcGePoint3d& center, double radius, double startAngle, double endAngle,
                         const AcGeVector3d& normal = AcGeVector3d::kZAxis);

    bool isEmpty() const { return m_vertices.empty(); }
    bool isClosed() const { return m_closed; }
    bool isPlane() const { return m_plane; }
    /// Whether the path lies parallel to the world's XY plane, its coordinates the world's.
    bool isLevel() const { return m_level; }
    bool hasArcs() const;
    double elevation() const { return m_elevation; }
    const AcGeVector3d& normal() const { return m_normal; }
    const std::vector<PathVertex>& vertices() const { return m_vertices; }
    /// Segments between neighbouring vertices, the closing one of a closed path included.
    std::size_t segmentCount() const
    {
        const std::size_t count = m_vertices.size();
        return count < 2 ? 0 : m_closed ? count : count - 1;
    }
    const PathVertex& segmentStart(std::size_t segment) const { return m_vertices[segment]; }
    const PathVertex& segmentEnd(std::size_t segment) const
    {
        return m_vertices[segment + 1 == m_vertices.size() ? 0 : segment + 1];
    }

    /// Carries plane coordinates (or, in space, vertices as they are) into the world.
    AcGeMatrix3d toWorld() const;
    /// A vertex of the path in the world.
    AcGePoint3d worldPoint(const PathVertex& vertex) const;

    void reserve(std::size_t vertices) { m_vertices.reserve(vertices); }
    void addVertex(const PathVertex& vertex) { m_vertices.push_back(vertex); }
    void setVertex(std::size_t index, const PathVertex& vertex) { m_vertices[index] = vertex; }
    void setClosed(bool closed) { m_closed = closed; }

    /// The box of the curve itself, arcs included; vertices that are not finite are left out.
    AcGeExtents extents() const;
    double length() const;
    /// The way along the path from its start to `point`; nothing when the point is farther than 1e-6 (or
    /// `placeTolerance`, where that is more) from the path. Where the path passes twice, the first time counts.
    std::optional<double> distAtPoint(const AcGePoint3d& point) const;
    /// Whether `point` is no farther than `tolerance` from the path.
    bool passesThrough(const AcGePoint3d& point, double tolerance) const;

    /// The path carried by `map`. Exact for paths without arcs and wherever the plane is scaled alike in all
    /// directions; otherwise arcs become chords no farther from them than 1e-5 of their radius.
    CurvePath transformed(const AcGeMatrix3d& map) const;
    /// Points along the path in the world, arcs replaced by chords no farther from them than `tolerance`, or than 1e-5
    /// of the radius when `tolerance` is not positive. A closed path ends with its first point.
    AcGePoint3dArray flatten(double tolerance = 0.0) const;

private:
    struct OnPath
    {
        std::size_t segment;
        double fraction;
    };
    std::optional<OnPath> find(const AcGePoint3d& point, double tolerance) const;
    double segmentLength(std::size_t segment) const;
    CurvePath withoutArcs() const;
    std::optional<CurvePath> carriedPlane(const AcGeMatrix3d& map) const;

    std::vector<PathVertex> m_vertices;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_elevation = 0.0;
    bool m_closed = false;
    bool m_plane = true;
    bool m_level = true; ///< follows from the rest, and is asked most
};
