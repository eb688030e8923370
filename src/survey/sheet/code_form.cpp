#include "survey/sheet/code_form.h"

#include "store/text/composing.h"
#include "util/tcvn3.h"

#include <algorithm>

namespace survey
{

namespace
{

constexpr size_t kLongest = 255; ///< of a text of extended data
constexpr char16_t kLastByte = 0xFF;
constexpr char16_t kFirstLetter = 0xC0;

/// The letters from U+00C0 to U+00FF without what stands on them.
constexpr std::u16string_view kBareLetters = u"AAAAAAACEEEEIIIIDNOOOOOxOUUUUYTsaaaaaaaceeeeiiiidnooooo/ouuuuyty";

std::u16string tidied(const std::u16string& code)
{
    std::u16string text = composed(code);
    std::replace_if(
        text.begin(), text.end(), [](char16_t unit) { return unit < u' ' || unit == 0x7F; }, u' ');
    const size_t first = text.find_first_not_of(u' ');
    if (first == text.npos)
        return {};
    text = text.substr(first, text.find_last_not_of(u' ') + 1 - first);
    return text.substr(0, kLongest);
}

/// The bytes of a text as characters; a character that is no letter of the set keeps its value.
std::u16string bytesOf(const std::u16string& text)
{
    std::u16string stored;
    for (const char16_t unit : text)
        stored += HasByteForm(unit) ? static_cast<char16_t>(static_cast<unsigned char>(EncodeText({&unit, 1}).front()))
                                    : unit;
    return stored;
}

bool isWide(const std::u16string& text)
{
    return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > kLastByte; });
}

/// What a line's code reads as.
std::u16string readBack(const std::u16string& stored)
{
    return isWide(stored) ? stored : DecodeStoredText(stored, stored.size());
}

std::u16string bare(std::u16string text)
{
    for (char16_t& unit : text)
        if (!HasByteForm(unit))
            unit = unit < kFirstLetter ? u'_' : kBareLetters[unit - kFirstLetter];
    return text;
}

} // namespace

CodeForm codeForm(const std::u16string& code)
{
    const std::u16string text = tidied(code);
    if (const std::u16string stored = bytesOf(text); readBack(stored) == text)
        return {text, stored, false, false};
    if (isWide(text))
        return {text, text, false, true};
    const std::u16string plain = bare(text);
    return {plain, bytesOf(plain), true, false};
}

} // namespace survey
