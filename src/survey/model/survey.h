#pragma once

#include "kernel/extents.h"
#include "survey/model/alignment_line.h"
#include "survey/model/coded_line.h"
#include "survey/model/finding.h"
#include "survey/model/given_section.h"
#include "survey/model/point.h"
#include "survey/model/surface.h"

#include <string>
#include <vector>

namespace survey
{

/// A file that was read and what is to be told of it.
struct SurveyFile
{
    std::string path;
    std::string format;             ///< "LandXML 1.2", "points", "section table", "drawing"
    std::string units;              ///< as the file has them: "metre", "international foot", "US survey foot"
    std::string encoding;           ///< of text: "UTF-8", "TCVN3", "Windows-1258" ...
    bool isGuessedEncoding = false; ///< nothing in the file or on the command line said it
    AcGeExtents extents;            ///< of all that has a place in the plan
};

/// All that was read, from all files. Everything is in metres, x the easting, y the northing.
struct Survey
{
    std::vector<SurveyFile> files;
    std::vector<Point> points;
    std::vector<CodedLine> lines;
    std::vector<AlignmentLine> alignments;
    std::vector<GivenSection> sections;
    std::vector<Surface> surfaces;
    std::vector<Finding> findings;
};

} // namespace survey
