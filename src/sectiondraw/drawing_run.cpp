#include "sectiondraw/drawing_run.h"

#include "dbkit/symbol_block.h"
#include "dbkit/symbol_tables.h"

std::optional<AcDbObjectId> SymbolBlocks::load(const std::u16string& file)
{
    const auto [entry, isNew] = m_blocks.try_emplace(file);
    if (isNew)
        entry->second = LoadSymbolBlock(file);
    else if (!entry->second) // a file of the same name elsewhere may have become the block since
        if (const AcDbObjectId id = GetSymbolId(SymbolBlockName(file), SymbolTable::kBlocks); !id.isNull())
            entry->second = id;
    return entry->second;
}

void DrawingRun::ensureLayer(const OptionStyle& option)
{
    if (option.makesLayer && m_layers.insert(option.layer).second)
        EnsureLayer(option.layer);
}
