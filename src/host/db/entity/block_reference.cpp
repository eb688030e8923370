#include "host/db/entity/block_reference.h"

#include "host/db/database.h"
#include "store/table_index.h"

#include <numbers>

ACRX_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, u"INSERT")

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) : m_block{block}
{
    m_placement.position = position;
}

AcGePoint3d AcDbBlockReference::position() const
{
    return AcGeMatrix3d::planeToWorld(m_placement.normal) * m_placement.position;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale)
{
    if (const Acad::ErrorStatus status = mayChangeFresh(); status != Acad::eOk)
        return status;
    m_placement.scaleX = scale.sx;
    m_placement.scaleY = scale.sy;
    m_placement.scaleZ = scale.sz;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double radians)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_placement.rotation = radians;
    return status;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    return m_placement.toWorld();
}

/// Keeps the reference in its own terms: the plane's normal, the turn of its x axis there, a length for each axis.
Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& matrix)
{
    if (const Acad::ErrorStatus status = mayChangeFresh(); status != Acad::eOk)
        return status;
    const AcGeMatrix3d moved = matrix * m_placement.toWorld();
    const AcGeVector3d x = moved.column(0);
    const AcGeVector3d y = moved.column(1);
    AcGeVector3d normal = x.crossProduct(y).normal();
    if (m_placement.scaleX * m_placement.scaleY < 0.0)
        normal = -normal;
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(normal);
    const double side = m_placement.scaleX < 0.0 ? -1.0 : 1.0;
    const AcGeVector3d turned = toPlane * (x * side);
    m_placement.scaleX = side * x.length();
    m_placement.scaleY = m_placement.scaleY < 0.0 ? -y.length() : y.length();
    m_placement.scaleZ *= (matrix * m_placement.normal).length();
    m_placement.rotation = std::atan2(turned.y, turned.x);
    m_placement.normal = normal;
    m_placement.position = toPlane * moved.origin();
    return Acad::eOk;
}

void AcDbBlockReference::decode(TagReader&)
{
    m_placement = readInsertPlacement(pairs());
    m_block = AcDbObjectId{database()->tables().find("BLOCK_RECORD", decodeText(m_placement.block))};
    m_placement.block = {};
}

void AcDbBlockReference::encode(TagWriter& out) const
{
    AcDbEntity::encode(out);
    out.text(100, "AcDbBlockReference");
    out.text(2, m_block.isNull() ? std::string_view{} : spellingOf(*m_block.record()));
    out.point(10, m_placement.position);
    out.real(41, m_placement.scaleX);
    out.real(42, m_placement.scaleY);
    out.real(43, m_placement.scaleZ);
    out.real(50, m_placement.rotation * 180.0 / std::numbers::pi);
    out.point(210, {m_placement.normal.x, m_placement.normal.y, m_placement.normal.z});
}
