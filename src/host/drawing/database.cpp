#include "host/drawing/database.h"

#include "host/app/ledger.h"
#include "host/app/session.h"
#include "host/drawing/block_index.h"
#include "host/drawing/classes.h"
#include "host/drawing/damage.h"
#include "host/drawing/dictionary.h"
#include "host/drawing/handle_table.h"
#include "host/drawing/header_variables.h"
#include "host/drawing/polyline.h"
#include "host/drawing/resident_cache.h"
#include "host/drawing/symbol_tables.h"
#include "host/drawing/table_index.h"
#include "host/drawing/undo_step.h"
#include "store/numbers.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace
{

struct TableName
{
    const AcRxClass* kind;
    std::string_view name; ///< of the TABLE in drawing files
};

const std::array<TableName, 9>& tableNames()
{
    static const std::array<TableName, 9> names = {{
        {AcDbTextStyleTable::desc(), "STYLE"},
        {AcDbLayerTable::desc(), "LAYER"},
        {AcDbLinetypeTable::desc(), "LTYPE"},
        {AcDbDimStyleTable::desc(), "DIMSTYLE"},
        {AcDbViewTable::desc(), "VIEW"},
        {AcDbUCSTable::desc(), "UCS"},
        {AcDbViewportTable::desc(), "VPORT"},
        {AcDbBlockTable::desc(), "BLOCK_RECORD"},
        {AcDbRegAppTable::desc(), "APPID"},
    }};
    return names;
}

const AcRxClass* tableClass(std::string_view name)
{
    for (const TableName& entry : tableNames())
        if (entry.name == name)
            return entry.kind;
    return AcDbSymbolTable::desc();
}

bool hasLayer(const Container& container)
{
    return container.kind == Container::kEntities || container.kind == Container::kBlock;
}

} // namespace

AcDbDatabase::AcDbDatabase(bool, bool)
    : m_header{std::make_unique<HeaderVariables>(std::string_view{})}, m_blocks{std::make_unique<BlockIndex>(*this)},
      m_tables{std::make_unique<TableIndex>(*this)},
      m_residents{std::make_unique<ResidentCache>()}, m_handles{std::make_unique<HandleTable>(m_store.records)}
{
    m_store.encoding = makeTextEncoding(1032, {});
}

AcDbDatabase::~AcDbDatabase()
{
    if (host::Session::hasCurrent())
        host::Session::current().damage().forget(*this);
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
    host::Session& session = host::Session::current();
    m_symbolPath = path;
    try
    {
        const std::optional<std::string> file = session.symbolSearch().find(path);
        if (!file)
            throw std::runtime_error{session.symbolSearch().whyMissing(path)};
        adopt(session.reader().read(*file, DrawingReader::Purpose::Symbol));
        return Acad::eOk;
    }
    catch (const std::exception& error)
    {
        session.unreadableFiles().push_back({path, error.what()});
        return Acad::eFilerError;
    }
}

AcDbObjectId AcDbDatabase::tableId(const AcRxClass* tableClass)
{
    for (const TableName& entry : tableNames())
        if (entry.kind == tableClass)
            return AcDbObjectId{m_tables->table(entry.name)};
    return {};
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    dictionary = nullptr;
    // The named-object dictionary is the first object of the OBJECTS section.
    for (const Container& container : m_store.containers)
        if (container.kind == Container::kObjects && container.first < container.last)
            return acdbOpenObject(dictionary, AcDbObjectId{&m_store.records[container.first]}, mode);
    return Acad::eKeyNotFound;
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
    ++m_changeCount;
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
    if (record.kind >= m_classes.size())
        m_classes.resize(m_store.kinds.size(), nullptr);
    const AcRxClass*& known = m_classes[record.kind];
    const Container& container = m_store.containers[record.container];
    if (&record == container.head)
        return container.kind == Container::kTable ? tableClass(container.name) : AcDbObject::desc();
    if (known == nullptr)
        known = classOfDxfName(m_store.kinds[record.kind], hasLayer(container));
    if (known == AcDbVertexPolyline::desc())
        return classOfPolyline(record);
    return known == AcDbVertex::desc() ? classOfVertex(record, headOf(record)) : known;
}

std::string_view AcDbDatabase::dxfNameOf(const ObjectRecord& record) const
{
    return m_store.kinds[record.kind];
}

std::unique_ptr<AcDbObject> AcDbDatabase::load(ObjectRecord& record)
{
    std::unique_ptr<AcDbObject> object = makeObject(classOf(record));
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

bool AcDbDatabase::isOnLockedLayer(const ObjectRecord& record)
{
    if (!hasLayer(m_store.containers[record.container]))
        return false;
    TagReader pairs{record.view()};
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code != 8)
            continue;
        const ObjectRecord* layer = m_tables->find("LAYER", encoding().decode(tag.word()));
        if (layer == nullptr)
            return false;
        const AcDbObjectPointer<AcDbLayerTableRecord> opened{AcDbObjectId{const_cast<ObjectRecord*>(layer)}};
        return opened && opened->isLocked();
    }
    return false;
}

Acad::ErrorStatus AcDbDatabase::refuseWrite(const ObjectRecord& record)
{
    const AcDbObjectId id{const_cast<ObjectRecord*>(&record)};
    if (host::Session::hasCurrent() && host::Session::current().faults().refuseOpenForWrite(id))
        return Acad::eLockViolation;
    if (!host::writeAllowed(this))
        ledger().faults.push_back("a drawing was changed outside its document's lock");
    return isOnLockedLayer(record) ? Acad::eOnLockedLayer : Acad::eOk;
}
