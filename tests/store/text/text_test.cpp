#include "store/text/text.h"

#include "store/text/composing.h"
#include "store/text/name_map.h"
#include "store/text/text_encoding.h"

#include <algorithm>
#include <gtest/gtest.h>

TEST(DrawingText, IsOneByteACharacterOrAnEscape)
{
    struct Case
    {
        const char* page;
        std::u16string text;
        std::string bytes;
    };
    const Case cases[] = {
        {"ANSI_1258", u"ãèộ", "\\U+00E3\xE8\\U+1ED9"},
        {"ANSI_1258", u"a\u0303", "a\xDE"},
        {"ANSI_1258", u"Đăơư₫Ì", "\xD0\xE3\xF5\xFD\xFE\\U+00CC"},
        {"ANSI_1252", u"ãăộ€", "\xE3\\U+0103\\U+1ED9\x80"},
        {"ANSI_1255", u"\u05D0\u05B0\uFB2E", "\xE0\xC0\\U+FB2E"},
        {"ANSI_1251", u"Жă", "\xC6\\U+0103"},
        {"dos437", u"é½ã", "\x82\xAB\\U+00E3"},
        {"ANSI_932", u"あã", "\x82\xA0\\U+00E3"},
        {"", u"ãă", "\xE3\\U+0103"},
        {"CP1258//TRANSLIT", u"ãă", "\xE3\\U+0103"},
    };
    for (const Case& each : cases)
    {
        const auto encoding = makeTextEncoding(1015, each.page);
        EXPECT_EQ(encoding->encode(each.text), each.bytes) << each.page;
        EXPECT_EQ(encoding->decode(each.bytes), each.text) << each.page;
    }
}

TEST(DrawingText, EveryByteOfASingleByteCodePageReadsByItself)
{
    for (int page = 1250; page <= 1258; ++page)
    {
        const auto encoding = makeTextEncoding(1018, "ANSI_" + std::to_string(page));
        for (int byte = 0x80; byte < 0x100; ++byte)
        {
            const std::string pair{'a', static_cast<char>(byte)};
            const std::u16string text = encoding->decode(pair);
            ASSERT_EQ(text.size(), 2U) << page << " " << byte;
            if (text[1] == u'\uFFFD')
                continue;
            EXPECT_EQ(encoding->encode(text), pair) << page;
        }
    }
}

namespace
{

/// A letter and what it is taken apart to, all marks its own.
struct Letter
{
    char16_t letter;
    std::u16string parts;
};

std::vector<Letter> lettersWithMarks()
{
    const std::u16string tones = u"\u0300\u0309\u0303\u0301\u0323";
    const std::pair<std::u16string, std::u16string> rows[] = {
        {u"a", u"àảãáạ"},       {u"a\u0306", u"ằẳẵắặ"}, {u"a\u0302", u"ầẩẫấậ"}, {u"e", u"èẻẽéẹ"},
        {u"e\u0302", u"ềểễếệ"}, {u"i", u"ìỉĩíị"},       {u"o", u"òỏõóọ"},       {u"o\u0302", u"ồổỗốộ"},
        {u"o\u031B", u"ờởỡớợ"}, {u"u", u"ùủũúụ"},       {u"u\u031B", u"ừửữứự"}, {u"y", u"ỳỷỹýỵ"}};
    std::vector<Letter> letters{{u'ă', u"a\u0306"}, {u'â', u"a\u0302"}, {u'ê', u"e\u0302"},
                                {u'ô', u"o\u0302"}, {u'ơ', u"o\u031B"}, {u'ư', u"u\u031B"}};
    for (const auto& [base, row] : rows)
        for (size_t tone = 0; tone < tones.size(); ++tone)
            letters.push_back({row[tone], base + tones[tone]});
    return letters;
}

} // namespace

TEST(Composing, EveryVietnameseLetterHoweverItsMarksAreOrdered)
{
    const std::vector<Letter> letters = lettersWithMarks();
    ASSERT_EQ(letters.size(), 66U);
    for (const auto& [letter, parts] : letters)
    {
        std::u16string swapped = parts;
        std::reverse(swapped.begin() + 1, swapped.end());
        for (const std::u16string& each : {parts, swapped})
        {
            const std::u16string name = u"c" + each + u"n";
            EXPECT_EQ(composed(name), std::u16string(u"c") + letter + u"n") << toUtf8(each);
            std::u16string capital = each;
            capital[0] = static_cast<char16_t>(capital[0] - 32);
            EXPECT_TRUE(equalNoCase(capital, std::u16string(1, letter))) << toUtf8(each);
            EXPECT_EQ(HashNoCase{}(capital), HashNoCase{}(std::u16string(1, letter)));
        }
    }
}

TEST(Composing, LeavesWhatIsNoVietnameseLetter)
{
    EXPECT_EQ(composed(u"e\u0301\u0301 n\u0303 a\u0308 \u0301x"), u"é\u0301 n\u0303 a\u0308 \u0301x");
    EXPECT_EQ(composed(u"ê\u0341 ơ\u0323 ạ\u0302 ư\u031B"), u"ế ợ ậ ư\u031B");
    EXPECT_TRUE(hasStrayMark(u"\u00A7\u0300n"));
    EXPECT_FALSE(hasStrayMark(u"e\u0300 è"));
    EXPECT_FALSE(equalNoCase(u"e", u"e\u0302"));
    EXPECT_TRUE(std::is_lt(compareNoCase(u"CA", u"ca\u0301")) && std::is_lt(compareNoCase(u"ca", u"CAO")));
    EXPECT_TRUE(startsWithNoCase(u"CO\u0323\u0302T ĐIỆN", u"cột"));
    EXPECT_FALSE(startsWithNoCase(u"cột", u"co"));
}

TEST(NameMap, FindsTheExactSpellingFirst)
{
    NameMap<int> map;
    map.add(u"Cột", 1);
    map.add(u"co\u0323\u0302t", 2);
    map.add(u"CỘT", 3);
    map.add(u"Cột", 4);
    EXPECT_EQ(*map.find(u"Cột"), 1);
    EXPECT_EQ(*map.find(u"co\u0323\u0302t"), 2);
    EXPECT_EQ(*map.find(u"CỘT"), 3);
    EXPECT_EQ(*map.find(u"cột"), 1);
    map.replace(u"cột", 5);
    EXPECT_EQ(*map.find(u"Cột"), 5);
    EXPECT_EQ(map.find(u"Cot"), nullptr);
}
