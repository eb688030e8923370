#pragma once

#include <string>
#include <string_view>

namespace files
{

/// Whether a name ends as those of drawings do (.dxf or .dwg, in any case).
bool isDrawingName(const std::string& path);

/// Throws FileError for a name that says it is another kind of file than the drawings that are written: one that ends
/// in anything but .dxf. A name without an ending says nothing.
void requireDrawingOutput(const std::string& path);

/// Whether the name of a file has this ending ("dxf"), in any case.
bool hasEnding(const std::string& path, std::string_view ending);

} // namespace files
