#pragma once

#include "host/geometry/plane_crossing.h"

/// Where two straight segments touch with an end, or meet so near an end that it counts as that end. `place` is left
/// alone when they do not meet.
bool findStraightTouch(const BoxedSegment& a, const BoxedSegment& b, AcGePoint2d& place);

/// The crossing of two segments, the ends of the first known to lie on both sides of the second's line: as far from it
/// as the two cross products tell. What a vertical or level segment fixes of the place is kept exactly.
inline AcGePoint2d straightCrossing(const BoxedSegment& a, const BoxedSegment& b, double fromSide, double toSide)
{
    const double fraction = fromSide / (fromSide - toSide);
    AcGePoint2d p = a.from + (a.to - a.from) * fraction;
    if (a.from.x == a.to.x)
        p.x = a.from.x;
    else if (b.from.x == b.to.x)
        p.x = b.from.x;
    if (a.from.y == a.to.y)
        p.y = a.from.y;
    else if (b.from.y == b.to.y)
        p.y = b.from.y;
    return p;
}

/// `findCrossings` for two straight segments whose boxes meet: there is one place at most.
inline bool findStraightCrossing(const BoxedSegment& a, const BoxedSegment& b, AcGePoint2d& place)
{
    const AcGeVector2d aWay = a.to - a.from;
    const AcGeVector2d bWay = b.to - b.from;
    const double aFrom = bWay.crossProduct(a.from - b.from);
    const double aTo = bWay.crossProduct(a.to - b.from);
    const double bFrom = aWay.crossProduct(b.from - a.from);
    const double bTo = aWay.crossProduct(b.to - a.from);
    const double tolerance = pairTolerance(a, b);
    const double aNear = tolerance * tolerance * bWay.lengthSqrd();
    const double bNear = tolerance * tolerance * aWay.lengthSqrd();
    const bool clear = aFrom * aFrom > aNear && aTo * aTo > aNear && bFrom * bFrom > bNear && bTo * bTo > bNear;
    if (!clear)
        return findStraightTouch(a, b, place);
    if ((aFrom < 0.0) == (aTo < 0.0) || (bFrom < 0.0) == (bTo < 0.0))
        return false;
    place = straightCrossing(a, b, aFrom, aTo);
    return true;
}
