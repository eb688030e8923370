#include "host/ui/color_names.h"

#include "store/text/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace
{

constexpr int kByBlock = 0;
constexpr int kByLayer = 256;
constexpr std::array<std::u16string_view, 8> kNames{u"ByBlock", u"Red",  u"Yellow",  u"Green",
                                                    u"Cyan",    u"Blue", u"Magenta", u"White/Black"};
constexpr std::u16string_view kByLayerName = u"ByLayer";
constexpr std::u16string_view kNumbered = u"Color";

/// Reads "Color" and a number behind any blanks, or none; what follows the number does not matter.
std::optional<int> numberedColor(std::u16string_view name)
{
    if (!equalNoCase(name.substr(0, kNumbered.size()), kNumbered))
        return std::nullopt;
    name.remove_prefix(kNumbered.size());
    name.remove_prefix(std::min(name.find_first_not_of(u" \t"), name.size()));
    const std::string digits = toUtf8(name);
    int index = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), index).ec != std::errc{})
        return std::nullopt;
    return index;
}

} // namespace

std::u16string colorName(int index)
{
    if (index == kByLayer)
        return std::u16string{kByLayerName};
    if (index >= kByBlock && index < static_cast<int>(kNames.size()))
        return std::u16string{kNames[static_cast<size_t>(index)]};
    return numberedColorName(index);
}

std::u16string numberedColorName(int index)
{
    return std::u16string{kNumbered} + u" " + toUtf16(std::to_string(index));
}

std::optional<int> colorOfName(std::u16string_view name)
{
    if (equalNoCase(name, kByLayerName))
        return kByLayer;
    for (size_t index = 0; index < kNames.size(); ++index)
    {
        if (equalNoCase(name, kNames[index]))
            return static_cast<int>(index);
    }
    return numberedColor(name);
}

const std::vector<std::u16string>& offeredColorNames()
{
    static const std::vector<std::u16string> names = []
    {
        std::vector<std::u16string> result{std::u16string{kByLayerName}};
        for (const std::u16string_view name : kNames)
            result.emplace_back(name);
        result.emplace_back(kOtherColors);
        return result;
    }();
    return names;
}
