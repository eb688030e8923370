#include "host/drawing/classes.h"

#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/drawing/block_reference.h"
#include "host/drawing/dictionary.h"
#include "host/drawing/polyline.h"
#include "host/drawing/symbol_tables.h"
#include "host/drawing/text_entity.h"
#include "host/drawing/viewport.h"

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

/// The first value of `code` in `pairs`, 0 when there is none.
int64_t firstInteger(std::string_view pairs, int code)
{
    TagReader reader{pairs};
    Tag tag;
    while (reader.next(tag))
        if (tag.code == code)
            return tag.integer();
    return 0;
}

constexpr int kPolyline3d = 8;
constexpr int kMesh = 16;
constexpr int kPolyface = 64;
constexpr int kVertex3d = 32;

} // namespace

const AcRxClass* classOfDxfName(std::string_view dxfName, bool isEntity)
{
    for (const Known& entry : knownClasses())
        if (!entry.dxfName.empty() && entry.dxfName == dxfName)
            return entry.kind;
    return isEntity ? AcDbEntity::desc() : AcDbObject::desc();
}

const AcRxClass* classOfPolyline(std::string_view pairs)
{
    const int64_t flags = firstInteger(pairs, 70);
    if ((flags & kPolyline3d) != 0)
        return AcDb3dPolyline::desc();
    return (flags & (kMesh | kPolyface)) != 0 ? AcDbVertexPolyline::desc() : AcDb2dPolyline::desc();
}

const AcRxClass* classOfVertex(std::string_view pairs)
{
    const int64_t flags = firstInteger(pairs, 70);
    if ((flags & kVertex3d) != 0)
        return AcDb3dPolylineVertex::desc();
    return (flags & (kMesh << 2 | 128)) != 0 ? AcDbVertex::desc() : AcDb2dVertex::desc();
}

std::unique_ptr<AcDbObject> makeObject(const AcRxClass* kind)
{
    for (const Known& entry : knownClasses())
        if (entry.kind == kind)
            return entry.maker();
    return std::make_unique<AcDbObject>();
}
