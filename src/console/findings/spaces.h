#pragma once

#include "store/object_id.h"

#include <string>
#include <vector>

class AcDbDatabase;

namespace console
{

/// Model space or one of the paper spaces, each the sheet of a layout.
struct DrawingSpace
{
    std::string block;  ///< "*Model_Space", "*Paper_Space", "*Paper_Space0" ...
    std::string layout; ///< what the user knows it by; the block's name when the drawing has no layout for it
    AcDbObjectIdArray entities;
};

/// Model space first (without entities when the drawing has none), then the others in the order of its blocks.
std::vector<DrawingSpace> spacesOf(AcDbDatabase& database);

/// The layout that the drawing was saved on; empty when that is model space.
std::string shownLayout(AcDbDatabase& database);

} // namespace console
