#pragma once

#include "store/text/text.h"

#include <map>
#include <string>
#include <vector>

namespace survey
{

/// Where the points of a drawing stand.
struct PointSource
{
    enum Kind
    {
        kLayer, ///< point entities; the layer is their code
        kBlock, ///< block references whose attributes are number, height and code
        kText   ///< point entities with texts beside them
    };

    Kind kind = kLayer;
    std::vector<std::u16string> names; ///< of layers, or of blocks; empty: all
};

/// What of a drawing without survey objects is what.
struct DrawingOptions
{
    std::u16string alignmentLayer; ///< empty: no alignment
    double startStation = 0.0;     ///< metres
    std::vector<PointSource> points;
    double textDistance = 2.0;  ///< metres from a point to the texts that belong to it
    bool codeFromLayer = false; ///< lines are coded by their layer
    /// The codes of layers; empty: each layer's name is its code. Else lines of other layers are not taken.
    std::map<std::u16string, std::u16string, LessNoCase> layerCodes;
};

} // namespace survey
