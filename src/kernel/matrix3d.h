#pragma once

#include "kernel/point3d.h"

#include <array>

/// An affine map of space: rows of `entry` times the column (x, y, z, 1). Plain data; starts as the identity.
/// Angles are radians.
class AcGeMatrix3d
{
public:
    constexpr AcGeMatrix3d() = default;

    static const AcGeMatrix3d kIdentity;

    static AcGeMatrix3d translation(const AcGeVector3d& by);
    /// Counter-clockwise by `angle` about the axis through `center`, seen with the axis pointing at the viewer. An axis
    /// without length gives the identity.
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis = AcGeVector3d::kZAxis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    /// A factor for each axis, about the origin.
    static AcGeMatrix3d scaling(double x, double y, double z);
    /// Carries coordinates of the plane with this normal (the arbitrary-axis rule, origin shared) into the world's. A
    /// normal without length counts as Z.
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    /// The inverse of `planeToWorld`.
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
    /// Maps (x, y, z) to origin + x·xAxis + y·yAxis + z·zAxis.
    static AcGeMatrix3d fromCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                                        const AcGeVector3d& zAxis);

    AcGeMatrix3d& setToIdentity() { return *this = kIdentity; }
    /// Makes this the map that carries the first coordinate system onto the second: what had coordinates (x, y, z) in
    /// the first has them in the second afterwards. The identity when the first system is flat.
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                     const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                     const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                     const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis);

    /// The map that does `right` first, then this.
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGePoint3d operator*(const AcGePoint3d& point) const;
    /// Directions are turned and scaled, not moved.
    AcGeVector3d operator*(const AcGeVector3d& vector) const;

    /// Of the linear part; negative when the map mirrors.
    double det() const;
    /// The identity when there is no inverse (`det` is 0 or not a number).
    AcGeMatrix3d inverse() const;
    /// Whether every entry is within the vector tolerance.
    bool isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

    /// Column 0 to 2: where the unit axes go.
    AcGeVector3d column(int index) const { return {entry[0][index], entry[1][index], entry[2][index]}; }
    AcGePoint3d origin() const { return {entry[0][3], entry[1][3], entry[2][3]}; }

    std::array<std::array<double, 4>, 4> entry{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
};

inline constexpr AcGeMatrix3d AcGeMatrix3d::kIdentity{};
