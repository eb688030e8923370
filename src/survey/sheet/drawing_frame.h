#pragma once

#include "host/db/database.h"
#include "kernel/extents.h"

namespace survey
{

/// Says in the header that model space reaches over `added` too; a drawing that was empty shows all of it when it is
/// opened next.
void setExtents(AcDbDatabase& drawing, const AcGeExtents& added, bool wasEmpty);

} // namespace survey
