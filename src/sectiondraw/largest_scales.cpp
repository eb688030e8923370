#include "sectiondraw/largest_scales.h"

#include "sections/database_cs.h"

namespace
{

template <class List>
void takeLarger(SymbolLook& largest, const List& rows)
{
    for (const auto& row : rows)
        if (row.m_dScaleX > largest.m_dScaleX)
            largest = row.look();
}

} // namespace

void StoreLargestScales(DatabaseCS& database)
{
    SymbolLook symbol;
    SymbolLook line;
    for (const ItemReferenceLine& alignment : database.m_listReferenceLines)
        for (const CrossSectionXdata& section : alignment.m_listCrossSections)
        {
            takeLarger(symbol, section.m_listBlockData1);
            takeLarger(line, section.m_listBlockFcode1);
            takeLarger(symbol, section.m_listBlockData2);
        }
    database.StoreScales(symbol, line);
}

void StorePlainScales(DatabaseCS& database)
{
    database.StoreScales({}, {});
}
