#pragma once

#include "kernel/matrix3d.h"
#include "kernel/segment2d.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace picture
{

/// A place in the plan or on a page.
struct Vertex
{
    double x = 0.0;
    double y = 0.0;
};

/// An affine map of the plane. Starts as the identity.
struct Map2d
{
    double xx = 1.0; ///< where (1, 0) goes: xx, yx
    double xy = 0.0; ///< where (0, 1) goes: xy, yy
    double yx = 0.0;
    double yy = 1.0;
    double dx = 0.0;
    double dy = 0.0;

    /// What a map of space does to the plan, heights left out.
    static Map2d planOf(const AcGeMatrix3d& m)
    {
        return {m.entry[0][0], m.entry[0][1], m.entry[1][0], m.entry[1][1], m.entry[0][3], m.entry[1][3]};
    }
    static Map2d translation(const Vertex& by) { return {1.0, 0.0, 0.0, 1.0, by.x, by.y}; }
    static Map2d rotation(double angle)
    {
        return {std::cos(angle), -std::sin(angle), std::sin(angle), std::cos(angle), 0.0, 0.0};
    }
    static Map2d scaling(double x, double y) { return {x, 0.0, 0.0, y, 0.0, 0.0}; }
    Vertex operator*(const Vertex& v) const { return {xx * v.x + xy * v.y + dx, yx * v.x + yy * v.y + dy}; }
    /// Does `right` first, then this.
    Map2d operator*(const Map2d& right) const
    {
        const Vertex origin = *this * Vertex{right.dx, right.dy};
        return {xx * right.xx + xy * right.yx,
                xx * right.xy + xy * right.yy,
                yx * right.xx + yy * right.yx,
                yx * right.xy + yy * right.yy,
                origin.x,
                origin.y};
    }
    /// The map that carries back; nothing where this one flattens the plane.
    std::optional<Map2d> inverse() const
    {
        const double det = xx * yy - xy * yx;
        if (!(std::fabs(det) > 0.0) || !std::isfinite(1.0 / det))
            return std::nullopt;
        Map2d back{yy / det, -xy / det, -yx / det, xx / det, 0.0, 0.0};
        const Vertex origin = back * Vertex{dx, dy};
        back.dx = -origin.x;
        back.dy = -origin.y;
        return back;
    }
    /// The longer of the images of the two unit axes.
    double stretch() const { return std::max(std::hypot(xx, yx), std::hypot(xy, yy)); }
    /// A box around the image of a box.
    Box2d boxAround(const Box2d& box) const
    {
        Box2d around;
        if (!box.isEmpty())
            for (const Vertex& corner : {Vertex{box.minX, box.minY}, Vertex{box.maxX, box.minY},
                                         Vertex{box.minX, box.maxY}, Vertex{box.maxX, box.maxY}})
            {
                const Vertex placed = *this * corner;
                around.add(placed.x, placed.y);
            }
        return around;
    }
};

} // namespace picture
