#pragma once

#include "store/text/text.h"
#include "survey/model/survey.h"
#include "survey/read/drawing/drawing_options.h"
#include "survey/read/read_options.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;

namespace survey
{

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
