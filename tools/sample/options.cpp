#include "options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string_view>

namespace
{
constexpr double kSectionSpacingKm = 0.02;
constexpr double kPointsPerKm = 1000;
constexpr double kPolylinesPerKm = 48;

template <typename Number>
Number ParseNumber(std::string_view option, std::string_view text, Number low, Number high)
{
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(value >= low && value <= high))
        throw std::invalid_argument(std::string(option) + ": a number from " + std::to_string(low) + " to " +
                                    std::to_string(high) + " is expected, not \"" + std::string(text) + "\"");
    return value;
}

Release ParseRelease(std::string_view text)
{
    static constexpr std::array<std::string_view, 6> kNames{"R2000", "R2004", "R2007", "R2010", "R2013", "R2018"};
    const auto* const found = std::find(kNames.begin(), kNames.end(), text);
    if (found == kNames.end())
        throw std::invalid_argument("--version: R2000, R2004, R2007, R2010, R2013 or R2018 is expected");
    return static_cast<Release>(found - kNames.begin());
}

void Assign(Options& options, std::string_view name, std::string_view value)
{
    constexpr int kMany = 20'000'000;
    if (name == "--km")
        options.km = ParseNumber(name, value, 0.05, 10'000.0);
    else if (name == "--mb")
        options.megabytes = ParseNumber(name, value, 0.5, 20'000.0);
    else if (name == "--seed")
        options.seed = ParseNumber<std::uint64_t>(name, value, 0, UINT64_MAX);
    else if (name == "--points")
        options.points = ParseNumber(name, value, 0, kMany);
    else if (name == "--polylines")
        options.polylines = ParseNumber(name, value, 0, kMany);
    else if (name == "--sections")
        options.sections = ParseNumber(name, value, 1, 1'000'000);
    else if (name == "--alignments")
        options.alignments = ParseNumber(name, value, 1, 1000);
    else if (name == "--version")
        options.release = ParseRelease(value);
    else if (name == "--out")
        options.out = value;
    else if (name == "--library")
        options.library = value;
    else if (name == "--table")
        options.table = value;
    else
        throw std::invalid_argument("unknown option " + std::string(name) + " (see --help)");
}

int PerKm(double km, double density)
{
    return static_cast<int>(std::lround(km * density));
}

int UsualAlignments(double km)
{
    if (km <= 5)
        return 2;
    return std::max(3, static_cast<int>(std::lround(km / 10)));
}
} // namespace

Options ParseOptions(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i)
    {
        const std::string_view name = argv[i];
        if (name == "--help" || name == "-h")
        {
            options.help = true;
            return options;
        }
        if (i + 1 == argc)
            throw std::invalid_argument(std::string(name) + ": a value is missing (see --help)");
        Assign(options, name, argv[++i]);
    }
    if (options.megabytes > 0 && options.km > 0)
        throw std::invalid_argument("--mb finds the length itself: leave out --km");
    if (options.out.empty() && options.library.empty() && options.table.empty())
        throw std::invalid_argument("nothing to write: give --out, --library or --table (see --help)");
    return options;
}

const char* HelpText()
{
    return "roadgen: writes the drawing of an invented road with its cross-sections and survey\n"
           "\n"
           "  --out FILE        the drawing, a text DXF file\n"
           "  --km N            length of the road in kilometres (1)\n"
           "  --mb N            as long as it takes for a file of about N megabytes, in place of --km\n"
           "  --sections N      exactly N cross-sections (50 a km; without --km the length follows: 20 m each)\n"
           "  --polylines N     exactly N coded feature polylines (48 a km)\n"
           "  --points N        exactly N survey points (1,000 a km)\n"
           "  --alignments N    exactly N alignments (2; on long roads one every 10 km)\n"
           "  --seed N          another road of the same kind (1)\n"
           "  --version R       R2000, R2004, R2007, R2010, R2013 or R2018 (R2013)\n"
           "  --library FILE    the feature library (.dv) that gives the codes their symbols\n"
           "  --table FILE      the plan feature-code table (.dvbd)\n"
           "\n"
           "The same options give the same bytes.\n";
}

Options Complete(Options options)
{
    if (options.km <= 0)
        options.km = options.sections > 0 ? options.sections * kSectionSpacingKm : 1;
    if (options.sections < 0)
        options.sections = std::max(1, PerKm(options.km, 1 / kSectionSpacingKm));
    if (options.points < 0)
        options.points = PerKm(options.km, kPointsPerKm);
    if (options.polylines < 0)
        options.polylines = PerKm(options.km, kPolylinesPerKm);
    if (options.alignments == 0)
        options.alignments = std::min(UsualAlignments(options.km), options.sections);
    options.alignments = std::min(options.alignments, options.sections);
    return options;
}
