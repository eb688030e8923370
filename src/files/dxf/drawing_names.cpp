#include "files/dxf/drawing_names.h"

#include "files/dxf/error.h"
#include "store/text/text.h"

#include <filesystem>

namespace files
{

namespace
{

std::string endingOf(const std::string& path)
{
    return std::filesystem::path(path).extension().string();
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

void requireDrawingOutput(const std::string& path)
{
    if (!endingOf(path).empty() && !hasEnding(path, "dxf"))
        throw FileError{path, "drawings are saved as DXF: give a name that ends in .dxf"};
}

} // namespace files
