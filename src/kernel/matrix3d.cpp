#include "kernel/matrix3d.h"

AcGeMatrix3d AcGeMatrix3d::fromCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis)
{
    AcGeMatrix3d m;
    m.entry[0] = {xAxis.x, yAxis.x, zAxis.x, origin.x};
    m.entry[1] = {xAxis.y, yAxis.y, zAxis.y, origin.y};
    m.entry[2] = {xAxis.z, yAxis.z, zAxis.z, origin.z};
    return m;
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& by)
{
    return fromCoordSystem(AcGePoint3d::kOrigin + by, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    const AcGeVector3d k = axis.normal();
    if (k.lengthSqrd() < 0.5)
        return kIdentity;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto turned = [&](const AcGeVector3d& v)
    { return v * c + k.crossProduct(v) * s + k * (k.dotProduct(v) * (1.0 - c)); };
    const AcGeMatrix3d turn = fromCoordSystem(AcGePoint3d::kOrigin, turned(AcGeVector3d::kXAxis),
                                              turned(AcGeVector3d::kYAxis), turned(AcGeVector3d::kZAxis));
    return translation(center.asVector()) * turn * translation(-center.asVector());
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center)
{
    return translation(center.asVector()) * scaling(factor, factor, factor) * translation(-center.asVector());
}

AcGeMatrix3d AcGeMatrix3d::scaling(double x, double y, double z)
{
    return fromCoordSystem(AcGePoint3d::kOrigin, {x, 0, 0}, {0, y, 0}, {0, 0, z});
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal)
{
    AcGeVector3d zAxis = normal.normal();
    if (!(zAxis.lengthSqrd() > 0.5))
        zAxis = AcGeVector3d::kZAxis;
    const AcGeVector3d xAxis = zAxis.perpVector().normal();
    return fromCoordSystem(AcGePoint3d::kOrigin, xAxis, zAxis.crossProduct(xAxis), zAxis);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal)
{
    const AcGeMatrix3d m = planeToWorld(normal);
    AcGeMatrix3d transposed;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            transposed.entry[row][column] = m.entry[column][row];
    return transposed;
}

AcGeMatrix3d& AcGeMatrix3d::setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                               const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                               const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                               const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis)
{
    const AcGeMatrix3d from = fromCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
    if (from.det() == 0.0)
        return setToIdentity();
    return *this = fromCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis) * from.inverse();
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const
{
    return fromCoordSystem(*this * right.origin(), *this * right.column(0), *this * right.column(1),
                           *this * right.column(2));
}

AcGePoint3d AcGeMatrix3d::operator*(const AcGePoint3d& point) const
{
    return origin() + *this * point.asVector();
}

AcGeVector3d AcGeMatrix3d::operator*(const AcGeVector3d& vector) const
{
    return column(0) * vector.x + column(1) * vector.y + column(2) * vector.z;
}

double AcGeMatrix3d::det() const
{
    return column(0).crossProduct(column(1)).dotProduct(column(2));
}

AcGeMatrix3d AcGeMatrix3d::inverse() const
{
    const double volume = det();
    if (volume == 0.0 || std::isnan(volume))
        return kIdentity;
    const AcGeVector3d rows[3] = {column(1).crossProduct(column(2)) / volume,
                                  column(2).crossProduct(column(0)) / volume,
                                  column(0).crossProduct(column(1)) / volume};
    AcGeMatrix3d m;
    for (int i = 0; i < 3; ++i)
        m.entry[i] = {rows[i].x, rows[i].y, rows[i].z, -rows[i].dotProduct(origin().asVector())};
    return m;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol) const
{
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            if (!(std::fabs(entry[row][column] - other.entry[row][column]) <= tol.equalVector()))
                return false;
    return true;
}
