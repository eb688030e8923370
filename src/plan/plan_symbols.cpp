#include "plan/plan_symbols.h"

#include "dbkit/filter_objects.h"
#include "host/db/entity/block_reference.h"

AcDbObjectIdArray CollectPlanSymbols()
{
    FilterObjects filter;
    filter.AddClass(AcDbBlockReference::desc()->dxfName());
    filter.AddLayer(kPlanLayer);
    filter.SelectAll();
    return filter.ids();
}
