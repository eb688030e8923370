#include "sectiondraw/drawing_run.h"

#include "dbkit/symbol_block.h"

std::optional<AcDbObjectId> SymbolBlocks::load(const std::u16string& file)
{
    const auto [entry, isNew] = m_blocks.try_emplace(file);
    if (isNew)
        entry->second = LoadSymbolBlock(file);
    return entry->second;
}
