#include "host/geometry/level_crossing.h"

Box2d boxOfSegments(const CurvePath& path)
{
    Box2d box;
    for (std::size_t i = 0; i < path.segmentCount(); ++i)
        box.add(Segment2d::box(path.segmentStart(i), path.segmentEnd(i)));
    return box;
}

bool addArcCrossings(const BoxedSegment& own, const BoxedSegment& other, double elevation, CrossingList& list)
{
    PlaceList places;
    findCrossings(own, other, places);
    for (const AcGePoint2d& p : places)
        list.add({p.x, p.y, elevation});
    return places.count() > 0;
}

void endCrossings(const CurvePath& a, CrossingList& list)
{
    if (a.segmentCount() == 0)
        return;
    const PathVertex& start = a.segmentStart(0);
    const PathVertex& end = a.segmentEnd(a.segmentCount() - 1);
    if (start.x == end.x && start.y == end.y)
        list.endClosed({start.x, start.y, a.elevation()});
}

bool isSameHeight(double a, double b, double magnitude)
{
    return std::fabs(a - b) <= placeTolerance(std::max(std::min(std::fabs(a), std::fabs(b)), magnitude));
}
