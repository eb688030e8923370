#include "host/app/disk.h"
#include "host/app/document.h"
#include "support/test_drawing.h"
#include "support/test_session.h"
#include "util/dialog_help.h"
#include "util/document_lock.h"
#include "util/folders.h"

TEST(DocumentLock, NestsOnTheCurrentDocument)
{
    {
        const TestSession empty;
        const OpenForWrite nothingToLock;
        EXPECT_EQ(ledger().lockDepth, 0);
    }
    TestSession session;
    const AcApDocument* const document = session.open(TestDrawing{}.dxf());
    {
        const OpenForWrite outer;
        const OpenForWrite inner;
        EXPECT_EQ(document->lockDepth(), 2);
    }
    EXPECT_EQ(document->lockDepth(), 0);
    SendCommandString(u"ZOOM");
    EXPECT_EQ(session.session().documents().curDocument()->pendingInput(), u"ZOOM");
    EXPECT_EQ(session.frontEnd.focused, session.frontEnd.mainWindow());
}

TEST(FileQuestions, GiveThePathThatTheUserChose)
{
    TestSession session;
    session.frontEnd.files = {u"/sym/C\u00E2y.dxf", std::nullopt};
    FileRequest request{FileDialog::kOpen, u"Select File", u"/module", u"dwg", true, true};
    EXPECT_EQ(AskFileName(request), u"/sym/C\u00E2y.dxf");
    request.kind = FileDialog::kSave;
    request.startIsFolder = false;
    EXPECT_EQ(AskFileName(request), std::nullopt);

    const std::vector<FileQuestion>& asked = session.frontEnd.fileQuestions;
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_FALSE(asked[0].saving);
    EXPECT_EQ(asked[0].title, u"Select File");
    EXPECT_EQ(asked[0].folder, u"/module");
    EXPECT_EQ(asked[0].defaultExtension, u"dwg");
    EXPECT_TRUE(asked[1].saving);
    EXPECT_EQ(asked[1].defaultName, u"/module");
}

TEST(Disk, FailsWhereTheSessionWantsItTo)
{
    TestSession session;
    session.folder().write("a", "earlier");
    const std::u16string path = session.folder().modulePath("a");
    const std::string native = (session.folder().path() / "a").string();

    session.faults.failingWrites[native] = 3;
    EXPECT_FALSE(ReplaceFile(path, "later"));
    EXPECT_EQ(session.folder().read("a"), "earlier");
    EXPECT_FALSE(WriteInPlace(path, "later"));
    EXPECT_EQ(session.folder().read("a"), "lat");
    EXPECT_TRUE(WriteInPlace(path, "abc"));

    session.faults.failingReads[native] = 2;
    EXPECT_EQ(ReadWholeFile(path), std::nullopt);
    session.faults.failingReads[native] = 4;
    EXPECT_EQ(ReadWholeFile(path), "abc");
}

TEST(UserDataFolder, IsTheOneThatTheSessionWasGiven)
{
    const TempFolder folder;
    host::SessionOptions options;
    options.userDataFolder = (folder.path() / "mine").string();
    const TestSession session(options);
    EXPECT_EQ(UserDataFolder(), folder.modulePath("mine"));
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "mine"));
}
