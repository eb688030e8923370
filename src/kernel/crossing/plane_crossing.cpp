#include "kernel/crossing/plane_crossing.h"

#include "kernel/crossing/straight_crossing.h"

namespace
{

/// Whether `p`, a place on `piece`, is away from both its ends.
bool isInside(const AcGePoint2d& p, const Segment2d& piece, double tolerance)
{
    const double square = tolerance * tolerance;
    return piece.isNear(p, tolerance) && (p - piece.start()).lengthSqrd() > square &&
           (p - piece.end()).lengthSqrd() > square;
}

/// Whether the whole of `inner` runs along the line or circle of `outer`.
bool runsAlong(const Segment2d& inner, const Segment2d& outer, double tolerance)
{
    const auto near = [&](const AcGePoint2d& p) { return std::fabs(outer.offset(p)) <= tolerance; };
    return near(inner.start()) && near(inner.end()) && near(inner.at(0.5));
}

bool shareMoreThanEnds(const Segment2d& a, const Segment2d& b, double tolerance)
{
    for (const AcGePoint2d& p : {a.start(), a.at(0.5), a.end()})
        if (isInside(p, b, tolerance))
            return true;
    for (const AcGePoint2d& p : {b.start(), b.at(0.5), b.end()})
        if (isInside(p, a, tolerance))
            return true;
    return false;
}

void addTouchingEnds(const Segment2d& a, const Segment2d& b, double tolerance, PlaceList& places)
{
    for (const AcGePoint2d& p : {a.start(), a.end()})
        if (b.isNear(p, tolerance))
            places.addNew(p, tolerance);
    for (const AcGePoint2d& p : {b.start(), b.end()})
        if (a.isNear(p, tolerance))
            places.addNew(p, tolerance);
}

/// The slope of `offset` at `p`.
AcGeVector2d slopeAt(const Segment2d& piece, const AcGePoint2d& p)
{
    return piece.startNormal() - (p - piece.start()) * (2.0 * piece.curvature());
}

/// One step towards the place where both offsets are 0; the same place when the curves only touch there.
AcGePoint2d refined(const AcGePoint2d& p, const Segment2d& a, const Segment2d& b)
{
    const AcGeVector2d slopeA = slopeAt(a, p);
    const AcGeVector2d slopeB = slopeAt(b, p);
    const double det = slopeA.crossProduct(slopeB);
    if (!(std::fabs(det) > 1e-3))
        return p;
    const double offsetA = a.offset(p);
    const double offsetB = b.offset(p);
    return {p.x - (offsetA * slopeB.y - offsetB * slopeA.y) / det,
            p.y - (offsetB * slopeA.x - offsetA * slopeB.x) / det};
}

/// Where two whole circles meet: on the line on which offsets, weighed so that the squares cancel, are equal.
void findOnCircles(const Segment2d& a, const Segment2d& b, double tolerance, PlaceList& places)
{
    const AcGeVector2d between = b.start() - a.start();
    const double qa = a.curvature();
    const double qb = b.curvature();
    const AcGeVector2d across = a.startNormal() * qb - b.startNormal() * qa - between * (2.0 * qa * qb);
    const double level = -qa * (b.startNormal().dotProduct(between) + qb * between.lengthSqrd());
    const double square = across.lengthSqrd();
    if (!(square > 1e-24 * std::max(qa * qa, qb * qb)))
        return;
    const AcGeVector2d direction = across.perpVector() / std::sqrt(square);
    PlaceList found;
    findOnCircle(a.start() + across * (level / square), direction, a, tolerance, found);
    for (const AcGePoint2d& p : found)
        places.add(refined(p, a, b));
}

void findOnWholes(const Segment2d& a, const Segment2d& b, double tolerance, PlaceList& places)
{
    if (!a.isArc())
        findOnCircle(a.start(), a.chord(), b, tolerance, places);
    else if (!b.isArc())
        findOnCircle(b.start(), b.chord(), a, tolerance, places);
    else
        findOnCircles(a, b, tolerance, places);
}

void findArcCrossings(const BoxedSegment& boxedA, const BoxedSegment& boxedB, PlaceList& places)
{
    const Segment2d a = boxedA.segment();
    const Segment2d b = boxedB.segment();
    if (!a.isUsable() || !b.isUsable())
        return;
    const double tolerance = pairTolerance(boxedA, boxedB);
    const bool coincide = runsAlong(a, b, tolerance) || runsAlong(b, a, tolerance);
    if (coincide && shareMoreThanEnds(a, b, tolerance))
        return;
    addTouchingEnds(a, b, tolerance, places);
    if (coincide)
        return;
    PlaceList found;
    findOnWholes(a, b, tolerance, found);
    for (const AcGePoint2d& p : found)
        if (a.spans(p) && b.spans(p))
            places.addNew(p, 8.0 * tolerance);
}

} // namespace

void findOnCircle(const AcGePoint2d& point, const AcGeVector2d& direction, const Segment2d& arc, double tolerance,
                  PlaceList& places)
{
    // Start from the foot of the arc's own start: the numbers stay of the arc's size however long the line is.
    const AcGePoint2d foot = point + direction * direction.dotProduct(arc.start() - point);
    const AcGeVector2d w = foot - arc.start();
    const AcGeVector2d normal = arc.startNormal();
    // offset(foot + t · direction) = c + b t - q t²
    const double q = arc.curvature();
    const double b = direction.dotProduct(normal) - 2.0 * q * w.dotProduct(direction);
    const double c = w.dotProduct(normal) - q * w.lengthSqrd();
    const double discriminant = b * b + 4.0 * q * c;
    if (std::fabs(discriminant) <= 4.0 * std::fabs(q) * tolerance)
    {
        places.add(foot + direction * (b / (2.0 * q)));
        return;
    }
    if (!(discriminant > 0.0))
        return;
    const double half = 0.5 * (b + std::copysign(std::sqrt(discriminant), b));
    places.add(foot + direction * (-c / half));
    places.add(foot + direction * (half / q));
}

void findCrossings(const BoxedSegment& a, const BoxedSegment& b, PlaceList& places)
{
    if (a.box.isApart(b.box, pairTolerance(a, b)))
        return;
    AcGePoint2d place;
    if (a.bulge != 0.0 || b.bulge != 0.0)
        findArcCrossings(a, b, places);
    else if (findStraightCrossing(a, b, place))
        places.add(place);
}
