#include "store/block_index.h"

#include "store/pair_edit.h"
#include "store/table_index.h"

AcGePoint3d basePointOf(const Container& block)
{
    OwnPairs pairs{block.head->view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 10)
            return pairs.pointFrom(tag);
    return {};
}

void BlockIndex::load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    for (uint32_t i = 0; i < m_drawing.containers.size(); ++i)
    {
        const Container& container = m_drawing.containers[i];
        if (container.kind == Container::kEntities)
            m_entities = i;
        if (container.kind == Container::kBlock)
            m_contents.add(m_drawing.encoding->decode(container.name), i);
    }
    for (const AcDbObjectId id : m_tables.live("BLOCK_RECORD"))
    {
        const uint32_t* found = m_contents.find(m_drawing.encoding->decode(spellingOf(*id.record())));
        if (found == nullptr)
            continue;
        m_recordOf.emplace(*found, id.record());
        m_containerOf.emplace(id.record(), *found);
    }
    m_modelSpace = m_tables.find("BLOCK_RECORD", u"*Model_Space");
    m_paperSpace = m_tables.find("BLOCK_RECORD", u"*Paper_Space");
}

ObjectRecord* BlockIndex::record(std::u16string_view name)
{
    return m_tables.find("BLOCK_RECORD", name);
}

ObjectRecord* BlockIndex::ownerOf(const ObjectRecord& entity)
{
    load();
    if (entity.container == m_entities)
        return entity.has(ObjectRecord::kPaperSpace) ? m_paperSpace : m_modelSpace;
    const auto found = m_recordOf.find(entity.container);
    return found != m_recordOf.end() ? found->second : nullptr;
}

uint32_t BlockIndex::containerOf(const ObjectRecord& blockRecord)
{
    load();
    if (&blockRecord == m_modelSpace || &blockRecord == m_paperSpace)
        return m_entities;
    const auto found = m_containerOf.find(&blockRecord);
    return found != m_containerOf.end() ? found->second : npos;
}

AcDbObjectIdArray BlockIndex::entities(const ObjectRecord& blockRecord)
{
    return entitiesIn(containerOf(blockRecord), &blockRecord == m_paperSpace);
}

AcDbObjectIdArray BlockIndex::entitiesIn(uint32_t index, bool paperSpace)
{
    AcDbObjectIdArray ids;
    if (index == npos)
        return ids;
    const Container& container = m_drawing.containers[index];
    const bool bySpace = container.kind == Container::kEntities;
    const auto take = [&](ObjectRecord& record)
    {
        if (!record.has(ObjectRecord::kErased) && !record.has(ObjectRecord::kSubEntity) &&
            (!bySpace || record.has(ObjectRecord::kPaperSpace) == paperSpace))
            ids.emplace_back(&record);
    };
    for (size_t order = container.first; order < container.last; ++order)
        take(m_drawing.records[order]);
    for (ObjectRecord* record : container.added)
        take(*record);
    return ids;
}

Container* BlockIndex::contents(std::u16string_view name)
{
    load();
    const uint32_t* found = m_contents.find(name);
    return found != nullptr ? &m_drawing.containers[*found] : nullptr;
}

void BlockIndex::add(const std::u16string& name, ObjectRecord& blockRecord, uint32_t container)
{
    load();
    m_contents.replace(name, container);
    m_recordOf.insert_or_assign(container, &blockRecord);
    m_containerOf.insert_or_assign(&blockRecord, container);
}

bool BlockIndex::isModelSpace(const ObjectRecord& blockRecord)
{
    load();
    return &blockRecord == m_modelSpace;
}

bool BlockIndex::isPaperSpace(const ObjectRecord& blockRecord)
{
    load();
    return &blockRecord == m_paperSpace;
}
