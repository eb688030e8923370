#include "host/db/entity/block_reference.h"
#include "host/db/entity/polyline.h"
#include "host/db/entity/text_entity.h"
#include "host/db/table/symbol_tables.h"
#include "store/table_index.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <numbers>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

class Entities : public testing::Test
{
protected:
    void open(const TestDrawing& text) { m_session.open(text.dxf()); }
    AcDbDatabase& drawing() { return m_session.drawing(); }
    AcDbObjectId idOf(uint64_t handle)
    {
        AcDbObjectId id;
        drawing().getAcDbObjectId(id, true, AcDbHandle{handle});
        return id;
    }
    /// Where the curves of an entity reach, as text that reads well in a failure.
    AcGeExtents extentsOf(uint64_t handle)
    {
        AcGeExtents extents;
        const AcDbObjectPointer<AcDbEntity> entity{idOf(handle)};
        EXPECT_EQ(entity.openStatus(), Acad::eOk);
        if (entity)
            entity->addExtents(extents);
        return extents;
    }
    AcDbObjectId appendToModelSpace(AcDbEntity* entity)
    {
        const AcDbObjectPointer<AcDbBlockTable> blocks{drawing().tableId(AcDbBlockTable::desc())};
        AcDbObjectId space;
        blocks->getAt(u"*Model_Space", space);
        const AcDbObjectPointer<AcDbBlockTableRecord> record{space, AcDb::kForWrite};
        AcDbObjectId id;
        EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
        return id;
    }

    TestSession m_session;
};

bool reaches(const AcGeExtents& extents, const AcGePoint3d& low, const AcGePoint3d& high)
{
    const AcGeTol tolerance{1e-4};
    return extents.isValid() && extents.minPoint().isEqualTo(low, tolerance) &&
           extents.maxPoint().isEqualTo(high, tolerance);
}

struct Drawn
{
    const char* kind;
    const char* pairs;
    AcGePoint3d low;
    AcGePoint3d high;
};

} // namespace

TEST_F(Entities, EveryKindCoversWhatItDraws)
{
    const std::vector<Drawn> cases{
        {"LINE", "100\nAcDbLine\n 10\n1.0\n 20\n2.0\n 30\n3.0\n 11\n4.0\n 21\n5.0\n 31\n6.0\n", {1, 2, 3}, {4, 5, 6}},
        {"CIRCLE", "100\nAcDbCircle\n 10\n1.0\n 20\n1.0\n 40\n2.0\n", {-1, -1, 0}, {3, 3, 0}},
        {"ARC",
         "100\nAcDbCircle\n 10\n0.0\n 20\n0.0\n 40\n2.0\n100\nAcDbArc\n 50\n90.0\n 51\n180.0\n",
         {-2, 0, 0},
         {0, 2, 0}},
        {"ELLIPSE",
         "100\nAcDbEllipse\n 10\n0.0\n 20\n0.0\n 11\n0.0\n 21\n4.0\n 40\n0.5\n 41\n0.0\n 42\n6.283185307179586\n",
         {-2, -4, 0},
         {2, 4, 0}},
        {"SPLINE",
         "100\nAcDbSpline\n 70\n8\n 71\n2\n 72\n6\n 73\n3\n 40\n0\n 40\n0\n 40\n0\n 40\n1\n 40\n1\n 40\n1\n 10\n0\n "
         "20\n0\n 10\n2\n 20\n4\n 10\n4\n 20\n0\n",
         {0, 0, 0},
         {4, 2, 0}},
        {"SOLID",
         "100\nAcDbTrace\n 10\n0\n 20\n0\n 11\n2\n 21\n0\n 12\n0\n 22\n3\n 13\n2\n 23\n3\n",
         {0, 0, 0},
         {2, 3, 0}},
        {"3DFACE", "100\nAcDbFace\n 10\n0\n 20\n0\n 11\n2\n 21\n0\n 12\n2\n 22\n3\n 32\n1\n", {0, 0, 0}, {2, 3, 1}},
        {"POINT", "100\nAcDbPoint\n 10\n7\n 20\n8\n 30\n9\n", {7, 8, 9}, {7, 8, 9}},
        {"LEADER", "100\nAcDbLeader\n 76\n2\n 10\n0\n 20\n0\n 10\n5\n 20\n1\n", {0, 0, 0}, {5, 1, 0}},
        {"HATCH",
         "100\nAcDbHatch\n 10\n0\n 20\n0\n 30\n2\n210\n0\n220\n0\n230\n1\n  2\nSOLID\n 70\n1\n 71\n0\n 91\n2\n 92\n7\n "
         "72\n0\n 73\n1\n 93\n3\n 10\n0\n 20\n0\n 10\n1\n 20\n0\n 10\n1\n 20\n1\n 97\n0\n 92\n1\n 93\n1\n 72\n2\n "
         "10\n5\n 20\n5\n 40\n1\n 50\n0\n 51\n360\n 73\n1\n 97\n0\n",
         {0, 0, 2},
         {6, 6, 2}},
        {"HATCH",
         "100\nAcDbHatch\n 10\n0\n 20\n0\n 30\n0\n210\n0\n220\n0\n230\n1\n  2\nSOLID\n 70\n1\n 71\n0\n 91\n1\n 92\n1\n "
         "93\n2\n 72\n2\n 10\n5\n 20\n5\n 40\n1\n 50\n0\n 51\n90\n 73\n0\n 72\n3\n 10\n0\n 20\n5\n 11\n4\n 21\n0\n "
         "40\n0.5\n 50\n0\n 51\n90\n 73\n0\n 97\n0\n",
         {0, 3, 0},
         {6, 5, 0}},
        {"TEXT", "100\nAcDbText\n 10\n3\n 20\n4\n 40\n1\n  1\nabc\n", {3, 4, 0}, {3, 4, 0}},
        {"CIRCLE",
         "100\nAcDbCircle\n 10\n5.0\n 20\n0.0\n 40\n1.0\n210\n0\n220\n0\n230\n-1\n",
         {-6, -1, 0},
         {-4, 1, 0}}};
    TestDrawing text;
    std::vector<uint64_t> handles;
    handles.reserve(cases.size());
    for (const Drawn& drawn : cases)
        handles.push_back(text.entity(drawn.kind, drawn.pairs));
    open(text);
    for (size_t i = 0; i < cases.size(); ++i)
    {
        const AcGeExtents extents = extentsOf(handles[i]);
        EXPECT_TRUE(reaches(extents, cases[i].low, cases[i].high))
            << cases[i].kind << " from " << extents.minPoint().x << ' ' << extents.minPoint().y << ' '
            << extents.minPoint().z << " to " << extents.maxPoint().x << ' ' << extents.maxPoint().y << ' '
            << extents.maxPoint().z;
    }
}

TEST_F(Entities, BlockContentsStandWhereTheReferencePutsThem)
{
    TestDrawing text;
    text.beginBlock("Inner", {1, 1, 0}).line({1, 1, 0}, {2, 1, 0});
    text.endBlock().beginBlock("Outer").insert("Inner", {10, 0, 0});
    text.endBlock();
    const std::string head = "100\nAcDbBlockReference\n  2\nOuter\n 10\n100\n 20\n0\n";
    const uint64_t turned = text.entity("INSERT", head + " 41\n2\n 42\n3\n 50\n90\n");
    const uint64_t mirrored = text.entity("INSERT", head + " 41\n-1\n");
    const uint64_t array = text.entity("INSERT", head + " 70\n2\n 71\n3\n 44\n5\n 45\n7\n");
    const uint64_t below = text.entity("INSERT", head + "210\n0\n220\n0\n230\n-1\n");
    text.beginBlock("Steep").line({0, 0, 1}, {1, 0, 2});
    text.endBlock();
    const uint64_t high =
        text.entity("INSERT", "100\nAcDbBlockReference\n  2\nSteep\n 10\n0\n 20\n0\n 30\n5\n 43\n3\n");
    text.beginBlock("Loop").insert("Loop", {1, 0, 0});
    text.line({0, 0, 0}, {1, 1, 0});
    text.endBlock();
    const uint64_t loop = text.insert("Loop", {0, 0, 0});
    const uint64_t nothing = text.insert("Nowhere", {4, 5, 0});
    open(text);

    EXPECT_TRUE(reaches(extentsOf(turned), {100, 20, 0}, {100, 22, 0}));
    EXPECT_TRUE(reaches(extentsOf(mirrored), {89, 0, 0}, {90, 0, 0}));
    EXPECT_TRUE(reaches(extentsOf(array), {110, 0, 0}, {116, 14, 0}));
    EXPECT_TRUE(reaches(extentsOf(high), {0, 0, 8}, {1, 0, 11}));
    EXPECT_TRUE(reaches(extentsOf(below), {-111, 0, 0}, {-110, 0, 0}));
    EXPECT_TRUE(reaches(extentsOf(loop), {0, 0, 0}, {1, 1, 0}));
    EXPECT_TRUE(reaches(extentsOf(nothing), {4, 5, 0}, {4, 5, 0}));
}

TEST_F(Entities, PolylinesOfAllThreeClassesMeetInOrderAlongTheOneAsked)
{
    TestDrawing text;
    const uint64_t light = text.feature("A", {{8, 1}, {8, -1}, {2, -1}, {2, 1}});
    const uint64_t heavy = text.feature2d("B", {{0, 0}, {10, 0}});
    const uint64_t space = text.feature3d("C", {{0, 0, 0}, {5, 0, 0}, {10, 0, 5}});
    open(text);
    const AcDbObjectPointer<AcDbPolyline> a{idOf(light)};
    const AcDbObjectPointer<AcDb2dPolyline> b{idOf(heavy)};
    const AcDbObjectPointer<AcDb3dPolyline> c{idOf(space)};
    ASSERT_TRUE(a && b && c);

    AcGePoint3dArray points;
    EXPECT_EQ(a->intersectWith(&*b, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_THAT(points, ElementsAre(testing::Field(&AcGePoint3d::x, 8.0), testing::Field(&AcGePoint3d::x, 2.0)));
    EXPECT_EQ(b->intersectWith(&*a, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_THAT(points, ElementsAre(testing::_, testing::_, testing::Field(&AcGePoint3d::x, 2.0), testing::_));
    points.clear();
    c->intersectWith(&*a, AcDb::kOnBothOperands, points);
    EXPECT_THAT(points, ElementsAre(testing::Field(&AcGePoint3d::x, 2.0))) << "the line is above at the second place";
    EXPECT_EQ(a->intersectWith(&*b, AcDb::kExtendBoth, points), Acad::eNotImplementedYet);

    double distance = 0.0;
    EXPECT_EQ(a->getDistAtPoint({5, -1, 0}, distance), Acad::eOk);
    EXPECT_DOUBLE_EQ(distance, 5.0);
    EXPECT_EQ(a->getDistAtPoint({5, 5, 0}, distance), Acad::eInvalidInput);

    AcDbPolyline converted;
    AcDbEntity* source = &*b;
    EXPECT_EQ(converted.convertFrom(source, false), Acad::eOk);
    EXPECT_EQ(converted.numVerts(), 2U);
    int vertices = 0;
    const auto iterator = c->vertexIterator();
    for (; !iterator->done(); iterator->step())
        vertices += AcDbObjectPointer<AcDb3dPolylineVertex>{iterator->objectId()} ? 1 : 0;
    EXPECT_EQ(vertices, 3);
}

TEST_F(Entities, ChangesTouchTheirOwnPairsOnly)
{
    TestDrawing text;
    text.layer("ROAD");
    const uint64_t line =
        text.entity("LINE", "370\n13\n420\n255\n100\nAcDbLine\n 10\n 0.10\n 20\n0.0\n 11\n1.\n 21\n1\n");
    const uint64_t polyline = text.feature2d("MUONG", {{0, 0}, {1, 1}});
    open(text);
    const std::string before = m_session.saved();
    {
        const TestLock lock;
        const AcDbObjectPointer<AcDbEntity> opened{idOf(line), AcDb::kForWrite};
        EXPECT_EQ(opened->setLayer(u"NOWHERE"), Acad::eKeyNotFound);
        EXPECT_EQ(opened->setLayer(u"road"), Acad::eOk);
        EXPECT_EQ(opened->setColorIndex(1), Acad::eOk);
        EXPECT_EQ(opened->colorIndex(), 1);
        EXPECT_EQ(opened->setColorIndex(257), Acad::eInvalidInput);
        const AcDbObjectPointer<AcDbEntity> other{idOf(polyline), AcDb::kForWrite};
        EXPECT_EQ(other->setColorIndex(2), Acad::eOk);
    }
    std::string expected = before;
    const auto change = [&](const std::string& from, const std::string& to)
    { expected.replace(expected.find(from), from.size(), to); };
    change("  8\n0\n370\n13\n420\n255\n", "  8\nROAD\n 62\n1\n370\n13\n");
    for (const char* kind : {"POLYLINE\n  5\n", "VERTEX\n  5\n", "VERTEX\n  5\n"})
    {
        static size_t from = 0;
        const size_t layer = expected.find("  8\n0\n", expected.find(kind, from)) + 6;
        expected.insert(layer, " 62\n2\n");
        from = layer;
    }
    const size_t end = expected.find("  8\n0\n", expected.find("SEQEND")) + 6;
    expected.insert(end, " 62\n2\n");
    EXPECT_EQ(m_session.saved(), expected);
    EXPECT_TRUE(m_session.takeFaults().empty());
}

TEST_F(Entities, NewEntitiesStandInTheFileAsOtherProgramsReadThem)
{
    TestDrawing text{1015};
    text.layer("CURRENT").header("$CLAYER", "  8\nCURRENT\n").style("MADIAVATTN", "Vnsimple.shx");
    open(text);
    {
        const TestLock lock;
        auto* label = new AcDbText;
        label->setTextString(u"Cây đế \x4E2D");
        label->setHeight(0.4);
        label->setHorizontalMode(AcDb::kTextCenter);
        label->setAlignmentPoint({1, 2, 0});
        label->setPosition({1, 2, 0});
        label->setTextStyle(AcDbObjectId{drawing().tables().find("STYLE", u"madiavattn")});
        appendToModelSpace(label);
        label->close();
        auto* leader = new AcDbPolyline;
        leader->addVertexAt(0, {0, 1});
        leader->addVertexAt(0, {0, 0}, 0.5);
        leader->setColorIndex(3);
        const AcDbObjectId id = appendToModelSpace(leader);
        leader->transformBy(AcGeMatrix3d::translation({5, 0, 0}));
        leader->close();

        const AcDbObjectPointer<AcDbPolyline> again{id};
        ASSERT_TRUE(again);
        AcGePoint3d first;
        again->getPointAt(0, first);
        EXPECT_TRUE(first.isEqualTo({5, 0, 0}));
        EXPECT_EQ(again->layer(), u"CURRENT");
    }
    const std::string file = m_session.saved();
    EXPECT_THAT(file, HasSubstr("100\nAcDbEntity\n  8\nCURRENT\n100\nAcDbText\n 10\n1.0\n 20\n2.0\n 30\n0.0\n 40\n0.4\n"
                                "  1\nC\xE2y \xF0\\U+1EBF \\U+4E2D\n  7\nMADIAVATTN\n 72\n1\n 11\n1.0\n"))
        << file.substr(file.find("100\nAcDbText\n"), 200);
    EXPECT_THAT(file,
                HasSubstr("  8\nCURRENT\n 62\n3\n100\nAcDbPolyline\n 90\n2\n 70\n0\n 43\n0.0\n 38\n0.0\n 10\n5.0\n"
                          " 20\n0.0\n 42\n0.5\n 10\n5.0\n 20\n1.0\n"));
}

TEST_F(Entities, NewReferenceKeepsItsPlaceThroughATurnedCoordinateSystem)
{
    TestDrawing text;
    text.beginBlock("B").line({0, 0, 0}, {1, 0, 0});
    text.endBlock();
    open(text);
    const TestLock lock;
    auto* reference = new AcDbBlockReference({1, 0, 0}, AcDbObjectId{drawing().tables().find("BLOCK_RECORD", u"b")});
    reference->setScaleFactors({2, 3, 1});
    reference->setRotation(std::numbers::pi / 2);
    const AcDbObjectId id = appendToModelSpace(reference);
    const AcGeMatrix3d system = AcGeMatrix3d::fromCoordSystem({100, 50, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    const AcGeMatrix3d expected = system * reference->blockTransform();
    EXPECT_EQ(reference->transformBy(system), Acad::eOk);
    EXPECT_TRUE(reference->blockTransform().isEqualTo(expected, AcGeTol{1e-9}));
    reference->close();
    EXPECT_TRUE(reaches(extentsOf(id.handle().value()), {98, 51, 0}, {100, 51, 0}));
}

TEST_F(Entities, CountsThatDoNotMatchAreDamage)
{
    TestDrawing text;
    text.entity("LWPOLYLINE", "100\nAcDbPolyline\n 90\n3\n 70\n0\n 10\n0\n 20\n0\n 10\n1\n 20\n1\n");
    EXPECT_THROW(m_session.open(text.dxf()), std::exception);
}
