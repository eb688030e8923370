#include "frame/entry/module.h"

#include "frame/tracking/tracking.h"
#include "sections/database_cs.h"
#include "support/test_drawing.h"
#include "support/test_session.h"
#include "util/dialog_help.h"
#include "util/display_scale.h"
#include "util/folders.h"

namespace
{

class Module : public testing::Test
{
protected:
    AcApDocument* open() { return session.open(TestDrawing{}.dxf()); }
    void load() { session.session().loadModule(acrxEntryPoint, "/programs/veloxa/Veloxa.arx"); }
    bool knows(std::u16string_view command) { return acedRegCmds()->lookup(command) != nullptr; }
    static size_t reactorsOf(AcApDocument* document) { return document->database()->reactors().size(); }

    TestSession session;
};

} // namespace

TEST_F(Module, KnowsItsCommandsByBothNamesWhileItIsLoaded)
{
    load();
    for (const auto* name : {u"ZE", u"DSS", u"DVBD", u"PLX_SV_ZE", u"PLX_SV_DSS", u"PLX_SV_DVBD"})
    {
        ASSERT_TRUE(knows(name));
        EXPECT_EQ(acedRegCmds()->lookup(name)->group, u"PLX_SV");
    }
    session.session().unloadModule();
    EXPECT_TRUE(acedRegCmds()->commands().empty());
}

TEST_F(Module, TracksDocumentsThatAreOpenAndThoseOpenedLater)
{
    AcApDocument* const first = open();
    AcApDocument* const second = open();
    load();
    EXPECT_EQ(reactorsOf(first), 1u);
    EXPECT_EQ(reactorsOf(second), 1u);
    AcApDocument* const third = open();
    EXPECT_EQ(reactorsOf(third), 1u);
    acedEditor()->reactors().front()->endDwgOpen(third->database());
    EXPECT_EQ(reactorsOf(third), 1u) << "a second reactor takes the place of the first";
    EXPECT_EQ(TrackedDocuments(), 3u);

    acDocManagerPtr()->close(second);
    EXPECT_EQ(TrackedDocuments(), 2u);

    session.session().unloadModule();
    EXPECT_EQ(reactorsOf(first), 0u);
    EXPECT_EQ(reactorsOf(third), 0u);
    EXPECT_TRUE(acedEditor()->reactors().empty());
    EXPECT_TRUE(acDocManagerPtr()->reactors().empty());
}

TEST_F(Module, DoesNotTrackWhatComesUpWhileTrackingPauses)
{
    load();
    {
        const TrackingPause pause;
        EXPECT_EQ(reactorsOf(open()), 0u);
    }
    EXPECT_EQ(reactorsOf(open()), 1u);
}

TEST_F(Module, StartsWithFolderFontScaleAndStoredSettings)
{
    session.frontEnd.dpi = 192;
    const std::filesystem::path settings = session.session().options().userDataFolder;
    std::filesystem::create_directories(settings);
    std::ofstream(settings / "iniSymbol.cfg") << "TextHei=0.7\n";
    g_DatabaseCS.m_dDeltaY = 77;
    load();
    EXPECT_EQ(ModuleFolder, u"/programs/veloxa");
    ASSERT_TRUE(DialogFont.has_value());
    EXPECT_EQ(DialogFont->face, u"Tahoma");
    EXPECT_EQ(DialogFont->height, -22);
    EXPECT_EQ(ScaleByDisplay(100), 200);
    EXPECT_EQ(g_DatabaseCS.m_dTextHeight, 0.7);
    EXPECT_EQ(g_DatabaseCS.m_dDeltaY, 2) << "left over from an earlier session";

    EXPECT_EQ(acrxEntryPoint(AcRx::kLoadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_TRUE(knows(u"DSS"));
    session.session().unloadModule();
    EXPECT_FALSE(DialogFont.has_value());
}

TEST_F(Module, ForgetsTheIdsOfADrawingThatIsClosed)
{
    TestDrawing drawing;
    drawing.alignment("T1").section("C", {0, 20}, {0, -20}).ground({{-20, 3}, {20, 4}});
    load();
    AcApDocument* const document = session.open(drawing.dxf());
    open();
    acDocManagerPtr()->setCurrent(document);
    ASSERT_TRUE(session.session().runCommand(u"DSS"));
    ASSERT_TRUE(session.frontEnd.modeless.front()->userClose());
    ASSERT_EQ(g_DatabaseCS.m_listReferenceLines.size(), 1u);
    CrossSectionXdata& section = g_DatabaseCS.m_listReferenceLines[0].m_listCrossSections[0];
    section.m_arrDrawnIds = {section.m_idGroundLine};

    acDocManagerPtr()->close(document);
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        EXPECT_TRUE(line.m_idAlignment.isNull());
    EXPECT_TRUE(section.m_idGroundLine.isNull());
    EXPECT_TRUE(section.m_arrDrawnIds.empty());
    EXPECT_TRUE(session.session().runCommand(u"ZE"));
}
