#include "util/numbers.h"

#include <gtest/gtest.h>

namespace
{

std::u16string zeros(size_t count)
{
    return std::u16string(count, u'0');
}

} // namespace

TEST(Numbers, TheLongestNumberAtTheStartOfATextCounts)
{
    EXPECT_EQ(ToReal(u" \t+7.5abc"), 7.5);
    EXPECT_EQ(ToReal(u"-.5"), -0.5);
    EXPECT_EQ(ToReal(u"5."), 5.0);
    EXPECT_EQ(ToReal(u"1,5"), 1.0);
    EXPECT_EQ(ToReal(u"2e3"), 2000.0);
    EXPECT_EQ(ToReal(u"2e+1x"), 20.0);
    EXPECT_EQ(ToReal(u"2e"), 2.0);
    EXPECT_EQ(ToReal(u"2E-"), 2.0);
    EXPECT_EQ(ToReal(u"0x10"), 0.0);
    EXPECT_EQ(ToReal(u"5１"), 5.0);
    for (const std::u16string_view text :
         {u"", u" ", u"abc", u"inf", u"-nan", u".", u"-", u"+-1", u".e5", u"e5", u"1e999", u"-1e400"})
    {
        EXPECT_EQ(ToReal(text), 0.0);
        EXPECT_FALSE(StartsWithReal(text));
    }
    for (const std::u16string_view text : {u"0", u" -0.0", u"0x10", u"+.5m", u"1e308"})
        EXPECT_TRUE(StartsWithReal(text));
}

TEST(Numbers, RealsOfAnyLengthAndSizeAreRead)
{
    EXPECT_EQ(ToReal(u"1" + zeros(400)), 0.0) << "too large for any file";
    EXPECT_EQ(ToReal(u"1e99999999999999999999"), 0.0);
    EXPECT_EQ(ToReal(u"1e-99999999999999999999"), 0.0);
    EXPECT_EQ(ToReal(u"0." + zeros(400) + u"1"), 0.0);
    EXPECT_EQ(ToReal(u"0." + zeros(400) + u"1e401"), 1.0);
    EXPECT_EQ(ToReal(u"0." + zeros(400) + u"1e801"), 0.0);
    EXPECT_EQ(ToReal(zeros(100000) + u"3"), 3.0);
    EXPECT_EQ(ToReal(u"1" + zeros(100000) + u"e-100000"), 1.0);
}

TEST(Numbers, IntegersStopAtWhatIsNoDigitAndAtTheirRange)
{
    EXPECT_EQ(ToInteger(u" 12abc"), 12);
    EXPECT_EQ(ToInteger(u"-3.9"), -3);
    EXPECT_EQ(ToInteger(u"+1"), 1);
    EXPECT_EQ(ToInteger(u"x1"), 0);
    EXPECT_EQ(ToInteger(u"--1"), 0);
    EXPECT_EQ(ToInteger(u"99999999999"), 2147483647);
    EXPECT_EQ(ToInteger(u"-99999999999999999999999"), -2147483647 - 1);
}

TEST(Numbers, AreWrittenWithTheDecimalsAskedFor)
{
    EXPECT_EQ(FormatReal(5.0, 6), u"5.000000");
    EXPECT_EQ(FormatReal(-0.125, 2), u"-0.12");
    EXPECT_EQ(FormatReal(1e15 / 3, 2), u"333333333333333.31");
    const double largest = -std::numeric_limits<double>::max();
    EXPECT_EQ(ToReal(FormatReal(largest, 6)), largest);
    EXPECT_EQ(FormatInteger(-256), u"-256");
}
