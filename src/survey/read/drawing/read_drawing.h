#pragma once

#include "store/text/text.h"
#include "survey/model/survey.h"
#include "survey/read/read_options.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;

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

/// Adds what the options say of a drawing's model space. `path` is the file it came from. What cannot be used becomes
/// findings.
void readDrawing(Survey& survey, const std::string& path, AcDbDatabase& drawing, const DrawingOptions& what,
                 const ReadOptions& options);

/// Where points come from, as users write it: "layer", "block" or "text", with names behind a colon
/// ("block:DIEM,COC"). Nothing for anything else.
std::optional<PointSource> readPointSource(std::string_view text);

/// A table of two columns, layer and code. Throws FileError when it cannot be read, or when a row has not two fields.
std::map<std::u16string, std::u16string, LessNoCase> readLayerCodes(const std::string& path,
                                                                    const std::string& encoding);

} // namespace survey
