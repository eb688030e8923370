#include "host/db/entity/polyline.h"
#include "host/db/table/symbol_tables.h"
#include "host/ed/selection.h"
#include "host/view/view.h"
#include "store/text/text.h"
#include "support/cases.h"
#include "support/plan_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <optional>
#include <random>
#include <span>
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

Chain rectangle(double x1, double y1, double x2, double y2)
{
    return std::move(Chain{}.point(x1, y1).point(x2, y1).point(x2, y2).point(x1, y2));
}

Chain pointsOf(std::span<const std::string> words)
{
    Chain points;
    for (const std::string& word : words)
        points.point(numbersOf(word).at(0), numbersOf(word).at(1));
    return points;
}

/// The chain of a filter's words, code=value each.
Chain filterOf(const std::vector<std::string>& words)
{
    Chain filter;
    for (const std::string& word : words)
    {
        const size_t equals = std::min(word.find('='), word.size());
        filter.add(std::stoi(word), toUtf16(word.substr(std::min(equals + 1, word.size()))));
    }
    return filter;
}

/// A drawing built line by line, and what is selected of it.
class Scene
{
public:
    Scene() { m_plan.layer("0"); }

    void play(const Case& each)
    {
        const std::vector<std::string>& words = each.fields[0];
        if (words[0] == "X" || words[0].starts_with('_'))
            expectSelected(each);
        else if (words[0] == "zoom")
            zoom(words);
        else if (words[0] == "layer")
            m_plan.layer(words.at(1), std::stoi(words.at(2)), std::stoi(words.at(3)));
        else if (words[0] == "view")
            m_plan.view(numbersOf(words.at(1))[0], numbersOf(words[1])[1], std::stod(words.at(2)),
                        std::stod(words.at(3)));
        else if (words[0] == "block")
        {
            std::string contents;
            for (size_t at = 1; at < each.fields.size(); ++at)
                contents += entity(each.fields[at]);
            m_plan.block(words.at(1), contents, words.at(2));
        }
        else
            m_plan.add(entity(words));
    }

private:
    std::string entity(const std::vector<std::string>& words)
    {
        std::vector<std::string> own;
        std::vector<std::string> common;
        std::vector<std::string> plain;
        for (const std::string& word : words)
            if (word.find('=') == std::string::npos)
                plain.push_back(word);
            else if (word.front() == '+')
                common.push_back(word.substr(1));
            else
                own.push_back(word);
        own = pairsOf(own);
        common = pairsOf(common);
        if (plain.at(0) == "entity")
            return m_plan.entity(plain.at(1), plain.at(2), "AcDb" + plain[1], own, common);
        const std::vector<double> at = numbersOf(plain.at(plain[0] == "insert" ? 2 : 1));
        if (plain[0] == "insert")
            return m_plan.insert(plain[1], at[0], at[1], own);
        if (plain[0] == "point")
            return m_plan.surveyPoint(at[0], at[1], plain.at(2));
        const std::vector<double> to = numbersOf(plain.at(2));
        return m_plan.line(at[0], at[1], to[0], to[1], plain.size() > 3 ? plain[3] : "0", common);
    }
    AcApDocument& document()
    {
        if (m_document == nullptr)
            m_document = m_test.open(m_plan.text());
        return *m_document;
    }
    void zoom(const std::vector<std::string>& words)
    {
        if (words.at(1) == "extents")
            document().view().zoomExtents();
        else if (words[1] == "previous")
            document().view().zoomPrevious();
        else
            document().view().zoomWindow({numbersOf(words[1])[0], numbersOf(words[1])[1]},
                                         {numbersOf(words.at(2))[0], numbersOf(words[2])[1]});
    }
    void expectSelected(const Case& each)
    {
        document();
        const std::vector<std::string>& words = each.fields[0];
        std::vector<uint64_t> expected;
        for (const std::string& word : each.fields.at(2))
            if (word != "none")
                expected.push_back(std::stoul(word));
        EXPECT_EQ(select(toUtf16(words[0]).c_str(), pointsOf(std::span{words}.subspan(1)), filterOf(each.fields[1])),
                  expected);
    }

    PlanDrawing m_plan;
    TestSession m_test;
    AcApDocument* m_document = nullptr;
};

} // namespace

TEST(Selection, TakesWhatTheCasesSay)
{
    const std::vector<Case> cases = readCases("selections.txt");
    EXPECT_GT(cases.size(), 70U);
    std::string heading;
    std::optional<Scene> scene;
    for (const Case& each : cases)
    {
        SCOPED_TRACE(each.name);
        if (std::exchange(heading, each.heading) != each.heading)
        {
            scene.reset();
            scene.emplace();
        }
        scene->play(each);
    }
}

TEST(SelectAll, FollowsTheFileThroughAllSpacesAndForgetsWhatIsErased)
{
    PlanDrawing plan;
    plan.layer("0");
    plan.addToOtherPaper(plan.entity("TEXT", "0", "AcDbText", {"10", "0"})); // stands before ENTITIES in the file
    plan.add(plan.line(0, 0, 1, 0)).add(plan.line(0, 0, 1, 0));
    TestSession test;
    test.open(plan.text());
    EXPECT_THAT(select(u"X"), ElementsAre(0, 1, 2));

    const TestLock lock;
    {
        const AcDbObjectPointer<AcDbEntity> second{idsOf(u"X", {}, {}).at(1), AcDb::kForWrite};
        second->erase();
    }
    EXPECT_THAT(select(u"X"), ElementsAre(0, 2));
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
