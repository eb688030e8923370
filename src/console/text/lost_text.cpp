#include "console/text/lost_text.h"

#include "store/text/composing.h"
#include "store/text/text.h"
#include "util/tcvn3.h"

#include <algorithm>
#include <cstdio>

namespace console
{

namespace
{

bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// The code units of the character at the start of `text`.
std::u16string_view firstCharacter(std::u16string_view text)
{
    return text.substr(0, text.size() > 1 && isHighSurrogate(text[0]) && isLowSurrogate(text[1]) ? 2 : 1);
}

std::string codeOf(std::u16string_view character)
{
    unsigned code = character[0];
    if (character.size() == 2)
        code = 0x10000U + ((code - 0xD800U) << 10) + (character[1] - 0xDC00U);
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "U+%04X", code);
    return buffer;
}

} // namespace

std::vector<LostCharacter> lostCharacters(std::u16string_view text)
{
    std::vector<LostCharacter> lost;
    const std::u16string letters = composed(text);
    for (std::u16string_view rest = letters; !rest.empty();)
    {
        const std::u16string_view character = firstCharacter(rest);
        rest.remove_prefix(character.size());
        if (HasByteForm(character[0]))
            continue;
        const std::string code = codeOf(character);
        if (std::none_of(lost.begin(), lost.end(), [&](const LostCharacter& each) { return each.code == code; }))
            lost.push_back({toUtf8(character), code});
    }
    return lost;
}

std::string namesOf(const std::vector<LostCharacter>& characters)
{
    std::string names;
    for (const LostCharacter& each : characters)
        names += (names.empty() ? "" : ", ") + each.character + " (" + each.code + ")";
    return names;
}

} // namespace console
