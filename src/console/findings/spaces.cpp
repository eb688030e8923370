#include "console/findings/spaces.h"

#include "host/db/database.h"
#include "store/block_index.h"
#include "store/handle_table.h"
#include "store/table_index.h"
#include "store/tags.h"

namespace console
{

namespace
{

constexpr std::u16string_view kModelSpace = u"*Model_Space";
constexpr std::u16string_view kPaperSpace = u"*Paper_Space";
constexpr int kLayoutOfBlock = 340;

/// The name of a LAYOUT object: the first text behind its own marker, plot settings stand before it.
std::u16string nameOfLayout(const AcDbDatabase& database, const ObjectRecord& layout)
{
    bool own = false;
    TagReader pairs{layout.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 100)
            own = tag.word() == "AcDbLayout";
        else if (own && tag.code == 1)
            return database.encoding().decode(tag.value);
    return {};
}

std::string layoutOf(AcDbDatabase& database, const ObjectRecord& block)
{
    TagReader pairs{block.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == kLayoutOfBlock)
            if (const ObjectRecord* layout = database.handles().find(tag.handle()))
                if (const std::u16string name = nameOfLayout(database, *layout); !name.empty())
                    return toUtf8(name);
    return toUtf8(nameOfRecord(block));
}

} // namespace

std::vector<DrawingSpace> spacesOf(AcDbDatabase& database)
{
    std::vector<DrawingSpace> spaces;
    const auto add = [&](const ObjectRecord& block) {
        spaces.push_back({toUtf8(nameOfRecord(block)), layoutOf(database, block), database.blocks().entities(block)});
    };
    if (const ObjectRecord* model = database.blocks().record(kModelSpace))
        add(*model);
    else
        spaces.push_back({toUtf8(kModelSpace), toUtf8(kModelSpace), {}});
    for (const AcDbObjectId id : database.tables().live("BLOCK_RECORD"))
        if (equalNoCase(nameOfRecord(*id.record()).substr(0, kPaperSpace.size()), kPaperSpace))
            add(*id.record());
    return spaces;
}

std::string shownLayout(AcDbDatabase& database)
{
    if (database.tilemode())
        return {};
    const ObjectRecord* shown = database.blocks().record(kPaperSpace);
    return shown == nullptr ? toUtf8(kPaperSpace) : layoutOf(database, *shown);
}

} // namespace console
