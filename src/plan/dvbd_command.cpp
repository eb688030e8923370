#include "plan/dvbd_command.h"

#include "dbkit/placing.h"
#include "dbkit/symbol_block.h"
#include "dbkit/symbol_tables.h"
#include "plan/dlg_draw_fcode.h"
#include "plan/plan_symbols.h"
#include "plan/survey.h"
#include "util/document_lock.h"

#include <algorithm>
#include <optional>

namespace
{

void eraseSymbols()
{
    for (const AcDbObjectId id : CollectPlanSymbols())
    {
        const AcDbObjectPointer<AcDbEntity> symbol(id, AcDb::kForWrite, true);
        if (symbol)
            symbol->erase();
    }
}

void placeSymbol(const AcGePoint3d& point, AcDbObjectId block, const SymbolLook& look)
{
    auto symbol = MakeSymbol(point, block, look);
    symbol->setLayer(kPlanLayer);
    AcDbObjectId id;
    AppendToSpace(std::move(symbol), id);
}

void placeSymbols(const std::vector<CodedPoint>& points, const DlgDrawFCode& table, const VertexIndex& vertices)
{
    std::vector<AcDbObjectId> blocks(table.codes.size());
    for (const CodedPoint& point : points)
    {
        const std::u16string& file = table.files[point.code];
        if (file.empty() || (table.atVertex[point.code] == 1 && !vertices.has(point.position)))
            continue;
        AcDbObjectId& block = blocks[point.code];
        if (block.isNull())
        {
            const auto loaded = LoadSymbolBlock(file);
            if (!loaded)
                return;
            block = *loaded;
        }
        placeSymbol(point.position, block, table.lookOf(point.code));
    }
}

} // namespace

void DvbdCommand()
{
    const OpenForWrite lock;
    EnsureTextStyle(kLabelTextStyle);
    EnsureLayer(kPlanLayer);
    eraseSymbols();
    const VertexIndex vertices = CollectSurveyVertices();
    CodedPoints found = CollectCodedPoints();

    DlgDrawFCode table;
    table.codes = std::move(found.codes);
    if (table.DoModal() == IDOK)
        placeSymbols(found.points, table, vertices);
}
