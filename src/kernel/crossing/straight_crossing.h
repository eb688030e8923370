#pragma once

#include "kernel/crossing/plane_crossing.h"

/// Where two straight segments touch with an end, or meet so near an end that it counts as that end. `place` is left
/// alone when they do not meet.
bool findStraightTouch(const BoxedSegment& a, const BoxedSegment& b, AcGePoint2d& place);

/// Two points that a straight segment runs between.
struct StraightWay
{
    AcGePoint2d from;
    AcGePoint2d to;
};

/// The crossing of two segments, the ends of the first known to lie on both sides of the second's line: as far from it
/// as the two cross products tell. What a vertical or level segment fixes of the place is kept exactly.
inline AcGePoint2d straightCrossing(const StraightWay& a, const StraightWay& b, double fromSide, double toSide)
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

enum class Meeting
{
    Apart,
    Crossing,
    Unclear ///< an end of one is within the tolerance of the other's line: that wants a closer look
};

/// How two straight segments meet, as far as the sides that their ends are on tell; `place` is given when they cross.
inline Meeting meetingOf(const StraightWay& a, const StraightWay& b, double tolerance, AcGePoint2d& place)
{
    const AcGeVector2d aWay = a.to - a.from;
    const AcGeVector2d bWay = b.to - b.from;
    const AcGeVector2d between = a.from - b.from;
    const double aFrom = bWay.crossProduct(between);
    const double aTo = bWay.crossProduct(a.to - b.from);
    const double bFrom = -aWay.crossProduct(between);
    const double bTo = aWay.crossProduct(b.to - a.from);
    const double aNear = tolerance * tolerance * bWay.lengthSqrd();
    const double bNear = tolerance * tolerance * aWay.lengthSqrd();
    if (!(std::min(aFrom * aFrom, aTo * aTo) > aNear && std::min(bFrom * bFrom, bTo * bTo) > bNear))
        return Meeting::Unclear;
    if ((aFrom < 0.0) == (aTo < 0.0) || (bFrom < 0.0) == (bTo < 0.0))
        return Meeting::Apart;
    place = straightCrossing(a, b, aFrom, aTo);
    return Meeting::Crossing;
}

/// `findCrossings` for two straight segments whose boxes meet: there is one place at most.
inline bool findStraightCrossing(const BoxedSegment& a, const BoxedSegment& b, AcGePoint2d& place)
{
    const Meeting meeting = meetingOf({a.from, a.to}, {b.from, b.to}, pairTolerance(a, b), place);
    return meeting == Meeting::Unclear ? findStraightTouch(a, b, place) : meeting == Meeting::Crossing;
}
