#pragma once

#include "store/object_id.h"

#include <string>

namespace desktop
{

/// The feature code on an ordinary entity (SV_INFOR); empty when it has none. Leaves no trace on disk.
std::u16string surveyCodeOf(AcDbObjectId entity);

} // namespace desktop
