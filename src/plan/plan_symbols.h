#pragma once

#include "host/db/object_id.h"

/// The layer of all symbols of the plan.
inline constexpr const char16_t* kPlanLayer = u"DiaVatBinhDo";

/// The block references on that layer, in all spaces of the current drawing, in its order: what the next run erases.
AcDbObjectIdArray CollectPlanSymbols();
