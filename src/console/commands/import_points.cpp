#include "console/commands/import_points.h"

#include "disk/replace.h"
#include "store/text/text.h"

#include <array>
#include <charconv>

namespace console
{

namespace
{

std::string numberText(double value)
{
    std::array<char, 40> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), result.ptr};
}

/// A field in quotation marks where it holds what parts fields.
std::string fieldText(const std::string& text)
{
    if (text.find_first_of(",\"") == text.npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + "\"";
}

std::string rowText(const survey::Point& point)
{
    std::string codes;
    for (const std::u16string& code : point.codes)
        codes += (codes.empty() ? "" : ";") + toUtf8(code);
    return fieldText(toUtf8(point.name)) + "," + numberText(point.position.y) + "," + numberText(point.position.x) +
           "," + (point.hasElevation ? numberText(point.position.z) : "") + "," + fieldText(codes) + "\n";
}

} // namespace

void writePointTable(const std::string& path, const survey::Survey& survey, const std::vector<size_t>& points)
{
    std::string table = "name,northing,easting,elevation,code\n";
    for (const size_t index : points)
        table += rowText(survey.points[index]);
    disk::replaceFile(path, {table});
}

} // namespace console
