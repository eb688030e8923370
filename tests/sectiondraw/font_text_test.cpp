#include "sectiondraw/font_text.h"
#include "support/test_session.h"

TEST(FontText, ATextThatMakesNoLineOrSeveralStaysAsItIs)
{
    const TestSession session;
    EXPECT_EQ(ToFontText(u"\u1ea1 b\u0323"), u"\u00b9 b#");
    EXPECT_EQ(ToFontText(u""), u"");
    EXPECT_EQ(ToFontText(u"\u1ea1\n\u1ea1"), u"\u1ea1\n\u1ea1");
    EXPECT_EQ(ToFontText(u"\n\u1ea1\n"), u"\u00b9");
    EXPECT_EQ(ToFontText(u"a\u0200b"), u"a?b") << "a code whose low byte is zero";
    EXPECT_EQ(session.folder().read("settings/temp.temp"), "a?b\n");
}
