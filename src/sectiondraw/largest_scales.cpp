#include "sectiondraw/largest_scales.h"

#include "sections/database_cs.h"

namespace
{

struct Scales
{
    double x = 1.0;
    double y = 1.0;
    double rotation = 0.0;

    template <class List>
    void takeLarger(const List& rows)
    {
        for (const auto& row : rows)
            if (row.m_dScaleX > x)
                *this = {row.m_dScaleX, row.m_dScaleY, row.m_dRotation};
    }
};

void store(DatabaseCS& database, const Scales& symbol, const Scales& line)
{
    database.m_dSymbolScaleX = symbol.x;
    database.m_dSymbolScaleY = symbol.y;
    database.m_dSymbolRotate = symbol.rotation;
    database.m_dLineScaleX = line.x;
    database.m_dLineScaleY = line.y;
    database.m_dLineRotate = line.rotation;
}

} // namespace

void StoreLargestScales(DatabaseCS& database)
{
    Scales symbol;
    Scales line;
    for (const ItemReferenceLine& alignment : database.m_listReferenceLines)
        for (const CrossSectionXdata& section : alignment.m_listCrossSections)
        {
            symbol.takeLarger(section.m_listBlockData1);
            line.takeLarger(section.m_listBlockFcode1);
            symbol.takeLarger(section.m_listBlockData2);
        }
    store(database, symbol, line);
}

void StorePlainScales(DatabaseCS& database)
{
    store(database, {}, {});
}
