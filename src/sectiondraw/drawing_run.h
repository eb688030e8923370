#pragma once

#include "sectiondraw/draw_style.h"
#include "sectiondraw/font_text.h"
#include "util/document_lock.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

/// The blocks of the symbol files that a run has asked for: each file is read at most once a run.
class SymbolBlocks
{
public:
    /// The block of a symbol file; nothing when it cannot be read or inserted.
    std::optional<AcDbObjectId> load(const std::u16string& file);

private:
    std::unordered_map<std::u16string, std::optional<AcDbObjectId>> m_blocks;
};

/// What the sections drawn at one go share. The document is locked while it lives.
struct DrawingRun
{
    explicit DrawingRun(DrawStyle drawStyle) : style(std::move(drawStyle)) {}

    /// Sees to the layer of a style, once a run.
    void ensureLayer(const OptionStyle& option);

    const OpenForWrite lock;
    const DrawStyle style;
    FontText fontText;
    SymbolBlocks blocks;

private:
    std::unordered_set<std::u16string> m_layers; ///< those that were seen to
};
