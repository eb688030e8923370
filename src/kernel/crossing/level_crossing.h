#pragma once

#include "kernel/crossing/crossing_list.h"
#include "kernel/crossing/straight_crossing.h"
#include "kernel/curve/curve_path.h"

/// Crossing of plane paths that are known to lie in one plane, in that plane's coordinates. Whoever asks for a part of
/// the segments of `a` (`IndexedPath`) goes through the same steps as who asks for all.

/// The box of a path's segments.
Box2d boxOfSegments(const CurvePath& path);

/// Adds where two segments meet, one of them an arc.
bool addArcCrossings(const BoxedSegment& own, const BoxedSegment& other, double elevation, CrossingList& list);

/// Adds where two segments meet, `own` being one of the path the list is about; answers whether they do.
inline bool addCrossings(const BoxedSegment& own, const BoxedSegment& other, double elevation, CrossingList& list)
{
    if (own.box.isApart(other.box, pairTolerance(own, other)))
        return false;
    if (own.bulge != 0.0 || other.bulge != 0.0)
        return addArcCrossings(own, other, elevation, list);
    AcGePoint2d place;
    if (!findStraightCrossing(own, other, place))
        return false;
    list.add({place.x, place.y, elevation});
    return true;
}

/// Orders what was added for the segment `own` of a path.
inline void endCrossingsOfSegment(const BoxedSegment& own, CrossingList& list)
{
    list.endSegment([&](const AcGePoint3d& p) { return own.segment().fractionAt({p.x, p.y}); });
}

/// `addCrossings` and `endCrossingsOfSegment` for two straight segments that are known to be usable, as long as a
/// tolerance no smaller than theirs leaves no doubt; false, and nothing done, when it does.
inline bool addClearCrossing(const StraightWay& own, const StraightWay& other, double tolerance, double elevation,
                             CrossingList& list)
{
    AcGePoint2d place;
    const Meeting meeting = meetingOf(own, other, tolerance, place);
    if (meeting == Meeting::Crossing)
        list.addOnly({place.x, place.y, elevation});
    return meeting != Meeting::Unclear;
}

/// Adds where segment `segment` of `a` meets one other segment.
inline void addCrossingsOfSegment(const CurvePath& a, std::size_t segment, const BoxedSegment& other,
                                  CrossingList& list)
{
    const BoxedSegment own{a.segmentStart(segment), a.segmentEnd(segment)};
    if (addCrossings(own, other, a.elevation(), list))
        endCrossingsOfSegment(own, list);
}

/// Adds where segment `segment` of `a` meets `b`.
inline void addCrossingsOfSegment(const CurvePath& a, std::size_t segment, const CurvePath& b, CrossingList& list)
{
    const BoxedSegment own{a.segmentStart(segment), a.segmentEnd(segment)};
    bool any = false;
    for (std::size_t i = 0; i < b.segmentCount(); ++i)
        any = addCrossings(own, {b.segmentStart(i), b.segmentEnd(i)}, a.elevation(), list) || any;
    if (any)
        endCrossingsOfSegment(own, list);
}

/// Ends the list after the last segment of `a`.
inline void endCrossings(const CurvePath& a, CrossingList& list)
{
    if (a.segmentCount() == 0)
        return;
    const PathVertex& start = a.segmentStart(0);
    const PathVertex& end = a.segmentEnd(a.segmentCount() - 1);
    if (start.x == end.x && start.y == end.y)
        list.endClosed({start.x, start.y, a.elevation()});
}

/// Whether two level or otherwise parallel heights are the same one for paths of this size.
inline bool isSameHeight(double a, double b, double magnitude)
{
    const double gap = std::fabs(a - b);
    return gap == 0.0 || gap <= placeTolerance(std::max(std::min(std::fabs(a), std::fabs(b)), magnitude));
}
