#include "picture/list/drawing_lists.h"

#include "host/db/database.h"
#include "picture/list/entity_writer.h"
#include "store/block_index.h"
#include "store/header_variables.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <cmath>

namespace picture
{

namespace
{

constexpr size_t kDeepestNesting = 250;

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

/// Drawing units in a metre for a value of $INSUNITS; 1 for those of other trades.
double unitsInMetre(int64_t unit)
{
    switch (unit)
    {
    case 1:
        return 1000.0 / 25.4;
    case 2:
        return 1000.0 / 304.8;
    case 4:
        return 1000.0;
    case 5:
        return 100.0;
    case 7:
        return 0.001;
    case 10:
        return 1000.0 / 914.4;
    case 14:
        return 10.0;
    default:
        return 1.0;
    }
}

/// A number of the header; the fallback where there is none that can be read.
double realOr(HeaderVariables& header, const std::string& name, double fallback)
{
    TagReader pairs{header.pairs(name)};
    try
    {
        Tag tag;
        return pairs.next(tag) ? tag.real() : fallback;
    }
    catch (const DamagedValue&)
    {
        return fallback;
    }
}

} // namespace

AcDbObjectIdArray modelSpaceOf(AcDbDatabase& database)
{
    if (const ObjectRecord* space = database.blocks().record(u"*Model_Space"))
        return database.blocks().entities(*space);
    const std::vector<Container>& containers = database.store().containers;
    for (uint32_t i = 0; i < containers.size(); ++i)
        if (containers[i].kind == Container::kEntities)
            return database.blocks().entitiesIn(i, false);
    return {};
}

DrawingLists::DrawingLists(AcDbDatabase& database, std::vector<std::string> fontFolders, Notes& notes)
    : m_database{database}, m_notes{notes}, m_looks{database, notes}, m_styles{database, std::move(fontFolders), notes}
{
    HeaderVariables& header = database.header();
    m_linetypeScale = realOr(header, "$LTSCALE", 1.0);
    if (!(m_linetypeScale > 0.0) || !std::isfinite(m_linetypeScale))
        m_linetypeScale = 1.0;
    m_pointStyle.mode = static_cast<int>(header.integerOr("$PDMODE", 0));
    m_pointStyle.size = realOr(header, "$PDSIZE", 0.0);
    m_showsWeights = header.integerOr("$LWDISPLAY", 0) != 0;
    m_arrowSize = realOr(header, "$DIMASZ", 0.0) * realOr(header, "$DIMSCALE", 1.0);
    m_metre = unitsInMetre(header.integerOr("$INSUNITS", 0));
    m_lists.emplace_back();
}

DisplayList& DrawingLists::modelSpace()
{
    DisplayList& list = m_lists.front();
    if (m_isMade)
        return list;
    m_isMade = true;
    m_seen = m_database.changeCount();
    const ObjectRecord* space = m_database.blocks().record(u"*Model_Space");
    fill(list, inDrawOrder(modelSpaceOf(m_database), space != nullptr ? space->handle : 0));
    list.finish();
    return list;
}

DisplayList& DrawingLists::space(const ObjectRecord* block)
{
    if (block == nullptr || m_database.blocks().isModelSpace(*block))
        return modelSpace();
    const auto [place, isFresh] = m_sheets.try_emplace(block, static_cast<uint32_t>(m_lists.size()));
    if (isFresh)
    {
        m_lists.emplace_back();
        fill(m_lists[place->second], inDrawOrder(m_database.blocks().entities(*block), block->handle));
        m_lists[place->second].finish();
    }
    return m_lists[place->second];
}

void DrawingLists::fill(DisplayList& list, const AcDbObjectIdArray& entities)
{
    EntityWriter writer{*this, list};
    list.reserve(entities.size());
    for (const AcDbObjectId id : entities)
    {
        list.begin(*id.record());
        writer.write(*id.record());
        list.end();
    }
}

AcDbObjectIdArray DrawingLists::inDrawOrder(AcDbObjectIdArray entities, uint64_t block)
{
    const uint16_t kind = m_database.store().kindOf("SORTENTSTABLE");
    const RecordPool& records = m_database.store().records;
    for (size_t i = 0; i < records.size(); ++i)
    {
        const ObjectRecord& record = records[i];
        if (record.kind != kind || record.has(ObjectRecord::kErased) || blockOfSortTable(record.view()) != block)
            continue;
        const std::unordered_map<uint64_t, uint64_t> order = sortHandles(record.view());
        const auto key = [&order](AcDbObjectId id)
        {
            const auto sorted = order.find(id.record()->handle);
            return sorted != order.end() ? sorted->second : id.record()->handle;
        };
        if (!order.empty())
            std::stable_sort(entities.begin(), entities.end(),
                             [&key](AcDbObjectId a, AcDbObjectId b) { return key(a) < key(b); });
        break;
    }
    return entities;
}

uint32_t DrawingLists::blockNamed(std::string_view raw)
{
    const Container* contents = m_database.blocks().contents(m_database.encoding().decode(raw));
    if (contents == nullptr)
        return kNone;
    Block& block = m_blocks[contents];
    if (block.isOpen)
        m_notes.texts.insert("blocks that contain each other are drawn up to where the circle closes");
    if (block.isOpen || block.list != kNone)
        return block.isOpen ? kNone : block.list;
    if (m_depth >= kDeepestNesting)
    {
        m_notes.texts.insert("blocks nested deeper than " + std::to_string(kDeepestNesting) + " are left out");
        return kNone;
    }
    const auto index = static_cast<uint32_t>(m_lists.size());
    m_lists.emplace_back();
    block.isOpen = true;
    ++m_depth;
    const auto container = static_cast<uint32_t>(contents - m_database.store().containers.data());
    fill(m_lists[index], m_database.blocks().entitiesIn(container, false));
    --m_depth;
    m_lists[index].finish();
    Block& made = m_blocks[contents];
    made = {index, false};
    return index;
}

void DrawingLists::update()
{
    if (!m_isMade || m_seen == m_database.changeCount())
        return;
    // Blocks are few and small beside the plan: a change inside one makes the lists anew, one outside only its entity.
    DisplayList& list = m_lists.front();
    std::unordered_map<const ObjectRecord*, uint32_t> itemOf;
    for (uint32_t i = 0; i < list.items().size(); ++i)
        itemOf.emplace(list.items()[i].entity, i);
    m_looks.reload();
    EntityWriter writer{*this, list};
    for (const AcDbDatabase::Change& change : m_database.changes())
    {
        ObjectRecord& record = *change.record;
        const auto known = itemOf.find(&record);
        const bool isNew = known == itemOf.end();
        ObjectRecord* owner = m_database.blocks().ownerOf(record);
        if (isNew &&
            (owner == nullptr || !m_database.blocks().isModelSpace(*owner) || record.has(ObjectRecord::kSubEntity)))
            continue;
        if (isNew)
            list.begin(record);
        else
            list.beginAgain(known->second);
        if (!record.has(ObjectRecord::kErased))
            writer.write(record);
        list.end();
    }
    m_seen = m_database.changeCount();
}

Box2d DrawingLists::shownBox(const DisplayList& list) const
{
    Box2d box;
    for (uint32_t i = 0; i < list.items().size(); ++i)
        for (const Primitive& primitive : list.primitives(list.items()[i]))
            if (m_looks.pen(primitive.look, nullptr).shown)
            {
                if (!list.box(i).isEmpty())
                    box.add(list.box(i));
                break;
            }
    return box;
}

size_t DrawingLists::bytes() const
{
    size_t sum = 0;
    for (const DisplayList& list : m_lists)
        sum += list.bytes();
    return sum;
}

} // namespace picture
