#pragma once

#include "kernel/point3d.h"
#include "kernel/segment2d.h"

#include <array>

/// A segment of a plane path with the box that decides what it can meet. Cheap to make; refers to nothing.
struct BoxedSegment
{
    BoxedSegment(const AcGePoint2d& first, const AcGePoint2d& second, double arc = 0.0)
        : from(first), to(second), bulge(arc), box(Segment2d::box(first, second, arc)), magnitude(box.magnitude())
    {
    }
    BoxedSegment(const PathVertex& first, const PathVertex& second)
        : BoxedSegment({first.x, first.y}, {second.x, second.y}, first.bulge)
    {
    }
    Segment2d segment() const { return {from, to, bulge}; }

    AcGePoint2d from;
    AcGePoint2d to;
    double bulge;
    Box2d box;
    double magnitude;
};

/// The tolerance two segments are held to: the place where they meet is no farther out than the smaller of them.
inline double pairTolerance(const BoxedSegment& a, const BoxedSegment& b)
{
    return placeTolerance(std::min(a.magnitude, b.magnitude));
}

/// Where two segments of one plane meet: at most two places of crossing and four of touching ends.
class PlaceList
{
public:
    void add(const AcGePoint2d& p) { m_places[m_count++] = p; }
    /// Adds a place unless one as near as `tolerance` is there.
    void addNew(const AcGePoint2d& p, double tolerance)
    {
        const bool known = std::any_of(
            begin(), end(), [&](const AcGePoint2d& q) { return (p - q).lengthSqrd() <= tolerance * tolerance; });
        if (!known && m_count < kMost)
            add(p);
    }
    const AcGePoint2d* begin() const { return m_places.data(); }
    const AcGePoint2d* end() const { return m_places.data() + m_count; }
    int count() const { return m_count; }
    void clear() { m_count = 0; }

private:
    static constexpr int kMost = 6;
    std::array<AcGePoint2d, kMost> m_places;
    int m_count = 0;
};

/// Adds where two segments of one plane meet, in no particular order; see `intersect` for what counts. Segments whose
/// boxes are farther apart than `pairTolerance` never meet.
void findCrossings(const BoxedSegment& a, const BoxedSegment& b, PlaceList& places);

/// Where a whole straight line (a point and a unit direction) meets the whole circle of an arc: 0 to 2 places, one when
/// it only touches within `tolerance`.
void findOnCircle(const AcGePoint2d& point, const AcGeVector2d& direction, const Segment2d& arc, double tolerance,
                  PlaceList& places);
