#include "picture/list/list_update.h"

#include "host/db/database.h"
#include "picture/list/entity_writer.h"
#include "store/table_index.h"

#include <algorithm>

namespace picture
{

std::optional<Box2d> ListUpdate::run(std::span<ObjectRecord* const> touched)
{
    m_changed.resize(m_lists.m_lists.size());
    std::unordered_set<const ObjectRecord*> seen;
    for (ObjectRecord* record : touched)
        if (seen.insert(record).second)
            sort(*record);
    const bool isEverywhere = m_hasNewLooks && m_lists.m_looks.reload();
    if (m_isAll)
    {
        remakeAll();
        return std::nullopt;
    }
    spreadFromBlocks();
    remakeBlocks();
    for (uint32_t list = 0; list < m_changed.size(); ++list)
        if (!m_changed[list].empty() && m_blocks.count(list) == 0)
            rewrite(list, m_changed[list]);
    return isEverywhere ? std::nullopt : std::optional{m_box};
}

/// Finds out what a changed record means for the lists.
void ListUpdate::sort(ObjectRecord& record)
{
    const std::vector<Container>& containers = m_lists.m_database.store().containers;
    if (record.container >= containers.size())
        return;
    const Container::Kind in = containers[record.container].kind;
    const std::string_view kind = m_lists.m_database.dxfNameOf(record);
    if (in == Container::kTable)
        return sortTableRecord(record, kind);
    if (in == Container::kObjects)
    {
        m_isAll = m_isAll || kind == "SORTENTSTABLE";
        return;
    }
    m_containers.insert(record.container);
    ObjectRecord& head = headOf(record);
    const DrawingLists::Source source{record.container,
                                      in == Container::kEntities && head.has(ObjectRecord::kPaperSpace)};
    const auto made = m_lists.m_made.find(source);
    if (made == m_lists.m_made.end())
        return;
    const bool isFrame = &head == containers[record.container].head || &head == containers[record.container].tail;
    if (m_lists.isBlock(made->second.list))
        m_blocks.insert(made->second.list);
    else if (!isFrame)
        m_changed[made->second.list].insert(&head);
}

void ListUpdate::sortTableRecord(const ObjectRecord& record, std::string_view kind)
{
    m_hasNewLooks = m_hasNewLooks || kind == "LAYER" || kind == "LTYPE";
    m_hasNewBlocks = m_hasNewBlocks || kind == "BLOCK_RECORD";
    // A new style that no text asked for changes nothing that is there.
    m_isAll = m_isAll || (kind == "STYLE" && m_lists.m_styles.isUsed(nameOfRecord(record)));
}

/// The entity that a vertex or an attribute belongs to.
ObjectRecord& ListUpdate::headOf(ObjectRecord& part) const
{
    RecordPool& records = m_lists.m_database.store().records;
    size_t at = part.order;
    while (at > 0 && records[at].has(ObjectRecord::kSubEntity))
        --at;
    return records[at];
}

/// A changed block looks different wherever it stands, also within other blocks.
void ListUpdate::spreadFromBlocks()
{
    for (const auto& [container, users] : m_lists.m_writtenOut)
    {
        if (m_containers.count(container) == 0 && !(container == DrawingLists::kNone && m_hasNewBlocks))
            continue;
        for (const auto& [list, entity] : users)
        {
            if (m_lists.isBlock(list))
                m_blocks.insert(list);
            else
                m_changed[list].insert(entity);
        }
    }
    std::set<uint32_t> fresh = m_blocks;
    while (!fresh.empty())
    {
        const std::set<uint32_t> before = m_blocks;
        addUsersOf(fresh);
        fresh.clear();
        std::set_difference(m_blocks.begin(), m_blocks.end(), before.begin(), before.end(),
                            std::inserter(fresh, fresh.end()));
    }
}

void ListUpdate::addUsersOf(const std::set<uint32_t>& blocks)
{
    for (uint32_t list = 0; list < m_lists.m_lists.size(); ++list)
    {
        const DisplayList& users = m_lists.m_lists[list];
        const bool isBlock = m_lists.isBlock(list);
        for (const DisplayList::Item& item : users.items())
        {
            const auto primitives = users.primitives(item);
            const bool isUser = std::any_of(primitives.begin(), primitives.end(),
                                            [&](const Primitive& primitive) {
                                                return primitive.kind == Primitive::kBlock &&
                                                       blocks.count(users.block(primitive).block) != 0;
                                            });
            if (isUser && isBlock)
                m_blocks.insert(list);
            else if (isUser)
                m_changed[list].insert(item.entity);
        }
    }
}

/// Lists keep their numbers. Inner blocks come about as the outer ones ask for them: their boxes are known by then.
void ListUpdate::remakeBlocks()
{
    for (const uint32_t list : m_blocks)
    {
        m_lists.m_made.erase(m_lists.m_sources[list]);
        m_lists.m_lists[list].clear();
    }
    for (const uint32_t list : m_blocks)
        m_lists.listOf(m_lists.m_sources[list]);
}

void ListUpdate::rewrite(uint32_t index, const Entities& entities)
{
    DisplayList& list = m_lists.m_lists[index];
    EntityWriter writer{m_lists, list, m_lists.isBlock(index)};
    const auto grow = [&](uint32_t item)
    {
        if (!list.box(item).isEmpty())
            m_box.add(list.box(item));
    };
    Entities left = entities;
    for (const uint32_t item : list.itemsOf(entities))
    {
        ObjectRecord& entity = *list.items()[item].entity;
        grow(item);
        list.beginAgain(item);
        if (!entity.has(ObjectRecord::kErased))
            writer.write(entity);
        list.end();
        grow(item);
        left.erase(&entity);
    }
    std::vector<const ObjectRecord*> added{left.begin(), left.end()};
    std::sort(added.begin(), added.end(),
              [](const ObjectRecord* a, const ObjectRecord* b) { return a->order < b->order; });
    for (const ObjectRecord* record : added)
    {
        if (record->has(ObjectRecord::kErased))
            continue;
        ObjectRecord& entity = m_lists.m_database.store().records[record->order];
        list.begin(entity);
        writer.write(entity);
        list.end();
        grow(static_cast<uint32_t>(list.items().size() - 1));
    }
    list.finishChange();
}

void ListUpdate::remakeAll()
{
    m_lists.m_styles.forget();
    m_lists.m_order.forget();
    m_lists.m_made.clear();
    m_lists.m_writtenOut.clear();
    for (DisplayList& list : m_lists.m_lists)
        list.clear();
    for (uint32_t list = 0; list < m_changed.size(); ++list)
        m_lists.listOf(m_lists.m_sources[list]);
}

} // namespace picture
