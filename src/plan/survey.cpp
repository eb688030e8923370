#include "plan/survey.h"

#include "dbkit/filter_objects.h"
#include "host/companion/measure_point.h"
#include "host/db/entity/polyline.h"
#include "host/text.h"
#include "sections/survey_info.h"

#include <unordered_map>

namespace
{

void addVertices(VertexIndex& vertices, const AcDbPolyline& polyline)
{
    AcGePoint3d point;
    for (unsigned i = 0; i < polyline.numVerts(); ++i)
        if (polyline.getPointAt(i, point) == Acad::eOk)
            vertices.add(point);
}

template <class Vertex>
void addVertexObjects(VertexIndex& vertices, const AcDbVertexPolyline& polyline)
{
    const auto iterator = polyline.vertexIterator();
    for (iterator->start(); !iterator->done(); iterator->step())
    {
        const AcDbObjectPointer<Vertex> vertex(iterator->objectId());
        if (vertex)
            vertices.add(vertex->position());
    }
}

void addVertices(VertexIndex& vertices, AcDb2dPolyline& polyline)
{
    AcDbPolyline lightweight;
    AcDbEntity* source = &polyline;
    if (lightweight.convertFrom(source, false) == Acad::eOk)
        addVertices(vertices, lightweight);
    else
        addVertexObjects<AcDb2dVertex>(vertices, polyline);
}

void addVertices(VertexIndex& vertices, AcDbEntity& entity)
{
    if (auto* lightweight = dynamic_cast<AcDbPolyline*>(&entity))
        addVertices(vertices, *lightweight);
    else if (auto* old = dynamic_cast<AcDb2dPolyline*>(&entity))
        addVertices(vertices, *old);
    else if (auto* spatial = dynamic_cast<AcDb3dPolyline*>(&entity))
        addVertexObjects<AcDb3dPolylineVertex>(vertices, *spatial);
}

/// The place of a code in the list of codes, appended when it is new.
class CodePlaces
{
public:
    explicit CodePlaces(std::vector<std::u16string>& codes) : m_codes(codes) {}

    size_t placeOf(const std::u16string& code)
    {
        const auto [found, isNew] = m_places.try_emplace(code, m_codes.size());
        if (isNew)
            m_codes.push_back(code);
        return found->second;
    }

private:
    std::vector<std::u16string>& m_codes;
    std::unordered_map<std::u16string, size_t, HashNoCase, EqualNoCase> m_places;
};

} // namespace

CodedPoints CollectCodedPoints()
{
    CodedPoints found;
    CodePlaces places(found.codes);
    FilterObjects filter;
    filter.AddClass(PlxDbMeasurePointObj::desc()->dxfName());
    if (filter.SelectAll() == 0)
        return found;
    for (const AcDbObjectId id : filter.ids())
    {
        const AcDbObjectPointer<PlxDbMeasurePointObj> point(id);
        if (!point)
            continue;
        if (const std::u16string code = point->Get(1); !code.empty())
            found.points.push_back({point->GetPoint(), places.placeOf(code)});
    }
    return found;
}

VertexIndex CollectSurveyVertices()
{
    FilterObjects filter;
    for (const AcRxClass* kind : {AcDbPolyline::desc(), AcDb3dPolyline::desc(), AcDb2dPolyline::desc()})
        filter.AddClass(kind->dxfName());
    filter.AddXdataApp(kSurveyApplication);
    VertexIndex vertices;
    if (filter.SelectAll() == 0)
        return vertices;
    for (const AcDbObjectId id : filter.ids())
    {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity)
            addVertices(vertices, *entity);
    }
    return vertices;
}
