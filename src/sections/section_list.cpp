#include "sections/section_list.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <stdexcept>

namespace
{

size_t ParsePosition(const std::string& text, const std::string& list, size_t count)
{
    size_t position = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), position);
    if (error != std::errc{} || end != text.data() + text.size())
        throw std::runtime_error{"\"" + list + "\" is no list of sections (all, or positions such as 1,3-5)"};
    if (position < 1 || position > count)
        throw std::runtime_error{"section " + text + " is out of range: the alignment has " + std::to_string(count)};
    return position - 1;
}

} // namespace

std::vector<size_t> ParseSectionList(const std::string& list, size_t count)
{
    std::set<size_t> positions;
    for (size_t begin = 0; list != "all" && begin <= list.size();)
    {
        const size_t end = std::min(list.find(',', begin), list.size());
        const std::string part = list.substr(begin, end - begin);
        const size_t dash = part.find('-');
        const size_t first = ParsePosition(part.substr(0, dash), list, count);
        const size_t last = dash == std::string::npos ? first : ParsePosition(part.substr(dash + 1), list, count);
        if (last < first)
            throw std::runtime_error{"\"" + part + "\" is no range of sections"};
        for (size_t position = first; position <= last; ++position)
            positions.insert(position);
        begin = end + 1;
    }
    if (list == "all")
        for (size_t position = 0; position < count; ++position)
            positions.insert(position);
    return {positions.begin(), positions.end()};
}
