#include "host/companion/db_helper.h"

#include "host/db/entity/entity.h"

void DbHelper::DeleteEntity(AcDbObjectIdArray& ids, bool erase)
{
    for (const AcDbObjectId id : ids)
    {
        const AcDbObjectPointer<AcDbEntity> entity{id, AcDb::kForWrite};
        if (entity)
            entity->erase(erase);
    }
}
