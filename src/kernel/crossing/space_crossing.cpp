#include "kernel/crossing/space_crossing.h"

#include "kernel/crossing/crossing_list.h"

namespace
{

/// A path with the maps between its plane and the world.
struct PlacedPath
{
    explicit PlacedPath(const CurvePath& p)
        : path(p), toWorld(p.toWorld()), toPlane(p.isPlane() ? AcGeMatrix3d::worldToPlane(p.normal()) : toWorld)
    {
    }

    AcGePoint3d world(const AcGePoint2d& p) const { return toWorld * AcGePoint3d(p.x, p.y, path.elevation()); }

    const CurvePath& path;
    AcGeMatrix3d toWorld;
    AcGeMatrix3d toPlane;
};

/// One segment in the world. An arc refers to the plane of its path.
class PlacedSegment
{
public:
    PlacedSegment(const PlacedPath& placed, std::size_t segment)
        : m_placed(placed), m_flat(placed.path.segmentStart(segment), placed.path.segmentEnd(segment)),
          m_start(worldPoint(placed.path.segmentStart(segment))), m_end(worldPoint(placed.path.segmentEnd(segment)))
    {
        m_box.addPoint(m_start);
        m_box.addPoint(m_end);
        if (isArc())
            for (const double x : {m_flat.box.minX, m_flat.box.maxX})
                for (const double y : {m_flat.box.minY, m_flat.box.maxY})
                    m_box.addPoint(m_placed.world({x, y}));
        const AcGePoint3d& low = m_box.minPoint();
        const AcGePoint3d& high = m_box.maxPoint();
        m_magnitude = std::max({-low.x, high.x, -low.y, high.y, -low.z, high.z});
    }

    bool isUsable() const
    {
        return !m_flat.box.isEmpty() && std::isfinite(m_start.z) && std::isfinite(m_end.z) &&
               m_magnitude < kLargestCoordinate;
    }
    bool isArc() const { return m_flat.bulge != 0.0; }
    bool isApart(const PlacedSegment& other, double gap) const
    {
        const AcGePoint3d& low = m_box.minPoint();
        const AcGePoint3d& high = m_box.maxPoint();
        const AcGePoint3d& otherLow = other.m_box.minPoint();
        const AcGePoint3d& otherHigh = other.m_box.maxPoint();
        return low.x > otherHigh.x + gap || otherLow.x > high.x + gap || low.y > otherHigh.y + gap ||
               otherLow.y > high.y + gap || low.z > otherHigh.z + gap || otherLow.z > high.z + gap;
    }

    const PlacedPath& placed() const { return m_placed; }
    const AcGePoint3d& start() const { return m_start; }
    const AcGePoint3d& end() const { return m_end; }
    double magnitude() const { return m_magnitude; }
    /// The segment in its path's plane, held to the tolerance of its place in the world.
    BoxedSegment flat() const
    {
        BoxedSegment flat = m_flat;
        flat.magnitude = m_magnitude;
        return flat;
    }

    /// Where a point of the segment stands along it, for ordering.
    double keyOf(const AcGePoint3d& p) const
    {
        if (!isArc())
            return (p - m_start).dotProduct(m_end - m_start);
        const AcGePoint3d q = m_placed.toPlane * p;
        return m_flat.segment().fractionAt({q.x, q.y});
    }

private:
    AcGePoint3d worldPoint(const PathVertex& v) const
    {
        return m_placed.path.isPlane() ? m_placed.world({v.x, v.y}) : AcGePoint3d(v.x, v.y, v.z);
    }

    const PlacedPath& m_placed;
    BoxedSegment m_flat;
    AcGePoint3d m_start;
    AcGePoint3d m_end;
    AcGeExtents m_box;
    double m_magnitude = 0.0;
};

AcGePoint3d snapped(const AcGePoint3d& p, const PlacedSegment& a, const PlacedSegment& b, double tolerance)
{
    for (const AcGePoint3d& vertex : {a.start(), a.end(), b.start(), b.end()})
        if ((p - vertex).lengthSqrd() <= tolerance * tolerance)
            return vertex;
    return p;
}

/// Two straight segments: measured in the plane they share, if there is one.
void crossStraight(const PlacedSegment& a, const PlacedSegment& b, double tolerance, CrossingList& list)
{
    const AcGeVector3d aWay = a.end() - a.start();
    const AcGeVector3d bWay = b.end() - b.start();
    const double length = aWay.length();
    if (!(length > 0.0))
        return;
    const AcGeVector3d x = aWay / length;
    AcGeVector3d normal = x.crossProduct(bWay);
    const bool parallel = !(normal.length() > 1e-12 * bWay.length());
    const AcGeVector3d between = b.start() - a.start();
    normal = parallel ? x.crossProduct(x.perpVector()) : normal;
    normal = normal / normal.length();
    const double gap =
        parallel ? (between - x * between.dotProduct(x)).length() : std::fabs(between.dotProduct(normal));
    if (!(gap <= tolerance))
        return;
    const AcGeVector3d y = normal.crossProduct(x);
    const AcGeVector3d far = b.end() - a.start();
    BoxedSegment flatA{AcGePoint2d{0.0, 0.0}, AcGePoint2d{length, 0.0}};
    BoxedSegment flatB{AcGePoint2d{between.dotProduct(x), between.dotProduct(y)},
                       AcGePoint2d{far.dotProduct(x), far.dotProduct(y)}};
    flatA.magnitude = a.magnitude();
    flatB.magnitude = b.magnitude();
    PlaceList places;
    findCrossings(flatA, flatB, places);
    for (const AcGePoint2d& p : places)
        list.add(snapped(a.start() + x * p.x + y * p.y, a, b, tolerance));
}

/// A straight segment and an arc: in the arc's plane, or where the segment goes through that plane.
void crossStraightAndArc(const PlacedSegment& straight, const PlacedSegment& arc, double tolerance, CrossingList& list)
{
    const PlacedPath& plane = arc.placed();
    const AcGePoint3d from = plane.toPlane * straight.start();
    const AcGePoint3d to = plane.toPlane * straight.end();
    const double fromHeight = from.z - plane.path.elevation();
    const double toHeight = to.z - plane.path.elevation();
    const bool fromNear = std::fabs(fromHeight) <= tolerance;
    const bool toNear = std::fabs(toHeight) <= tolerance;
    if (fromNear && toNear)
    {
        BoxedSegment flat{AcGePoint2d{from.x, from.y}, AcGePoint2d{to.x, to.y}};
        flat.magnitude = straight.magnitude();
        PlaceList places;
        findCrossings(flat, arc.flat(), places);
        for (const AcGePoint2d& p : places)
            list.add(snapped(plane.world(p), straight, arc, tolerance));
        return;
    }
    if (!fromNear && !toNear && (fromHeight > 0.0) == (toHeight > 0.0))
        return;
    const double part = fromNear ? 0.0 : toNear ? 1.0 : fromHeight / (fromHeight - toHeight);
    const AcGePoint3d p = from + (to - from) * part;
    const BoxedSegment flat = arc.flat();
    if (flat.segment().isNear({p.x, p.y}, tolerance))
        list.add(snapped(straight.start() + (straight.end() - straight.start()) * part, straight, arc, tolerance));
}

/// Two arcs in planes that cut one another: on the line of the cut.
void crossArcs(const PlacedSegment& a, const PlacedSegment& b, double tolerance, CrossingList& list)
{
    const PlacedPath& planeA = a.placed();
    const PlacedPath& planeB = b.placed();
    const AcGeVector3d normal = planeA.toPlane * planeB.path.normal();
    const AcGeVector2d across{normal.x, normal.y};
    if (!(across.length() > 1e-12))
        return;
    const double level = planeB.path.elevation() - normal.z * planeA.path.elevation();
    const AcGePoint2d foot = AcGePoint2d::kOrigin + across * (level / across.lengthSqrd());
    const Segment2d arcA = a.flat().segment();
    const Segment2d arcB = b.flat().segment();
    PlaceList places;
    findOnCircle(foot, across.perpVector() / across.length(), arcA, tolerance, places);
    for (const AcGePoint2d& p : places)
    {
        const AcGePoint3d world = planeA.world(p);
        const AcGePoint3d q = planeB.toPlane * world;
        if (arcA.isNear(p, tolerance) && arcB.isNear({q.x, q.y}, tolerance))
            list.add(snapped(world, a, b, tolerance));
    }
}

void crossSegments(const PlacedSegment& a, const PlacedSegment& b, CrossingList& list)
{
    const double tolerance = placeTolerance(std::min(a.magnitude(), b.magnitude()));
    if (!b.isUsable() || a.isApart(b, tolerance))
        return;
    if (a.isArc() && b.isArc())
        crossArcs(a, b, tolerance, list);
    else if (a.isArc())
        crossStraightAndArc(b, a, tolerance, list);
    else if (b.isArc())
        crossStraightAndArc(a, b, tolerance, list);
    else
        crossStraight(a, b, tolerance, list);
}

} // namespace

void crossInSpace(const CurvePath& a, const CurvePath& b, AcGePoint3dArray& points)
{
    const PlacedPath placedA{a};
    const PlacedPath placedB{b};
    CrossingList list{points};
    for (std::size_t i = 0; i < a.segmentCount(); ++i)
    {
        const PlacedSegment own{placedA, i};
        if (!own.isUsable())
            continue;
        for (std::size_t j = 0; j < b.segmentCount(); ++j)
            crossSegments(own, PlacedSegment{placedB, j}, list);
        list.endSegment([&](const AcGePoint3d& p) { return own.keyOf(p); });
    }
    if (a.segmentCount() == 0)
        return;
    const AcGePoint3d start = a.worldPoint(a.segmentStart(0));
    if (start.isEqualTo(a.worldPoint(a.segmentEnd(a.segmentCount() - 1)), AcGeTol{0.0}))
        list.endClosed(start);
}
