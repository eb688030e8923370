#include "survey/read/vietnamese_words.h"

#include "store/text/composing.h"
#include "store/text/text.h"
#include "util/fields.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>

namespace survey
{

namespace
{

constexpr std::u16string_view kVowels = u"aăâeêioôơuưy";
constexpr std::u16string_view kTones = u"\u0300\u0309\u0303\u0301\u0323";

/// Longer ones first: "ngh" begins with "ng", which begins with "n".
constexpr std::array<std::u16string_view, 27> kOnsets{u"ngh", u"ch", u"gh", u"gi", u"kh", u"ng", u"nh", u"ph", u"qu",
                                                      u"th",  u"tr", u"b",  u"c",  u"d",  u"đ",  u"g",  u"h",  u"k",
                                                      u"l",   u"m",  u"n",  u"p",  u"r",  u"s",  u"t",  u"v",  u"x"};

/// Vowels that end a syllable.
constexpr std::array<std::u16string_view, 56> kOpen{
    u"a",   u"ă",   u"â",   u"e",   u"ê",   u"i",   u"o",   u"ô",   u"ơ",  u"u",  u"ư",  u"y",  u"ia",  u"ua",
    u"ưa",  u"ya",  u"ai",  u"ao",  u"au",  u"ay",  u"âu",  u"ây",  u"eo", u"êu", u"iu", u"oi", u"ôi",  u"ơi",
    u"ui",  u"ưi",  u"ưu",  u"iêu", u"yêu", u"uôi", u"ươi", u"ươu", u"oa", u"oe", u"uê", u"uy", u"uơ",  u"oai",
    u"oay", u"oao", u"oeo", u"uây", u"uyu", u"uya", u"iê",  u"yê",  u"uô", u"ươ", u"uâ", u"oă", u"uyê", u"uo"};

/// Vowels before a consonant that ends the syllable.
constexpr std::array<std::u16string_view, 22> kClosed{u"a",  u"ă",  u"â",  u"e",  u"ê",  u"i",  u"o",  u"ô",
                                                      u"ơ",  u"u",  u"ư",  u"y",  u"iê", u"yê", u"uô", u"ươ",
                                                      u"oa", u"oă", u"oe", u"uâ", u"uê", u"uyê"};

constexpr std::array<std::u16string_view, 8> kCodas{u"c", u"ch", u"m", u"n", u"ng", u"nh", u"p", u"t"};

/// Each vowel with a tone as the one without.
const std::map<char16_t, char16_t>& toneless()
{
    static const auto kMap = []
    {
        std::map<char16_t, char16_t> map;
        for (const char16_t vowel : kVowels)
            for (const char16_t tone : kTones)
                map[composedLetter(vowel, tone)] = vowel;
        return map;
    }();
    return kMap;
}

template <size_t kCount>
bool isOneOf(const std::array<std::u16string_view, kCount>& list, std::u16string_view text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

bool isRhyme(std::u16string_view text)
{
    const size_t vowels = std::min(text.find_first_not_of(kVowels), text.size());
    const std::u16string_view coda = text.substr(vowels);
    return coda.empty() ? isOneOf(kOpen, text) : isOneOf(kClosed, text.substr(0, vowels)) && isOneOf(kCodas, coda);
}

/// `word` has small letters without tones.
bool isSyllable(std::u16string_view word)
{
    if (isRhyme(word))
        return true;
    return std::any_of(kOnsets.begin(), kOnsets.end(),
                       [&](std::u16string_view onset)
                       { return word.starts_with(onset) && isRhyme(word.substr(onset.size())); });
}

/// Small letters without tones; `tones` counts them.
std::u16string plainWord(std::u16string_view word, size_t& tones)
{
    std::u16string plain;
    for (const char16_t unit : word)
    {
        const char16_t small = foldCase(unit);
        const auto toned = toneless().find(small);
        tones += toned != toneless().end() ? 1 : 0;
        plain += toned != toneless().end() ? toned->second : small;
    }
    return plain;
}

bool isSeparator(char16_t unit)
{
    return IsSpace(unit) || unit < u'A' || (unit > u'Z' && unit < u'a') || (unit > u'z' && unit < 0x80);
}

/// A letter by itself says nothing: signs such as that of a diameter stand so as well.
void countWord(std::u16string_view word, WordCounts& counts)
{
    if (word.size() < 2 || std::all_of(word.begin(), word.end(), [](char16_t unit) { return unit < 0x80; }))
        return;
    size_t tones = 0;
    const bool isWord = isSyllable(plainWord(word, tones)) && tones <= 1;
    ++(isWord ? counts.vietnamese : counts.other);
}

} // namespace

WordCounts countWords(std::u16string_view text)
{
    const std::u16string letters = composed(text);
    WordCounts counts;
    for (auto at = letters.begin(); at != letters.end();)
    {
        const auto end = std::find_if(at, letters.end(), isSeparator);
        countWord({at, end}, counts);
        at = std::find_if_not(end, letters.end(), isSeparator);
    }
    return counts;
}

} // namespace survey
