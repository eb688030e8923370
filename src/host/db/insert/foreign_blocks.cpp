#include "host/db/insert/foreign_blocks.h"

#include "store/block_index.h"
#include "store/pair_edit.h"

namespace
{

uint32_t entitiesSection(const DrawingStore& store)
{
    for (uint32_t i = 0; i < store.containers.size(); ++i)
        if (store.containers[i].kind == Container::kEntities)
            return i;
    return BlockIndex::npos;
}

/// First value of a text code among an object's own pairs.
std::string_view firstWord(const ObjectRecord& record, int code)
{
    OwnPairs pairs{record.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == code)
            return tag.word();
    return {};
}

/// Blocks whose contents stand in another file.
bool isExternal(const Container& block)
{
    constexpr int kExternal = 4 | 8;
    Tag flags;
    flags.value = firstWord(*block.head, 70);
    return (flags.integerOr(0) & kExternal) != 0;
}

} // namespace

ForeignBlocks::ForeignBlocks(AcDbDatabase& source) : m_source{source}, m_modelSpace{entitiesSection(source.store())}
{
    if (m_modelSpace != BlockIndex::npos)
        walk();
}

uint32_t ForeignBlocks::blockOf(const ObjectRecord& entity) const
{
    const std::string_view kind = m_source.dxfNameOf(entity);
    if (kind != "INSERT" && kind != "DIMENSION")
        return BlockIndex::npos;
    const std::u16string name = m_source.encoding().decode(firstWord(entity, 2));
    if (equalNoCase(name, u"*Model_Space"))
        return m_modelSpace;
    const Container* contents = m_source.blocks().contents(name);
    if (contents == nullptr || contents->head == nullptr || isExternal(*contents))
        return BlockIndex::npos;
    return static_cast<uint32_t>(contents - m_source.store().containers.data());
}

std::vector<uint32_t> ForeignBlocks::usesOf(uint32_t block) const
{
    std::vector<uint32_t> uses;
    for (const AcDbObjectId id : m_source.blocks().entitiesIn(block, false))
        if (const uint32_t used = blockOf(*id.record()); used != BlockIndex::npos)
            uses.push_back(used);
    return uses;
}

void ForeignBlocks::walk()
{
    struct Step
    {
        uint32_t block;
        size_t next;
    };
    std::unordered_map<uint32_t, bool> finished{{m_modelSpace, false}};
    std::vector<Step> way{{m_modelSpace, 0}};
    m_uses.emplace(m_modelSpace, usesOf(m_modelSpace));
    while (!way.empty())
    {
        Step& at = way.back();
        const std::vector<uint32_t>& uses = m_uses.at(at.block);
        if (at.next == uses.size())
        {
            finished[at.block] = true;
            m_order.push_back(at.block);
            way.pop_back();
            continue;
        }
        const uint32_t used = uses[at.next++];
        const auto [entry, isNew] = finished.try_emplace(used, false);
        if (isNew)
        {
            m_uses.emplace(used, usesOf(used));
            way.push_back({used, 0});
        }
        else
            m_circular = m_circular || !entry->second;
    }
}
