#include "host/view/entity_index.h"

#include "host/db/database.h"
#include "kernel/plan_region.h"
#include "store/text/text.h"

#include <algorithm>

namespace
{

bool isSpaceContainer(const Container& container, const TextEncoding& encoding)
{
    if (container.kind != Container::kBlock)
        return container.kind == Container::kEntities;
    const std::u16string name = encoding.decode(container.name);
    return equalNoCase(name, u"*Model_Space") || equalNoCase(name.substr(0, 12), u"*Paper_Space");
}

bool standsBefore(const ObjectRecord* a, const ObjectRecord* b)
{
    return a->order < b->order;
}

} // namespace

EntityIndex::EntityIndex(AcDbDatabase& database) : m_database{database}, m_shapes{database}, m_layers{database} {}

std::vector<EntityIndex::Kind>& EntityIndex::kinds()
{
    if (!m_loaded)
        load();
    else if (m_seen != m_database.changeCount())
        update();
    m_seen = m_database.changeCount();
    return m_kinds;
}

void EntityIndex::load()
{
    m_loaded = true;
    DrawingStore& store = m_database.store();
    std::vector<const Container*> spaces;
    for (const Container& container : store.containers)
    {
        m_isSpace.push_back(isSpaceContainer(container, m_database.encoding()));
        if (m_isSpace.back())
            spaces.push_back(&container);
    }
    std::sort(spaces.begin(), spaces.end(), [](const auto* a, const auto* b) { return a->first < b->first; });
    m_addedSeen.resize(store.containers.size(), 0);
    for (const Container* space : spaces)
        for (size_t order = space->first; order < space->last; ++order)
            append(store.records[order]);
    takeAdded();
    m_definitions = stampOfDefinitions();
}

void EntityIndex::append(ObjectRecord& entity)
{
    if (entity.has(ObjectRecord::kSubEntity))
        return;
    if (entity.kind >= m_kinds.size())
        m_kinds.resize(entity.kind + size_t{1});
    Kind& kind = m_kinds[entity.kind];
    if (kind.entities.empty())
        kind.name = toUtf16(m_database.dxfNameOf(entity));
    kind.entities.push_back(&entity);
    if (kind.places)
        measure(kind, kind.entities.size() - 1);
}

void EntityIndex::takeAdded()
{
    std::vector<ObjectRecord*> added;
    for (size_t i = 0; i < m_addedSeen.size(); ++i)
    {
        if (!m_isSpace[i])
            continue;
        const std::vector<ObjectRecord*>& all = m_database.store().containers[i].added;
        added.insert(added.end(), all.begin() + static_cast<ptrdiff_t>(m_addedSeen[i]), all.end());
        m_addedSeen[i] = all.size();
    }
    std::sort(added.begin(), added.end(), standsBefore);
    for (ObjectRecord* entity : added)
        append(*entity);
}

void EntityIndex::update()
{
    m_layers.forget();
    if (const uint64_t stamp = stampOfDefinitions(); stamp != m_definitions)
    {
        m_definitions = stamp;
        m_shapes.forget();
        for (Kind& kind : m_kinds)
            kind.places.reset();
    }
    for (const AcDbDatabase::Change& change : m_database.changes())
    {
        ObjectRecord* entity = change.record;
        if (!isSpace(entity->container) || entity->kind >= m_kinds.size() || !m_kinds[entity->kind].places)
            continue;
        Kind& kind = m_kinds[entity->kind];
        const auto at = std::lower_bound(kind.entities.begin(), kind.entities.end(), entity, standsBefore);
        if (at != kind.entities.end() && *at == entity)
            measure(kind, static_cast<size_t>(at - kind.entities.begin()));
    }
    takeAdded();
}

/// Differs whenever an entity of a block definition was added, erased or given other text.
uint64_t EntityIndex::stampOfDefinitions() const
{
    uint64_t stamp = 0;
    for (const AcDbDatabase::Change& change : m_database.changes())
    {
        const ObjectRecord* record = change.record;
        if (!isSpace(record->container) && record->container < m_database.store().containers.size() &&
            m_database.store().containers[record->container].kind == Container::kBlock)
            for (const uint64_t part : {record->handle, static_cast<uint64_t>(record->length),
                                        static_cast<uint64_t>(reinterpret_cast<uintptr_t>(record->text)),
                                        static_cast<uint64_t>(record->flags)})
                stamp = (stamp ^ part) * 0x9E3779B97F4A7C15U + 1;
    }
    return stamp;
}

void EntityIndex::measure(Kind& kind, size_t at)
{
    kind.places->set(static_cast<uint32_t>(at), boxInPlan(m_shapes.box(*kind.entities[at])));
}

void EntityIndex::findNear(Kind& kind, const PlanRegion& region, std::vector<ObjectRecord*>& found)
{
    if (!kind.places)
    {
        kind.places = std::make_unique<BoxTree>();
        for (size_t at = 0; at < kind.entities.size(); ++at)
            measure(kind, at);
    }
    kind.places->visit([&](const Box2d& box) { return region.isApart(box); },
                       [&](uint32_t at) { found.push_back(kind.entities[at]); });
}
