#pragma once

#include "survey/model/survey.h"

#include <string>
#include <vector>

namespace console
{

/// Writes points as a table that `import` reads again: name, northing, easting, elevation, codes. Throws FileError.
void writePointTable(const std::string& path, const survey::Survey& survey, const std::vector<size_t>& points);

} // namespace console
