#include "dbkit/filter_objects.h"
#include "dbkit/resbuf_chain.h"
#include "host/db/database.h"
#include "host/ed/command.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

std::string text(const resbuf* chain)
{
    std::string text;
    for (; chain != nullptr; chain = chain->rbnext)
    {
        text += std::to_string(chain->restype);
        if (isStringCode(chain->restype) && chain->resval.rstring != nullptr)
            text += " " + toUtf8(chain->resval.rstring);
        text += "; ";
    }
    return text;
}

std::string built(FilterObjects& filter)
{
    filter.BuildFilter();
    return text(filter.filter());
}

} // namespace

TEST(ResbufChain, JoinsAreDeepCopies)
{
    resbuf point{nullptr, 1010, {}};
    point.resval.rpoint[0] = 0.1;
    point.resval.rpoint[1] = -1e300;
    point.resval.rpoint[2] = 3;
    CResbuf tail(&point);
    {
        const CResbuf head(CResbuf(u"APP", 1001), CResbuf(u"C\u1ECDc", 1000));
        tail = CResbuf(head, tail);
    }
    EXPECT_EQ(text(tail.head()), "1001 APP; 1000 C\u1ECDc; 1010; ");
    EXPECT_EQ(tail.head()->rbnext->rbnext->resval.rpoint[1], -1e300);
    const CResbuf& itself = tail;
    tail = itself;
    EXPECT_EQ(text(tail.head()), "1001 APP; 1000 C\u1ECDc; 1010; ");
    EXPECT_EQ(CResbuf(CResbuf(nullptr), CResbuf(nullptr)).head(), nullptr);
}

TEST(FilterObjects, ListSaysWhatWasAskedFor)
{
    const TestSession session;
    FilterObjects filter;
    EXPECT_EQ(built(filter), "-4 <and; -4 <not; 0 VIEWPORT; -4 not>; -4 and>; ");
    filter.AddClass(u"LWPOLYLINE");
    filter.AddClass(u"POLYLINE");
    filter.AddClass(u"polyline");
    filter.AddXdataApp(u"SV_INFOR");
    EXPECT_EQ(built(filter), "-4 <and; -4 <or; 0 LWPOLYLINE; 0 POLYLINE; -4 or>; -4 <not; 0 VIEWPORT; -4 not>; "
                             "-4 <or; -3; 1001 SV_INFOR; -4 or>; -4 and>; ");
    filter.Reset();
    filter.AddLayer(u"A");
    filter.AddLayer(u"AB");
    filter.AddLayer(u"B");
    EXPECT_EQ(built(filter), "-4 <and; -4 <not; 0 VIEWPORT; -4 not>; -4 <or; 8 A,AB; -4 or>; -4 and>; ");
}

TEST(FilterObjects, SelectsInTheDrawingAndByPolygon)
{
    TestSession session;
    TestDrawing drawing;
    const uint64_t coded = drawing.feature("CAY", {{0, 0}, {10, 0}});
    drawing.feature("", {{0, 1}, {10, 1}});
    drawing.point("CAY", {5, 5, 0});
    const uint64_t far = drawing.feature2d("CAY", {{50, 0}, {60, 0}});
    session.open(drawing.dxf());
    acedCommandS({u"Zoom", u"e"});

    FilterObjects filter;
    filter.AddClass(u"LWPOLYLINE");
    filter.AddClass(u"POLYLINE");
    filter.AddXdataApp(u"SV_INFOR");
    EXPECT_EQ(filter.SelectAll(), 2);
    ASSERT_EQ(filter.ids().size(), 2u);
    EXPECT_EQ(filter.ids()[0].handle().value(), coded);
    EXPECT_EQ(filter.ids()[1].handle().value(), far);
    const AcGePoint3dArray corner{{8, -3, 0}, {20, -3, 0}, {20, 3, 0}, {8, 3, 0}};
    EXPECT_EQ(filter.SelectByPolygon(corner, PolygonMode::kCrossing), 1);
    EXPECT_EQ(filter.SelectByPolygon(corner, static_cast<PolygonMode>(3)), 0);
    EXPECT_EQ(filter.SelectByPolygon(corner, PolygonMode::kWindow), 0);
    EXPECT_EQ(filter.ids().size(), 1u) << "a selection that finds nothing leaves the ids";
    session.faults.noSelection = true;
    EXPECT_EQ(filter.SelectAll(), 0);
    filter.Reset();
    EXPECT_TRUE(filter.ids().empty());
}

TEST(FindInStringArray, FindsTheFirstEqualText)
{
    const std::vector<std::u16string> texts{u"", u"b", u"B", u"\u1ECC"};
    EXPECT_EQ(FindInStringArray(texts, u"B", false), 2);
    EXPECT_EQ(FindInStringArray(texts, u"B", true), 1);
    EXPECT_EQ(FindInStringArray(texts, u"\u1ECD", true), 3);
    EXPECT_EQ(FindInStringArray(texts, u"", true), -1);
    EXPECT_EQ(FindInStringArray({}, u"b", true), -1);
}
