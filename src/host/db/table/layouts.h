#pragma once

#include <string>
#include <vector>

class AcDbDatabase;
struct ObjectRecord;

/// Model space or the sheet of a layout.
struct DrawingSpace
{
    std::u16string name;          ///< what the user knows it by; the block's name when the drawing has no layout for it
    ObjectRecord* block{nullptr}; ///< null for the model space of a drawing without a table of blocks
};

/// Model space first, then the layouts in the order of their tabs.
std::vector<DrawingSpace> spacesOf(AcDbDatabase& database);
