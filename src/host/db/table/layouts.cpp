#include "host/db/table/layouts.h"

#include "host/db/database.h"
#include "store/block_index.h"
#include "store/handle_table.h"
#include "store/table_index.h"
#include "store/tags.h"

#include <algorithm>

namespace
{

constexpr std::u16string_view kModelSpace = u"*Model_Space";
constexpr std::u16string_view kPaperSpace = u"*Paper_Space";
constexpr int kLayoutOfBlock = 340;

struct Sheet
{
    DrawingSpace space;
    int64_t tab = 0;
};

/// Name and tab from a LAYOUT object's own pairs, which stand behind its own marker: plot settings stand before it.
void readLayout(const AcDbDatabase& database, const ObjectRecord& layout, Sheet& sheet)
{
    bool isOwn = false;
    bool isNamed = false;
    TagReader pairs{layout.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 100)
            isOwn = tag.word() == "AcDbLayout";
        else if (isOwn && tag.code == 1 && !isNamed)
        {
            isNamed = true;
            const std::u16string name = database.encoding().decode(tag.value);
            sheet.space.name = name.empty() ? sheet.space.name : name;
        }
        else if (isOwn && tag.code == 71)
            sheet.tab = tag.integerOr(0);
}

Sheet sheetOf(AcDbDatabase& database, ObjectRecord& block)
{
    Sheet sheet{{nameOfRecord(block), &block}};
    TagReader pairs{block.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == kLayoutOfBlock)
            if (const ObjectRecord* layout = database.handles().find(tag.handle()))
                readLayout(database, *layout, sheet);
    return sheet;
}

} // namespace

std::vector<DrawingSpace> spacesOf(AcDbDatabase& database)
{
    ObjectRecord* model = database.blocks().record(kModelSpace);
    std::vector<DrawingSpace> spaces{model != nullptr ? sheetOf(database, *model).space
                                                      : DrawingSpace{std::u16string{kModelSpace}, nullptr}};
    std::vector<Sheet> sheets;
    for (const AcDbObjectId id : database.tables().live("BLOCK_RECORD"))
        if (equalNoCase(nameOfRecord(*id.record()).substr(0, kPaperSpace.size()), kPaperSpace))
            sheets.push_back(sheetOf(database, *id.record()));
    std::stable_sort(sheets.begin(), sheets.end(), [](const Sheet& a, const Sheet& b) { return a.tab < b.tab; });
    for (const Sheet& sheet : sheets)
        spaces.push_back(sheet.space);
    return spaces;
}
