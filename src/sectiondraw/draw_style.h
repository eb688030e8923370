#pragma once

#include "host/db/object_id.h"

#include <string>

struct DatabaseCS;

/// How one kind of thing is drawn.
struct OptionStyle
{
    bool on = false;
    std::u16string layer;    ///< empty for the drawing's current one
    int color = 0;           ///< 1 to 255 of the palette; anything else leaves the colour as the host gives it
    bool makesLayer = false; ///< one that the drawing does not have is made; else it is left out
};

/// How a drawing run shows features on sections, worked out once from the shared settings.
struct DrawStyle
{
    OptionStyle symbolLabel;
    OptionStyle fcodeLabel;
    OptionStyle symbolBlock;
    OptionStyle fcodeBlock;
    double textHeight = 0.0;
    double deltaY = 0.0; ///< height of the leader between the ground and its label
    AcDbObjectId textStyle;
};

/// Without option lists in the settings (none were read yet), symbol blocks are drawn and nothing else.
DrawStyle MakeDrawStyle(const DatabaseCS& settings);
