#include "kernel/crossing/straight_crossing.h"

namespace
{

/// One segment seen from the line of another: on which side its ends are (cross products, positive on the left), and
/// which of them are within the tolerance of that line.
struct Sides
{
    Sides(const BoxedSegment& seen, const BoxedSegment& line, double tolerance)
    {
        const AcGeVector2d way = line.to - line.from;
        const double near = tolerance * tolerance * way.lengthSqrd();
        from = way.crossProduct(seen.from - line.from);
        to = way.crossProduct(seen.to - line.from);
        fromNear = from * from <= near;
        toNear = to * to <= near;
    }

    bool cross() const { return (from < 0.0) != (to < 0.0); }
    bool bothNear() const { return fromNear && toNear; }

    double from, to;
    bool fromNear, toNear;
};

/// Segments on one line touch when no more than the tolerance of their length is common.
bool touchInLine(const BoxedSegment& a, const BoxedSegment& b, double tolerance, AcGePoint2d& place)
{
    const bool aLonger = (a.to - a.from).lengthSqrd() >= (b.to - b.from).lengthSqrd();
    const BoxedSegment& longer = aLonger ? a : b;
    const BoxedSegment& shorter = aLonger ? b : a;
    const double length = (longer.to - longer.from).length();
    const AcGeVector2d direction = (longer.to - longer.from) / length;
    const double from = direction.dotProduct(shorter.from - longer.from);
    const double to = direction.dotProduct(shorter.to - longer.from);
    const double low = std::min(from, to);
    const double high = std::max(from, to);
    if (!(std::fabs(std::min(high, length) - std::max(low, 0.0)) <= tolerance))
        return false;
    const bool atFrom = high <= length - low;
    if (low > tolerance && high < length - tolerance)
        place = shorter.from;
    else if (aLonger)
        place = atFrom ? a.from : a.to;
    else
        place = (from > to) == atFrom ? a.from : a.to;
    return true;
}

/// Whether `p`, known to be near the segment's line, is near the segment.
bool isBeside(const AcGePoint2d& p, const BoxedSegment& segment, double tolerance)
{
    const AcGeVector2d way = segment.to - segment.from;
    const double along = way.dotProduct(p - segment.from);
    const double slack = tolerance * way.length();
    return along >= -slack && along <= way.lengthSqrd() + slack;
}

/// The first end of `seen` that is beside `other`.
bool touchWithEnd(const BoxedSegment& seen, const Sides& sides, const BoxedSegment& other, double tolerance,
                  AcGePoint2d& place)
{
    const bool from = sides.fromNear && isBeside(seen.from, other, tolerance);
    if (!from && !(sides.toNear && isBeside(seen.to, other, tolerance)))
        return false;
    place = from ? seen.from : seen.to;
    return true;
}

} // namespace

bool findStraightTouch(const BoxedSegment& a, const BoxedSegment& b, AcGePoint2d& place)
{
    const auto hasLength = [](const BoxedSegment& s) { return (s.to - s.from).lengthSqrd() > 0.0; };
    if (!hasLength(a) || !hasLength(b))
        return false;
    const double tolerance = pairTolerance(a, b);
    const Sides aSides{a, b, tolerance};
    const Sides bSides{b, a, tolerance};
    if (aSides.bothNear() || bSides.bothNear())
        return touchInLine(a, b, tolerance, place);
    if (touchWithEnd(a, aSides, b, tolerance, place) || touchWithEnd(b, bSides, a, tolerance, place))
        return true;
    if (!aSides.cross() || !bSides.cross())
        return false;
    place = straightCrossing({a.from, a.to}, {b.from, b.to}, aSides.from, aSides.to);
    return true;
}
