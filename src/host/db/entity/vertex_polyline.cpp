#include "host/db/curve/entity_curves.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/entity/polyline.h"
#include "store/pair_edit.h"

ACRX_DEFINE_MEMBERS(AcDbVertexPolyline, AcDbCurve, nullptr)
ACRX_DEFINE_MEMBERS(AcDb2dPolyline, AcDbVertexPolyline, u"POLYLINE")
ACRX_DEFINE_MEMBERS(AcDb3dPolyline, AcDbVertexPolyline, u"POLYLINE")
ACRX_DEFINE_MEMBERS(AcDbVertex, AcDbEntity, u"VERTEX")
ACRX_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, u"VERTEX")
ACRX_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, u"VERTEX")

namespace
{

/// Flags of polylines and vertices.
constexpr int kClosed = 1;
constexpr int k3dPolyline = 8;
constexpr int k3dPolylineVertex = 32;

} // namespace

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
    if (m_path == nullptr && !isFresh())
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

AcDb3dPolyline::AcDb3dPolyline(AcDb::Poly3dType, const AcGePoint3dArray& vertices, bool closed)
    : AcDbVertexPolyline{k3dPolyline | (closed ? kClosed : 0)}, m_vertices{vertices}
{
}

void AcDb3dPolyline::addParts()
{
    const ObjectRecord& own = *objectId().record();
    const auto add = [&](std::string_view kind)
    {
        ObjectRecord& part = database()->addRecord(own.container, kind);
        part.set(ObjectRecord::kSubEntity, true);
        part.set(ObjectRecord::kPaperSpace, own.has(ObjectRecord::kPaperSpace));
        m_parts.push_back(&part);
    };
    for (size_t i = 0; i < m_vertices.size(); ++i)
        add("VERTEX");
    add("SEQEND");
}

void AcDb3dPolyline::encode(TagWriter& out) const
{
    AcDbEntity::encode(out);
    out.text(100, "AcDb3dPolyline");
    out.integer(66, 1);
    out.point(10, AcGePoint3d::kOrigin);
    out.integer(70, flags());
}

void AcDb3dPolyline::beforeClose()
{
    if (!isFresh())
        return;
    const std::string layer = encodeText(this->layer());
    TagWriter out;
    for (size_t i = 0; i < m_parts.size(); ++i)
    {
        const bool isVertex = i < m_vertices.size();
        out.clear();
        out.text(0, isVertex ? "VERTEX" : "SEQEND");
        out.handle(5, m_parts[i]->handle);
        out.handle(330, objectId().record()->handle);
        out.text(100, "AcDbEntity");
        out.text(8, layer);
        if (isVertex)
        {
            out.text(100, "AcDbVertex");
            out.text(100, "AcDb3dPolylineVertex");
            out.point(10, m_vertices[i]);
            out.integer(70, k3dPolylineVertex);
        }
        database()->setRecordText(*m_parts[i], out.view());
    }
}
