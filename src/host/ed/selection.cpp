#include "host/ed/selection.h"

#include "host/app/session.h"
#include "host/db/database.h"
#include "host/ed/selection_filter.h"
#include "host/view/entity_index.h"
#include "kernel/plan_region.h"
#include "store/text/text.h"

#include <algorithm>
#include <bit>
#include <optional>

namespace
{

const AcDbObjectIdArray* find(const ads_name set)
{
    return host::Session::hasCurrent() ? host::Session::current().selectionSets().find(set[0]) : nullptr;
}

void keep(AcDbObjectIdArray ids, ads_name set)
{
    set[0] = host::Session::current().selectionSets().keep(std::move(ids));
    set[1] = 0;
    ++ledger().selectionSets;
}

/// The corners of a polygon mode; nothing when they make no polygon or no fence.
std::optional<PlanRegion> regionOf(PlanRegion::Kind kind, const resbuf* points)
{
    std::vector<AcGePoint2d> corners;
    for (; points != nullptr; points = points->rbnext)
    {
        if (points->restype != RT3DPOINT || !std::isfinite(points->resval.rpoint[0]) ||
            !std::isfinite(points->resval.rpoint[1]))
            return std::nullopt;
        corners.emplace_back(points->resval.rpoint[0], points->resval.rpoint[1]);
    }
    const size_t fewest = kind == PlanRegion::Kind::Fence ? 2 : 3;
    return corners.size() >= fewest ? std::optional<PlanRegion>{std::in_place, kind, std::move(corners)} : std::nullopt;
}

std::optional<PlanRegion::Kind> polygonMode(std::u16string_view mode)
{
    if (equalNoCase(mode, u"CP"))
        return PlanRegion::Kind::Crossing;
    if (equalNoCase(mode, u"F"))
        return PlanRegion::Kind::Fence;
    if (equalNoCase(mode, u"WP"))
        return PlanRegion::Kind::Window;
    return std::nullopt;
}

AcDbObjectIdArray inDrawingOrder(std::vector<ObjectRecord*> found)
{
    const auto before = [](const ObjectRecord* a, const ObjectRecord* b) { return a->order < b->order; };
    if (!std::is_sorted(found.begin(), found.end(), before))
        std::sort(found.begin(), found.end(), before);
    AcDbObjectIdArray ids;
    ids.reserve(found.size());
    for (ObjectRecord* record : found)
        ids.emplace_back(record);
    return ids;
}

/// Whether the filter lets a live entity of the kind pass; `known` is what it says of the whole kind.
bool passes(const SelectionFilter& filter, const EntityIndex::Kind& kind, std::optional<bool> known,
            const ObjectRecord& entity)
{
    return !entity.has(ObjectRecord::kErased) && (known ? *known : filter.passes(kind.name, entity));
}

AcDbObjectIdArray selectAll(AcApDocument& document, const SelectionFilter& filter)
{
    std::vector<ObjectRecord*> found;
    for (const EntityIndex::Kind& kind : document.index().kinds())
    {
        const std::optional<bool> known = filter.passes(kind.name);
        if (known == false)
            continue;
        for (ObjectRecord* entity : kind.entities)
            if (passes(filter, kind, known, *entity))
                found.push_back(entity);
    }
    return inDrawingOrder(std::move(found));
}

/// What a polygon selection can see: the current space, what the view shows of it, layers that are on.
class Sight
{
public:
    explicit Sight(AcApDocument& document) : m_index{document.index()}, m_paper{!document.database()->tilemode()}
    {
        if (!document.view().showsEverything())
            m_window.emplace(boxInPlan(document.view().shown()));
    }

    bool sees(ObjectRecord& entity) const
    {
        return isInCurrentSpace(entity) && m_index.layers().isShown(entity) &&
               (!m_window || m_index.shapes().meets(entity, *m_window));
    }

private:
    bool isInCurrentSpace(const ObjectRecord& entity) const
    {
        const Container& container = entity.database->store().containers[entity.container];
        return container.kind == Container::kEntities && entity.has(ObjectRecord::kPaperSpace) == m_paper;
    }

    EntityIndex& m_index;
    bool m_paper;
    std::optional<PlanRegion> m_window;
};

AcDbObjectIdArray selectIn(AcApDocument& document, const PlanRegion& region, const SelectionFilter& filter)
{
    const host::InPassing inPassing{host::InPassing::kSelection};
    EntityIndex& index = document.index();
    std::vector<EntityIndex::Kind>& kinds = index.kinds();
    const Sight sight{document};
    std::vector<ObjectRecord*> found;
    std::vector<ObjectRecord*> near;
    for (EntityIndex::Kind& kind : kinds)
    {
        const std::optional<bool> known = filter.passes(kind.name);
        if (known == false || kind.entities.empty())
            continue;
        near.clear();
        index.findNear(kind, region, near);
        for (ObjectRecord* entity : near)
            if (passes(filter, kind, known, *entity) && index.shapes().meets(*entity, region) && sight.sees(*entity))
                found.push_back(entity);
    }
    return inDrawingOrder(std::move(found));
}

} // namespace

int acedSSGet(const char16_t* mode, const void* points, const void* /*secondPoint*/, const resbuf* filter, ads_name set)
{
    AcApDocument* document = host::Session::hasCurrent() ? host::Session::current().documents().curDocument() : nullptr;
    const std::optional<SelectionFilter> test = SelectionFilter::read(filter);
    if (document == nullptr || mode == nullptr || !test || host::Session::current().faults().refuseSelection())
        return RTERROR;
    std::u16string_view name{mode};
    if (!name.empty() && name.front() == u'_')
        name.remove_prefix(1);

    AcDbObjectIdArray ids;
    if (equalNoCase(name, u"X"))
        ids = selectAll(*document, *test);
    else if (const auto polygon = polygonMode(name))
    {
        if (const auto region = regionOf(*polygon, static_cast<const resbuf*>(points)))
            ids = selectIn(*document, *region, *test);
    }
    if (ids.empty())
        return RTERROR;
    keep(std::move(ids), set);
    return RTNORM;
}

int acedSSLength(const ads_name set, int32_t* length)
{
    const AcDbObjectIdArray* ids = find(set);
    if (ids == nullptr || length == nullptr)
        return RTERROR;
    *length = static_cast<int32_t>(ids->size());
    return RTNORM;
}

int acedSSName(const ads_name set, int32_t index, ads_name entity)
{
    const AcDbObjectIdArray* ids = find(set);
    if (ids == nullptr || index < 0 || static_cast<size_t>(index) >= ids->size())
        return RTERROR;
    entity[0] = std::bit_cast<int64_t>((*ids)[static_cast<size_t>(index)].record());
    entity[1] = 0;
    return RTNORM;
}

int acedSSFree(const ads_name set)
{
    if (!host::Session::hasCurrent() || !host::Session::current().selectionSets().free(set[0]))
        return RTERROR;
    --ledger().selectionSets;
    return RTNORM;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity)
{
    if (entity[0] == 0)
        return Acad::eInvalidInput;
    id = AcDbObjectId{std::bit_cast<ObjectRecord*>(entity[0])};
    return Acad::eOk;
}
