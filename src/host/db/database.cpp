#include "host/db/database.h"

#include "host/db/class_registry.h"
#include "host/db/damage.h"
#include "host/db/host_services.h"
#include "host/db/ledger.h"
#include "host/db/resident_cache.h"
#include "host/db/undo_step.h"
#include "store/block_index.h"
#include "store/handle_table.h"
#include "store/header_variables.h"
#include "store/numbers.h"
#include "store/table_index.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace
{

bool hasLayer(const Container& container)
{
    return container.kind == Container::kEntities || container.kind == Container::kBlock;
}

} // namespace

AcDbDatabase::AcDbDatabase(bool, bool)
    : m_header{std::make_unique<HeaderVariables>(std::string_view{})}, m_tables{std::make_unique<TableIndex>(m_store)},
      m_blocks{std::make_unique<BlockIndex>(m_store, *m_tables)},
      m_residents{std::make_unique<ResidentCache>()}, m_handles{std::make_unique<HandleTable>(m_store.records)}
{
    m_store.encoding = makeTextEncoding(1032, {});
}

AcDbDatabase::~AcDbDatabase()
{
    if (host::DamageLog* damage = acdbHostApplicationServices()->damageLog())
        damage->forget(*this);
    const std::vector<AcDbDatabaseReactor*> reactors = m_reactors;
    for (AcDbDatabaseReactor* reactor : reactors)
        reactor->goodbye(this);
    for (size_t i = 0; i < m_store.records.size(); ++i)
    {
        ObjectRecord& record = m_store.records[i];
        const std::unique_ptr<AcDbObject> resident{record.resident};
        if (record.has(ObjectRecord::kOwnText))
            const std::unique_ptr<const char[]> text{record.text};
    }
}

void AcDbDatabase::adopt(DrawingStore store)
{
    m_store = std::move(store);
    m_header = std::make_unique<HeaderVariables>(m_store.header);
    uint64_t highest = 0;
    for (size_t i = 0; i < m_store.records.size(); ++i)
    {
        ObjectRecord& record = m_store.records[i];
        record.database = this;
        highest = std::max(highest, record.handle);
    }
    // A seed so near the end of all handles that a day's work could reach it is of no use.
    constexpr uint64_t kHighestSeed = kNoHandleLeft - (uint64_t{1} << 32);
    const uint64_t seed = dxf::readHandle(m_header->word("$HANDSEED")).value_or(0);
    m_nextHandle = std::max(highest == kNoHandleLeft ? highest : highest + 1, seed <= kHighestSeed ? seed : 0);
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const char16_t* path, DwgShareMode, bool, const char16_t*)
{
    m_symbolPath = path;
    try
    {
        adopt(acdbHostApplicationServices()->readSymbolDrawing(path));
        return Acad::eOk;
    }
    catch (const std::exception& error)
    {
        acdbHostApplicationServices()->symbolUnreadable(path, error.what());
        return Acad::eFilerError;
    }
}

AcDbObjectId AcDbDatabase::clayer()
{
    return AcDbObjectId{m_tables->find("LAYER", encoding().decode(m_header->word("$CLAYER", "0")))};
}

bool AcDbDatabase::tilemode()
{
    return m_header->integerOr("$TILEMODE", 1) != 0;
}

AcGePoint3d AcDbDatabase::ucsorg()
{
    return headerPoint("$UCSORG", {});
}

AcGePoint3d AcDbDatabase::pucsorg()
{
    return headerPoint("$PUCSORG", {});
}

AcGePoint3d AcDbDatabase::headerPoint(const std::string& name, const AcGePoint3d& fallback)
{
    try
    {
        return m_header->point(name, fallback);
    }
    catch (const DamagedValue& damage)
    {
        host::noteHeaderDamage(*this, damage);
        return fallback;
    }
}

AcGeVector3d AcDbDatabase::ucsxdir()
{
    return headerPoint("$UCSXDIR", {1.0, 0.0, 0.0}).asVector();
}

AcGeVector3d AcDbDatabase::ucsydir()
{
    return headerPoint("$UCSYDIR", {0.0, 1.0, 0.0}).asVector();
}

AcGeVector3d AcDbDatabase::pucsxdir()
{
    return headerPoint("$PUCSXDIR", {1.0, 0.0, 0.0}).asVector();
}

AcGeVector3d AcDbDatabase::pucsydir()
{
    return headerPoint("$PUCSYDIR", {0.0, 1.0, 0.0}).asVector();
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle)
{
    id = AcDbObjectId{m_handles->find(handle.value())};
    if (!id.isNull() || handle.isNull())
        return id.isNull() ? Acad::eNullObjectId : Acad::eOk;
    if (!createIfNotFound)
        return Acad::eUnknownHandle;
    ObjectRecord*& dangling = m_dangling[handle.value()];
    if (dangling == nullptr)
    {
        dangling = &m_danglingPool.add();
        dangling->database = this;
        dangling->handle = handle.value();
        dangling->set(ObjectRecord::kDangling, true);
    }
    id = AcDbObjectId{dangling};
    return Acad::eOk;
}

void AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor)
{
    m_reactors.push_back(reactor);
}

void AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor)
{
    std::erase(m_reactors, reactor);
}

ObjectRecord& AcDbDatabase::addRecord(uint32_t container, std::string_view dxfName)
{
    ObjectRecord& record = makeRecord(container, dxfName);
    m_store.containers[container].added.push_back(&record);
    return record;
}

ObjectRecord& AcDbDatabase::makeRecord(uint32_t container, std::string_view dxfName)
{
    ObjectRecord& record = m_store.records.add();
    record.database = this;
    record.handle = takeHandle();
    record.container = container;
    record.kind = m_store.kindOf(dxfName);
    record.set(ObjectRecord::kAdded, true);
    noteChange(record);
    return record;
}

ObjectRecord& AcDbDatabase::take(AcDbObject& object, uint32_t container, uint64_t owner)
{
    std::string name;
    for (const char16_t* at = object.isA()->dxfName(); *at != 0; ++at)
        name += static_cast<char>(*at);
    ObjectRecord& record = addRecord(container, name);
    record.resident = &object;
    object.m_record = &record;
    object.m_owner = owner;
    object.m_writing = true;
    ++ledger().openObjects;
    return record;
}

uint64_t AcDbDatabase::takeHandle()
{
    if (m_nextHandle != kNoHandleLeft)
        return m_nextHandle++;
    do
        ++m_spareHandle;
    while (m_handles->find(m_spareHandle) != nullptr);
    return m_spareHandle;
}

void AcDbDatabase::noteChange(ObjectRecord& record)
{
    m_touched.push_back(&record);
    if (m_step != nullptr)
        m_step->note(record);
    if (record.has(ObjectRecord::kChanged))
        return;
    record.set(ObjectRecord::kChanged, true);
    m_changes.push_back({&record, record.has(ObjectRecord::kAdded) ? std::string_view{} : record.view()});
}

void AcDbDatabase::setRecordText(ObjectRecord& record, std::string_view text)
{
    noteChange(record);
    auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::memcpy(copy.get(), text.data(), text.size());
    if (record.has(ObjectRecord::kOwnText))
        const std::unique_ptr<const char[]> earlier{record.text};
    record.text = copy.release();
    record.length = static_cast<uint32_t>(text.size());
    record.set(ObjectRecord::kOwnText, true);
}

void AcDbDatabase::listen(UndoStep* step)
{
    if (step != nullptr && m_step != nullptr)
        throw std::logic_error("two steps listen to one drawing");
    m_step = step;
}

void AcDbDatabase::forgetResident(ObjectRecord& record)
{
    const std::unique_ptr<AcDbObject> gone{std::exchange(record.resident, nullptr)};
}

void AcDbDatabase::setFileText(ObjectRecord& record, std::string_view text)
{
    noteChange(record);
    if (record.has(ObjectRecord::kOwnText))
        const std::unique_ptr<const char[]> earlier{record.text};
    record.text = text.data();
    record.length = static_cast<uint32_t>(text.size());
    record.set(ObjectRecord::kOwnText, false);
}

/// Without what belongs to it.
void AcDbDatabase::setOnlyErased(ObjectRecord& record, bool erased)
{
    noteChange(record);
    record.set(ObjectRecord::kErased, erased);
}

void AcDbDatabase::setErased(ObjectRecord& record, bool erased)
{
    setOnlyErased(record, erased);
    for (size_t next = record.order + 1; next < m_store.records.size(); ++next)
    {
        ObjectRecord& part = m_store.records[next];
        if (!part.has(ObjectRecord::kSubEntity) || record.has(ObjectRecord::kSubEntity))
            break;
        setOnlyErased(part, erased);
    }
}

bool AcDbDatabase::isEnd(const ObjectRecord& record) const
{
    return &record == m_store.containers[record.container].tail || dxfNameOf(record) == "SEQEND";
}

bool AcDbDatabase::isModified() const
{
    return std::any_of(m_changes.begin(), m_changes.end(),
                       [](const Change& change)
                       {
                           const ObjectRecord& record = *change.record;
                           return record.has(ObjectRecord::kAdded) != record.has(ObjectRecord::kErased) ||
                                  (!record.has(ObjectRecord::kAdded) && record.has(ObjectRecord::kOwnText));
                       }) ||
           !m_header->edits().empty();
}

/// The entity that a sub-entity belongs to. Asked for one part after the other, it looks back one step at a time.
const ObjectRecord& AcDbDatabase::headOf(const ObjectRecord& part)
{
    size_t at = part.order;
    while (at > 0 && m_store.records[at].has(ObjectRecord::kSubEntity) && at != m_lastPart)
        --at;
    if (at != m_lastPart)
        m_lastHead = static_cast<uint32_t>(at);
    m_lastPart = part.order;
    return m_store.records[m_lastHead];
}

const AcRxClass* AcDbDatabase::classOf(const ObjectRecord& record)
{
    if (record.resident != nullptr)
        return record.resident->isA();
    const Container& container = m_store.containers[record.container];
    if (&record == container.head)
    {
        const AcRxClass* table = container.kind == Container::kTable ? ClassRegistry::ofTable(container.name) : nullptr;
        return table != nullptr ? table : AcDbObject::desc();
    }
    if (record.kind >= m_classes.size())
        m_classes.resize(m_store.kinds.size(), nullptr);
    const HostClass*& known = m_classes[record.kind];
    if (known == nullptr)
        known = ClassRegistry::ofDxfName(m_store.kinds[record.kind]);
    if (known == nullptr && hasLayer(container))
        known = ClassRegistry::plainEntity();
    if (known == nullptr)
        return AcDbObject::desc();
    return known->narrowed != nullptr ? known->narrowed(record, headOf(record)) : known->kind;
}

std::string_view AcDbDatabase::dxfNameOf(const ObjectRecord& record) const
{
    return m_store.kinds[record.kind];
}

std::unique_ptr<AcDbObject> AcDbDatabase::load(ObjectRecord& record)
{
    std::unique_ptr<AcDbObject> object = ClassRegistry::make(classOf(record));
    object->m_record = &record;
    object->m_fresh = false;
    const auto decoded = [&]
    {
        TagReader pairs{record.view()};
        object->decode(pairs);
        return !object->m_damaged;
    };
    return host::readOf(record, decoded) ? std::move(object) : nullptr;
}

std::u16string nameOfRecord(const ObjectRecord& record)
{
    return record.database->encoding().decode(spellingOf(record));
}

std::vector<ObjectRecord*> subEntitiesOf(const ObjectRecord& record)
{
    std::vector<ObjectRecord*> parts;
    RecordPool& pool = record.database->store().records;
    for (size_t next = size_t{record.order} + 1; next < pool.size(); ++next)
    {
        ObjectRecord& part = pool[next];
        if (!part.has(ObjectRecord::kSubEntity) || part.container != record.container)
            break;
        if (!part.has(ObjectRecord::kErased))
            parts.push_back(&part);
    }
    return parts;
}
