#include "sections/survey_info.h"

#include "host/db/database.h"
#include "sections/database_cs.h"
#include "sections/scan.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

class SurveyInfo : public testing::Test
{
protected:
    AcDbObjectId open(uint64_t handle)
    {
        if (session.session().documents().count() == 0)
            session.open(drawing.dxf());
        AcDbObjectId id;
        session.drawing().getAcDbObjectId(id, false, AcDbHandle{handle});
        return id;
    }
    /// The code of an entity, or "none".
    std::string read(uint64_t handle)
    {
        std::u16string text = u"left over";
        const bool found = ReadSurveyInfo(open(handle), text);
        EXPECT_EQ(found || text.empty(), true);
        return found ? "<" + toUtf8(text) + ">" : "none";
    }
    std::filesystem::path scratchFile() const
    {
        return std::filesystem::path(session.folder().path()) / "settings" / "temp.temp";
    }
    uint64_t withData(const std::string& pairs)
    {
        return drawing.entity("POINT", "100\nAcDbPoint\n10\n0\n20\n0\n1001\nSV_INFOR\n" + pairs);
    }

    TestSession session;
    TestDrawing drawing;
};

} // namespace

TEST_F(SurveyInfo, IsTheThirdItemInWideText)
{
    const uint64_t plain = drawing.feature("CAY", {{0, 0}, {1, 1}});
    const uint64_t stored = drawing.feature("C\u00E4c", {{0, 0}, {1, 1}}); // byte E4 is o with a dot below
    const uint64_t wide = drawing.feature("C\u1ECDc \u00E4", {{0, 0}, {1, 1}});
    const uint64_t without = drawing.feature("", {{0, 0}, {1, 1}});
    const uint64_t empty = withData("1002\n{\n1000\n\n1002\n}\n");
    const uint64_t number = withData("1002\n{\n1070\n7\n1002\n}\n");
    const uint64_t shortOne = withData("1000\nCAY\n");
    const uint64_t reference = withData("1070\n1\n1000\nCAY\n1000\nOTHER\n");

    EXPECT_EQ(read(plain), "<CAY>");
    EXPECT_EQ(read(stored), "<C\u1ECDc>");
    EXPECT_EQ(read(wide), "<C\u1ECDc \u00E4>");
    EXPECT_EQ(read(without), "none");
    EXPECT_EQ(read(empty), "none");
    EXPECT_EQ(read(number), "none");
    EXPECT_EQ(read(shortOne), "none");
    EXPECT_EQ(read(reference), "<CAY>");
    EXPECT_EQ(read(0xFFFF1), "none");
}

TEST(SurveyCodes, BytesThatACodePageTakesForMarksAreReadAsVietnamese)
{
    const std::pair<const char*, const char*> cases[] = {
        {"\xA7\xCCn", "Đèn"},   // grave behind a sign
        {"L\xF2", "Lũ"},        // dot below behind a consonant
        {"Be\xCC", "Be\u0300"}, // grave on its letter: text of the code page
        {"B\\U+00E3 v\xD8\xEC", "Bó vỉỡ"},
        {"\xA7\xCC\\U+1EA1", "\u00A7\u0300\u1EA1"}, // more than bytes: wide text
    };
    TestDrawing drawing{1015, "ANSI_1258"};
    std::vector<uint64_t> handles;
    for (const auto& each : cases)
        handles.push_back(
            drawing.entity("POINT", std::string{"100\nAcDbPoint\n10\n0\n20\n0\n1001\nSV_INFOR\n1002\n{\n1000\n"} +
                                        each.first + "\n1002\n}\n"));
    TestSession session;
    session.open(drawing.dxf());
    for (size_t i = 0; i < handles.size(); ++i)
    {
        AcDbObjectId id;
        session.drawing().getAcDbObjectId(id, false, AcDbHandle{handles[i]});
        std::u16string text;
        EXPECT_TRUE(ReadSurveyInfo(id, text));
        EXPECT_EQ(toUtf8(text), cases[i].second);
    }
}

TEST_F(SurveyInfo, ScratchFileHoldsTheLastTextAsItIsKept)
{
    drawing.alignment("T").section("C", {0, 5}, {0, -5});
    drawing.feature("C\u00E4c", {{-1, 1}, {1, 1}});
    drawing.feature("LAST \u00E4", {{-1, 2}, {1, 2}});
    session.open(drawing.dxf());
    DatabaseCS database;
    ScanCrossSections(database);
    EXPECT_EQ(session.folder().read("settings/temp.temp"), "LAST \xE4\n");
}

TEST_F(SurveyInfo, IsTheSameWhileTheScratchFileCannotBeMade)
{
    const uint64_t stored = drawing.feature("C\u00E4c", {{0, 0}, {1, 1}});
    std::filesystem::create_directories(scratchFile());
    EXPECT_EQ(read(stored), "<C\u1ECDc>");
    std::filesystem::remove(scratchFile());
    session.faults.failingWrites[scratchFile().string()] = 2;
    EXPECT_EQ(read(stored), "<C\u1ECDc>");
}

TEST_F(SurveyInfo, AlignmentsComeInTheDrawingsOrder)
{
    drawing.alignment("Tuy\u1EBFn 2");
    const uint64_t busy = drawing.alignment("T1").handle();
    drawing.alignment("A");
    session.open(drawing.dxf());
    const TestLock lock;
    const AcDbObjectPointer<AcDbObject> busyAlignment(open(busy), AcDb::kForWrite);
    AcDbObjectIdArray ids;
    std::vector<std::u16string> names{u"left over"};
    EXPECT_EQ(FindAlignments(ids, names), 3);
    EXPECT_THAT(names, ElementsAre(u"Tuy\u1EBFn 2", u"", u"A"));
    EXPECT_EQ(ids[1].handle().value(), busy);
}
