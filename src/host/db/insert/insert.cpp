#include "host/db/curve/entity_curves.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/db/insert/foreign_blocks.h"
#include "host/db/insert/foreign_entity.h"
#include "host/db/insert/foreign_names.h"
#include "host/db/insert/sound_entity.h"
#include "host/db/table/new_block.h"
#include "host/db/table/symbol_tables.h"
#include "store/block_index.h"
#include "store/header_variables.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <algorithm>

namespace
{

constexpr int kR13 = 1012;

/// Carries blocks of one drawing into another. Nothing fails on the way: what could was asked before.
class BlockCarrier
{
public:
    BlockCarrier(AcDbDatabase& source, AcDbDatabase& target, const ForeignBlocks& blocks, bool onTrial = false)
        : m_source{source}, m_target{target}, m_blocks{blocks}, m_names{source, target, onTrial},
          m_values{source, target, m_names}, m_entity{m_values}
    {
    }

    /// Decides what a block of the source is called in the target.
    void name(uint32_t block);
    /// Makes the definition `name` of what stands in a container of the source.
    ObjectRecord& carry(uint32_t block, const std::u16string& name, const AcGePoint3d& base);
    /// Reads all that carrying a container would read; DamagedValue when a number in it is none.
    void tryOut(uint32_t block);
    /// Makes the definition of a block that was given a name.
    void carry(uint32_t block);
    /// The entities that were left behind.
    const CountsByKind& left() const { return m_left; }

private:
    void carryEntity(ObjectRecord& entity, uint32_t container, uint64_t owner);
    void carryPicture(const ObjectRecord& dimension, const std::u16string& block, uint32_t container, uint64_t owner);
    void carrySubEntities(const std::vector<ObjectRecord*>& parts, uint32_t container, uint64_t owner);
    std::u16string freeAnonymousName() const;

    AcDbDatabase& m_source;
    AcDbDatabase& m_target;
    const ForeignBlocks& m_blocks;
    ForeignNames m_names;
    ForeignPairs m_values;
    ForeignEntity m_entity;
    std::unordered_map<uint32_t, std::u16string> m_nameOf;
    CountsByKind m_left;
};

std::u16string nameOfBlock(const AcDbDatabase& drawing, uint32_t block)
{
    return drawing.encoding().decode(drawing.store().containers[block].name);
}

/// Names with a star belong to the drawing they stand in.
bool isAnonymous(std::u16string_view name)
{
    return name.starts_with(u'*');
}

std::u16string BlockCarrier::freeAnonymousName() const
{
    return u"*U" + toUtf16(std::to_string(m_target.nextHandle()));
}

void BlockCarrier::name(uint32_t block)
{
    m_nameOf.emplace(block, nameOfBlock(m_source, block));
}

void BlockCarrier::carry(uint32_t block)
{
    std::u16string& name = m_nameOf.at(block);
    if (isAnonymous(name))
        name = freeAnonymousName();
    carry(block, name, basePointOf(m_source.store().containers[block]));
}

ObjectRecord& BlockCarrier::carry(uint32_t block, const std::u16string& name, const AcGePoint3d& base)
{
    ObjectRecord& record = m_target.addRecord(m_target.tables().container("BLOCK_RECORD"), "BLOCK_RECORD");
    TagWriter out;
    out.text(0, "BLOCK_RECORD");
    out.handle(5, record.handle);
    out.handle(330, m_target.tables().table("BLOCK_RECORD")->handle);
    encodeBlockRecord(out, m_target, name);
    m_target.setRecordText(record, out.view());
    m_target.tables().add("BLOCK_RECORD", name, record);
    const uint32_t container = addBlockContents(m_target, name, record, base);
    for (const AcDbObjectId id : m_source.blocks().entitiesIn(block, false))
        carryEntity(*id.record(), container, record.handle);
    return record;
}

void BlockCarrier::tryOut(uint32_t block)
{
    if (block != m_blocks.modelSpace())
        basePointOf(m_source.store().containers[block]);
    const auto tryOutRecord = [this](const ObjectRecord& record)
    {
        if (const std::string_view kind = m_source.dxfNameOf(record); isCarriedKind(kind))
            m_entity.write(kind, record.view(), 0, 0, {}, true);
    };
    for (const AcDbObjectId id : m_source.blocks().entitiesIn(block, false))
    {
        tryOutRecord(*id.record());
        for (const ObjectRecord* part : subEntitiesOf(*id.record()))
            tryOutRecord(*part);
    }
}

void BlockCarrier::carryEntity(ObjectRecord& entity, uint32_t container, uint64_t owner)
{
    const std::string_view kind = m_source.dxfNameOf(entity);
    const auto block = m_nameOf.find(m_blocks.blockOf(entity));
    const bool needsBlock = kind == "INSERT" || kind == "DIMENSION";
    if (!isCarriedKind(kind) || (needsBlock && block == m_nameOf.end()))
    {
        ++m_left[std::string{kind}];
        return;
    }
    if (kind == "DIMENSION" && m_source.version() < kR13)
        return carryPicture(entity, block->second, container, owner);
    const std::vector<ObjectRecord*> parts = subEntitiesOf(entity);
    const bool followed = std::any_of(
        parts.begin(), parts.end(), [&](const ObjectRecord* part) { return isCarriedKind(m_source.dxfNameOf(*part)); });
    if (kind == "POLYLINE" && !followed)
        return;
    ObjectRecord& record = m_target.addRecord(container, kind);
    const std::string name = needsBlock ? m_target.tables().spelling("BLOCK_RECORD", block->second) : std::string{};
    m_target.setRecordText(record, m_entity.write(kind, entity.view(), record.handle, owner, name, followed));
    if (followed)
        carrySubEntities(parts, container, record.handle);
}

/// A dimension from before R13 cannot be made one of today's from its pairs: what it shows, its block, is placed.
void BlockCarrier::carryPicture(const ObjectRecord& dimension, const std::u16string& block, uint32_t container,
                                uint64_t owner)
{
    ObjectRecord& record = m_target.addRecord(container, "INSERT");
    m_target.setRecordText(record, m_entity.writePicture(dimension.view(), record.handle, owner,
                                                         m_target.tables().spelling("BLOCK_RECORD", block)));
}

void BlockCarrier::carrySubEntities(const std::vector<ObjectRecord*>& parts, uint32_t container, uint64_t owner)
{
    for (const ObjectRecord* part : parts)
    {
        const std::string_view kind = m_source.dxfNameOf(*part);
        if (!isCarriedKind(kind))
            continue;
        ObjectRecord& record = m_target.addRecord(container, kind);
        record.set(ObjectRecord::kSubEntity, true);
        m_target.setRecordText(record, m_entity.write(kind, part->view(), record.handle, owner, {}, false));
    }
    ObjectRecord& end = m_target.addRecord(container, "SEQEND");
    end.set(ObjectRecord::kSubEntity, true);
    m_target.setRecordText(end, m_entity.writeSequenceEnd(end.handle, owner));
}

/// "the entity LINE (handle 2F)"
std::string nameOf(std::string_view kind, const ObjectRecord& record)
{
    TagWriter handle;
    handle.handle(5, record.handle);
    const std::string_view digits = handle.view().substr(handle.view().find('\n') + 1);
    return "the entity " + std::string{kind} +
           (record.handle == 0 ? std::string{} : " (handle " + std::string{digits.substr(0, digits.size() - 1)} + ")");
}

/// What is damaged of all that would be carried from a container of the source; empty when nothing is.
std::string whyUnsoundBlock(AcDbDatabase& source, uint32_t block)
{
    const auto check = [&source](const ObjectRecord& record)
    {
        const std::string_view kind = source.dxfNameOf(record);
        const std::string why = isCarriedKind(kind) ? whyUnsound(kind, record.view(), source.version()) : std::string{};
        return why.empty() ? why : nameOf(kind, record) + " is damaged: " + why;
    };
    for (const AcDbObjectId id : source.blocks().entitiesIn(block, false))
    {
        if (std::string why = check(*id.record()); !why.empty())
            return why;
        for (const ObjectRecord* part : subEntitiesOf(*id.record()))
            if (std::string why = check(*part); !why.empty())
                return why;
    }
    return {};
}

/// Why a symbol drawing could not become a block, for a person.
std::string reasonOf(Acad::ErrorStatus status)
{
    switch (status)
    {
    case Acad::eSelfReference:
        return "its blocks contain each other in a circle";
    case Acad::eInvalidInput:
        return "its name (without the last four characters) cannot name a block";
    case Acad::eBadDxfSequence:
        return "the drawing to place it in has no table or no section of blocks";
    default:
        return "it could not be inserted as a block";
    }
}

} // namespace

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const char16_t* name, AcDbDatabase* source, bool)
{
    std::string damage;
    Acad::ErrorStatus status = Acad::eFilerError;
    try
    {
        status = insertModelSpace(blockId, name, source, damage);
    }
    catch (const DamagedValue& found)
    {
        damage = host::placeOf(source->store(), found.tag) + host::textOf(found.tag);
    }
    if (status != Acad::eOk && source != nullptr && !source->m_symbolPath.empty())
        acdbHostApplicationServices()->symbolUnreadable(source->m_symbolPath,
                                                        damage.empty() ? reasonOf(status) : damage);
    return status;
}

Acad::ErrorStatus AcDbDatabase::insertModelSpace(AcDbObjectId& blockId, const char16_t* name, AcDbDatabase* source,
                                                 std::string& damage)
{
    if (name == nullptr || source == nullptr || source == this || !isValidSymbolName(name))
        return Acad::eInvalidInput;
    const ObjectRecord* table = m_tables->table("BLOCK_RECORD");
    if (table == nullptr || !hasBlocksSection(m_store))
        return Acad::eBadDxfSequence;
    if (m_blocks->record(name) != nullptr)
        return Acad::eDuplicateRecordName;
    if (const Acad::ErrorStatus refused = refuseWrite(*table); refused != Acad::eOk)
        return refused;
    const ForeignBlocks blocks{*source};
    if (blocks.isCircular())
        return Acad::eSelfReference;
    const auto isKept = [&](uint32_t block)
    {
        const std::u16string own = nameOfBlock(*source, block);
        return !isAnonymous(own) && m_blocks->record(own) != nullptr;
    };
    const std::vector<uint32_t> needed = blocks.needed(isKept);
    for (const uint32_t block : needed)
        if (equalNoCase(nameOfBlock(*source, block), name))
            return Acad::eSelfReference;
    damage = whyUnsoundBlock(*source, blocks.modelSpace());
    for (size_t i = 0; i < needed.size() && damage.empty(); ++i)
        damage = whyUnsoundBlock(*source, needed[i]);
    if (!damage.empty())
        return Acad::eFilerError;
    const AcGePoint3d base = source->header().point("$INSBASE", {});
    BlockCarrier trial{*source, *this, blocks, true};
    trial.tryOut(blocks.modelSpace());
    for (const uint32_t block : needed)
        trial.tryOut(block);
    BlockCarrier carrier{*source, *this, blocks};
    for (const uint32_t block : blocks.all())
        carrier.name(block);
    // From the last to the first: a block is there before the ones that use it.
    for (size_t i = needed.size(); i-- > 0;)
        carrier.carry(needed[i]);
    blockId = AcDbObjectId{&carrier.carry(blocks.modelSpace(), name, base)};
    CountsByKind missing = carrier.left();
    for (const auto& [kind, count] : source->store().lost)
        missing[kind] += count;
    if (!missing.empty())
        acdbHostApplicationServices()->symbolIncomplete(source->m_symbolPath, std::move(missing));
    return Acad::eOk;
}
