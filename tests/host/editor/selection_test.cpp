#include "host/drawing/polyline.h"
#include "host/drawing/symbol_tables.h"
#include "host/editor/selection.h"
#include "host/editor/view.h"
#include "host/text.h"
#include "support/plan_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <cmath>
#include <deque>
#include <random>
#include <utility>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// A chain of the caller's own nodes.
class Chain
{
public:
    Chain() = default;
    Chain(const Chain&) = delete; // the nodes point into the texts
    Chain(Chain&&) = default;

    Chain& add(int code, std::u16string text = {})
    {
        m_texts.push_back(std::move(text));
        node(code).resval.rstring = m_texts.back().data();
        return *this;
    }
    Chain& point(double x, double y)
    {
        resbuf& added = node(RT3DPOINT);
        added.resval.rpoint[0] = x;
        added.resval.rpoint[1] = y;
        added.resval.rpoint[2] = 0.0;
        return *this;
    }
    const resbuf* get() const { return m_nodes.empty() ? nullptr : &m_nodes.front(); }

private:
    resbuf& node(int code)
    {
        m_nodes.emplace_back();
        m_nodes.back().restype = static_cast<int16_t>(code);
        if (m_nodes.size() > 1)
            m_nodes[m_nodes.size() - 2].rbnext = &m_nodes.back();
        return m_nodes.back();
    }
    std::deque<resbuf> m_nodes;
    std::deque<std::u16string> m_texts;
};

std::vector<AcDbObjectId> idsOf(const char16_t* mode, const Chain& points, const Chain& filter)
{
    ads_name set;
    if (acedSSGet(mode, points.get(), nullptr, filter.get(), set) != RTNORM)
        return {};
    int32_t length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    std::vector<AcDbObjectId> ids(static_cast<size_t>(length));
    for (int32_t i = 0; i < length; ++i)
    {
        ads_name entity;
        EXPECT_EQ(acedSSName(set, i, entity), RTNORM);
        EXPECT_EQ(acdbGetObjectId(ids[static_cast<size_t>(i)], entity), Acad::eOk);
    }
    EXPECT_EQ(acedSSFree(set), RTNORM);
    return ids;
}

/// What is selected, by the order in which it was added to the test's drawing.
std::vector<uint64_t> select(const char16_t* mode, const Chain& points = {}, const Chain& filter = {})
{
    std::vector<uint64_t> places;
    for (const AcDbObjectId id : idsOf(mode, points, filter))
        places.push_back(id.handle().value() - PlanDrawing::kFirst);
    return places;
}

std::vector<uint64_t> all(const Chain& filter)
{
    return select(u"X", {}, filter);
}

Chain rectangle(double x1, double y1, double x2, double y2)
{
    return std::move(Chain{}.point(x1, y1).point(x2, y1).point(x2, y2).point(x1, y2));
}

std::vector<std::string> marked(const std::string& application)
{
    return {"1001", application, "1002", "{", "1000", "MUONG", "1002", "}"};
}

} // namespace

TEST(SelectAll, FollowsTheFileThroughAllSpacesAndLeavesBlockContentsOut)
{
    PlanDrawing plan;
    plan.layer("0").layer("AN", 0, -7).layer("DONG", 1);
    plan.block("CAY", plan.line(0, 0, 1, 1));
    plan.addToOtherPaper(plan.entity("TEXT", "0", "AcDbText", {"10", "0"})); // stands before ENTITIES in the file
    plan.add(plan.line(0, 0, 1, 0, "AN")).add(plan.line(0, 0, 1, 0, "DONG")).add(plan.insert("CAY", 5, 5));
    plan.add(plan.line(0, 0, 1, 0, "0", {"67", "1"}));
    TestSession test;
    test.open(plan.text());

    EXPECT_THAT(select(u"X"), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(all(Chain{}.add(0, u"line")), ElementsAre(1, 2, 4)) << "names whatever their case";

    const TestLock lock;
    {
        const AcDbObjectPointer<AcDbEntity> frozen{idsOf(u"X", {}, Chain{}.add(8, u"DONG")).at(0), AcDb::kForWrite};
        frozen->erase();
    }
    EXPECT_THAT(all(Chain{}.add(0, u"LINE")), ElementsAre(1, 4));
}

TEST(SelectAll, EvaluatesTheFilterAsItStands)
{
    PlanDrawing plan;
    plan.layer("0").layer("A").layer("B");
    const auto with = [&plan](const std::string& kind, const std::string& layer, const std::string& application)
    {
        return plan.entity(kind, layer, "AcDb" + kind, {"70", "1001", "71", "1001"}) +
               (application.empty() ? "" : PlanDrawing::pairs(marked(application)));
    };
    plan.add(with("A1", "A", "SV_INFOR")).add(with("A1", "B", "")).add(with("B1", "A", "Sv_Infor"));
    plan.add(with("B1", "0", "OTHER")).add(with("VIEWPORT", "A", "SV_INFOR"));
    TestSession test;
    test.open(plan.text());

    EXPECT_THAT(all(Chain{}.add(-4, u"<and").add(-4, u"<not").add(0, u"VIEWPORT").add(-4, u"not>").add(-4, u"and>")),
                ElementsAre(0, 1, 2, 3));
    Chain classes;
    classes.add(-4, u"<and").add(-4, u"<or").add(0, u"B1").add(0, u"A1").add(-4, u"or>");
    classes.add(-4, u"<or").add(-3).add(1001, u"SV_INFOR,PLX").add(-4, u"or>").add(-4, u"and>");
    EXPECT_THAT(all(classes), ElementsAre(0, 2));
    EXPECT_THAT(all(Chain{}.add(8, u"B,0").add(0, u"A1,B1")), ElementsAre(1, 3));
    EXPECT_THAT(all(Chain{}.add(-4, u"<xor").add(8, u"A").add(0, u"A1").add(-4, u"xor>")), ElementsAre(1, 2, 4));
    EXPECT_THAT(all(Chain{}.add(8, u"A*")), IsEmpty()) << "no patterns";

    EXPECT_THAT(all(Chain{}.add(-4, u"<and")), IsEmpty()) << "damaged chains select nothing";
    EXPECT_THAT(all(Chain{}.add(-4, u"<or").add(-4, u"and>")), IsEmpty());
    EXPECT_THAT(all(Chain{}.add(-4, u">=")), IsEmpty());
    EXPECT_THAT(all(Chain{}.add(62)), IsEmpty());
}

TEST(SelectAll, KeepsUpWithWhatIsAddedAndBroughtBack)
{
    PlanDrawing plan;
    plan.layer("0");
    plan.add(plan.line(0, 0, 1, 0)).add(plan.line(0, 1, 1, 1));
    TestSession test;
    test.open(plan.text());
    ASSERT_THAT(select(u"X"), ElementsAre(0, 1));
    ASSERT_THAT(select(u"_CP", rectangle(-1, -1, 2, 2)), ElementsAre(0, 1));

    const TestLock lock;
    {
        const AcDbObjectId first = idsOf(u"X", {}, {}).front();
        AcDbObjectPointer<AcDbEntity>
        {
            first, AcDb::kForWrite
            } -> erase();
        EXPECT_THAT(select(u"_CP", rectangle(-1, -1, 2, 2)), ElementsAre(1));
        AcDbObjectPointer<AcDbEntity>
        {
            first, AcDb::kForWrite, true
            } -> erase(false);
    }
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(test.drawing().getSymbolTable(blocks), Acad::eOk);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(blocks->getAt(u"*Model_Space", space, AcDb::kForWrite), Acad::eOk);
    blocks->close();
    auto* added = new AcDbPolyline;
    added->addVertexAt(0, {0.5, 0.5});
    added->addVertexAt(1, {0.6, 0.5});
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, added), Acad::eOk);
    added->close();
    space->close();
    EXPECT_THAT(select(u"X"), ElementsAre(0, 1, id.handle().value() - PlanDrawing::kFirst));
    EXPECT_THAT(select(u"_CP", rectangle(0.4, 0.4, 2, 0.6)), ElementsAre(id.handle().value() - PlanDrawing::kFirst));
}

TEST(SelectByPolygon, TakesWhatIsInsideOrTouches)
{
    PlanDrawing plan;
    plan.layer("0");
    plan.block("VUONG", plan.line(0, 0, 2, 0) + plan.line(2, 0, 2, 2) + plan.line(0, 2, 2, 2) + plan.line(0, 0, 0, 2),
               "1");
    plan.block("RONG", plan.entity("TEXT", "0", "AcDbText", {"10", "50", "20", "50", "1", "x"}));
    plan.add(plan.surveyPoint(5, 5, "DC1"));                           // 0: inside
    plan.add(plan.surveyPoint(10, 3, "DC1"));                          // 1: on the border
    plan.add(plan.surveyPoint(10.001, 3, "DC1"));                      // 2: outside
    plan.add(plan.line(-5, 5, 15, 5));                                 // 3: across, both ends outside
    plan.add(plan.line(-5, -1, 15, -1));                               // 4: past it
    plan.add(plan.line(9, 12, 12, 9));                                 // 5: box meets, line does not
    plan.add(plan.insert("VUONG", -2, 4));                             // 6: drawn from -3 to -1
    plan.add(plan.insert("VUONG", -2, 4, {"41", "3"}));                // 7: drawn from -5 to 1
    plan.add(plan.insert("VUONG", 5, -1, {"50", "45"}));               // 8: turned
    plan.add(plan.insert("RONG", 8, 8));                               // 9: draws nothing: its own point
    plan.add(plan.insert("KHONG_CO", 8, 12));                          // 10: no such block, outside
    plan.add(plan.insert("VUONG", -30, 4, {"70", "10", "44", "3.5"})); // 11: ten columns reach it
    TestSession test;
    test.open(plan.text());

    const Chain square = rectangle(0, 0, 10, 10);
    EXPECT_THAT(select(u"_CP", square), ElementsAre(0, 1, 3, 7, 8, 9, 11));
    EXPECT_THAT(select(u"_WP", square), ElementsAre(0, 1, 9));
    EXPECT_THAT(select(u"_F", Chain{}.point(10, 2).point(10, 6)), ElementsAre(1, 3));
    EXPECT_THAT(select(u"_CP", square, Chain{}.add(0, u"INSERT")), ElementsAre(7, 8, 9, 11));

    // A polygon around a notch: what lies in the notch is outside, what reaches over it is not within.
    const Chain notched = std::move(Chain{}.point(0, 0).point(20, 0).point(20, 20).point(5.5, 5.2).point(0, 20));
    EXPECT_THAT(select(u"_WP", notched, Chain{}.add(0, u"PLXDBMEASUREPOINTOBJ")), ElementsAre(0, 1, 2));
    EXPECT_THAT(select(u"_CP", Chain{}.point(0, 0).point(1, 1)), IsEmpty()) << "two points are no polygon";
}

TEST(SelectByPolygon, SeesOnlyWhatTheViewShows)
{
    PlanDrawing plan;
    plan.layer("0").layer("AN", 0, -7).layer("DONG", 1).view(0, 0, 20, 2);
    plan.add(plan.surveyPoint(5, 5, "A")).add(plan.surveyPoint(50, 5, "B")); // 0: shown, 1: beyond the window
    plan.add(plan.line(15, 0, 60, 0));                                       // 2: shown in part
    plan.add(plan.line(1, 1, 2, 2, "AN")).add(plan.line(1, 1, 2, 2, "DONG"));
    plan.add(plan.line(1, 1, 2, 2, "0", {"60", "1"})).add(plan.line(1, 1, 2, 2, "0", {"67", "1"})); // 6: paper
    TestSession test;
    AcApDocument* document = test.open(plan.text());

    const Chain everywhere = rectangle(-100, -100, 100, 100);
    EXPECT_THAT(select(u"_CP", everywhere), ElementsAre(0, 2));
    EXPECT_THAT(select(u"_CP", rectangle(40, -1, 60, 9)), ElementsAre(2));
    document->view().zoomExtents();
    EXPECT_THAT(select(u"_CP", everywhere), ElementsAre(0, 1, 2));
    document->view().zoomPrevious();
    EXPECT_THAT(select(u"_CP", everywhere), ElementsAre(0, 2));
    document->view().zoomWindow({49, 4}, {51, 6});
    EXPECT_THAT(select(u"_CP", everywhere), ElementsAre(1));
}

TEST(SelectByPolygon, BlocksThatContainEachOtherComeToAnEnd)
{
    PlanDrawing plan;
    plan.layer("0");
    plan.block("A", plan.insert("B", 1, 0) + plan.line(0, 0, 1, 0));
    plan.block("B", plan.insert("A", 1, 0) + plan.line(0, 1, 1, 1));
    plan.block("N0", plan.line(0, 0, 1, 0));
    for (int depth = 1; depth < 12; ++depth)
    {
        std::string contents;
        for (int copy = 0; copy < 10; ++copy)
            contents += plan.insert("N" + std::to_string(depth - 1), 0, 0);
        plan.block("N" + std::to_string(depth), contents);
    }
    plan.add(plan.insert("A", 0, 0))
        .add(plan.insert("N11", 0, 0))
        .add(plan.insert("N0", 0, 0, {"70", "30000", "71", "30000"}));
    TestSession test;
    test.open(plan.text());

    EXPECT_EQ(select(u"_CP", rectangle(0.5, -1, 3, 1)).size(), 3U);
    EXPECT_THAT(select(u"_CP", rectangle(0.5, 0.25, 0.75, 0.75)), IsEmpty());
}

TEST(SelectionSets, ThatAreFreedOrNeverWereAnswerNothing)
{
    PlanDrawing plan;
    plan.layer("0").add(plan.line(0, 0, 1, 0));
    TestSession test;
    test.open(plan.text());
    ads_name set;
    ASSERT_EQ(acedSSGet(u"X", nullptr, nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(ledger().selectionSets, 1);
    ads_name entity;
    EXPECT_EQ(acedSSName(set, 1, entity), RTERROR);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    int32_t length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
    EXPECT_EQ(acedSSFree(set), RTERROR);

    test.faults.noSelection = true;
    EXPECT_EQ(acedSSGet(u"X", nullptr, nullptr, nullptr, set), RTERROR);
}

TEST(SelectByPolygon, FindsAmongManyWhatAPlainLookAtEachFinds)
{
    std::mt19937 random{7};
    std::uniform_real_distribution<double> place{-100, 100};
    PlanDrawing plan;
    plan.layer("0");
    std::vector<AcGePoint2d> points;
    for (int i = 0; i < 3000; ++i)
    {
        points.emplace_back(std::round(place(random)), std::round(place(random)));
        plan.add(plan.surveyPoint(points.back().x, points.back().y, "DC"));
    }
    TestSession test;
    test.open(plan.text());
    for (int i = 0; i < 100; ++i)
    {
        const double x = std::round(place(random));
        const double y = std::round(place(random));
        const double width = 1.0 + i * 0.2;
        std::vector<uint64_t> plain;
        for (size_t at = 0; at < points.size(); ++at)
            if (points[at].x >= x && points[at].x <= x + width && points[at].y >= y && points[at].y <= y + 2)
                plain.push_back(at);
        ASSERT_EQ(select(u"_CP", rectangle(x, y, x + width, y + 2)), plain);
    }
}
