#pragma once

#include "console/text/json_text.h"

#include <string>

class AcDbDatabase;

namespace console
{

/// How many live entities model space holds, by DXF name and by layer, as `print drawing` prints it.
Json drawingJson(AcDbDatabase& database);

/// What `info` says about a drawing, read from `path` of `bytes` bytes.
Json infoJson(AcDbDatabase& database, const std::string& path, size_t bytes);
std::string infoText(const Json& info);

} // namespace console
