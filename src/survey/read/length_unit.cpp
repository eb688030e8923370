#include "survey/read/length_unit.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace survey
{

namespace
{

constexpr double kFoot = 0.3048;
constexpr std::array<LengthUnit, 8> kUnits{{kMetre,
                                            {"millimetre", "millimeter", 0.001},
                                            {"centimetre", "centimeter", 0.01},
                                            {"kilometre", "kilometer", 1000.0},
                                            {"international foot", "foot", kFoot},
                                            {"US survey foot", "USSurveyFoot", 1200.0 / 3937.0},
                                            {"inch", "inch", kFoot / 12.0},
                                            {"mile", "mile", kFoot * 5280.0}}};

/// Short names, and those that careless writers of LandXML use.
constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kOtherNames{{{"m", "meter"},
                                                                                     {"metre", "meter"},
                                                                                     {"meters", "meter"},
                                                                                     {"mm", "millimeter"},
                                                                                     {"cm", "centimeter"},
                                                                                     {"km", "kilometer"},
                                                                                     {"ft", "foot"},
                                                                                     {"feet", "foot"},
                                                                                     {"us-ft", "ussurveyfoot"},
                                                                                     {"us-foot", "ussurveyfoot"}}};

std::string small(std::string_view name)
{
    std::string text{name};
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

} // namespace

std::optional<LengthUnit> findLengthUnit(std::string_view name)
{
    std::string wanted = small(name);
    for (const auto& [other, xmlName] : kOtherNames)
        if (wanted == other)
            wanted = xmlName;
    const auto* const found = std::find_if(kUnits.begin(), kUnits.end(),
                                           [&](const LengthUnit& unit) { return small(unit.xmlName) == wanted; });
    return found == kUnits.end() ? std::nullopt : std::optional{*found};
}

} // namespace survey
