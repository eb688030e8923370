#include "sectiondraw/row_placement.h"

#include "host/text.h"
#include "sectiondraw/draw_style.h"
#include "sectiondraw/ground_line.h"
#include "sections/records.h"

#include <cmath>

namespace
{

/// The symbol of a row, unless it has none or they are not drawn.
const SymbolLook* drawnSymbol(const SymbolLook& row, const OptionStyle& style)
{
    return style.on && !row.m_strFile.empty() ? &row : nullptr;
}

/// Whether the labels of a survey point are marked.
bool isMarked(const std::u16string& code)
{
    return equalNoCase(code, u"DC1") || equalNoCase(code, u"DC2");
}

/// Gathers the placements of a section's rows.
class PlacementFinder
{
public:
    PlacementFinder(const CrossSectionXdata& section, const DrawStyle& style) : m_ground(section), m_style(style) {}

    /// A feature, at its one or two crossings.
    void addFeature(const BlockData& row)
    {
        if ((row.m_strName.empty() && row.m_strFile.empty()) || !m_ground.isReadable())
            return;
        RowPlacement& placed = add(m_style.symbolBlock, m_style.symbolLabel);
        placed.places[0] = m_ground.FindGroundPoint(row.m_dOffset1);
        if (std::fabs(row.m_dOffset2) > 0.0)
            placed.places[1] = m_ground.FindGroundPoint(row.m_dOffset2);
        placed.symbol = drawnSymbol(row, m_style.symbolBlock);
        if (m_style.symbolLabel.on)
            placed.label = &row.m_strName;
    }

    /// A survey point on the ground line. One that finds no ground has its layers made all the same.
    void addSectionCode(const BlockFcode& row)
    {
        if ((row.m_strFcode.empty() && row.m_strFile.empty()) || !m_ground.isReadable())
            return;
        RowPlacement& placed = add(m_style.fcodeBlock, m_style.fcodeLabel);
        placed.places[0] = m_ground.FindGroundPoint(row.m_dOffset);
        if (!placed.places[0])
            return;
        placed.symbol = drawnSymbol(row, m_style.fcodeBlock);
        placed.isMarked = isMarked(row.m_strFcode);
        if (m_style.fcodeLabel.on && !row.m_strFcode.empty())
            placed.label = &row.m_strFcode;
    }

    /// The symbol of a survey point, where the point is in the plan.
    void addPlanCode(const BlockFcode& row)
    {
        if (row.m_strFcode.empty() && row.m_strFile.empty())
            return;
        RowPlacement& placed = add(m_style.fcodeBlock, m_style.fcodeLabel);
        placed.places[0] = row.m_ptPosition;
        placed.symbol = drawnSymbol(row, m_style.fcodeBlock);
    }

    std::vector<RowPlacement> take() { return std::move(m_placements); }

private:
    RowPlacement& add(const OptionStyle& symbolStyle, const OptionStyle& labelStyle)
    {
        RowPlacement& placed = m_placements.emplace_back();
        placed.symbolStyle = &symbolStyle;
        placed.labelStyle = &labelStyle;
        return placed;
    }

    GroundLine m_ground;
    const DrawStyle& m_style;
    std::vector<RowPlacement> m_placements;
};

} // namespace

std::vector<RowPlacement> FindPlacements(const CrossSectionXdata& section, const DrawStyle& style)
{
    PlacementFinder finder(section, style);
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
            finder.addFeature(row);
    for (const BlockFcode& row : section.m_listBlockFcode1)
        finder.addSectionCode(row);
    for (const BlockFcode& row : section.m_listBlockFcode2)
        finder.addPlanCode(row);
    return finder.take();
}
