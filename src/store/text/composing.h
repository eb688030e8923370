#pragma once

#include <string>
#include <string_view>

/// Vietnamese text in its composed form. Some systems write a letter as its vowel and the marks on it, each a character
/// of its own and in any order; a composed letter is one character.

/// Whether a code unit is one of the marks that Vietnamese puts on its vowels: circumflex, breve, horn and the five
/// tones.
bool isVietnameseMark(char16_t unit);

/// The letter that `letter` is with `mark` on it; 0 when Vietnamese has none such.
char16_t composedLetter(char16_t letter, char16_t mark);

/// Takes the next character off `text`, which is not empty: a letter with all of its marks as one code unit, any other
/// code unit as it is.
inline char16_t takeComposed(std::u16string_view& text)
{
    const auto isCombining = [](char16_t unit) { return unit >= 0x0300 && unit < 0x0370; };
    char16_t unit = text.front();
    for (text.remove_prefix(1); !text.empty() && isCombining(text.front()); text.remove_prefix(1))
    {
        const char16_t letter = composedLetter(unit, text.front());
        if (letter == 0)
            break;
        unit = letter;
    }
    return unit;
}

/// `text` with every Vietnamese letter as one character. Text that comes so stays as it is.
std::u16string composed(std::u16string_view text);

/// Whether `text` holds a mark that is on no letter of Vietnamese.
bool hasStrayMark(std::u16string_view text);
