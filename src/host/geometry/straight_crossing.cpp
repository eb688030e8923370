#include "host/geometry/straight_crossing.h"
#include "host/geometry/plane_crossing.h"

namespace
{

AcGePoint2d startOf(const BoxedSegment& s)
{
    return {s.from.x, s.from.y};
}

AcGePoint2d endOf(const BoxedSegment& s)
{
    return {s.to.x, s.to.y};
}

/// What is measured of a pair before anything is decided. `aSides` are the ends of `a` seen from the line of `b`, as
/// cross products: positive on its left. `aNear` tells which of them are within the tolerance of that line.
struct Pair
{
    Pair(const BoxedSegment& first, const BoxedSegment& second)
        : a0(startOf(first)), a1(endOf(first)), b0(startOf(second)), b1(endOf(second)), aWay(a1 - a0), bWay(b1 - b0),
          aSquare(aWay.lengthSqrd()), bSquare(bWay.lengthSqrd()), tolerance(pairTolerance(first, second))
    {
        const double square = tolerance * tolerance;
        for (int i = 0; i < 2; ++i)
        {
            aSides[i] = bWay.crossProduct((i == 0 ? a0 : a1) - b0);
            bSides[i] = aWay.crossProduct((i == 0 ? b0 : b1) - a0);
            aNear[i] = aSides[i] * aSides[i] <= square * bSquare;
            bNear[i] = bSides[i] * bSides[i] <= square * aSquare;
        }
    }

    bool hasLengths() const { return aSquare > 0.0 && bSquare > 0.0; }
    bool aCrosses() const { return (aSides[0] < 0.0) != (aSides[1] < 0.0); }
    bool bCrosses() const { return (bSides[0] < 0.0) != (bSides[1] < 0.0); }
    bool nothingNear() const { return !(aNear[0] || aNear[1] || bNear[0] || bNear[1]); }
    bool liesOnOneLine() const { return (aNear[0] && aNear[1]) || (bNear[0] && bNear[1]); }

    AcGePoint2d a0, a1, b0, b1;
    AcGeVector2d aWay, bWay;
    double aSquare, bSquare;
    double tolerance;
    double aSides[2], bSides[2];
    bool aNear[2], bNear[2];
};

/// The crossing of two segments whose ends lie on both sides of one another. What a vertical or level segment fixes of
/// it is kept exactly.
AcGePoint2d crossing(const Pair& pair)
{
    const double fraction = pair.aSides[0] / (pair.aSides[0] - pair.aSides[1]);
    AcGePoint2d p = pair.a0 + pair.aWay * fraction;
    if (pair.aWay.x == 0.0 || pair.bWay.x == 0.0)
        p.x = pair.aWay.x == 0.0 ? pair.a0.x : pair.b0.x;
    if (pair.aWay.y == 0.0 || pair.bWay.y == 0.0)
        p.y = pair.aWay.y == 0.0 ? pair.a0.y : pair.b0.y;
    return p;
}

/// Segments on one line: they touch when no more than the tolerance of their length is common.
void addTouchInLine(const Pair& pair, PlaceList& places)
{
    const bool aLonger = pair.aSquare >= pair.bSquare;
    const AcGePoint2d& base = aLonger ? pair.a0 : pair.b0;
    const double length = std::sqrt(aLonger ? pair.aSquare : pair.bSquare);
    const AcGeVector2d direction = (aLonger ? pair.aWay : pair.bWay) / length;
    const double first = direction.dotProduct((aLonger ? pair.b0 : pair.a0) - base);
    const double second = direction.dotProduct((aLonger ? pair.b1 : pair.a1) - base);
    const double low = std::min(first, second);
    const double high = std::max(first, second);
    const double common = std::min(high, length) - std::max(low, 0.0);
    if (!(std::fabs(common) <= pair.tolerance))
        return;
    const bool atBase = high <= length - low;
    const bool amid = low > pair.tolerance && high < length - pair.tolerance;
    if (amid)
        places.add(aLonger ? pair.b0 : pair.a0);
    else if (aLonger)
        places.add(atBase ? pair.a0 : pair.a1);
    else
        places.add((first > second) == atBase ? pair.a0 : pair.a1);
}

/// Whether `p`, known to be near the line, is near the part of it between `from` and `from + way`.
bool isBeside(const AcGePoint2d& p, const AcGePoint2d& from, const AcGeVector2d& way, double square, double tolerance)
{
    const double along = way.dotProduct(p - from);
    const double slack = tolerance * std::sqrt(square);
    return along >= -slack && along <= square + slack;
}

/// The vertex of one segment that touches the other, those of `a` first.
bool addTouchingVertex(const Pair& pair, PlaceList& places)
{
    for (int i = 0; i < 2; ++i)
    {
        const AcGePoint2d& p = i == 0 ? pair.a0 : pair.a1;
        if (pair.aNear[i] && isBeside(p, pair.b0, pair.bWay, pair.bSquare, pair.tolerance))
        {
            places.add(p);
            return true;
        }
    }
    for (int i = 0; i < 2; ++i)
    {
        const AcGePoint2d& p = i == 0 ? pair.b0 : pair.b1;
        if (pair.bNear[i] && isBeside(p, pair.a0, pair.aWay, pair.aSquare, pair.tolerance))
        {
            places.add(p);
            return true;
        }
    }
    return false;
}

} // namespace

void findStraightCrossing(const BoxedSegment& a, const BoxedSegment& b, PlaceList& places)
{
    const Pair pair{a, b};
    if (!pair.hasLengths())
        return;
    const bool crosses = pair.aCrosses() && pair.bCrosses();
    if (pair.nothingNear())
    {
        if (crosses)
            places.add(crossing(pair));
        return;
    }
    if (pair.liesOnOneLine())
        addTouchInLine(pair, places);
    else if (!addTouchingVertex(pair, places) && crosses)
        places.add(crossing(pair));
}
