#pragma once

#include "kernel/point2d.h"

#include <vector>

/// A direction with a length in space; plain data, drawing units. Nothing here fails: a coordinate that is not a
/// number makes results that are not numbers and comparisons that are false.
class AcGeVector3d
{
public:
    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGeVector3d kIdentity;
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr AcGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    constexpr AcGeVector3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    constexpr AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGeVector3d& operator*=(double factor) { return *this = *this * factor; }

    constexpr double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    constexpr double lengthSqrd() const { return dotProduct(*this); }
    double length() const { return std::sqrt(lengthSqrd()); }

    /// Makes the length 1. A vector no longer than the tolerance stays as it is.
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol)
    {
        const double size = length();
        return size > tol.equalVector() ? *this = *this / size : *this;
    }
    /// The same direction with length 1; see `normalize`.
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const
    {
        AcGeVector3d unit = *this;
        return unit.normalize(tol);
    }

    /// A vector at right angles to this one by the arbitrary-axis rule: Z × this, or Y × this when this is nearly
    /// along Z (both |x| and |y| below 1/64). The product as it stands, not made a unit vector.
    constexpr AcGeVector3d perpVector() const;

    /// Angle to `v` in radians, 0 to pi. 0 when either has no length.
    double angleTo(const AcGeVector3d& v) const { return std::atan2(crossProduct(v).length(), dotProduct(v)); }

    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - v).length() <= tol.equalVector();
    }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline constexpr AcGeVector3d AcGeVector3d::kIdentity{};
inline constexpr AcGeVector3d AcGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline constexpr AcGeVector3d AcGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline constexpr AcGeVector3d AcGeVector3d::kZAxis{0.0, 0.0, 1.0};

constexpr AcGeVector3d operator*(double factor, const AcGeVector3d& v)
{
    return v * factor;
}

constexpr AcGeVector3d AcGeVector3d::perpVector() const
{
    constexpr double kNearZ = 1.0 / 64.0;
    const bool alongZ = x < kNearZ && x > -kNearZ && y < kNearZ && y > -kNearZ;
    return (alongZ ? kYAxis : kZAxis).crossProduct(*this);
}

/// A place in space; plain data, drawing units.
class AcGePoint3d
{
public:
    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGePoint3d kOrigin;

    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }

    constexpr AcGeVector3d asVector() const { return {x, y, z}; }
    double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline constexpr AcGePoint3d AcGePoint3d::kOrigin{};

using AcGePoint3dArray = std::vector<AcGePoint3d>;
