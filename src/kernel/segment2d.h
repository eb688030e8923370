#pragma once

#include "kernel/point2d.h"

#include <algorithm>
#include <optional>

/// A vertex of a path and how the path goes on from it: `bulge` is the tangent of a quarter of the arc's sweep to the
/// next vertex, positive when the arc runs counter-clockwise, 0 for a straight segment. `z` counts only in space.
struct PathVertex
{
    double x = 0.0;
    double y = 0.0;
    double bulge = 0.0;
    double z = 0.0;
};

/// A box in a plane around a segment; starts empty.
struct Box2d
{
    double minX = std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    void add(double x, double y)
    {
        minX = std::min(minX, x);
        minY = std::min(minY, y);
        maxX = std::max(maxX, x);
        maxY = std::max(maxY, y);
    }
    void add(const Box2d& other)
    {
        add(other.minX, other.minY);
        add(other.maxX, other.maxY);
    }
    bool isEmpty() const { return minX > maxX; }
    /// The largest absolute coordinate.
    double magnitude() const { return std::max({-minX, maxX, -minY, maxY}); }
    /// Whether more than `gap` lies between the boxes along an axis. An empty box is apart from everything.
    bool isApart(const Box2d& other, double gap) const
    {
        return minX > other.maxX + gap || maxX < other.minX - gap || minY > other.maxY + gap || maxY < other.minY - gap;
    }
};

/// A straight segment or an arc between two vertices of a plane path, made ready for measuring. Drawing units. An arc
/// is measured from its chord, not from its centre, so that flat arcs of enormous radius lose nothing.
class Segment2d
{
public:
    Segment2d(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
    Segment2d(const PathVertex& from, const PathVertex& to) : Segment2d({from.x, from.y}, {to.x, to.y}, from.bulge) {}

    /// False for a segment without length or with a coordinate or bulge beyond all use: it has no points.
    bool isUsable() const { return m_size > 0.0; }
    bool isArc() const { return m_bulge != 0.0; }
    const AcGePoint2d& start() const { return m_start; }
    const AcGePoint2d& end() const { return m_end; }
    double bulge() const { return m_bulge; }
    /// Unit vector from start to end, and the distance between them.
    const AcGeVector2d& chord() const { return m_chord; }
    double chordLength() const { return m_size; }
    /// 1 / (2 · radius), positive when counter-clockwise; 0 for a straight segment.
    double curvature() const { return m_curvature; }
    /// Unit vector at right angles to the segment at its start, pointing to its left.
    AcGeVector2d startNormal() const { return m_chord * m_sin + m_chord.perpVector() * m_cos; }
    double sweep() const { return 4.0 * std::atan(m_bulge); }
    double radius() const { return 0.5 / std::fabs(m_curvature); }
    double length() const;

    /// Nearly the distance of a near point from the whole line or circle, positive to the left:
    /// w · startNormal - curvature · w², with w the way from the start to the point.
    double offset(const AcGePoint2d& p) const;
    /// Whether a point of the whole line or circle belongs to the segment.
    bool spans(const AcGePoint2d& pointOnCurve) const;
    bool isNear(const AcGePoint2d& p, double tolerance) const;
    /// Fraction of the way from start to end, 0 to 1, at which a point of the segment stands.
    double fractionAt(const AcGePoint2d& pointOnCurve) const;
    AcGePoint2d at(double fraction) const;

    /// A box that holds the segment; for an arc it may be somewhat larger than need be. Empty for a segment with a
    /// coordinate or bulge beyond all use.
    static Box2d box(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
    {
        Box2d box;
        if (isUsable(from) && isUsable(to))
        {
            box.minX = std::min(from.x, to.x);
            box.minY = std::min(from.y, to.y);
            box.maxX = std::max(from.x, to.x);
            box.maxY = std::max(from.y, to.y);
            if (bulge != 0.0)
                widenByArc(from, to, bulge, box);
        }
        return box;
    }
    static Box2d box(const PathVertex& from, const PathVertex& to)
    {
        return box({from.x, from.y}, {to.x, to.y}, from.bulge);
    }

private:
    static bool isUsable(const AcGePoint2d& p)
    {
        return std::fabs(p.x) < kLargestCoordinate && std::fabs(p.y) < kLargestCoordinate;
    }
    static void widenByArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge, Box2d& box);

    AcGePoint2d m_start;
    AcGePoint2d m_end;
    AcGeVector2d m_chord;
    double m_size = 0.0;
    double m_bulge = 0.0;
    double m_sin = 0.0;
    double m_cos = 1.0;
    double m_curvature = 0.0;
};
