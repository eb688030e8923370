#include "sections/remembered_settings.h"

namespace
{

void rememberCodes(const ListBlockFcode& rows, NameSet& set)
{
    for (const BlockFcode& row : rows)
        if (!row.m_strFcode.empty())
            set.insert(row);
}

} // namespace

RememberedSettings::RememberedSettings(const ListItemReferenceLine& tree)
{
    for (const ItemReferenceLine& alignment : tree)
        for (const CrossSectionXdata& section : alignment.m_listCrossSections)
            remember(section);
}

void RememberedSettings::remember(const CrossSectionXdata& section)
{
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
            symbols.insert(row);
    rememberCodes(section.m_listBlockFcode1, sectionCodes);
    rememberCodes(section.m_listBlockFcode2, planCodes);
}
