#pragma once

#include "survey/model/survey.h"
#include "survey/read/read_options.h"

#include <string>

namespace survey
{

/// Adds what a file holds, told by its content: LandXML, points or a section table; drawings are read elsewhere.
/// What cannot be used becomes findings. Throws FileError when the file cannot be read at all.
void readSurveyFile(Survey& survey, const std::string& path, const ReadOptions& options);

/// After the last file: takes the extents of each file and tells of those that do not lie where the others do, with
/// the likely reason. Places the section tables on the alignment named `alignment` (empty: the only one), or on a
/// straight one of their own. Puts the findings in the order of files and lines.
void finishSurvey(Survey& survey, const std::u16string& alignment);

} // namespace survey
