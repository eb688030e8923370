#include "util/fields.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SplitFields, TrimsTheWholeAndDropsOrKeepsEmptyFields)
{
    EXPECT_THAT(SplitFields(uR"( a\~\\c\ )", u'\\', EmptyFields::kSkip), ElementsAre(u"a", u"", u"c"));
    EXPECT_THAT(SplitFields(uR"( a\~\\c\ )", u'\\', EmptyFields::kKeep), ElementsAre(u"a", u"", u"", u"c"));
    EXPECT_THAT(SplitFields(u"\t a , b \r\n", u',', EmptyFields::kSkip), ElementsAre(u"a ", u" b"));
    EXPECT_THAT(SplitFields(u" \t\r\n\u00A0", u',', EmptyFields::kKeep), IsEmpty());
    EXPECT_THAT(SplitFields(u"", u',', EmptyFields::kKeep), IsEmpty());
}

TEST(SplitFields, OnlyTheRestBehindTheLastDelimiterIsTakenAsItStands)
{
    EXPECT_THAT(SplitFields(u"a,~", u',', EmptyFields::kSkip), ElementsAre(u"a", u"~"));
    EXPECT_THAT(SplitFields(u"~", u',', EmptyFields::kSkip), ElementsAre(u"~"));
    EXPECT_THAT(SplitFields(u"~,b", u',', EmptyFields::kSkip), ElementsAre(u"", u"b"));
    EXPECT_THAT(SplitFields(u"a,,", u',', EmptyFields::kKeep), ElementsAre(u"a", u""));
    EXPECT_THAT(SplitFields(u",,", u',', EmptyFields::kSkip), IsEmpty());
    EXPECT_THAT(SplitFields(u"~,", u',', EmptyFields::kSkip), ElementsAre(u""));
}
