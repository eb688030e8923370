#include "host/db/resbuf.h"
#include "host/ed/command.h"
#include "host/view/view.h"
#include "store/text/text.h"
#include "support/plan_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

std::vector<double> shown(AcApDocument* document)
{
    const AcGeExtents window = document->view().shown();
    return {window.minPoint().x, window.minPoint().y, window.maxPoint().x, window.maxPoint().y};
}

PlanDrawing fourLines()
{
    PlanDrawing plan;
    plan.layer("0").layer("DONG", 1).layer("AN", 0, -7);
    plan.add(plan.line(0, 0, 20, 10)).add(plan.line(0, 0, 40, 10, "AN")).add(plan.line(-100, 0, 0, 0, "DONG"));
    plan.add(plan.line(-100, 0, 0, 0, "0", {"67", "1"}));
    return plan;
}

} // namespace

TEST(View, StartsAsTheDrawingStoresItAndZoomsBack)
{
    TestSession test;
    AcApDocument* document = test.open(fourLines().view(100, 50, 20, 2).text());
    document->view().setAspect(4);
    EXPECT_THAT(shown(document), ElementsAre(80, 40, 120, 60));

    EXPECT_EQ(acedCommandS({u"Zoom", u"e"}), RTNORM);
    EXPECT_THAT(shown(document), ElementsAre(0, 0, 40, 10)) << "layers that are off count, frozen ones do not";
    EXPECT_EQ(acedCommandS({u"_zoom", u"10,10", u"20,30"}), RTNORM);
    EXPECT_THAT(shown(document), ElementsAre(-25, 10, 55, 30)) << "widened to the window's shape";
    EXPECT_EQ(acedCommandS({u"ZOOM", u"P"}), RTNORM);
    EXPECT_EQ(acedCommandS({u"ZOOM", u"P"}), RTNORM);
    EXPECT_THAT(shown(document), ElementsAre(80, 40, 120, 60));
    EXPECT_EQ(acedCommandS({u"zoom", u"p"}), RTNORM) << "nothing left to go back to";
    EXPECT_THAT(shown(document), ElementsAre(80, 40, 120, 60));

    for (const std::u16string damaged : {u"x", u"1,", u"1e999,1", u"nan,1"})
        EXPECT_EQ(acedCommandS({u"Zoom", damaged, u"1,1"}), RTERROR) << toUtf8(damaged);
    EXPECT_EQ(acedCommandS({u"Pan", u"e"}), RTERROR);
    EXPECT_THAT(shown(document), ElementsAre(80, 40, 120, 60));
}

TEST(View, WithoutAUsableStoredOneIsTheExtents)
{
    for (const PlanDrawing& drawing : {fourLines(), fourLines().view(0, 0, 0, 2), fourLines().view(0, 0, 1e308, 1e308)})
    {
        TestSession test;
        AcApDocument* document = test.open(drawing.text());
        document->view().setAspect(2);
        EXPECT_TRUE(document->view().showsEverything());
        EXPECT_THAT(shown(document), ElementsAre(0, -5, 40, 15));
    }
    TestSession test;
    EXPECT_FALSE(test.open(PlanDrawing{}.text())->view().shown().isValid());
}

TEST(Prompts, AskTheFrontEnd)
{
    TestSession test;
    test.frontEnd.files.emplace_back(u"/tmp/cây.dwg");
    ResbufPtr result{acutNewRb(RTSTR)};
    EXPECT_EQ(acedGetFileD(u"Select File", u"/sym", u"dwg", 2 + 16, result.get()), RTNORM);
    EXPECT_EQ(std::u16string{result->resval.rstring}, u"/tmp/cây.dwg");
    EXPECT_EQ(acedGetFileD(u"Select File", u"a", u"dwg", 1 + 2, result.get()), RTCAN);
    ASSERT_EQ(test.frontEnd.fileQuestions.size(), 2U);
    const FileQuestion& asked = test.frontEnd.fileQuestions[0];
    EXPECT_EQ(asked.folder, u"/sym");
    EXPECT_EQ(asked.defaultName, u"");
    EXPECT_FALSE(asked.saving);
    EXPECT_NE(asked.filter.find(u"*.dxf"), std::u16string::npos);
    EXPECT_EQ(test.frontEnd.fileQuestions[1].defaultName, u"a");
    EXPECT_TRUE(test.frontEnd.fileQuestions[1].saving);

    for (const int answer : {3, 256, 257})
        test.frontEnd.colors.emplace_back(answer);
    int color = 7;
    EXPECT_TRUE(acedSetColorDialog(color, false, 7));
    EXPECT_EQ(color, 3);
    EXPECT_FALSE(acedSetColorDialog(color, false, 7)) << "by layer is not offered";
    EXPECT_FALSE(acedSetColorDialog(color, true, 7)) << "no colour of the palette";
    EXPECT_FALSE(acedSetColorDialog(color, true, 7)) << "cancelled";
    EXPECT_EQ(color, 3);
}
