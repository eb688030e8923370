#include "survey/read/codes.h"

#include "util/fields.h"

#include <algorithm>

namespace survey
{

namespace
{

template <class IsSeparator>
std::vector<std::u16string> parts(std::u16string_view text, IsSeparator isSeparator)
{
    std::vector<std::u16string> list;
    for (auto at = text.begin(); at != text.end();)
    {
        const auto end = std::find_if(at, text.end(), isSeparator);
        if (const std::u16string_view part = TrimSpace({at, end}); !part.empty())
            list.emplace_back(part);
        at = end == text.end() ? end : end + 1;
    }
    return list;
}

} // namespace

std::vector<std::u16string> splitCodes(std::u16string_view text)
{
    return parts(text, [](char16_t unit) { return unit == u';' || unit == u'|'; });
}

std::vector<std::u16string> splitWords(std::u16string_view text)
{
    return parts(text, IsSpace);
}

} // namespace survey
