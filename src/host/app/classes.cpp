#include "host/app/classes.h"

#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/db/class_registry.h"
#include "host/db/curve/polyline_kind.h"
#include "host/db/entity/block_reference.h"
#include "host/db/entity/polyline.h"
#include "host/db/entity/text_entity.h"
#include "host/db/entity/viewport.h"
#include "host/db/table/dictionary.h"
#include "host/db/table/symbol_tables.h"

namespace host
{

namespace
{

const AcRxClass* classOfPolyline(const ObjectRecord& polyline, const ObjectRecord& /*head*/)
{
    const PolylineKind kind = kindOfPolyline(polyline);
    return kind == PolylineKind::Space   ? AcDb3dPolyline::desc()
           : kind == PolylineKind::Plane ? AcDb2dPolyline::desc()
                                         : AcDbVertexPolyline::desc();
}

const AcRxClass* classOfVertex(const ObjectRecord& vertex, const ObjectRecord& polyline)
{
    const VertexKind kind = kindOfVertex(vertex, polyline);
    return kind == VertexKind::Space   ? AcDb3dPolylineVertex::desc()
           : kind == VertexKind::Plane ? AcDb2dVertex::desc()
                                       : AcDbVertex::desc();
}

HostClass narrowed(HostClass row, decltype(HostClass::narrowed) by)
{
    row.narrowed = by;
    return row;
}

std::vector<HostClass> entityClasses()
{
    return {
        hostClass<AcDbPolyline>("LWPOLYLINE"),
        narrowed(hostClass<AcDbVertexPolyline>("POLYLINE"), classOfPolyline),
        hostClass<AcDb2dPolyline>(),
        hostClass<AcDb3dPolyline>(),
        narrowed(hostClass<AcDbVertex>("VERTEX"), classOfVertex),
        hostClass<AcDb2dVertex>(),
        hostClass<AcDb3dPolylineVertex>(),
        hostClass<AcDbText>("TEXT"),
        hostClass<AcDbBlockReference>("INSERT"),
        hostClass<AcDbViewport>("VIEWPORT"),
        hostClass<PlxDbMeasurePointObj>("PLXDBMEASUREPOINTOBJ"),
        hostClass<PlxDbAlignment>("PLXDBALIGNMENT"),
        hostClass<AcDbEntity>(),
    };
}

std::vector<HostClass> tableClasses()
{
    return {
        hostClass<AcDbTextStyleTableRecord>("STYLE"),
        hostClass<AcDbLayerTableRecord>("LAYER"),
        hostClass<AcDbLinetypeTableRecord>("LTYPE"),
        hostClass<AcDbDimStyleTableRecord>("DIMSTYLE"),
        hostClass<AcDbViewTableRecord>("VIEW"),
        hostClass<AcDbUCSTableRecord>("UCS"),
        hostClass<AcDbViewportTableRecord>("VPORT"),
        hostClass<AcDbBlockTableRecord>("BLOCK_RECORD"),
        hostClass<AcDbRegAppTableRecord>("APPID"),
        hostClass<AcDbTextStyleTable>({}, "STYLE"),
        hostClass<AcDbLayerTable>({}, "LAYER"),
        hostClass<AcDbLinetypeTable>({}, "LTYPE"),
        hostClass<AcDbDimStyleTable>({}, "DIMSTYLE"),
        hostClass<AcDbViewTable>({}, "VIEW"),
        hostClass<AcDbUCSTable>({}, "UCS"),
        hostClass<AcDbViewportTable>({}, "VPORT"),
        hostClass<AcDbBlockTable>({}, "BLOCK_RECORD"),
        hostClass<AcDbRegAppTable>({}, "APPID"),
    };
}

std::vector<HostClass> objectClasses()
{
    return {
        hostClass<AcDbDictionary>("DICTIONARY"),
        hostClass<AcDbDictionary>("ACDBDICTIONARYWDFLT"),
        hostClass<AcDbXrecord>("XRECORD"),
        hostClass<AcDbObject>(),
    };
}

} // namespace

namespace
{

bool setClasses()
{
    std::vector<HostClass> all = entityClasses();
    for (const std::vector<HostClass>& more : {tableClasses(), objectClasses()})
        all.insert(all.end(), more.begin(), more.end());
    ClassRegistry::set(std::move(all), AcDbEntity::desc());
    return true;
}

} // namespace

void registerClasses()
{
    [[maybe_unused]] static const bool done = setClasses();
}

} // namespace host
