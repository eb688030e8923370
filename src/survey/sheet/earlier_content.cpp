#include "survey/sheet/earlier_content.h"

#include "host/companion/alignment.h"
#include "store/block_index.h"
#include "store/text/text.h"
#include "survey/sheet/drawing_pen.h"

#include <cmath>

namespace survey
{

namespace
{

constexpr double kFarthest = 1e12; ///< what lies beyond is no place to stand beside

AcDbObjectIdArray modelSpaceOf(AcDbDatabase& drawing)
{
    const ObjectRecord* space = drawing.blocks().record(u"*Model_Space");
    return space != nullptr ? drawing.blocks().entities(*space) : AcDbObjectIdArray{};
}

bool isNear(const AcGePoint3d& point)
{
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest;
}

bool erase(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity{id, AcDb::kForWrite};
    return entity && entity->erase() == Acad::eOk;
}

/// What an import left on an entity; empty when it is of no import.
std::u16string originOf(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity{id};
    const ResbufPtr data{entity ? entity->xData(kImportApplication) : nullptr};
    const resbuf* text = data ? data->rbnext : nullptr;
    return text != nullptr && text->resval.rstring != nullptr ? text->resval.rstring : std::u16string{};
}

} // namespace

std::u16string alignmentOrigin(const std::u16string& name)
{
    return u"alignment:" + name;
}

std::u16string fileOrigin(const std::string& path)
{
    return u"file:" + lettersForBytes(keepBytes(path.substr(path.rfind('/') + 1)));
}

AcGeExtents contentExtents(AcDbDatabase& drawing)
{
    AcGeExtents extents;
    for (const AcDbObjectId id : modelSpaceOf(drawing))
    {
        AcGeExtents own;
        if (const AcDbObjectPointer<AcDbEntity> entity{id}; entity)
            entity->addExtents(own);
        if (own.isValid() && isNear(own.minPoint()) && isNear(own.maxPoint()))
            extents.addExtents(own);
    }
    return extents;
}

AcDbObjectId findAlignment(AcDbDatabase& drawing, const std::u16string& name)
{
    for (const AcDbObjectId id : modelSpaceOf(drawing))
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{id}; alignment && equalNoCase(alignment->name(), name))
            return id;
    return {};
}

size_t eraseAlignment(AcDbObjectId id)
{
    AcDbObjectIdArray parts;
    if (const AcDbObjectPointer<PlxDbAlignment> alignment{id}; alignment)
        for (const SectionRecord& section : alignment->sections())
        {
            parts.push_back(section.groundLineId);
            parts.insert(parts.end(), section.drawnIds.begin(), section.drawnIds.end());
        }
    size_t kept = erase(id) ? 0 : 1;
    for (const AcDbObjectId part : parts)
        kept += part.isNull() || erase(part) || part.isErased() || part.record()->has(ObjectRecord::kDangling) ? 0 : 1;
    return kept;
}

size_t eraseImported(AcDbDatabase& drawing, const std::set<std::u16string>& origins)
{
    const std::string application = toUtf8(kImportApplication);
    size_t kept = 0;
    for (const AcDbObjectId id : modelSpaceOf(drawing))
        if (id.record()->view().find(application) != std::string_view::npos && origins.contains(originOf(id)))
            kept += erase(id) ? 0 : 1;
    return kept;
}

} // namespace survey
