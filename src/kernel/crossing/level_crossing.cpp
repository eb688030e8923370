#include "kernel/crossing/level_crossing.h"

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
