#include "files/drawing_names.h"

#include "files/dwg/convert.h"
#include "files/dxf/binary.h"
#include "files/error.h"
#include "host/text.h"

#include <filesystem>

namespace files
{

namespace
{

std::string endingOf(const std::string& path)
{
    return std::filesystem::path(path).extension().string();
}

/// Text DXF begins with the group code of a section's start or of a comment.
bool beginsAsTextDxf(std::string_view bytes)
{
    const size_t begin = std::min(bytes.find_first_not_of(" \t"), bytes.size());
    const std::string_view code = bytes.substr(begin, bytes.find_first_of(" \t\r\n", begin) - begin);
    return code == "0" || code == "999";
}

} // namespace

bool hasEnding(const std::string& path, std::string_view ending)
{
    const std::string own = endingOf(path);
    return !own.empty() && equalNoCase(toUtf16(own.substr(1)), toUtf16(ending));
}

bool isDrawingName(const std::string& path)
{
    return hasEnding(path, "dxf") || hasEnding(path, "dwg");
}

bool isDrawing(std::string_view bytes)
{
    return dwg::isDwg(bytes) || isBinaryDxf(bytes) || beginsAsTextDxf(bytes);
}

void requireDrawingOutput(const std::string& path)
{
    if (!endingOf(path).empty() && !hasEnding(path, "dxf"))
        throw FileError{path, "drawings are saved as DXF: give a name that ends in .dxf"};
}

} // namespace files
