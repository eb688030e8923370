#pragma once

#include "host/geometry/intersect.h"

/// Questions about the plan: everything here looks along Z and sees x and y only, in drawing units. Two places closer
/// than `placeTolerance` are the same. Paths in slanted planes are seen with their arcs as chords, no farther from them
/// than 1e-5 of the radius. Coordinates that are not numbers are nowhere.

/// `path` as seen in plan: a level path at elevation 0.
CurvePath inPlan(const CurvePath& path);

/// Whether two paths have a place in common in plan, be it a stretch on which they lie on one another.
bool touchInPlan(const CurvePath& a, const CurvePath& b);

/// A simple polygon in plan, convex or not, either way round; the last point joins the first. Made once for many
/// questions; owns what it needs. With one or two points it is a point or a line.
class PlanPolygon
{
public:
    explicit PlanPolygon(std::span<const AcGePoint3d> corners);

    /// Whether a point lies inside or on the border.
    bool contains(const AcGePoint3d& point) const;
    /// Whether any of the path lies inside or on the border.
    bool touches(const CurvePath& path) const;
    /// Whether all of the path lies inside or on the border. False for a path without a vertex.
    bool encloses(const CurvePath& path) const;

    const AcGeExtents& extents() const { return m_extents; }

private:
    bool containsInPlan(const AcGePoint2d& p) const;
    bool isOnBorder(const AcGePoint2d& p) const;
    bool enclosesSegment(const CurvePath& path, std::size_t segment, AcGePoint3dArray& places) const;

    CurvePath m_border;
    AcGeExtents m_extents;
};
