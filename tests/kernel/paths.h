#pragma once

#include "kernel/curve/curve_path.h"

#include <gmock/gmock.h>

#include <limits>
#include <ostream>

inline void PrintTo(const AcGePoint3d& p, std::ostream* out)
{
    *out << "(" << p.x << ", " << p.y << ", " << p.z << ")";
}

namespace paths
{

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline CurvePath level(std::vector<PathVertex> vertices, double elevation = 0.0)
{
    return CurvePath::plane(std::move(vertices), false, elevation);
}

inline CurvePath closed(std::vector<PathVertex> vertices, double elevation = 0.0)
{
    return CurvePath::plane(std::move(vertices), true, elevation);
}

inline CurvePath segment(double x0, double y0, double x1, double y1)
{
    return level({{x0, y0}, {x1, y1}});
}

MATCHER_P3(At, x, y, z, "")
{
    return arg.isEqualTo(AcGePoint3d(x, y, z), AcGeTol{1e-9});
}

MATCHER_P2(At, x, y, "")
{
    return arg.isEqualTo(AcGePoint3d(x, y, 0.0), AcGeTol{1e-9});
}

} // namespace paths
