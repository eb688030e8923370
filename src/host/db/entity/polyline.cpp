#include "host/db/entity/polyline.h"

#include "host/db/curve/entity_curves.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, u"LWPOLYLINE")

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const
{
    if (index >= numVerts())
        return Acad::eInvalidInput;
    const PathVertex& vertex = m_shape.vertices()[index];
    point = m_shape.isLevel() ? AcGePoint3d{vertex.x, vertex.y, m_shape.elevation()} : m_shape.worldPoint(vertex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const
{
    if (index >= numVerts())
        return Acad::eInvalidInput;
    const PathVertex& vertex = m_shape.vertices()[index];
    point = {vertex.x, vertex.y};
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth)
{
    if (index > numVerts())
        return Acad::eInvalidInput;
    if (const Acad::ErrorStatus status = mayChangeFresh(); status != Acad::eOk)
        return status;
    const PathVertex vertex{point.x, point.y, bulge};
    if (index == numVerts())
        m_shape.addVertex(vertex);
    else
    {
        std::vector<PathVertex> vertices = m_shape.vertices();
        vertices.insert(vertices.begin() + index, vertex);
        m_shape = CurvePath::plane(std::move(vertices), isClosed(), elevation(), normal());
    }
    const Widths widths{std::max(startWidth, 0.0), std::max(endWidth, 0.0)};
    if (widths.start > 0.0 || widths.end > 0.0 || !m_widths.empty())
    {
        m_widths.resize(numVerts() - 1);
        m_widths.insert(m_widths.begin() + index, widths);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point)
{
    if (index >= numVerts())
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_shape.setVertex(index, {point.x, point.y, bulgeAt(index)});
    return status;
}

void AcDbPolyline::setClosed(bool closed)
{
    if (mayChangeFresh() == Acad::eOk)
        m_shape.setClosed(closed);
}

void AcDbPolyline::setElevation(double elevation)
{
    if (mayChangeFresh() == Acad::eOk)
        m_shape = CurvePath::plane(m_shape.vertices(), isClosed(), elevation, normal());
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& matrix)
{
    if (const Acad::ErrorStatus status = mayChangeFresh(); status != Acad::eOk)
        return status;
    CurvePath moved = m_shape.transformed(matrix);
    if (!moved.isPlane() || moved.vertices().size() != m_shape.vertices().size())
        return Acad::eNotImplementedYet;
    m_shape = std::move(moved);
    return Acad::eOk;
}

std::vector<CurvePath> AcDbPolyline::curves() const
{
    return {m_shape};
}

/// Null while the shape may still change.
const IndexedPath* AcDbPolyline::makePath() const
{
    if (!isFresh())
        m_path = std::make_unique<IndexedPath>(m_shape);
    return m_path.get();
}

Acad::ErrorStatus AcDbPolyline::convertFrom(AcDbEntity*& entity, bool transferId)
{
    if (transferId)
        return Acad::eNotImplementedYet;
    if (entity == nullptr)
        return Acad::eNullObjectPointer;
    if (!entity->isKindOf(AcDb2dPolyline::desc()))
        return Acad::eNotThatKindOfClass;
    if (static_cast<AcDb2dPolyline*>(entity)->isFitted())
        return Acad::eInvalidInput;
    if (const Acad::ErrorStatus status = mayChangeFresh(); status != Acad::eOk)
        return status;
    const std::vector<CurvePath> curves = entity->curves();
    m_shape = curves.empty() ? CurvePath{} : curves.front();
    m_widths.clear();
    return Acad::eOk;
}

void AcDbPolyline::decode(TagReader& pairs)
{
    static_cast<void>(pairs);
    if (!readLightweightPolyline(this->pairs(), m_shape))
        damaged();
}

void AcDbPolyline::encode(TagWriter& out) const
{
    AcDbEntity::encode(out);
    out.text(100, "AcDbPolyline");
    out.integer(90, numVerts());
    out.integer(70, isClosed() ? 1 : 0);
    out.real(43, 0.0);
    out.real(38, elevation());
    for (size_t i = 0; i < m_shape.vertices().size(); ++i)
    {
        const PathVertex& vertex = m_shape.vertices()[i];
        out.real(10, vertex.x);
        out.real(20, vertex.y);
        if (i < m_widths.size())
        {
            out.real(40, m_widths[i].start);
            out.real(41, m_widths[i].end);
        }
        if (vertex.bulge != 0.0)
            out.real(42, vertex.bulge);
    }
    if (!m_shape.isLevel())
        out.point(210, {normal().x, normal().y, normal().z});
}
