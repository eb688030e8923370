#include "util/fields.h"

bool IsSpace(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == 0x85 || unit == 0xA0 || unit == 0x1680 ||
           (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F ||
           unit == 0x3000;
}

std::u16string_view TrimSpace(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::vector<std::u16string> SplitFields(std::u16string_view text, char16_t delimiter, EmptyFields empty)
{
    std::vector<std::u16string> fields;
    std::u16string_view rest = TrimSpace(text);
    if (rest.empty())
        return fields;
    for (size_t end = rest.find(delimiter); end != std::u16string_view::npos; end = rest.find(delimiter))
    {
        const std::u16string_view field = rest.substr(0, end);
        if (!field.empty() || empty == EmptyFields::kKeep)
            fields.emplace_back(field == u"~" ? std::u16string_view{} : field);
        rest.remove_prefix(end + 1);
    }
    fields.emplace_back(rest);
    if (fields.back().empty())
        fields.pop_back();
    return fields;
}
