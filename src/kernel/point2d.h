#pragma once

#include "kernel/tolerance.h"

#include <cmath>

/// A direction with a length in a plane; plain data, drawing units. Nothing here fails: a coordinate that is not a
/// number makes results that are not numbers and comparisons that are false.
class AcGeVector2d
{
public:
    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity;
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    constexpr AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    constexpr AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-() const { return {-x, -y}; }
    constexpr AcGeVector2d operator*(double factor) const { return {x * factor, y * factor}; }
    constexpr AcGeVector2d operator/(double divisor) const { return {x / divisor, y / divisor}; }

    constexpr double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
    /// The Z component of the cross product: positive when `v` lies to the left.
    constexpr double crossProduct(const AcGeVector2d& v) const { return x * v.y - y * v.x; }
    constexpr double lengthSqrd() const { return dotProduct(*this); }
    double length() const { return std::sqrt(lengthSqrd()); }
    /// Turned a quarter turn counter-clockwise.
    constexpr AcGeVector2d perpVector() const { return {-y, x}; }

    bool isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - v).length() <= tol.equalVector();
    }

    double x = 0.0;
    double y = 0.0;
};

inline constexpr AcGeVector2d AcGeVector2d::kIdentity{};
inline constexpr AcGeVector2d AcGeVector2d::kXAxis{1.0, 0.0};
inline constexpr AcGeVector2d AcGeVector2d::kYAxis{0.0, 1.0};

constexpr AcGeVector2d operator*(double factor, const AcGeVector2d& v)
{
    return v * factor;
}

/// A place in a plane; plain data, drawing units.
class AcGePoint2d
{
public:
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    constexpr AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    constexpr AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }

    double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }
    bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }

    double x = 0.0;
    double y = 0.0;
};

inline constexpr AcGePoint2d AcGePoint2d::kOrigin{};
