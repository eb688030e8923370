#include "picture/list/draw_order.h"

#include "host/db/database.h"
#include "store/block_index.h"
#include "store/pair_edit.h"

#include <algorithm>

namespace picture
{

namespace
{

/// Handles by which entities of a space are ordered, in place of their own.
std::unordered_map<uint64_t, uint64_t> sortHandles(std::string_view table)
{
    std::unordered_map<uint64_t, uint64_t> order;
    uint64_t entity = 0;
    bool isHead = true;
    TagReader pairs{table};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 100)
            isHead = false;
        else if (!isHead && tag.code == 331)
            entity = tag.handle();
        else if (!isHead && tag.code == 5)
            order.emplace(entity, tag.handle());
    return order;
}

/// The block record that a table of sort handles belongs to: its first pointer behind its class.
uint64_t blockOfSortTable(std::string_view table)
{
    bool isHead = true;
    TagReader pairs{table};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 100)
            isHead = false;
        else if (!isHead && tag.code == 330)
            return tag.handle();
    return 0;
}

} // namespace

void DrawOrder::readTables()
{
    m_tables.emplace();
    const uint16_t kind = m_database.store().kindOf("SORTENTSTABLE");
    for (const Container& container : m_database.store().containers)
    {
        if (container.kind != Container::kObjects)
            continue;
        const auto take = [&](const ObjectRecord& record)
        {
            if (record.kind == kind && !record.has(ObjectRecord::kErased))
                m_tables->insert_or_assign(blockOfSortTable(record.view()), &record);
        };
        for (size_t order = container.first; order < container.last; ++order)
            take(m_database.store().records[order]);
        for (const ObjectRecord* record : container.added)
            take(*record);
    }
}

AcDbObjectIdArray DrawOrder::sorted(AcDbObjectIdArray entities)
{
    if (!m_tables)
        readTables();
    if (m_tables->empty() || entities.empty())
        return entities;
    const ObjectRecord* block = m_database.blocks().ownerOf(*entities.front().record());
    const auto table = block != nullptr ? m_tables->find(block->handle) : m_tables->end();
    if (table == m_tables->end())
        return entities;
    const std::unordered_map<uint64_t, uint64_t> order = sortHandles(table->second->view());
    const auto key = [&order](AcDbObjectId id)
    {
        const auto sorted = order.find(id.record()->handle);
        return sorted != order.end() ? sorted->second : id.record()->handle;
    };
    if (!order.empty())
        std::stable_sort(entities.begin(), entities.end(),
                         [&key](AcDbObjectId a, AcDbObjectId b) { return key(a) < key(b); });
    return entities;
}

} // namespace picture
