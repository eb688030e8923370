#include "host/db/table/new_block.h"

#include "store/block_index.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

namespace
{

constexpr int kR2007 = 1021;

uint32_t blocksSection(const DrawingStore& store)
{
    for (uint32_t i = 0; i < store.containers.size(); ++i)
        if (store.containers[i].kind == Container::kBlocks)
            return i;
    return BlockIndex::npos;
}

/// A record of the head or the end of a block, which stands beside the block's entities, not among them.
ObjectRecord& addFrame(AcDbDatabase& drawing, uint32_t section, uint32_t block, std::string_view kind)
{
    ObjectRecord& record = drawing.addRecord(section, kind);
    drawing.store().containers[section].added.pop_back();
    record.container = block;
    return record;
}

void startFrame(TagWriter& out, std::string_view kind, const ObjectRecord& frame, const ObjectRecord& owner)
{
    out.text(0, kind);
    out.handle(5, frame.handle);
    out.handle(330, owner.handle);
    out.text(100, "AcDbEntity");
    out.text(8, "0");
}

} // namespace

bool hasBlocksSection(const DrawingStore& store)
{
    return blocksSection(store) != BlockIndex::npos;
}

uint32_t addBlockContents(AcDbDatabase& drawing, const std::u16string& name, ObjectRecord& blockRecord,
                          const AcGePoint3d& basePoint)
{
    const std::string encoded = drawing.encoding().encode(name);
    const uint32_t section = blocksSection(drawing.store());
    if (section == BlockIndex::npos)
        return BlockIndex::npos;
    const auto index = static_cast<uint32_t>(drawing.store().containers.size());
    drawing.store().containers.emplace_back();
    ObjectRecord& head = addFrame(drawing, section, index, "BLOCK");
    ObjectRecord& tail = addFrame(drawing, section, index, "ENDBLK");
    Container& block = drawing.store().containers[index];
    block.kind = Container::kBlock;
    block.name = encoded;
    block.head = &head;
    block.tail = &tail;

    TagWriter out;
    startFrame(out, "BLOCK", head, blockRecord);
    out.text(100, "AcDbBlockBegin");
    out.text(2, encoded);
    out.integer(70, encoded.starts_with('*') ? 1 : 0);
    out.point(10, basePoint);
    out.text(3, encoded);
    out.text(1, {});
    drawing.setRecordText(head, out.view());
    out.clear();
    startFrame(out, "ENDBLK", tail, blockRecord);
    out.text(100, "AcDbBlockEnd");
    drawing.setRecordText(tail, out.view());
    drawing.blocks().add(name, blockRecord, index);
    return index;
}

void encodeBlockRecord(TagWriter& out, const AcDbDatabase& drawing, const std::u16string& name)
{
    out.text(100, "AcDbSymbolTableRecord");
    out.text(100, "AcDbBlockTableRecord");
    out.text(2, drawing.encoding().encode(name));
    out.handle(340, 0);
    if (drawing.version() >= kR2007)
    {
        out.integer(70, 0);
        out.integer(280, 1);
        out.integer(281, 0);
    }
}

uint64_t plotStyleOfLayers(AcDbDatabase& drawing)
{
    const ObjectRecord* layer = drawing.tables().find("LAYER", u"0");
    if (layer == nullptr)
        return 0;
    OwnPairs pairs{layer->view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 390)
            return tag.handle();
    return 0;
}
