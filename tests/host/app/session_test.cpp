#include "host/app/paths.h"
#include "host/db/entity/entity.h"
#include "host/db/host_services.h"
#include "host/ed/selection.h"
#include "support/plan_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

std::string emptyDrawing()
{
    return PlanDrawing{}.layer("0").text();
}

std::vector<int> messages;

AcRx::AppRetCode recordMessages(AcRx::AppMsgCode message, void*)
{
    messages.push_back(message);
    return AcRx::kRetOK;
}

std::vector<std::u16string> ran;

void first()
{
    ran.emplace_back(u"first");
    EXPECT_FALSE(host::Session::current().runCommand(u"SECOND")) << "while another command runs";
    acDocManagerPtr()->sendStringToExecute(acDocManagerPtr()->curDocument(), u"second\n");
    EXPECT_THAT(ran, ElementsAre(u"first"));
}

void second()
{
    ran.emplace_back(u"second");
}

/// Writes down what it hears.
class Listener : public AcApDocManagerReactor, public AcEditorReactor
{
public:
    std::vector<std::string> heard;

    void documentCreated(AcApDocument*) override { heard.emplace_back("created"); }
    void documentToBeDestroyed(AcApDocument* document) override
    {
        heard.emplace_back(document->database() != nullptr ? "to be destroyed" : "");
    }
    void endDwgOpen(AcDbDatabase* database) override
    {
        heard.emplace_back(acDocManagerPtr()->document(database) != nullptr ? "opened" : "opened without document");
    }
};

} // namespace

TEST(Session, NestsAndGivesBackTheOuterOne)
{
    EXPECT_FALSE(host::Session::hasCurrent());
    EXPECT_EQ(acDocManagerPtr(), nullptr);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
    TestSession outer;
    AcDbDatabase* drawing = outer.open(emptyDrawing())->database();
    {
        TestSession inner;
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
        EXPECT_EQ(&host::Session::current(), &inner.session());
    }
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), drawing);
}

TEST(Session, StartsAndStopsItsModule)
{
    messages.clear();
    {
        TestSession test;
        test.session().loadModule(recordMessages, "/usr/lib/veloxa/Veloxa.arx");
        EXPECT_EQ(test.session().moduleFile(u"veloxa.ARX"), "/usr/lib/veloxa/Veloxa.arx");
        EXPECT_EQ(test.session().moduleFile(u"Other.arx"), "");
        EXPECT_THAT(messages, ElementsAre(AcRx::kInitAppMsg));
    }
    EXPECT_THAT(messages, ElementsAre(AcRx::kInitAppMsg, AcRx::kUnloadAppMsg));
}

TEST(Session, MakesTheFolderOfTheUsersDataWhenItIsAskedForUnlessItIsGivenOne)
{
    const TempFolder home;
    const ScopedVariable config("XDG_CONFIG_HOME", (home.path() / "config").c_str());
    MemoryFrontEnd frontEnd;
    files::DxfReader reader;
    files::DxfWriter writer;
    {
        const host::Session session{reader, writer, frontEnd, {"/some/folder", {}}};
        EXPECT_EQ(dataFolderOverride(), u"/some/folder");
        EXPECT_FALSE(std::filesystem::exists(home.path() / "config"));
    }
    const host::Session session{reader, writer, frontEnd};
    EXPECT_EQ(dataFolderOverride(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(home.path() / "config"));
    EXPECT_EQ(roamingFolder(), home.modulePath("config"));
    EXPECT_TRUE(std::filesystem::is_directory(home.path() / "config/PLX"));
}

TEST(Session, FindsSymbolFilesAtTheirPathOrByNameInItsFolders)
{
    const TempFolder first;
    const TempFolder second;
    for (const char* name : {"CAY.dxf", "Giếng.DWG", "both.dxf", "Both.dxf"})
        second.write(name, "");
    first.write("cot.dxf", "");
    second.write("cot.dxf", "");
    std::filesystem::create_directory(first.path() / "cay.dxf");
    TestSession test{{"", {"/nowhere", first.path().string(), second.path().string()}}};
    const host::SymbolSearch& search = test.session().symbolSearch();
    test.folder().write("Own.dxf", "");
    second.write("own.dxf", "");
    const std::string own = (test.folder().path() / "Own.dxf").string();
    EXPECT_EQ(search.find(test.folder().modulePath("Own.dxf")), own);
    EXPECT_EQ(search.find(test.folder().modulePath("OWN.DXF")), own) << "letter case counts no more than the folder";
    EXPECT_EQ(search.find(u"D:\\Ký hiệu\\cay.DXF"), (second.path() / "CAY.dxf").string()) << "a folder is no file";
    EXPECT_EQ(search.find(u"D:/Ký hiệu\\giẾng.dwg"), (second.path() / "Giếng.DWG").string());
    EXPECT_EQ(search.find(u"D:cot.dxf"), (first.path() / "cot.dxf").string()) << "folders in their order";
    EXPECT_EQ(search.find(u"x\\both.dxf"), (second.path() / "both.dxf").string());
    EXPECT_EQ(search.find(u"x\\BOTH.dxf"), (second.path() / "Both.dxf").string());
    for (const auto* path : {u"D:\\none.dxf", u"D:\\", u"", u"D:"})
        EXPECT_EQ(search.find(path), std::nullopt);
    EXPECT_EQ(search.whyMissing(u"D:\\a\\none.dxf"), "D:/a/none.dxf: no such file, and no none.dxf in /nowhere, " +
                                                         first.path().string() + ", " + second.path().string());
}

TEST(Documents, AreAnnouncedOpenedAndClosed)
{
    TestSession test;
    Listener listener;
    acDocManagerPtr()->addReactor(&listener);
    acDocManagerPtr()->addReactor(&listener);
    acedEditor()->addReactor(&listener);

    AcApDocument* one = test.open(emptyDrawing());
    EXPECT_THAT(listener.heard, ElementsAre("created", "opened"));
    AcApDocument* two = test.open(emptyDrawing());
    AcApDocument* three = test.open(emptyDrawing());
    EXPECT_EQ(acDocManagerPtr()->curDocument(), three);
    acDocManagerPtr()->setCurrent(one);
    listener.heard.clear();
    acDocManagerPtr()->close(three);
    EXPECT_THAT(listener.heard, ElementsAre("to be destroyed"));
    EXPECT_EQ(acDocManagerPtr()->curDocument(), two) << "the one opened last";

    std::vector<AcApDocument*> open;
    for (auto each = acDocManagerPtr()->newAcApDocumentIterator(); !each->done(); each->step())
        open.push_back(each->document());
    EXPECT_THAT(open, ElementsAre(one, two));

    EXPECT_ANY_THROW(acDocManagerPtr()->open(u"/nowhere/none.dxf"));
    EXPECT_EQ(acDocManagerPtr()->count(), 2U);
    acDocManagerPtr()->removeReactor(&listener);
    acedEditor()->removeReactor(&listener);
}

TEST(Documents, LocksNestAndWritesOutsideThemAreNoted)
{
    TestSession test;
    AcApDocument* document = test.open(PlanDrawing{}.layer("0").add(PlanDrawing{}.line(0, 0, 1, 1)).text());
    AcDbObjectId line;
    test.drawing().getAcDbObjectId(line, false, AcDbHandle{PlanDrawing::kFirst});
    {
        const TestLock outer;
        {
            const TestLock inner;
            EXPECT_EQ(document->lockDepth(), 2);
        }
        EXPECT_TRUE(acdbHostApplicationServices()->isWriteAllowed(&test.drawing()));
        AcDbObjectPointer<AcDbEntity>
        {
            line, AcDb::kForWrite
            } -> erase();
    }
    EXPECT_THAT(ledger().faults, IsEmpty());
    const AcDbDatabase side;
    EXPECT_TRUE(acdbHostApplicationServices()->isWriteAllowed(&side));
    EXPECT_FALSE(acdbHostApplicationServices()->isWriteAllowed(&test.drawing()));
    AcDbObjectPointer<AcDbEntity>
    {
        line, AcDb::kForWrite, true
        } -> erase(false);
    EXPECT_THAT(test.takeFaults(), ElementsAre(HasSubstr("lock")));

    EXPECT_EQ(acDocManagerPtr()->unlockDocument(document), Acad::eLockViolation);
    EXPECT_THAT(test.takeFaults(), ElementsAre(HasSubstr("not locked")));
}

TEST(Ledger, SaysWhatIsLeftOver)
{
    TestSession test;
    AcApDocument* document = test.open(PlanDrawing{}.layer("0").add(PlanDrawing{}.line(0, 0, 1, 1)).text());
    acDocManagerPtr()->lockDocument(document);
    ads_name set;
    ASSERT_EQ(acedSSGet(u"X", nullptr, nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(ledger().describe(), "document locks: 1; selection sets: 1");
    EXPECT_FALSE(ledger().clean());
    acedSSFree(set);
    acDocManagerPtr()->unlockDocument(document);
    EXPECT_TRUE(ledger().clean());
}

TEST(Commands, RunByEitherNameOneAtATime)
{
    TestSession test;
    auto* commands = dynamic_cast<AcEdCommandStack*>(acrxSysRegistry()->at(u"ACAD_REGISTERED_COMMANDS"));
    ASSERT_NE(commands, nullptr);
    EXPECT_EQ(commands->addCommand(u"PLX_SV", u"PLX_SV_FIRST", u"FIRST", ACRX_CMD_MODAL, first), Acad::eOk);
    EXPECT_EQ(commands->addCommand(u"PLX_SV", u"PLX_SV_SECOND", u"SECOND", ACRX_CMD_MODAL, second), Acad::eOk);
    EXPECT_EQ(commands->addCommand(u"OTHER", u"OTHER_FIRST", u"first", ACRX_CMD_MODAL, second),
              Acad::eDuplicateRecordName);

    ran.clear();
    EXPECT_FALSE(test.session().runCommand(u"FIRST")) << "without a drawing";
    test.open(emptyDrawing());
    EXPECT_FALSE(test.session().runCommand(u"THIRD"));
    EXPECT_TRUE(test.session().runCommand(u"plx_sv_first"));
    EXPECT_THAT(ran, ElementsAre(u"first", u"second")) << "what was sent runs after the command";

    EXPECT_EQ(commands->removeGroup(u"plx_sv"), Acad::eOk);
    EXPECT_FALSE(test.session().runCommand(u"FIRST"));
}

TEST(CommandLine, RunsWholeLinesAndEscapeTakesBackWhatIsPending)
{
    TestSession test;
    AcApDocument* document = test.open(PlanDrawing{}.layer("0").view(0, 0, 10, 1).text());
    const auto send = [document](const char16_t* text) { acDocManagerPtr()->sendStringToExecute(document, text); };

    send(u"Zoom e");
    send(u"\x1b");
    send(u"nonsense\nZoom ");
    test.session().runPending();
    EXPECT_FALSE(document->view().showsEverything());
    EXPECT_EQ(document->pendingInput(), u"Zoom ");
    send(u"e\n");
    test.session().runPending();
    EXPECT_TRUE(document->view().showsEverything());
    EXPECT_EQ(document->pendingInput(), u"");
}
