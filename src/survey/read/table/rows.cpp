#include "survey/read/table/rows.h"

#include "store/numbers.h"

#include <algorithm>
#include <array>

namespace survey
{

namespace
{

constexpr char kBlanks = 0;
/// The first of those by which a text has equally many numbers.
constexpr std::array kSeparators{';', '\t', ',', kBlanks};

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Takes a field in quotation marks off `line`; a doubled one in it stands for itself.
std::string takeQuoted(std::string_view& line)
{
    std::string field;
    for (line.remove_prefix(1); !line.empty(); line.remove_prefix(1))
    {
        if (line.front() == '"' && !line.substr(1).starts_with('"'))
            break;
        if (line.front() == '"')
            line.remove_prefix(1);
        field += line.front();
    }
    line.remove_prefix(std::min<size_t>(1, line.size()));
    return field;
}

/// Takes the next field off `line`, and the separator behind it.
std::string takeField(std::string_view& line, char separator)
{
    const auto isEnd = [&](char c) { return separator == kBlanks ? isBlank(c) : c == separator; };
    while (!line.empty() && isBlank(line.front()) && !isEnd(line.front()))
        line.remove_prefix(1);
    std::string field;
    if (line.starts_with('"'))
        field = takeQuoted(line);
    const auto length = static_cast<size_t>(std::find_if(line.begin(), line.end(), isEnd) - line.begin());
    field += trimmed(line.substr(0, length));
    line.remove_prefix(std::min(length + 1, line.size()));
    return field;
}

std::vector<std::string> split(std::string_view line, char separator)
{
    std::vector<std::string> fields;
    line = separator == '\t' ? line.substr(0, line.find_last_not_of('\r') + 1) : trimmed(line);
    while (!line.empty())
    {
        const bool endsWithSeparator = line.size() == 1 && line.front() == separator;
        fields.push_back(takeField(line, separator));
        if (line.empty() && endsWithSeparator)
            fields.emplace_back();
        while (separator == kBlanks && !line.empty() && isBlank(line.front()))
            line.remove_prefix(1);
    }
    return fields;
}

struct Line
{
    uint32_t number;
    std::string_view text;
};

std::vector<Line> linesOf(std::string_view text)
{
    std::vector<Line> lines;
    for (uint32_t number = 1; !text.empty(); ++number)
    {
        const size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        if (!line.empty() && line.front() != '#')
            lines.push_back({number, text.substr(0, end)});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// How well a separator splits: how many numbers it gives, and how many rows of two fields or more, of a sample spread
/// over the text.
std::pair<size_t, size_t> worthOf(const std::vector<Line>& lines, char separator)
{
    constexpr size_t kSample = 200;
    const size_t step = std::max<size_t>(1, lines.size() / kSample);
    std::pair<size_t, size_t> worth;
    for (size_t i = 0; i < lines.size(); i += step)
    {
        const std::vector<std::string> fields = split(lines[i].text, separator);
        worth.first += static_cast<size_t>(std::count_if(
            fields.begin(), fields.end(), [](const std::string& field) { return fieldNumber(field).has_value(); }));
        worth.second += fields.size() > 1 ? 1 : 0;
    }
    return worth;
}

} // namespace

Rows readRows(std::string_view text)
{
    const std::vector<Line> lines = linesOf(text);
    std::array<std::pair<size_t, size_t>, kSeparators.size()> worths;
    std::transform(kSeparators.begin(), kSeparators.end(), worths.begin(),
                   [&](char separator) { return worthOf(lines, separator); });
    Rows table;
    table.separator = kSeparators[static_cast<size_t>(std::max_element(worths.begin(), worths.end()) - worths.begin())];
    table.rows.reserve(lines.size());
    for (const Line& line : lines)
        table.rows.push_back({line.number, split(line.text, table.separator)});
    return table;
}

std::optional<double> fieldNumber(std::string_view field)
{
    if (const auto number = dxf::readReal(field))
        return number;
    const size_t comma = field.find(',');
    if (comma == field.npos || field.find('.') != field.npos)
        return std::nullopt;
    std::string withPoint{field};
    withPoint[comma] = '.';
    return dxf::readReal(withPoint);
}

} // namespace survey
