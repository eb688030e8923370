#include "host/db/database.h"
#include "store/block_index.h"
#include "store/table_index.h"
#include "store/tags.h"

namespace
{

/// The pairs every record or entity begins with.
void begin(TagWriter& out, const char* type, const ObjectRecord& record, uint64_t owner, const char* marker)
{
    out.text(0, type);
    out.handle(5, record.handle);
    out.handle(330, owner);
    out.text(100, marker);
}

} // namespace

ObjectRecord* AcDbDatabase::addBlock(const std::u16string& name, const AcGePoint3d& origin)
{
    const uint32_t table = m_tables->container("BLOCK_RECORD");
    if (table == TableIndex::npos)
        return nullptr;
    const std::string encoded = encoding().encode(name);
    ObjectRecord& record = addRecord(table, "BLOCK_RECORD");
    TagWriter out;
    begin(out, "BLOCK_RECORD", record, m_store.containers[table].head->handle, "AcDbSymbolTableRecord");
    out.text(100, "AcDbBlockTableRecord");
    out.text(2, encoded);
    out.handle(340, 0);
    setRecordText(record, out.view());

    const auto index = static_cast<uint32_t>(m_store.containers.size());
    Container& container = m_store.containers.emplace_back();
    container.kind = Container::kBlock;
    container.name = encoded;
    container.first = container.last = m_store.records.size();

    ObjectRecord& head = makeRecord(index, "BLOCK");
    out.clear();
    begin(out, "BLOCK", head, record.handle, "AcDbEntity");
    out.text(8, "0");
    out.text(100, "AcDbBlockBegin");
    out.text(2, encoded);
    out.integer(70, 0);
    out.point(10, origin);
    out.text(3, encoded);
    out.text(1, "");
    setRecordText(head, out.view());

    ObjectRecord& tail = makeRecord(index, "ENDBLK");
    out.clear();
    begin(out, "ENDBLK", tail, record.handle, "AcDbEntity");
    out.text(8, "0");
    out.text(100, "AcDbBlockEnd");
    setRecordText(tail, out.view());

    m_store.containers[index].head = &head;
    m_store.containers[index].tail = &tail;
    m_tables->add("BLOCK_RECORD", name, record);
    m_blocks->add(name, record, index);
    return &record;
}
