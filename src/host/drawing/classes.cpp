#include "host/drawing/classes.h"

#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/drawing/block_reference.h"
#include "host/drawing/database.h"
#include "host/drawing/dictionary.h"
#include "host/drawing/polyline.h"
#include "host/drawing/symbol_tables.h"
#include "host/drawing/text_entity.h"
#include "host/drawing/viewport.h"
#include "store/group_codes.h"

#include <vector>

namespace
{

template <class T>
std::unique_ptr<AcDbObject> make()
{
    return std::make_unique<T>();
}

struct Known
{
    std::string_view dxfName;
    const AcRxClass* kind;
    std::unique_ptr<AcDbObject> (*maker)();
};

template <class T>
Known known(std::string_view dxfName)
{
    return {dxfName, T::desc(), &make<T>};
}

const std::vector<Known>& knownClasses()
{
    static const std::vector<Known> list = {
        known<AcDbPolyline>("LWPOLYLINE"),
        known<AcDbVertexPolyline>("POLYLINE"),
        known<AcDb2dPolyline>({}),
        known<AcDb3dPolyline>({}),
        known<AcDbVertex>("VERTEX"),
        known<AcDb2dVertex>({}),
        known<AcDb3dPolylineVertex>({}),
        known<AcDbText>("TEXT"),
        known<AcDbBlockReference>("INSERT"),
        known<AcDbViewport>("VIEWPORT"),
        known<PlxDbMeasurePointObj>("PLXDBMEASUREPOINTOBJ"),
        known<PlxDbAlignment>("PLXDBALIGNMENT"),
        known<AcDbDictionary>("DICTIONARY"),
        known<AcDbDictionary>("ACDBDICTIONARYWDFLT"),
        known<AcDbXrecord>("XRECORD"),
        known<AcDbTextStyleTableRecord>("STYLE"),
        known<AcDbLayerTableRecord>("LAYER"),
        known<AcDbLinetypeTableRecord>("LTYPE"),
        known<AcDbDimStyleTableRecord>("DIMSTYLE"),
        known<AcDbViewTableRecord>("VIEW"),
        known<AcDbUCSTableRecord>("UCS"),
        known<AcDbViewportTableRecord>("VPORT"),
        known<AcDbBlockTableRecord>("BLOCK_RECORD"),
        known<AcDbRegAppTableRecord>("APPID"),
        known<AcDbTextStyleTable>({}),
        known<AcDbLayerTable>({}),
        known<AcDbLinetypeTable>({}),
        known<AcDbDimStyleTable>({}),
        known<AcDbViewTable>({}),
        known<AcDbUCSTable>({}),
        known<AcDbViewportTable>({}),
        known<AcDbBlockTable>({}),
        known<AcDbRegAppTable>({}),
        known<AcDbEntity>({}),
        known<AcDbObject>({}),
    };
    return list;
}

/// What a polyline or vertex says of itself: its flags, and whether a class marker before them makes it one in space.
struct Sort
{
    int64_t flags = 0;
    bool marked3d = false;
};

Sort sortOf(std::string_view pairs)
{
    Sort sort;
    TagReader reader{pairs};
    for (Tag tag; reader.next(tag);)
        if (tag.code == dxf::kClassMarker)
            sort.marked3d = sort.marked3d || tag.word().starts_with("AcDb3dPolyline");
        else if (tag.code == 70)
        {
            sort.flags = tag.integerOr(0);
            break;
        }
    return sort;
}

constexpr int kPolyline3d = 8;
constexpr int kMesh = 16;
constexpr int kPolyface = 64;
constexpr int kVertex3d = 32;
constexpr int kMeshVertex = 64;
constexpr int kPolyfaceVertex = 128;

} // namespace

const AcRxClass* classOfDxfName(std::string_view dxfName, bool isEntity)
{
    for (const Known& entry : knownClasses())
        if (!entry.dxfName.empty() && entry.dxfName == dxfName)
            return entry.kind;
    return isEntity ? AcDbEntity::desc() : AcDbObject::desc();
}

const AcRxClass* classOfPolyline(const ObjectRecord& polyline)
{
    const Sort own = sortOf(polyline.view());
    if ((own.flags & kPolyline3d) != 0 || own.marked3d)
        return AcDb3dPolyline::desc();
    if ((own.flags & (kMesh | kPolyface)) != 0)
        return AcDbVertexPolyline::desc();
    const RecordPool& records = polyline.database->store().records;
    const size_t next = size_t{polyline.order} + 1;
    if (next >= records.size() || !records[next].has(ObjectRecord::kSubEntity))
        return AcDb2dPolyline::desc();
    const Sort vertex = sortOf(records[next].view());
    return (vertex.flags & kVertex3d) != 0 || vertex.marked3d ? AcDb3dPolyline::desc() : AcDb2dPolyline::desc();
}

const AcRxClass* classOfVertex(const ObjectRecord& vertex, const ObjectRecord& polyline)
{
    const Sort own = sortOf(vertex.view());
    if ((own.flags & kVertex3d) != 0 || own.marked3d)
        return AcDb3dPolylineVertex::desc();
    if ((own.flags & (kMeshVertex | kPolyfaceVertex)) != 0)
        return AcDbVertex::desc();
    return classOfPolyline(polyline) == AcDb3dPolyline::desc() ? AcDb3dPolylineVertex::desc() : AcDb2dVertex::desc();
}

std::unique_ptr<AcDbObject> makeObject(const AcRxClass* kind)
{
    for (const Known& entry : knownClasses())
        if (entry.kind == kind)
            return entry.maker();
    return std::make_unique<AcDbObject>();
}
