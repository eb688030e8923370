#include "console/text/shown_text.h"

#include "store/text/text.h"

namespace console
{

namespace
{

bool isControl(char16_t unit)
{
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

std::string escaped(std::string_view text, char16_t kept)
{
    static constexpr char16_t kDigits[] = u"0123456789abcdef";
    std::u16string shown;
    for (const char16_t unit : lettersForBytes(keepBytes(text)))
        if (isControl(unit) && unit != kept)
            shown.append({u'\\', u'x', kDigits[unit >> 4], kDigits[unit & 0xF]});
        else
            shown += unit;
    return toUtf8(shown);
}

} // namespace

std::string shownText(std::string_view text)
{
    return escaped(text, u'\n');
}

std::string shownLine(std::string_view line)
{
    constexpr char16_t kNothing = 0xFFFF;
    return escaped(line, kNothing) + "\n";
}

} // namespace console
