#include "store/text/composing.h"

#include <algorithm>
#include <array>

namespace
{

constexpr char16_t kCircumflex = 0x0302;
constexpr char16_t kBreve = 0x0306;
constexpr char16_t kHorn = 0x031B;
/// Grave, hook, tilde, acute, dot below. A vowel without a tone stands before its first.
constexpr std::u16string_view kTones = u"\u0300\u0309\u0303\u0301\u0323";

/// A vowel: what stands below its own mark, that mark, and the letters it is without and with each tone.
struct Vowel
{
    char16_t base;
    char16_t mark;
    std::u16string_view letters;
};

constexpr std::array kVowels{
    Vowel{u'a', 0, u"aàảãáạ"}, Vowel{u'a', kBreve, u"ăằẳẵắặ"},      Vowel{u'a', kCircumflex, u"âầẩẫấậ"},
    Vowel{u'e', 0, u"eèẻẽéẹ"}, Vowel{u'e', kCircumflex, u"êềểễếệ"}, Vowel{u'i', 0, u"iìỉĩíị"},
    Vowel{u'o', 0, u"oòỏõóọ"}, Vowel{u'o', kCircumflex, u"ôồổỗốộ"}, Vowel{u'o', kHorn, u"ơờởỡớợ"},
    Vowel{u'u', 0, u"uùủũúụ"}, Vowel{u'u', kHorn, u"ưừửữứự"},       Vowel{u'y', 0, u"yỳỷỹýỵ"},
    Vowel{u'A', 0, u"AÀẢÃÁẠ"}, Vowel{u'A', kBreve, u"ĂẰẲẴẮẶ"},      Vowel{u'A', kCircumflex, u"ÂẦẨẪẤẬ"},
    Vowel{u'E', 0, u"EÈẺẼÉẸ"}, Vowel{u'E', kCircumflex, u"ÊỀỂỄẾỆ"}, Vowel{u'I', 0, u"IÌỈĨÍỊ"},
    Vowel{u'O', 0, u"OÒỎÕÓỌ"}, Vowel{u'O', kCircumflex, u"ÔỒỔỖỐỘ"}, Vowel{u'O', kHorn, u"ƠỜỞỠỚỢ"},
    Vowel{u'U', 0, u"UÙỦŨÚỤ"}, Vowel{u'U', kHorn, u"ƯỪỬỮỨỰ"},       Vowel{u'Y', 0, u"YỲỶỸÝỴ"},
};

/// The tones have a second code each for grave and acute that means the same.
char16_t plainMark(char16_t mark)
{
    return mark == 0x0340 ? u'\u0300' : mark == 0x0341 ? u'\u0301' : mark;
}

char16_t withTone(const Vowel& vowel, size_t tone, char16_t mark)
{
    const size_t added = kTones.find(mark);
    return tone == 0 && added != kTones.npos ? vowel.letters[added + 1] : u'\0';
}

char16_t withMark(const Vowel& vowel, size_t tone, char16_t mark)
{
    const auto* const marked =
        std::find_if(kVowels.begin(), kVowels.end(),
                     [&](const Vowel& each) { return each.base == vowel.base && each.mark == mark; });
    return vowel.mark == 0 && marked != kVowels.end() ? marked->letters[tone] : u'\0';
}

} // namespace

bool isVietnameseMark(char16_t unit)
{
    if (unit < 0x0300 || unit > 0x0341)
        return false;
    const char16_t mark = plainMark(unit);
    return mark == kCircumflex || mark == kBreve || mark == kHorn || kTones.find(mark) != kTones.npos;
}

char16_t composedLetter(char16_t letter, char16_t mark)
{
    mark = plainMark(mark);
    for (const Vowel& vowel : kVowels)
        if (const size_t tone = vowel.letters.find(letter); tone != vowel.letters.npos)
            return kTones.find(mark) != kTones.npos ? withTone(vowel, tone, mark) : withMark(vowel, tone, mark);
    return u'\0';
}

std::u16string composed(std::u16string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty())
        result += takeComposed(text);
    return result;
}

bool hasStrayMark(std::u16string_view text)
{
    while (!text.empty())
        if (isVietnameseMark(takeComposed(text)))
            return true;
    return false;
}
