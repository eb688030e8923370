#pragma once

#include "store/drawing_store.h"
#include "store/object_id.h"
#include "store/record.h"
#include "store/text/name_map.h"

#include <list>
#include <string>
#include <vector>

/// The drawing's tables of named records: records in table order and by name. Each table is read when first asked for.
/// A table is named as in drawing files: LAYER, STYLE, LTYPE, DIMSTYLE, VIEW, UCS, VPORT, BLOCK_RECORD, APPID.
class TableIndex
{
public:
    explicit TableIndex(DrawingStore& drawing) : m_drawing{drawing} {}

    /// The TABLE object itself; null when the drawing has no such table.
    ObjectRecord* table(std::string_view name);
    /// The record of a name; null when there is none, or when it is erased and not asked for.
    ObjectRecord* find(std::string_view table, std::u16string_view name, bool erasedToo = false);
    /// The bytes by which an object of the drawing names a record: those of the record itself. The name as the drawing
    /// writes it when there is no such record.
    std::string spelling(std::string_view table, std::u16string_view name);
    /// Live records in table order.
    AcDbObjectIdArray live(std::string_view table);
    /// Makes a record that was just added known by its name.
    void add(std::string_view table, const std::u16string& name, ObjectRecord& record);
    /// Index of the table's container; throws nothing, answers npos when there is none.
    uint32_t container(std::string_view table);

    static constexpr uint32_t npos = 0xFFFFFFFF;

private:
    struct Table
    {
        std::string name;
        uint32_t container = npos;
        std::vector<ObjectRecord*> records;
        NameMap<ObjectRecord*> byName;
    };

    Table& load(std::string_view name);
    void read(Table& table);
    std::u16string nameOf(const ObjectRecord& record) const;

    DrawingStore& m_drawing;
    std::list<Table> m_tables; ///< a handful: looked through, not hashed
};

/// The name (code 2) of a table record as the file spells it; empty before the record is written.
std::string_view spellingOf(const ObjectRecord& record);
