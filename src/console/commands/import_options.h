#pragma once

#include "console/program/program.h"
#include "survey/read/drawing/read_drawing.h"
#include "survey/read/read_options.h"
#include "survey/sheet/write_drawing.h"

#include <string>
#include <vector>

namespace console
{

/// What the user of `import` asked for.
struct ImportOptions
{
    CommonOptions common;
    std::vector<std::string> surveys;
    std::string output;        ///< may be empty with `preview`
    bool preview = false;      ///< nothing is saved
    bool keepGoing = false;    ///< what can be used is used, whatever cannot
    std::string into;          ///< a drawing to add to; empty: a new one, or the survey where it is one drawing
    std::string unusedPoints;  ///< file for the points of no section; empty: none
    std::string alignmentFile; ///< of which the alignments alone count; empty: none
    std::string alignment;     ///< on which section tables stand; empty: the only one
    std::string layerCodes;    ///< table of layers and codes; empty: none
    survey::ReadOptions read;
    survey::DrawingOptions drawing;
    survey::WriteOptions write;
};

} // namespace console
