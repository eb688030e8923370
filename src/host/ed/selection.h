#pragma once

#include "host/db/error_status.h"
#include "host/db/resbuf.h"
#include "store/object_id.h"

/// Selects entities of the current document without asking the user. `mode` is "X" (the whole drawing), "_CP" (crossing
/// polygon), "_F" (fence) or "_WP" (window polygon), the last three with a chain of RT3DPOINT in `points`; they see
/// only what the view shows. `filter` may be null. RTNORM with a set to be freed, RTERROR when nothing was found.
int acedSSGet(const char16_t* mode, const void* points, const void* secondPoint, const resbuf* filter, ads_name set);
int acedSSLength(const ads_name set, int32_t* length);
int acedSSName(const ads_name set, int32_t index, ads_name entity);
int acedSSFree(const ads_name set);
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity);
