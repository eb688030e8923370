#pragma once

#include "picture/map2d.h"

namespace desktop
{

/// What part of the plan a view shows: the middle and the height of it, in drawing units. The width hangs on the
/// window.
struct ViewFrame
{
    picture::Vertex centre{0.0, 0.0};
    double height = 1.0;

    /// Carries drawing units to pixels (y down) of a window of this size.
    picture::Map2d toPixels(double width, double heightInPixels) const
    {
        const double scale = heightInPixels / height;
        return {scale, 0.0, 0.0, -scale, width / 2 - centre.x * scale, heightInPixels / 2 + centre.y * scale};
    }
    /// The same carried back.
    picture::Vertex toWorld(double x, double y, double width, double heightInPixels) const
    {
        const double unit = height / heightInPixels;
        return {centre.x + (x - width / 2) * unit, centre.y - (y - heightInPixels / 2) * unit};
    }
};

} // namespace desktop
