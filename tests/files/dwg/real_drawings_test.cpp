#include "files/dwg/convert.h"

#include "files/dwg/dxf_tags.h"
#include "files/dwg/workshop.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>

// Real drawings are not part of the project. They are looked for in $VELOXA_REAL_DATA/dwg and nowhere else.

namespace fs = std::filesystem;

namespace
{

fs::path realDrawings()
{
    const char* variable = std::getenv("VELOXA_REAL_DATA");
    return variable != nullptr && *variable != '\0' ? fs::path(variable) / "dwg" : fs::path();
}

class RealDwg : public testing::Test
{
protected:
    void SetUp() override
    {
        if (realDrawings().empty())
            GTEST_SKIP() << "VELOXA_REAL_DATA is not set";
        if (!Workshop::realConverterIsInstalled())
            GTEST_SKIP() << "the DWG converter is not installed";
    }

    static std::vector<fs::path> drawings(const std::string& extension)
    {
        std::vector<fs::path> files;
        for (const fs::path& file : filesIn(realDrawings()))
            if (file.extension() == extension)
                files.push_back(file);
        return files;
    }

    Workshop m_workshop;
};

std::map<std::string, int> countsByType(const std::vector<DxfRecord>& records)
{
    std::map<std::string, int> counts;
    for (const DxfRecord& record : records)
        if (record.section == "ENTITIES" || record.section == "BLOCKS")
            ++counts[record.section + "/" + record.type];
    return counts;
}

/// What a symbol is drawn from: the group codes of each type that say what it looks like and where.
const std::map<std::string, std::vector<int>>& comparedCodes()
{
    static const std::map<std::string, std::vector<int>> codes = {
        {"LINE", {8, 6, 62, 10, 20, 30, 11, 21, 31}},
        {"ARC", {8, 6, 62, 10, 20, 30, 40, 50, 51}},
        {"CIRCLE", {8, 6, 62, 10, 20, 30, 40}},
        {"ELLIPSE", {8, 6, 62, 10, 20, 30, 11, 21, 31, 40, 41, 42}},
        {"POINT", {8, 6, 62, 10, 20, 30}},
        {"SOLID", {8, 6, 62, 10, 20, 11, 21, 12, 22, 13, 23}},
        {"LWPOLYLINE", {8, 6, 62, 70, 90, 38, 10, 20, 42}},
        {"POLYLINE", {8, 6, 62, 70, 30}},
        {"VERTEX", {8, 10, 20, 30, 70}},
        {"TEXT", {8, 6, 62, 1, 10, 20, 30, 40, 50}},
        {"INSERT", {8, 2, 10, 20, 30, 50}},
        {"HATCH", {8, 2, 70, 91, 75, 76}},
        {"LAYER", {2, 6, 62, 70}},
        {"STYLE", {2, 3, 4, 40, 41, 50}},
        {"LTYPE", {2, 3, 73, 40, 49}},
    };
    return codes;
}

/// Equal as texts without regard to case (R14 knows capitals only), or nearly equal as numbers.
bool sameValue(const std::string& a, const std::string& b)
{
    double x = 0;
    double y = 0;
    const bool numbers = std::from_chars(a.data(), a.data() + a.size(), x).ec == std::errc{} &&
                         std::from_chars(b.data(), b.data() + b.size(), y).ec == std::errc{};
    if (numbers)
        return std::abs(x - y) <= 1e-9 * std::max({1.0, std::abs(x), std::abs(y)});
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](unsigned char p, unsigned char q) { return toupper(p) == toupper(q); });
}

std::vector<std::string> valuesOf(const DxfRecord& record, int code)
{
    std::vector<std::string> values;
    const auto [first, last] = record.values.equal_range(code);
    for (auto value = first; value != last; ++value)
        values.push_back(value->second);
    return values;
}

/// How many records of `expected` were found by handle and compared in `actual`.
int compareByHandle(const std::vector<DxfRecord>& actual, const std::vector<DxfRecord>& expected)
{
    std::map<std::string, const DxfRecord*> byHandle;
    for (const DxfRecord& record : actual)
        byHandle[record.handle] = &record;
    int compared = 0;
    for (const DxfRecord& record : expected)
    {
        const auto codes = comparedCodes().find(record.type);
        const auto found = byHandle.find(record.handle);
        if (record.handle.empty() || codes == comparedCodes().end() || found == byHandle.end())
            continue;
        EXPECT_EQ(found->second->type, record.type) << record.handle;
        for (const int code : codes->second)
        {
            const auto a = valuesOf(*found->second, code);
            const auto b = valuesOf(record, code);
            EXPECT_TRUE(std::equal(a.begin(), a.end(), b.begin(), b.end(), sameValue))
                << record.type << " " << record.handle << ", code " << code << ": " << testing::PrintToString(a)
                << " and not " << testing::PrintToString(b);
        }
        ++compared;
    }
    return compared;
}

/// One way a file goes bad on its way here: cut off, bits flipped, zeroed, or with another's bytes in the middle.
std::string damaged(std::string bytes, const std::string& other, std::mt19937& random)
{
    const auto below = [&](std::size_t end) { return static_cast<std::size_t>(random() % end); };
    const std::size_t at = below(bytes.size() - 600);
    switch (below(5))
    {
    case 0:
        return bytes.substr(0, 6 + at);
    case 1:
        for (int i = 0; i < 8; ++i)
            bytes[below(bytes.size())] ^= static_cast<char>(1U << below(8));
        return bytes;
    case 2: // the header and the section map are what a reader trusts most
        for (int i = 0; i < 4; ++i)
            bytes[6 + below(250)] ^= static_cast<char>(1U << below(8));
        return bytes;
    case 3:
        return bytes.replace(6 + at, 500, 500, '\0');
    default:
        return bytes.replace(6 + at, 500, other, other.size() / 2, 500);
    }
}

std::size_t damagedFiles()
{
    const char* variable = std::getenv("VELOXA_DAMAGED_FILES");
    return variable == nullptr ? 20 : std::stoul(variable);
}

} // namespace

TEST_F(RealDwg, BecomeTheDrawingsTheirMakersWroteAsDxf)
{
    const std::vector<fs::path> files = drawings(".dwg");
    const std::vector<dwg::Outcome> outcomes = dwg::convert(files, m_workshop.real());
    int compared = 0;
    for (std::size_t i = 0; i < files.size(); ++i)
    {
        SCOPED_TRACE(files[i]);
        ASSERT_EQ(outcomes[i].reason, "");
        const fs::path makers = fs::path(files[i]).replace_extension(".dxf");
        if (!fs::exists(makers))
            continue;
        const std::vector<DxfRecord> actual = recordsOf(outcomes[i].dxf);
        const std::vector<DxfRecord> expected = recordsOf(contentOf(makers));
        if (files[i].stem() != "example_r14") // whose DXF is of another state of the drawing, with more in it
        {
            std::map<std::string, int> counts = countsByType(actual);
            for (const auto& [kind, count] : outcomes[i].lost)
                counts["ENTITIES/" + kind] += static_cast<int>(count);
            EXPECT_EQ(counts, countsByType(expected));
        }
        compared += compareByHandle(actual, expected);
    }
    EXPECT_GT(compared, 500);
    const auto r14 = std::find(files.begin(), files.end(), realDrawings() / "example_r14.dwg");
    ASSERT_NE(r14, files.end());
    EXPECT_THAT(outcomes[static_cast<std::size_t>(r14 - files.begin())].lost,
                testing::IsSupersetOf(
                    {testing::Pair("MULTILEADER", 1), testing::Pair("ACAD_TABLE", 1), testing::Pair("WIPEOUT", 2)}));
    EXPECT_FALSE(m_workshop.somethingIsLeft());
}

TEST_F(RealDwg, ALayerIsOffOnlyWhereTheDrawingSaysSo)
{
    std::string bytes = contentOf(realDrawings() / "2000_Leader.dwg");
    bytes.at(39842) ^= 0x08; // the flag "off" of layer 0
    const auto outcomes =
        dwg::convert({realDrawings() / "2000_Leader.dwg", m_workshop.file("off.dwg", bytes)}, m_workshop.real());

    const auto layerColour = [](const dwg::Outcome& outcome)
    {
        for (const DxfRecord& record : recordsOf(outcome.dxf))
            if (record.type == "LAYER" && record.value(2) == "0")
                return record.value(62);
        return outcome.reason;
    };
    EXPECT_EQ(layerColour(outcomes[0]), "7");
    EXPECT_EQ(layerColour(outcomes[1]), "-7");
}

TEST_F(RealDwg, GoByContentAndNotByName)
{
    const auto outcomes =
        dwg::convert({m_workshop.file("renamed.dxf", contentOf(drawings(".dwg")[0])),
                      m_workshop.file("renamed.dwg", contentOf(drawings(".dxf")[0])), m_workshop.file("empty.dwg", "")},
                     m_workshop.real());

    EXPECT_EQ(outcomes[0].reason, "");
    EXPECT_EQ(outcomes[1].reason, "not a DWG file");
    EXPECT_EQ(outcomes[2].reason, "not a DWG file");
}

/// $VELOXA_DAMAGED_FILES sets how many are tried.
TEST_F(RealDwg, DamagedAreReadOrRefused)
{
    const std::vector<fs::path> sources = drawings(".dwg");
    std::mt19937 random(20240229);
    std::vector<fs::path> files;
    for (std::size_t i = 0; i < damagedFiles(); ++i)
    {
        const std::string other = contentOf(sources[random() % sources.size()]);
        files.push_back(m_workshop.file(std::to_string(i) + ".dwg",
                                        damaged(contentOf(sources[i % sources.size()]), other, random)));
    }

    std::map<std::string, int> results;
    for (const dwg::Outcome& outcome : dwg::convert(files, m_workshop.real()))
    {
        ++results[outcome.ok() ? "read" : outcome.reason];
        EXPECT_NE(outcome.ok(), outcome.dxf.empty());
        if (outcome.ok())
        {
            EXPECT_EQ(recordsOf(outcome.dxf).back().type, "EOF");
        }
    }

    for (const auto& [result, count] : results)
        std::cout << count << " " << result << "\n";
    EXPECT_FALSE(m_workshop.somethingIsLeft());
}
