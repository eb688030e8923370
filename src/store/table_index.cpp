#include "store/table_index.h"

#include "store/tags.h"

#include <algorithm>

std::string_view spellingOf(const ObjectRecord& record)
{
    TagReader reader{record.view()};
    Tag tag;
    while (reader.next(tag))
        if (tag.code == 2)
            return tag.word();
    return {};
}

std::u16string TableIndex::nameOf(const ObjectRecord& record) const
{
    return m_drawing.encoding->decode(spellingOf(record));
}

TableIndex::Table& TableIndex::load(std::string_view name)
{
    for (Table& table : m_tables)
        if (table.name == name)
            return table;
    Table& table = m_tables.emplace_back();
    table.name = name;
    read(table);
    return table;
}

void TableIndex::read(Table& table)
{
    for (uint32_t i = 0; i < m_drawing.containers.size(); ++i)
    {
        const Container& container = m_drawing.containers[i];
        if (container.kind != Container::kTable || container.name != table.name)
            continue;
        table.container = i;
        for (size_t order = container.first; order < container.last; ++order)
            table.records.push_back(&m_drawing.records[order]);
        table.records.insert(table.records.end(), container.added.begin(), container.added.end());
        break;
    }
    for (ObjectRecord* record : table.records)
        table.byName.add(nameOf(*record), record);
}

ObjectRecord* TableIndex::table(std::string_view name)
{
    const Table& table = load(name);
    return table.container != npos ? m_drawing.containers[table.container].head : nullptr;
}

uint32_t TableIndex::container(std::string_view table)
{
    return load(table).container;
}

ObjectRecord* TableIndex::find(std::string_view tableName, std::u16string_view name, bool erasedToo)
{
    const Table& table = load(tableName);
    ObjectRecord* const* found = table.byName.find(name);
    return found != nullptr && (erasedToo || !(*found)->has(ObjectRecord::kErased)) ? *found : nullptr;
}

std::string TableIndex::spelling(std::string_view table, std::u16string_view name)
{
    const ObjectRecord* record = find(table, name);
    const std::string_view own = record != nullptr ? spellingOf(*record) : std::string_view{};
    return own.empty() ? m_drawing.encoding->encode(name) : std::string{own};
}

AcDbObjectIdArray TableIndex::live(std::string_view tableName)
{
    AcDbObjectIdArray ids;
    for (ObjectRecord* record : load(tableName).records)
        if (!record->has(ObjectRecord::kErased))
            ids.emplace_back(record);
    return ids;
}

void TableIndex::add(std::string_view tableName, const std::u16string& name, ObjectRecord& record)
{
    Table& table = load(tableName);
    if (std::find(table.records.begin(), table.records.end(), &record) == table.records.end())
        table.records.push_back(&record);
    table.byName.replace(name, &record);
}
