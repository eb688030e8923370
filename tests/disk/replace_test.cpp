#include "disk/replace.h"

#include "disk/error.h"
#include "disk/read.h"
#include "disk/signals.h"
#include "disk/temporary.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <sys/wait.h>

namespace
{

class DemandedSteps : public disk::Faults
{
public:
    std::map<std::pair<disk::Step, std::string>, int> refused;
    int64_t room = -1;
    std::function<void(disk::Step)> onStep = [](disk::Step) {};

    int64_t failWriteAt(const std::string&) override { return room; }
    int refuse(disk::Step step, const std::string& path) override
    {
        onStep(step);
        const auto found = refused.find({step, path});
        return found == refused.end() ? 0 : found->second;
    }
};

/// A folder with a drawing and its earlier state.
struct Shelf
{
    Shelf()
    {
        folder.write("a.dxf", "now");
        folder.write("a.dxf.bak", "before");
    }
    std::string held() const { return folder.read("a.dxf") + '|' + folder.read("a.dxf.bak"); }

    TempFolder folder;
    std::string path = folder.path() / "a.dxf";
    DemandedSteps faults;
};

/// How a child process ends that does `work`.
int endOf(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0)
    {
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

} // namespace

TEST(ReplacedFile, KeepsTheEarlierOneAndNeverLeavesHalfOfOne)
{
    const TempFolder folder;
    const std::string path = folder.path() / "a.dxf";
    disk::replaceFile(path, {"one", "", " two"}, {.keepEarlier = true});
    EXPECT_EQ(disk::readFile(path).view(), "one two");
    disk::replaceFile(path, {"three"}, {.keepEarlier = true});
    EXPECT_EQ(folder.read("a.dxf"), "three");
    EXPECT_EQ(folder.read("a.dxf.bak"), "one two");
    EXPECT_THROW(disk::replaceFile(folder.path() / "missing" / "b.dxf", {"x"}), disk::FileError);
    EXPECT_THROW(disk::replaceFile("/dev/null", {"x"}), disk::FileError);
    EXPECT_EQ(folder.count(), 2U);
}

TEST(ReplacedFile, AStepThatFailsLeavesTheFolderAsItWas)
{
    Shelf shelf;
    const std::string backup = shelf.path + ".bak";
    const auto fails = [&]
    {
        EXPECT_THROW(disk::replaceFile(shelf.path, {"new"}, {.keepEarlier = true}, shelf.faults), disk::FileError);
        EXPECT_EQ(shelf.held(), "now|before");
        EXPECT_EQ(shelf.folder.count(), 2U);
    };
    for (const auto& step :
         {std::pair{disk::Step::kSync, shelf.path}, {disk::Step::kRename, shelf.path}, {disk::Step::kRename, backup}})
    {
        shelf.faults.refused = {{step, EIO}};
        fails();
    }
    shelf.faults.refused.clear();
    shelf.faults.room = 2;
    fails();
}

TEST(ReplacedFile, WhatAFileSystemLacksDoesNotHinderIt)
{
    Shelf shelf;
    shelf.faults.refused = {{{disk::Step::kMode, shelf.path}, EPERM},
                            {{disk::Step::kOwner, shelf.path}, EPERM},
                            {{disk::Step::kLock, shelf.path}, ENOTSUP},
                            {{disk::Step::kLink, shelf.path + ".bak"}, EPERM}};
    disk::replaceFile(shelf.path, {"new"}, {.keepEarlier = true}, shelf.faults);
    EXPECT_EQ(shelf.held(), "new|now") << "kept by copying";
    EXPECT_EQ(shelf.folder.count(), 2U);
}

TEST(ReplacedFile, IsStillTheOneThatWasSeenUntilItsContentsChange)
{
    Shelf shelf;
    const disk::ReplaceRules rules{.keepEarlier = true, .seen = disk::stampOf(shelf.path)};
    shelf.faults.refused = {{{disk::Step::kRename, shelf.path}, EIO}};
    EXPECT_THROW(disk::replaceFile(shelf.path, {"new"}, rules, shelf.faults), disk::FileError);
    std::filesystem::permissions(shelf.path, std::filesystem::perms::owner_all);
    std::filesystem::create_hard_link(shelf.path, shelf.path + ".kept");
    disk::replaceFile(shelf.path, {"new"}, rules);
    EXPECT_EQ(shelf.held(), "new|now") << "tried again, after a failure and other rights and names";

    EXPECT_THROW(disk::replaceFile(shelf.path, {"other"}, rules), disk::ChangedFile) << "another file";
    const disk::ReplaceRules again{.seen = disk::stampOf(shelf.path)};
    shelf.folder.write("a.dxf", "NEW");
    std::filesystem::last_write_time(shelf.path,
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds{1});
    EXPECT_THROW(disk::replaceFile(shelf.path, {"other"}, again), disk::ChangedFile) << "of the same size";
    EXPECT_EQ(shelf.held(), "NEW|now");
}

TEST(ReplacedFile, ABackupThatIsAnotherNameOfTheFileIsReplacedToo)
{
    Shelf shelf;
    std::filesystem::remove(shelf.path + ".bak");
    std::filesystem::create_hard_link(shelf.path, shelf.path + ".bak");
    disk::replaceFile(shelf.path, {"new"}, {.keepEarlier = true});
    EXPECT_EQ(shelf.held(), "new|now");
    EXPECT_EQ(shelf.folder.count(), 2U);
}

TEST(ReplacedFile, IsWrittenInPlaceWhereNoOtherCanBeMadeAndKeepsItsBytesWhenThatFails)
{
    // A path that leaves no room for a temporary name: a folder that may not be written, for root as well.
    constexpr size_t kLength = PATH_MAX - 10;
    const TempFolder top;
    std::string folder = top.path();
    while (folder.size() < kLength - 1)
        folder += '/' + std::string(std::min<size_t>(NAME_MAX, kLength - folder.size() - 1), 'd');
    std::filesystem::create_directories(folder);
    const std::string path = folder + "/a";
    ASSERT_TRUE(disk::writeInPlace(path, "before"));

    EXPECT_THROW(disk::replaceFile(path, {"new"}), disk::FileError);
    DemandedSteps faults;
    for (faults.room = 0; faults.room < 10; faults.room += 3)
    {
        EXPECT_THROW(disk::replaceFile(path, {"longer ", "than before"}, {.inPlaceIfNeeded = true}, faults),
                     disk::FileError);
        EXPECT_EQ(disk::readFile(path).view(), "before");
    }
    disk::replaceFile(path, {"new"}, {.inPlaceIfNeeded = true});
    EXPECT_EQ(disk::readFile(path).view(), "new");
}

TEST(ReplacedFile, ASignalLeavesNoTemporaryFileAndEndsTheProgram)
{
    for (const auto& [step, held] : {std::pair{disk::Step::kSync, "now|before"}, {disk::Step::kRename, "new|now"}})
    {
        Shelf shelf;
        shelf.faults.onStep = [at = step](disk::Step now)
        {
            if (now == at)
                raise(SIGTERM);
        };
        const int status = endOf(
            [&]
            {
                disk::cleanUpOnSignals();
                disk::replaceFile(shelf.path, {"new"}, {.keepEarlier = true}, shelf.faults);
            });
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
        EXPECT_EQ(shelf.held(), held) << "what belongs together is done as a whole";
        EXPECT_EQ(shelf.folder.count(), 2U);
    }
}

TEST(ReplacedFile, ASignalThatIsIgnoredStaysIgnored)
{
    Shelf shelf;
    shelf.faults.onStep = [](disk::Step) { raise(SIGHUP); };
    const int status = endOf(
        [&]
        {
            std::signal(SIGHUP, SIG_IGN);
            disk::cleanUpOnSignals();
            disk::replaceFile(shelf.path, {"new"}, {.keepEarlier = true}, shelf.faults);
        });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(shelf.held(), "new|now");
}

TEST(TemporaryFolders, GoWithAllThatIsInThemWhenASignalEndsTheProgram)
{
    const TempFolder parent;
    const ScopedVariable place("TMPDIR", parent.path().c_str());
    endOf(
        []
        {
            disk::cleanUpOnSignals();
            const disk::TemporaryFolder folder;
            disk::replaceFile(folder.path() + "/0.dwg", {"x"});
            raise(SIGINT);
        });
    EXPECT_EQ(parent.count(), 0U);
}

TEST(Leftovers, OfProcessesThatAreGoneAreClearedAndNothingElse)
{
    const TempFolder folder;
    const std::string random = "-0123456789abcdef.tmp";
    const pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    waitpid(gone, nullptr, 0);
    const std::string dead = ".veloxa-" + std::to_string(gone) + random;
    const std::vector<std::string> kept = {".veloxa-" + std::to_string(getppid()) + random,
                                           ".veloxa-" + std::to_string(gone) + "-0123.tmp",
                                           ".veloxa-0" + std::to_string(gone) + random,
                                           ".veloxa-" + std::to_string(gone) + "-0123456789abcdeg.tmp",
                                           "x" + dead,
                                           "road.dxf.backup",
                                           "road.dxf.a1B2c3"};
    for (const std::string& name : kept)
        folder.write(name, "");
    folder.write(dead, "");
    disk::replaceFile(folder.path() / "a.dxf", {"x"});
    EXPECT_FALSE(std::filesystem::exists(folder.path() / dead));
    EXPECT_EQ(folder.count(), kept.size() + 1);
}
