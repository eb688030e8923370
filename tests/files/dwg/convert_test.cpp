#include "files/dwg/convert.h"

#include "files/dwg/workshop.h"

#include <csignal>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;
using testing::SizeIs;

namespace
{

std::string dxfOf(const std::string& what)
{
    return "999\n" + what + "\n0\nEOF\n";
}

void waitUntil(const std::function<bool()>& holds)
{
    for (int i = 0; i < 500 && !holds(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

} // namespace

TEST(IsDwg, GoesByContent)
{
    EXPECT_TRUE(dwg::isDwg("AC1032\0\0\0"));
    EXPECT_TRUE(dwg::isDwg("AC1009"));
    EXPECT_TRUE(dwg::isDwg("AC2.10"));
    EXPECT_FALSE(dwg::isDwg("AC101"));
    EXPECT_FALSE(dwg::isDwg("AC10x5..."));
    EXPECT_FALSE(dwg::isDwg("  0\nSECTION\n"));
    EXPECT_FALSE(dwg::isDwg(""));
}

TEST(ConvertDwg, ABadFileCostsOnlyItself)
{
    const Workshop workshop;
    dwg::Options options = workshop.pretended();
    options.timeLimit = std::chrono::seconds(1);
    options.memoryLimit = 1U << 30U;

    const std::vector<dwg::Outcome> outcomes = dwg::convert(
        {workshop.drawing("a.dwg", "first"), workshop.drawing("b.dwg", "hang"), workshop.drawing("c.dwg", "second"),
         workshop.drawing("d.dwg", "crash"), workshop.drawing("e.dwg", "eat"), workshop.drawing("f.dwg", "refuse"),
         workshop.file("g.dwg", "0\nSECTION\n"), workshop.path() / "none.dwg", workshop.path(),
         workshop.drawing("i.dxf", "third"), workshop.drawing("j.dwg", "sleep")},
        options);

    ASSERT_THAT(outcomes, SizeIs(11));
    EXPECT_EQ(outcomes[0].dxf, dxfOf("first"));
    // On a machine that is busy with other work the clock may run out first.
    EXPECT_THAT(outcomes[1].reason,
                AnyOf("the conversion took more than 1 s of processor time", "the conversion did not end within 5 s"));
    EXPECT_EQ(outcomes[2].dxf, dxfOf("second"));
    EXPECT_EQ(outcomes[3].reason, "the DWG converter broke down on it (signal 6)");
    EXPECT_THAT(outcomes[4].reason, HasSubstr("the DWG converter broke down on it"));
    EXPECT_EQ(outcomes[5].reason, "no such thing");
    EXPECT_EQ(outcomes[6].reason, "not a DWG file");
    EXPECT_EQ(outcomes[7].reason, "no such file");
    EXPECT_EQ(outcomes[8].reason, "is a folder, not a file");
    EXPECT_EQ(outcomes[9].dxf, dxfOf("third"));
    EXPECT_EQ(outcomes[10].reason, "the conversion did not end within 5 s");
    EXPECT_FALSE(workshop.somethingIsLeft());
}

TEST(ConvertDwg, VersionsThatCannotBeReadAreNamed)
{
    const Workshop workshop;
    for (const auto& [begin, says] : {std::pair{"AC1012 ", "DWG version R13 (AC1012) is too old"},
                                      {"AC1009 ", "DWG version R12 (AC1009) is too old"},
                                      {"AC2.10 ", "DWG version AC2.10 is too old"},
                                      {"MC0.0 ", "DWG version MC0.0 is too old"},
                                      {"AC1035 ", "DWG version AC1035 is too new"}})
        EXPECT_THAT(dwg::convert({workshop.file("a.dwg", begin)}, workshop.pretended())[0].reason, HasSubstr(says));
}

TEST(ConvertDwg, AFileIsNotBlamedForWhatEarlierOnesDidToTheConverter)
{
    const Workshop workshop;

    const auto outcomes =
        dwg::convert({workshop.drawing("a.dwg", "first"), workshop.drawing("b.dwg", "late")}, workshop.pretended());

    EXPECT_EQ(outcomes[1].dxf, dxfOf("late"));
    EXPECT_EQ(workshop.starts(), 2);
}

TEST(ConvertDwg, AConverterThatDoesNotStartIsTriedOnce)
{
    const Workshop workshop;
    workshop.file("adapter/dwg2dxf.mjs", "import fs from 'node:fs';"
                                         "fs.appendFileSync(new URL('started', import.meta.url), 'x\\n');"
                                         "process.exit(3);");

    const auto outcomes =
        dwg::convert({workshop.drawing("a.dwg", "first"), workshop.drawing("b.dwg", "second")}, workshop.pretended());

    EXPECT_EQ(outcomes[0].reason, "the DWG converter does not start (exit status 3)");
    EXPECT_EQ(outcomes[1].reason, outcomes[0].reason);
    EXPECT_EQ(workshop.starts(), 1);
}

TEST(ConvertDwg, WithoutNodeOrThePackageTheReasonSaysWhatToDo)
{
    const Workshop workshop;
    const fs::path drawing = workshop.drawing("a.dwg", "first");
    dwg::Options options = workshop.pretended();

    options.node = "no-such-node";
    EXPECT_THAT(dwg::convert({drawing}, options)[0].reason, HasSubstr("Node.js is missing"));
    options.node = workshop.path() / "node";
    EXPECT_THAT(dwg::convert({drawing}, options)[0].reason, HasSubstr("Node.js is missing"));
    options.node = "node";
    fs::remove_all(options.adapter / "node_modules");
    EXPECT_THAT(dwg::convert({drawing}, options)[0].reason, HasSubstr("run ./run once"));
}

TEST(ConvertDwg, TheConverterDiesWithTheProgram)
{
    const Workshop workshop;
    const fs::path drawing = workshop.drawing("a.dwg", "hang");
    const pid_t program = fork();
    if (program == 0)
    {
        dwg::convert({drawing}, workshop.pretended());
        _exit(0);
    }
    waitUntil([&] { return workshop.starts() == 1; });
    const pid_t converter = std::stoi(contentOf(workshop.path() / "adapter" / "started"));
    ASSERT_EQ(kill(converter, 0), 0);

    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);

    // An orphan may stay a zombie for a while, until someone collects it.
    const auto isDead = [&]
    {
        const std::string state = contentOf("/proc/" + std::to_string(converter) + "/stat");
        return state.empty() || state.find(") Z ") != std::string::npos;
    };
    waitUntil(isDead);
    EXPECT_TRUE(isDead());
}

TEST(DwgCache, ConvertsAgainOnlyWhenTheDrawingOrTheConverterChanged)
{
    const Workshop workshop;
    const dwg::Options options = workshop.pretended();
    const fs::path drawing = workshop.drawing("a.dwg", "first");
    const auto startsFor = [&](const fs::path& file)
    {
        const int before = workshop.starts();
        EXPECT_TRUE(dwg::convert({file}, options)[0].ok());
        return workshop.starts() - before;
    };

    EXPECT_EQ(startsFor(drawing), 1);
    EXPECT_EQ(startsFor(drawing), 0);
    EXPECT_EQ(startsFor(workshop.drawing("elsewhere/b.dwg", "first")), 0);
    EXPECT_EQ(startsFor(workshop.drawing("a.dwg", "changed")), 1);
    workshop.file("adapter/more.mjs", "// a newer version");
    EXPECT_EQ(startsFor(drawing), 1);
}

TEST(DwgCache, RemembersARefusalUntilTheDrawingOrTheLimitsChange)
{
    const Workshop workshop;
    dwg::Options options = workshop.pretended();
    options.timeLimit = std::chrono::seconds(1);
    for (const char* trouble : {"refuse", "crash", "hang"})
    {
        const fs::path drawing = workshop.drawing("a.dwg", trouble);
        const std::string reason = dwg::convert({drawing}, options)[0].reason;
        const int before = workshop.starts();
        EXPECT_EQ(dwg::convert({drawing}, options)[0].reason, reason) << trouble;
        EXPECT_NE(reason, "");
        EXPECT_EQ(workshop.starts(), before) << trouble;
    }
    const int before = workshop.starts();
    EXPECT_TRUE(dwg::convert({workshop.drawing("a.dwg", "mended")}, options)[0].ok());
    options.memoryLimit /= 2;
    EXPECT_FALSE(dwg::convert({workshop.drawing("a.dwg", "refuse")}, options)[0].ok());
    EXPECT_EQ(workshop.starts(), before + 2);
    dwg::convert({workshop.drawing("a.dwg", "killed")}, options);
    dwg::convert({workshop.path() / "a.dwg"}, options);
    EXPECT_EQ(workshop.starts(), before + 4) << "a converter that someone else ended says nothing about the drawing";
}

TEST(DwgCache, KeepsWhatTheConversionLost)
{
    const Workshop workshop;
    for (int i = 0; i < 2; ++i)
    {
        const dwg::Outcome outcome = dwg::convert({workshop.drawing("a.dwg", "lossy")}, workshop.pretended())[0];
        EXPECT_EQ(outcome.dxf, dxfOf("lossy"));
        EXPECT_THAT(outcome.lost, ElementsAre(Pair("ACAD_TABLE", 1), Pair("MULTILEADER", 2)));
    }
    EXPECT_EQ(workshop.starts(), 1);
}

TEST(DwgCache, AnEntryThatIsCutOffIsMadeAgain)
{
    const Workshop workshop;
    const fs::path drawing = workshop.drawing("a.dwg", "first");
    dwg::convert({drawing}, workshop.pretended());
    ASSERT_THAT(filesIn(workshop.cache()), SizeIs(1));
    const fs::path entry = filesIn(workshop.cache())[0];

    for (const std::uintmax_t size : {0, 7})
    {
        fs::resize_file(entry, size);
        EXPECT_EQ(dwg::convert({drawing}, workshop.pretended())[0].dxf, dxfOf("first"));
        EXPECT_EQ(contentOf(entry), "ok\n" + dxfOf("first"));
    }
}

TEST(DwgCache, DropsWhatWasLongestUnused)
{
    const Workshop workshop;
    dwg::Options options = workshop.pretended();
    options.cacheLimit = 3 * ("ok\n" + dxfOf("1")).size();
    for (const char* name : {"1", "2", "3"})
    {
        dwg::convert({workshop.drawing(name, name)}, options);
        std::this_thread::sleep_for(std::chrono::milliseconds(20)); // the file system's clock is coarse
    }
    dwg::convert({workshop.path() / "1"}, options);

    dwg::convert({workshop.drawing("4", "4")}, options);

    EXPECT_THAT(filesIn(workshop.cache()), SizeIs(3));
    const int before = workshop.starts();
    dwg::convert({workshop.path() / "1", workshop.path() / "3", workshop.path() / "4"}, options);
    EXPECT_EQ(workshop.starts(), before);
}

TEST(DwgCache, WhereNothingCanBeKeptDrawingsAreStillRead)
{
    const Workshop workshop;
    const fs::path drawing = workshop.drawing("a.dwg", "first");
    dwg::Options options = workshop.pretended();

    for (const fs::path& cache : {fs::path(), workshop.file("file", "") / "cache", fs::path("/proc/self/cache")})
    {
        options.cache = cache;
        EXPECT_EQ(dwg::convert({drawing}, options)[0].dxf, dxfOf("first")) << cache;
    }
}

TEST(DwgCache, TwoProgramsMayFillItAtOnce)
{
    const Workshop workshop;
    std::vector<fs::path> drawings;
    for (const char content : std::string("0123456789abcdefghij"))
        drawings.push_back(workshop.drawing({content}, {content}));
    const auto convertAll = [&]
    {
        const auto outcomes = dwg::convert(drawings, workshop.pretended());
        for (std::size_t i = 0; i < outcomes.size(); ++i)
            EXPECT_EQ(outcomes[i].dxf, dxfOf(drawings[i].filename()));
    };

    std::thread other(convertAll);
    convertAll();
    other.join();

    EXPECT_THAT(filesIn(workshop.cache()), SizeIs(20));
    const int before = workshop.starts();
    convertAll();
    EXPECT_EQ(workshop.starts(), before);
}
