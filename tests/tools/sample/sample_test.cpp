#include "support/temp_folder.h"
#include "tools/sample/dxf_records.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace
{
const std::filesystem::path kSamples = std::filesystem::path(VELOXA_SOURCE_DIR) / "samples";

std::string FileText(const std::filesystem::path& path)
{
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

int Roadgen(const std::string& arguments)
{
    const std::string command = VELOXA_BINARY_DIR "/bin/roadgen " + arguments + " > /dev/null 2>&1";
    return std::system(command.c_str()); // NOLINT(bugprone-command-processor): our own program, our own arguments
}

/// A drawing's records by what the tests ask of them.
class Drawing
{
public:
    explicit Drawing(const std::filesystem::path& path) : m_records(ReadDxfRecords(path.string()))
    {
        for (const DxfRecord& record : m_records)
        {
            const std::string handle = record.First(record.type == "DIMSTYLE" ? 105 : 5);
            if (!handle.empty() && record.type != "SECTION" && !m_byHandle.emplace(handle, &record).second)
                ADD_FAILURE() << "handle " << handle << " is given twice";
        }
    }

    std::vector<const DxfRecord*> Of(const std::string& type) const
    {
        std::vector<const DxfRecord*> found;
        for (const DxfRecord& record : m_records)
            if (record.type == type)
                found.push_back(&record);
        return found;
    }

    std::map<std::string, int> CodedPolylines() const
    {
        std::map<std::string, int> count;
        for (const DxfRecord& record : m_records)
            if ((record.type == "LWPOLYLINE" || record.type == "POLYLINE") && !record.SurveyCode().empty())
                ++count[record.First(100) + (record.type == "POLYLINE" ? record.All(100).at(1) : "")];
        return count;
    }

    std::vector<SectionTags> Sections() const
    {
        std::vector<SectionTags> all;
        for (const DxfRecord* alignment : Of("PLXDBALIGNMENT"))
            for (const SectionTags& section : SectionsOf(*alignment))
                all.push_back(section);
        return all;
    }

    const DxfRecord& At(const std::string& handle) const { return *m_byHandle.at(handle); }
    const std::map<std::string, const DxfRecord*>& Handles() const { return m_byHandle; }
    const DxfRecord& Header() const { return m_records.front(); }

private:
    std::vector<DxfRecord> m_records;
    std::map<std::string, const DxfRecord*> m_byHandle;
};

int Total(const std::map<std::string, int>& counts)
{
    int sum = 0;
    for (const auto& [name, count] : counts)
        sum += count;
    return sum;
}

TEST(Sample, CommittedFilesAreWhatTheGeneratorWrites)
{
    const TempFolder folder;
    const std::filesystem::path& fresh = folder.path();
    ASSERT_EQ(Roadgen("--km 1 --out " + (fresh / "road.dxf").string() + " --library " + (fresh / "road.dv").string() +
                      " --table " + (fresh / "road.dvbd").string()),
              0);
    for (const char* name : {"road.dxf", "road.dv", "road.dvbd"})
        EXPECT_TRUE(FileText(fresh / name) == FileText(kSamples / name)) << name << ": make the sample again";
}

TEST(Sample, HasWhatAKilometreOfRoadHas)
{
    const Drawing drawing(kSamples / "road.dxf");
    EXPECT_EQ(drawing.Of("PLXDBALIGNMENT").size(), 2U);
    EXPECT_EQ(drawing.Sections().size(), 50U);
    EXPECT_EQ(drawing.Of("PLXDBMEASUREPOINTOBJ").size(), 1000U);
    const auto lines = drawing.CodedPolylines();
    EXPECT_EQ(Total(lines), 48);
    EXPECT_EQ(lines.size(), 3U) << "all three classes of polyline";
    EXPECT_GE(drawing.Handles().size(), 10'000U);
    EXPECT_EQ(Drawing(kSamples / "road.dxf").Of("VIEWPORT").size(), 2U);
}

TEST(Sample, ExactCountsAreKept)
{
    const TempFolder folder;
    const std::string path = (folder.path() / "counts.dxf").string();
    ASSERT_EQ(Roadgen("--sections 31 --polylines 377 --points 333 --alignments 3 --out " + path), 0);
    const Drawing drawing(path);
    EXPECT_EQ(drawing.Of("PLXDBALIGNMENT").size(), 3U);
    EXPECT_EQ(drawing.Sections().size(), 31U);
    EXPECT_EQ(Total(drawing.CodedPolylines()), 377);
    EXPECT_EQ(drawing.Of("PLXDBMEASUREPOINTOBJ").size(), 333U);
    for (const DxfRecord* type : drawing.Of("CLASS"))
        EXPECT_EQ(std::stoul(type->First(91)), drawing.Of(type->First(1)).size()) << type->First(1);
}

TEST(Sample, SizeAskedForIsMetAndSeedsDiffer)
{
    const TempFolder folder;
    const auto path = folder.path() / "size.dxf";
    ASSERT_EQ(Roadgen("--mb 4 --out " + path.string()), 0);
    EXPECT_NEAR(static_cast<double>(std::filesystem::file_size(path)), 4e6, 1e5);
    const std::string first = FileText(path);
    ASSERT_EQ(Roadgen("--mb 4 --seed 2 --out " + path.string()), 0);
    EXPECT_NE(first, FileText(path));
}

TEST(Sample, HandlesAndReferencesHold)
{
    const Drawing drawing(kSamples / "road.dxf");
    const auto& header = drawing.Header().tags;
    const auto seed = std::find(header.begin(), header.end(), std::pair<int, std::string>{9, "$HANDSEED"});
    ASSERT_NE(seed, header.end());
    for (const auto& [handle, record] : drawing.Handles())
    {
        EXPECT_LT(std::stoul(handle, nullptr, 16), std::stoul((seed + 1)->second, nullptr, 16));
        for (const std::string& owner : record->All(330))
            EXPECT_TRUE(owner == "0" || drawing.Handles().contains(owner)) << record->type << " " << handle;
    }
}

TEST(Sample, SectionPointsLieOnTheirSectionLine)
{
    const Drawing drawing(kSamples / "road.dxf");
    std::set<std::string> codes;
    for (const SectionTags& section : drawing.Sections())
    {
        EXPECT_GE(section.points.size(), 5U);
        const double length = std::hypot(section.bx - section.ax, section.by - section.ay);
        EXPECT_NEAR(length, section.name[0] == 'C' ? 50 : 60, 1e-3);
        bool ownDc = false;
        for (const std::string& handle : section.points)
        {
            const DxfRecord& point = drawing.At(handle);
            ASSERT_EQ(point.type, "PLXDBMEASUREPOINTOBJ");
            const double cross = (point.Number(10) - section.ax) * (section.by - section.ay) -
                                 (point.Number(20) - section.ay) * (section.bx - section.ax);
            EXPECT_LT(std::abs(cross / length), 5e-4) << "too far off for its side to be told";
            ownDc = ownDc || point.First(1).starts_with("DC");
            codes.insert(point.First(1));
        }
        EXPECT_EQ(section.dcOffsets.size(), ownDc ? 0U : 2U) << section.name;
    }
    for (const char* code : {"", "CAY", "MT1", "MP1", "DC1", "DC_T", "Cột điện", "CỘT ĐIỆN"})
        EXPECT_TRUE(codes.contains(code)) << code;
}

TEST(Sample, GroundLinesRunAboveTheDatumOverTheWholeSection)
{
    const Drawing drawing(kSamples / "road.dxf");
    for (const DxfRecord* alignment : drawing.Of("PLXDBALIGNMENT"))
        for (const SectionTags& section : SectionsOf(*alignment))
        {
            const DxfRecord& ground = drawing.At(section.groundLine);
            ASSERT_EQ(ground.type, "LWPOLYLINE");
            EXPECT_GE(ground.Number(90), 30);
            const double half = 1000 / alignment->Number(40) * alignment->Number(41);
            EXPECT_LT(std::stod(ground.All(10).front()), section.baseX - half);
            EXPECT_GT(std::stod(ground.All(10).back()), section.baseX + half);
            for (const std::string& y : ground.All(20))
            {
                EXPECT_GT(std::stod(y), section.baseY);
                EXPECT_LT(std::stod(y), section.baseY + 1000);
            }
        }
}

/// The 8-bit codes of the drawing's polylines and blocks, as bytes; every one of them is below U+0100.
std::set<std::string> SurveyCodes(const Drawing& drawing)
{
    std::set<std::string> codes;
    for (const auto& [handle, record] : drawing.Handles())
    {
        std::string bytes;
        for (const char unit : record->SurveyCode())
        {
            const auto byte = static_cast<unsigned char>(unit);
            if (byte >= 0x80 && byte < 0xC0) // the low six bits; the lead byte before it, 0xC2 or 0xC3, has the rest
                bytes.back() = static_cast<char>((static_cast<unsigned char>(bytes.back()) << 6) | (byte & 0x3F));
            else
                bytes += unit;
        }
        if (!bytes.empty())
            codes.insert(bytes);
    }
    return codes;
}

TEST(Sample, LibraryGivesEveryLineAndBlockCodeButOneASymbolThatExists)
{
    std::set<std::string> keys;
    std::istringstream library(FileText(kSamples / "road.dv"));
    for (std::string line; std::getline(library, line);)
        if (const auto comma = line.find(','); comma != std::string::npos)
        {
            keys.insert(line.substr(0, comma));
            const std::string file = line.substr(comma + 1, line.find(',', comma + 1) - comma - 1);
            EXPECT_EQ(file.rfind("symbols\\", 0), 0U) << file;
            EXPECT_TRUE(std::filesystem::exists(kSamples / "symbols" / file.substr(8))) << file;
        }
    std::vector<std::string> without;
    for (const std::string& code : SurveyCodes(Drawing(kSamples / "road.dxf")))
        if (!keys.contains(code))
            without.push_back(code);
    EXPECT_THAT(without, testing::ElementsAre("C\xB8p quang"));
    EXPECT_TRUE(keys.contains("C\xE9t \xAEi\xD6n"));
    EXPECT_FALSE(keys.contains("LK"));
}

TEST(Sample, BadOptionsAreRefusedWithoutAFile)
{
    const TempFolder folder;
    const auto path = folder.path() / "never.dxf";
    for (const char* options : {"--km nonsense", "--km -1", "--version R12", "--mb 5 --km 1", "--what 1"})
        EXPECT_NE(Roadgen(std::string(options) + " --out " + path.string()), 0) << options;
    EXPECT_NE(Roadgen("--km 1 --out " + (folder.path() / "no/such/folder.dxf").string()), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
}
} // namespace
