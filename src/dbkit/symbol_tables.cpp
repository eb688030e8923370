#include "dbkit/symbol_tables.h"

#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/db/table/symbol_tables.h"
#include "host/ui/controls.h"
#include "util/document_lock.h"
#include "util/folders.h"

namespace
{

constexpr const char16_t* kFontFile = u"\\Vnsimple.shx";
constexpr const char16_t* kLayerLinetype = u"CONTINUOUS";

AcDbDatabase* drawing()
{
    return acdbHostApplicationServices()->workingDatabase();
}

const AcRxClass* tableClass(SymbolTable kind)
{
    switch (kind)
    {
    case SymbolTable::kTextStyles:
        return AcDbTextStyleTable::desc();
    case SymbolTable::kLayers:
        return AcDbLayerTable::desc();
    case SymbolTable::kLinetypes:
        return AcDbLinetypeTable::desc();
    case SymbolTable::kDimStyles:
        return AcDbDimStyleTable::desc();
    case SymbolTable::kViews:
        return AcDbViewTable::desc();
    case SymbolTable::kUcs:
        return AcDbUCSTable::desc();
    case SymbolTable::kViewports:
        return AcDbViewportTable::desc();
    case SymbolTable::kBlocks:
        return AcDbBlockTable::desc();
    }
    return nullptr;
}

AcDbObjectId tableId(SymbolTable kind, AcDbDatabase* database)
{
    const AcRxClass* wanted = tableClass(kind);
    AcDbDatabase* const asked = database != nullptr ? database : drawing();
    return wanted != nullptr && asked != nullptr ? asked->tableId(wanted) : AcDbObjectId::kNull;
}

/// The id of a record, erased ones included when asked for.
AcDbObjectId findRecord(const std::u16string& name, SymbolTable kind, AcDbDatabase* database, bool erasedToo)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId(kind, database));
    if (table)
        table->getIdAt(name, id, erasedToo);
    return id;
}

std::unique_ptr<AcDbSymbolTableIterator> recordsOf(SymbolTable kind, AcDbDatabase* database)
{
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId(kind, database));
    return table ? table->newIterator() : nullptr;
}

/// Hands a new record to a table of the drawing and closes it; one that the table refuses is gone.
void addRecord(SymbolTable kind, std::unique_ptr<AcDbSymbolTableRecord> record)
{
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId(kind, nullptr), AcDb::kForWrite);
    if (table && table->add(record.get()) == Acad::eOk)
        record.release()->close();
}

} // namespace

AcDbObjectId GetSymbolId(const std::u16string& name, SymbolTable kind, AcDbDatabase* database)
{
    return findRecord(name, kind, database, false);
}

int ListSymbolNames(std::vector<std::u16string>& names, SymbolTable kind, AcDbDatabase* database)
{
    const auto records = recordsOf(kind, database);
    if (!records)
        return 0;
    int count = 0;
    for (records->start(); !records->done(); records->step())
    {
        const AcDbObjectPointer<AcDbSymbolTableRecord> record(records->getRecordId());
        if (!record)
            continue;
        names.push_back(record->getName());
        ++count;
    }
    return count;
}

AcDbObjectIdArray FillSymbolCombo(CComboBox& combo, SymbolTable kind, AcDbObjectId selected)
{
    std::vector<std::u16string> names;
    ListSymbolNames(names, kind);
    AcDbObjectIdArray ids;
    for (const std::u16string& name : names)
    {
        ids.push_back(GetSymbolId(name, kind));
        const int item = combo.AddString(name);
        if (!selected.isNull() && ids.back() == selected)
            combo.SetCurSel(item);
    }
    return ids;
}

void EnsureLayer(const std::u16string& name)
{
    if (name.empty() || !GetSymbolId(name, SymbolTable::kLayers).isNull())
        return;
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(name);
    layer->setLinetypeObjectId(GetSymbolId(kLayerLinetype, SymbolTable::kLinetypes));
    addRecord(SymbolTable::kLayers, std::move(layer));
}

void EnsureTextStyle(const std::u16string& name)
{
    const OpenForWrite lock;
    if (!GetSymbolId(name, SymbolTable::kTextStyles).isNull())
        return;
    auto style = std::make_unique<AcDbTextStyleTableRecord>();
    style->setName(name);
    style->setFileName(ModuleFolder + kFontFile);
    style->setTextSize(0.0);
    addRecord(SymbolTable::kTextStyles, std::move(style));
}

void ListLayerNames(std::vector<std::u16string>& names)
{
    const OpenForWrite lock;
    ListSymbolNames(names, SymbolTable::kLayers);
}

std::u16string CurrentLayerName()
{
    const OpenForWrite lock;
    if (drawing() == nullptr)
        return {};
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(drawing()->clayer());
    return layer ? layer->getName() : std::u16string{};
}

AcDbObjectId GetTextStyleId(const std::u16string& name)
{
    return findRecord(name, SymbolTable::kTextStyles, nullptr, true);
}
