#include "util/tcvn3.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace std::string_literals;

namespace
{

constexpr std::u16string_view kLetters = u"ĂÂÊÔƠƯĐăâêôơưđàảãáạằẳẵắặầẩẫấậèẻẽéẹềểễếệìỉĩíịòỏõóọồổỗốộờởỡớợùủũúụừửữứựỳỷỹýỵ";

std::string byte(int value)
{
    return {static_cast<char>(value)};
}

/// Whether the set gives `value` a letter of its own.
bool hasLetter(int value)
{
    const auto between = [value](int first, int last) { return first <= value && value <= last; };
    return value > 0xA0 && !between(0xAF, 0xB4) && value != 0xBA && !between(0xBF, 0xC5) && value != 0xCD &&
           !between(0xD9, 0xDB) && value != 0xE0 && value != 0xF0 && value != 0xFF;
}

} // namespace

TEST(Tcvn3, WordsReadAndWriteAsTheBytesOfACaption)
{
    const std::string caption = "\x56\xCF\x20\xAE\xDE\x61\x20\x76\xCB\x74";
    EXPECT_EQ(DecodeText(caption), u"Vẽ địa vật");
    EXPECT_EQ(EncodeText(u"Vẽ địa vật"), caption);
    EXPECT_EQ(DecodeText("\xA2\xE0"), u"Âà");
    EXPECT_EQ(EncodeText(u"Âà"), "\xA2\xB5");
}

TEST(Tcvn3, EveryByteReadsAsItsLetterOrAsItself)
{
    std::u16string letters;
    for (int value = 3; value < 256; ++value)
    {
        const std::u16string text = DecodeText(byte(value));
        ASSERT_EQ(text.size(), 1U) << value;
        if (hasLetter(value))
            letters += text;
        else
            EXPECT_EQ(text[0], value);
    }
    EXPECT_EQ(letters, kLetters) << "the letters stand in the order of their bytes";
    EXPECT_EQ(DecodeText("ab\0cd"s), u"ab");
}

TEST(Tcvn3, LettersSurviveATripThroughBytesAndBytesThroughText)
{
    EXPECT_EQ(DecodeText(EncodeText(kLetters)), kLetters);
    EXPECT_EQ(EncodeText(kLetters).size(), 74U);
    // A byte without a letter whose code is a letter of the set comes back as that letter's byte.
    for (int value = 3; value < 256; ++value)
    {
        const std::u16string text = DecodeText(byte(value));
        EXPECT_EQ(DecodeText(EncodeText(text)), text) << value;
    }
}

TEST(Tcvn3, EscapesBringCodeUnitsAndEndTheTextWhenCutOff)
{
    EXPECT_EQ(DecodeText("a\x01\xA1\x1E"
                         "b\x02\x80\x02\x41"),
              u"aạb\xFF80"
              u"A");
    EXPECT_EQ(DecodeText("\x01\x41\x00z"s), u"Az");
    EXPECT_EQ(DecodeText("ab\x01"), u"ab");
    EXPECT_EQ(DecodeText("ab\x01\x41"), u"ab");
    EXPECT_EQ(DecodeText("ab\x02"), u"ab");
    EXPECT_EQ(DecodeText("ab\x01\x00\x00yz"s), u"ab");
}

TEST(Tcvn3, LettersThatComeWithTheirMarksApartGetTheirByte)
{
    EXPECT_EQ(EncodeText(u"Co\u0323\u0302t \u0111ie\u0302\u0323n"), EncodeText(u"Cột điện"));
    EXPECT_EQ(EncodeText(u"a\u0301 \u0301x n\u0303 \u010A \u017F \u0107"), "\xB8 ?x n? ? ? ?") << "no control bytes";
    EXPECT_EQ(EncodeText(u"a\tb\nc"), "a\tb\nc");
}

TEST(Tcvn3, WhatHasNoByteIsWrittenAsItsLowByteAndNeverAsZero)
{
    EXPECT_EQ(EncodeText(u"\x1EA2\x4E2D\xFF41"), "\xA2\x2D\x41") << "a capital with a tone mark, and beyond the set";
    EXPECT_EQ(EncodeText(u"a\x0100\x4E00"s + u'\0' + u"b"), "a???b");
    std::u16string withForm;
    for (char32_t unit = 0x80; unit < 0x10000; ++unit)
        if (HasByteForm(static_cast<char16_t>(unit)))
            withForm += static_cast<char16_t>(unit);
    std::u16string letters{kLetters};
    std::sort(letters.begin(), letters.end());
    EXPECT_EQ(withForm, letters) << "of what is no ASCII, the letters and nothing else have a byte";
    EXPECT_TRUE(HasByteForm(u'A') && HasByteForm(u'\x7F'));
}
