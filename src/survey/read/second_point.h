#pragma once

#include "survey/read/finding_list.h"

namespace survey
{

/// Tells of a point, on `line` and at `position`, that has the name of `first`. Whether it counts all the same: not
/// when it is the same point again.
bool keepsSecond(FindingList& findings, uint32_t line, const Point& first, const AcGePoint3d& position);

} // namespace survey
