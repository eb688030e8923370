#include "sections/ownership.h"

#include "host/db/host_services.h"
#include "sections/database_cs.h"

namespace
{

void forgetIf(AcDbObjectId& id, const AcDbDatabase* drawing)
{
    if (!id.isNull() && id.database() == drawing)
        id = AcDbObjectId::kNull;
}

void forgetIds(CrossSectionXdata& section)
{
    section.m_idGroundLine = AcDbObjectId::kNull;
    section.m_arrDrawnIds.clear();
    for (BlockData& row : section.m_listBlockData1)
        row.m_idBlock = AcDbObjectId::kNull;
}

} // namespace

bool BelongsToDrawing(const ItemReferenceLine& alignment)
{
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    return drawing != nullptr && !alignment.m_idAlignment.isNull() && alignment.m_idAlignment.database() == drawing;
}

void ForgetDrawing(DatabaseCS& database, const AcDbDatabase* drawing)
{
    forgetIf(database.m_idTextStyle, drawing);
    for (ItemReferenceLine& alignment : database.m_listReferenceLines)
    {
        if (alignment.m_idAlignment.isNull() || alignment.m_idAlignment.database() != drawing)
            continue;
        alignment.m_idAlignment = AcDbObjectId::kNull;
        for (CrossSectionXdata& section : alignment.m_listCrossSections)
            forgetIds(section);
    }
}
