#include "desktop/view/view_test.h"

#include "host/db/entity/polyline.h"
#include "host/db/table/symbol_tables.h"
#include "store/block_index.h"
#include "store/table_index.h"

#include <gmock/gmock.h>

namespace
{

/// The pairs of an entity with another piece in place of one.
std::string replaced(const ObjectRecord& record, const std::string& what, const std::string& with)
{
    std::string text{record.view()};
    const size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what << " is not in " << text;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

} // namespace

/// What lists that followed a change show is what lists show that were made after it.
class UpdateTest : public ViewTest
{
protected:
    void expectAsMadeAnew(const std::string& change)
    {
        m_scene->refresh();
        m_view.zoomExtents();
        const QImage followed = picture();
        const auto scene = std::make_shared<desktop::Scene>(m_session.drawing(), fonts());
        desktop::DrawingView fresh;
        prepare(fresh);
        fresh.setScene(scene);
        fresh.setFrame(m_view.frame());
        const QImage anew = pictureOf(fresh);
        EXPECT_TRUE(followed == anew) << change;
        EXPECT_TRUE(followed != m_last) << change << " cannot be seen at all";
        m_last = followed;
        fresh.setScene(nullptr);
    }
    void setText(uint64_t handle, const std::string& what, const std::string& with)
    {
        ObjectRecord& record = *idOf(handle).record();
        m_session.drawing().setRecordText(record, replaced(record, what, with));
    }
    AcDbObjectId append(AcDbEntity* entity)
    {
        AcDbBlockTable* blocks = nullptr;
        EXPECT_EQ(m_session.drawing().getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(blocks->getAt(u"*Model_Space", space, AcDb::kForWrite), Acad::eOk);
        blocks->close();
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        space->close();
        entity->close();
        return id;
    }

    QImage m_last;
};

TEST_F(UpdateTest, EveryKindOfChangeShowsAsInListsMadeAnew)
{
    TestDrawing drawing;
    drawing.layer("ROAD").layer("FROZEN", 1);
    const uint64_t inner =
        drawing.beginBlock("LEAF").entity("LINE", "100\nAcDbLine\n 10\n-1\n 20\n0\n 11\n1\n 21\n0\n");
    drawing.endBlock();
    drawing.beginBlock("TREE").insert("LEAF", {0, 2, 0});
    drawing.endBlock();
    drawing.feature("", {{0, 0}, {100, 0}, {100, 60}, {0, 60}}, true);
    drawing.onLayer("ROAD");
    const uint64_t line = drawing.line({10, 10, 0}, {90, 50, 0});
    drawing.onLayer("0");
    drawing.insert("TREE", {30, 40, 0});
    // A reference that is tilted shows what its block has at other places.
    drawing.entity("INSERT",
                   "100\nAcDbBlockReference\n  2\nLEAF\n 10\n60\n 20\n20\n 41\n9\n 42\n9\n210\n0\n220\n1\n230\n1\n");
    const uint64_t label = drawing.text("MUONG", {20, 50, 0}, 4.0);
    show(drawing);
    m_last = picture();
    const TestLock lock;

    setText(line, "\n 11\n90", "\n 11\n70");
    expectAsMadeAnew("a line's end moved");

    auto* added = new AcDbPolyline{2};
    added->addVertexAt(0, {50, 5});
    added->addVertexAt(1, {120, 30});
    const AcDbObjectId fresh = append(added);
    expectAsMadeAnew("a polyline was added, reaching beyond what was there");

    m_session.drawing().setErased(*idOf(label).record(), true);
    expectAsMadeAnew("a text was erased");

    setText(inner, "\n 11\n1\n", "\n 11\n8\n");
    expectAsMadeAnew("a line in a block in a block moved");

    if (const AcDbObjectPointer<AcDbPolyline> polyline{fresh, AcDb::kForWrite})
        polyline->setColorIndex(2);
    expectAsMadeAnew("what was added changed again");

    m_session.drawing().setErased(*fresh.record(), true);
    expectAsMadeAnew("what was added was erased, and the drawing became smaller");

    ObjectRecord& layer = *m_session.drawing().tables().find("LAYER", u"ROAD");
    m_session.drawing().setRecordText(layer, replaced(layer, " 62\n7\n", " 62\n1\n"));
    expectAsMadeAnew("a layer got another colour");

    m_session.drawing().setErased(*idOf(label).record(), false);
    expectAsMadeAnew("an erased text came back");
}

TEST_F(UpdateTest, AThousandChangesOfOneEntityDoNotPileUp)
{
    TestDrawing drawing;
    const uint64_t line = drawing.line({0, 0, 0}, {100, 50, 0});
    for (int i = 0; i < 100; ++i)
        drawing.line({i * 1.0, 0, 0}, {i * 1.0, 50, 0});
    show(drawing);
    const size_t before = m_scene->lists().bytes();
    const TestLock lock;
    std::string from = "\n 21\n50";
    for (int i = 0; i < 3'000; ++i)
    {
        const std::string to = "\n 21\n" + std::to_string(1000 + i);
        setText(line, from, to);
        from = to;
        m_scene->refresh();
    }
    EXPECT_LT(m_scene->lists().bytes(), 20 * before);
    EXPECT_EQ(m_scene->space(nullptr).items().size(), 101U);
    expectAsMadeAnew("the line moved three thousand times");
}

TEST_F(UpdateTest, TwoViewsShareOneSceneAndBothFollow)
{
    TestDrawing drawing;
    const uint64_t line = drawing.entity("LINE", " 62\n1\n100\nAcDbLine\n 10\n0\n 20\n0\n 11\n100\n 21\n0\n");
    drawing.feature("", {{0, -50}, {100, -50}, {100, 50}, {0, 50}}, true);
    show(drawing);
    desktop::DrawingView other;
    prepare(other);
    other.setScene(m_scene);
    other.zoomTo({40, -10, 60, 10});
    const QImage before = pictureOf(other);
    picture();
    const TestLock lock;
    setText(line, " 20\n0\n", " 20\n4\n");
    setText(line, " 21\n0\n", " 21\n4\n");
    m_scene->refresh();
    const QPoint moved = other.toWidget({50, 4}).toPoint();
    EXPECT_TRUE(QTest::qWaitFor([&] { return pictureOf(other) != before; }));
    const QImage after = pictureOf(other);
    EXPECT_GT(QColor{after.pixel(moved)}.red() + QColor{after.pixel(moved + QPoint{0, -1})}.red(), 120);
    other.setScene(nullptr);
}
