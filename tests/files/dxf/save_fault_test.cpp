#include "files/dxf/dxf_text.h"
#include "files/dxf/error.h"
#include "store/handle_table.h"
#include "support/test_session.h"

#include <filesystem>

TEST(SavingADrawing, AFullDiskAtAnyByteLeavesTheFolderAsItWas)
{
    TestSession session;
    session.open(smallDrawing());
    session.drawing().setErased(*session.drawing().handles().find(0x30), true);
    const std::string path = (session.folder().path() / "drawing1.dxf").string();
    const auto size = static_cast<int64_t>(smallDrawing().size());
    for (const int64_t byte : {int64_t{0}, int64_t{1}, size / 2})
    {
        session.faults.failingWrites[path] = byte;
        EXPECT_THROW(session.session().saveCurrent(toUtf16(path)), files::FileError);
        EXPECT_EQ(session.folder().read("drawing1.dxf"), smallDrawing());
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator{session.folder().path()}, {}), 1);
    }
    session.faults.failingWrites.clear();
    session.session().saveCurrent(toUtf16(path));
    EXPECT_LT(session.folder().read("drawing1.dxf").size(), smallDrawing().size());
    EXPECT_EQ(session.folder().read("drawing1.dxf.bak"), smallDrawing());
}

TEST(OpeningADrawing, AFileThatCannotBeReadToItsEndIsNotOpened)
{
    TestSession session;
    const std::string path = (session.folder().path() / "drawing1.dxf").string();
    session.faults.failingReads[path] = 100;
    EXPECT_THROW(session.open(smallDrawing()), files::FileError);
    EXPECT_EQ(session.session().documents().count(), 0U);
}
