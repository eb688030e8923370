#include "kernel/crossing/intersect.h"

#include "kernel/crossing/level_crossing.h"
#include "kernel/crossing/space_crossing.h"

namespace
{

bool sameAxes(const CurvePath& a, const CurvePath& b)
{
    const AcGeVector3d& n = a.normal();
    const AcGeVector3d& m = b.normal();
    return n.x == m.x && n.y == m.y && n.z == m.z;
}

bool isParallel(const CurvePath& a, const CurvePath& b)
{
    return a.normal().crossProduct(b.normal()).length() <= AcGeContext::gTol.equalVector();
}

/// `path` in the plane coordinates of a parallel plane with this normal. Its arcs turn the other way round when the
/// planes look away from one another.
CurvePath inPlaneOf(const AcGeVector3d& normal, const CurvePath& path)
{
    const AcGeMatrix3d map = AcGeMatrix3d::worldToPlane(normal) * path.toWorld();
    const double side = normal.dotProduct(path.normal()) < 0.0 ? -1.0 : 1.0;
    std::vector<PathVertex> vertices;
    vertices.reserve(path.vertices().size());
    for (const PathVertex& vertex : path.vertices())
    {
        const AcGePoint3d p = map * AcGePoint3d(vertex.x, vertex.y, path.elevation());
        vertices.push_back({p.x, p.y, side * vertex.bulge});
    }
    return CurvePath::plane(std::move(vertices), path.isClosed(), (map * AcGePoint3d(0, 0, path.elevation())).z,
                            normal);
}

void crossInPlane(const CurvePath& a, const CurvePath& b, double magnitude, CrossingList& list)
{
    if (!isSameHeight(a.elevation(), b.elevation(), magnitude))
        return;
    for (std::size_t i = 0; i < a.segmentCount(); ++i)
        addCrossingsOfSegment(a, i, b, list);
    endCrossings(a, list);
}

void crossSlantedPlanes(const CurvePath& a, const CurvePath& b, AcGePoint3dArray& points)
{
    CrossingList list{points};
    const double magnitude = std::max(boxOfSegments(a).magnitude(), boxOfSegments(b).magnitude());
    crossInPlane(a, sameAxes(a, b) ? b : inPlaneOf(a.normal(), b), magnitude, list);
    const AcGeMatrix3d world = a.toWorld();
    for (AcGePoint3d& p : points)
        p = world * p;
}

} // namespace

void intersect(const CurvePath& a, const CurvePath& b, AcGePoint3dArray& points)
{
    if (a.isLevel() && b.isLevel())
    {
        CrossingList list{points};
        crossInPlane(a, b, 0.0, list);
    }
    else if (a.isPlane() && b.isPlane() && isParallel(a, b))
        crossSlantedPlanes(a, b, points);
    else
        crossInSpace(a, b, points);
}

AcGePoint3dArray intersect(const CurvePath& a, const CurvePath& b)
{
    AcGePoint3dArray points;
    intersect(a, b, points);
    return points;
}
