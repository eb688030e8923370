#include "host/drawing/damage.h"
#include "host/drawing/database.h"
#include "host/drawing/entity_curves.h"
#include "host/drawing/pair_edit.h"
#include "host/drawing/polyline.h"

ACRX_DEFINE_MEMBERS(AcDbVertexPolyline, AcDbCurve, nullptr)
ACRX_DEFINE_MEMBERS(AcDb2dPolyline, AcDbVertexPolyline, u"POLYLINE")
ACRX_DEFINE_MEMBERS(AcDb3dPolyline, AcDbVertexPolyline, u"POLYLINE")
ACRX_DEFINE_MEMBERS(AcDbVertex, AcDbEntity, u"VERTEX")
ACRX_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, u"VERTEX")
ACRX_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, u"VERTEX")

void AcDbVertexPolyline::decode(TagReader& pairs)
{
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == 70)
            m_flags = static_cast<int>(tag.integer());
}

std::unique_ptr<AcDbObjectIterator> AcDbVertexPolyline::vertexIterator() const
{
    AcDbObjectIdArray ids;
    if (!objectId().isNull())
        for (ObjectRecord* part : subEntitiesOf(*objectId().record()))
            if (database()->dxfNameOf(*part) == "VERTEX")
                ids.emplace_back(part);
    return std::make_unique<AcDbObjectIterator>(std::move(ids));
}

const IndexedPath* AcDbVertexPolyline::path() const
{
    if (m_path == nullptr && !objectId().isNull())
    {
        ObjectRecord& record = *objectId().record();
        m_path = std::make_unique<IndexedPath>(host::readOf(record, [&] { return readVertexPolyline(record); }));
    }
    return m_path.get();
}

const CurvePath* AcDbVertexPolyline::shape() const
{
    const IndexedPath* indexed = path();
    return indexed != nullptr ? &indexed->path() : nullptr;
}

std::vector<CurvePath> AcDbVertexPolyline::curves() const
{
    const CurvePath* own = shape();
    return own == nullptr || own->isEmpty() ? std::vector<CurvePath>{} : std::vector<CurvePath>{*own};
}

double AcDb2dPolyline::elevation() const
{
    const CurvePath* own = shape();
    return own != nullptr ? own->elevation() : 0.0;
}

AcGeVector3d AcDb2dPolyline::normal() const
{
    const CurvePath* own = shape();
    return own != nullptr ? own->normal() : AcGeVector3d::kZAxis;
}

Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode) const
{
    vertex = nullptr;
    for (const ObjectRecord* part : subEntitiesOf(*objectId().record()))
        if (part == id.record())
            return acdbOpenObject(vertex, id, mode);
    return Acad::eInvalidInput;
}

void AcDbVertex::decode(TagReader& pairs)
{
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == 10)
            m_position = own.pointFrom(tag);
        else if (tag.code == 42)
            m_bulge = tag.real();
        else if (tag.code == 70)
            m_flags = static_cast<int>(tag.integer());
}

AcDb::Vertex2dType AcDb2dVertex::vertexType() const
{
    if ((flags() & 16) != 0)
        return AcDb::k2dSplineCtlVertex;
    if ((flags() & 8) != 0)
        return AcDb::k2dSplineFitVertex;
    return (flags() & 1) != 0 ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}
