#pragma once

#include "sectiondraw/draw_style.h"
#include "sectiondraw/font_text.h"

#include <optional>
#include <string>
#include <unordered_map>

/// The blocks of the symbol files that a run has asked for: each file is read at most once a run.
class SymbolBlocks
{
public:
    /// The block of a symbol file; nothing when it cannot be read or inserted.
    std::optional<AcDbObjectId> load(const std::u16string& file);

private:
    std::unordered_map<std::u16string, std::optional<AcDbObjectId>> m_blocks;
};

/// What the sections drawn at one go share.
struct DrawingRun
{
    explicit DrawingRun(DrawStyle drawStyle) : style(std::move(drawStyle)) {}

    DrawStyle style;
    FontText fontText;
    SymbolBlocks blocks;
};
