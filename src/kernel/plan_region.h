#pragma once

#include "kernel/point3d.h"
#include "kernel/segment2d.h"

#include <algorithm>
#include <vector>

/// The place a selection asks for, in plan: a polygon or a fence. Touching counts as meeting; what is no farther than
/// rounding can carry it counts as touching. A polygon may cross itself: then inside is what an odd number of its
/// turns goes around.
class PlanRegion
{
public:
    enum class Kind
    {
        Crossing,
        Fence,
        Window
    };

    PlanRegion(Kind kind, std::vector<AcGePoint2d> corners);
    /// A rectangle, as a crossing polygon.
    explicit PlanRegion(const Box2d& rectangle);

    Kind kind() const { return m_kind; }
    /// Whether the box is so far away that nothing in it can meet the region; false when that is not certain.
    bool isApart(const Box2d& box) const
    {
        return box.isApart(m_box, 0.0) || std::any_of(m_sides.begin(), m_sides.end(),
                                                      [&](const Side& side) { return side.reach(box) < -m_margin; });
    }

    bool meetsPoint(const AcGePoint3d& point) const;
    /// Whether the line from one point to the other has a point in the region (for a window: all of it).
    bool meetsLine(const AcGePoint3d& from, const AcGePoint3d& to) const;
    /// Whether everything in the box is in the region; false when that is not certain.
    bool holdsBox(const Box2d& box) const;

private:
    /// A side of a convex polygon: everything in the polygon lies inward of it.
    struct Side
    {
        AcGePoint2d at;
        AcGeVector2d inward; ///< unit vector

        /// How far inward the box reaches.
        double reach(const Box2d& box) const
        {
            const double x = inward.x > 0.0 ? box.maxX : box.minX;
            const double y = inward.y > 0.0 ? box.maxY : box.minY;
            return (x - at.x) * inward.x + (y - at.y) * inward.y;
        }
    };

    void findSides();
    bool contains(const AcGePoint2d& point) const;
    bool isOnBorder(const AcGePoint2d& point) const;
    bool crossesBorder(const AcGePoint2d& from, const AcGePoint2d& to) const;
    bool holdsLine(const AcGePoint2d& from, const AcGePoint2d& to) const;
    size_t sides() const { return m_kind == Kind::Fence ? m_corners.size() - 1 : m_corners.size(); }
    const AcGePoint2d& corner(size_t index) const { return m_corners[index % m_corners.size()]; }

    Kind m_kind;
    std::vector<AcGePoint2d> m_corners;
    Box2d m_box;               ///< wide enough that nothing outside it can meet the region
    std::vector<Side> m_sides; ///< none when the region is not a convex polygon
    double m_tolerance = 0.0;
    double m_margin = 0.0; ///< of the sides: the tolerance, and what rounding may add
};
