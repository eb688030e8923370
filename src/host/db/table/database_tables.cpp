#include "host/db/class_registry.h"
#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/db/ledger.h"
#include "host/db/table/dictionary.h"
#include "host/db/table/symbol_tables.h"
#include "store/table_index.h"

// What a database answers from its tables.

namespace
{

bool hasLayer(const Container& container)
{
    return container.kind == Container::kEntities || container.kind == Container::kBlock;
}

} // namespace

AcDbObjectId AcDbDatabase::tableId(const AcRxClass* tableClass)
{
    const std::string_view table = ClassRegistry::tableOf(tableClass);
    return !table.empty() ? AcDbObjectId{m_tables->table(table)} : AcDbObjectId{};
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
    AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    if (services.refusesOpenForWrite(id))
        return Acad::eLockViolation;
    if (!services.isWriteAllowed(this))
        ledger().faults.push_back("a drawing was changed outside its document's lock");
    return isOnLockedLayer(record) ? Acad::eOnLockedLayer : Acad::eOk;
}

bool acdbRegApp(const char16_t* name)
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr)
        return false;
    if (database->tables().find("APPID", name) != nullptr)
        return true;
    AcDbRegAppTable* table = nullptr;
    if (database->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk)
        return false;
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    record->setName(name);
    const bool added = table->add(record.get()) == Acad::eOk;
    if (added)
        record.release()->close();
    table->close();
    return added;
}
