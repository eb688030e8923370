#include "host/db/table/symbol_tables.h"

#include "host/db/database.h"
#include "host/db/table/new_block.h"
#include "store/table_index.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, nullptr)

namespace
{

/// The table's name in drawing files.
const std::string& nameOf(const AcDbSymbolTable& table)
{
    const ObjectRecord& record = *table.objectId().record();
    return record.database->store().containers[record.container].name;
}

/// The kinds of records whose `encode` writes a whole record.
bool canBeMade(const AcDbSymbolTableRecord& record)
{
    return record.isKindOf(AcDbLayerTableRecord::desc()) || record.isKindOf(AcDbTextStyleTableRecord::desc()) ||
           record.isKindOf(AcDbRegAppTableRecord::desc()) || record.isKindOf(AcDbBlockTableRecord::desc());
}

} // namespace

bool isValidSymbolName(std::u16string_view name)
{
    constexpr size_t kLongest = 255;
    constexpr std::u16string_view kRefused = u"<>/\\\":;?*|,=`";
    return !name.empty() && name.size() <= kLongest &&
           std::none_of(name.begin(), name.end(),
                        [&](char16_t c) { return c < 0x20 || c == 0x7F || kRefused.find(c) != kRefused.npos; });
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const std::u16string& name, AcDbObjectId& id, bool getErased) const
{
    ObjectRecord* record = database()->tables().find(nameOf(*this), name, getErased);
    if (record == nullptr)
        return Acad::eKeyNotFound;
    id = AcDbObjectId{record};
    return Acad::eOk;
}

bool AcDbSymbolTable::has(const std::u16string& name) const
{
    return database()->tables().find(nameOf(*this), name) != nullptr;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record)
{
    if (record == nullptr)
        return Acad::eNullObjectPointer;
    if (!isWriteEnabled())
    {
        assertWriteEnabled();
        return Acad::eNotOpenForWrite;
    }
    if (!record->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (!isValidSymbolName(record->getName()))
        return Acad::eInvalidInput;
    if (!canBeMade(*record))
        return Acad::eNotImplementedYet;
    if (has(record->getName()))
        return Acad::eDuplicateRecordName;
    AcDbDatabase& drawing = *database();
    const std::string& table = nameOf(*this);
    ObjectRecord& taken = drawing.take(*record, objectId().record()->container, objectId().handle().value());
    if (isKindOf(AcDbBlockTable::desc()))
        addBlockContents(drawing, record->getName(), taken, {});
    drawing.tables().add(table, record->getName(), taken);
    id = record->objectId();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record)
{
    AcDbObjectId id;
    return add(id, record);
}

std::unique_ptr<AcDbSymbolTableIterator> AcDbSymbolTable::newIterator() const
{
    return std::make_unique<AcDbSymbolTableIterator>(database()->tables().live(nameOf(*this)));
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool)
{
    m_at = atBeginning || m_ids.empty() ? 0 : m_ids.size() - 1;
}

void AcDbSymbolTableIterator::step(bool forward, bool)
{
    if (forward)
        ++m_at;
    else
        m_at = m_at == 0 ? m_ids.size() : m_at - 1;
}
