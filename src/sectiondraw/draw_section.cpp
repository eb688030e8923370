#include "sectiondraw/draw_section.h"

#include "dbkit/symbol_tables.h"
#include "host/text.h"
#include "sectiondraw/ground_point.h"
#include "sectiondraw/placing.h"
#include "sections/records.h"
#include "util/document_lock.h"

#include <array>
#include <cmath>

namespace
{

/// Whether a row with a symbol file gets a block.
bool wantsBlock(const std::u16string& file, const OptionStyle& look)
{
    return look.on && !file.empty();
}

/// The code that the labels of a survey point are marked with; null for all but two.
const std::u16string* markOf(const std::u16string& code)
{
    return equalNoCase(code, u"DC1") || equalNoCase(code, u"DC2") ? &code : nullptr;
}

using Crossings = std::array<std::optional<AcGePoint3d>, 2>;

Crossings groundAtCrossings(const BlockData& row, const CrossSectionXdata& section)
{
    Crossings points;
    points[0] = FindGroundPoint(section, row.m_dOffset1);
    if (std::fabs(row.m_dOffset2) > 0.0)
        points[1] = FindGroundPoint(section, row.m_dOffset2);
    return points;
}

void ensureFcodeLayers(const DrawStyle& style)
{
    EnsureLayer(style.fcodeBlock.layer);
    EnsureLayer(style.fcodeLabel.layer);
}

} // namespace

void DrawCrossSection(CrossSectionXdata& section, DrawingRun& run)
{
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
            PlaceSymbolRow(row, section, run);
    for (const BlockFcode& row : section.m_listBlockFcode1)
        PlaceFcodeRow(row, section, run);
    for (const BlockFcode& row : section.m_listBlockFcode2)
        PlaceFcodeBlockRow(row, section, run);
}

void PlaceSymbolRow(const BlockData& row, CrossSectionXdata& section, DrawingRun& run)
{
    if (row.m_strName.empty() && row.m_strFile.empty())
        return;
    const OpenForWrite lock;
    if (!HasGroundLine(section))
        return;
    const OptionStyle& blockLook = run.style.symbolBlock;
    EnsureLayer(blockLook.layer);
    const Crossings crossings = groundAtCrossings(row, section);

    if (wantsBlock(row.m_strFile, blockLook))
    {
        const auto block = run.blocks.load(row.m_strFile);
        if (!block)
            return;
        for (const auto& point : crossings)
            if (point)
                PlaceBlock(*point, *block, row, blockLook, section);
    }
    if (!run.style.symbolLabel.on)
        return;
    for (const auto& point : crossings)
        if (point)
            PlaceLabel(*point, {row.m_strName}, run.style.symbolLabel, section, run);
}

void PlaceFcodeRow(const BlockFcode& row, CrossSectionXdata& section, DrawingRun& run)
{
    if (row.m_strFcode.empty() && row.m_strFile.empty())
        return;
    const OpenForWrite lock;
    if (!HasGroundLine(section))
        return;
    ensureFcodeLayers(run.style);
    const auto point = FindGroundPoint(section, row.m_dOffset);
    if (!point)
        return;

    if (wantsBlock(row.m_strFile, run.style.fcodeBlock))
    {
        const auto block = run.blocks.load(row.m_strFile);
        if (!block)
            return;
        PlaceBlock(*point, *block, row, run.style.fcodeBlock, section);
    }
    if (run.style.fcodeLabel.on && !row.m_strFcode.empty())
        PlaceLabel(*point, {row.m_strFcode, markOf(row.m_strFcode)}, run.style.fcodeLabel, section, run);
}

void PlaceFcodeBlockRow(const BlockFcode& row, CrossSectionXdata& section, DrawingRun& run)
{
    if (row.m_strFcode.empty() && row.m_strFile.empty())
        return;
    const OpenForWrite lock;
    ensureFcodeLayers(run.style);
    if (!wantsBlock(row.m_strFile, run.style.fcodeBlock))
        return;
    if (const auto block = run.blocks.load(row.m_strFile))
        PlaceBlock(row.m_ptPosition, *block, row, run.style.fcodeBlock, section);
}
