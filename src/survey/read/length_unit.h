#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace survey
{

/// A unit of length in metres.
struct LengthUnit
{
    std::string_view name;    ///< for people
    std::string_view xmlName; ///< as LandXML names it
    double metres = 1.0;
};

/// The unit of a name in any case: LandXML's ("USSurveyFoot"), or a usual short one ("m", "ft", "us-ft").
std::optional<LengthUnit> findLengthUnit(std::string_view name);

inline constexpr LengthUnit kMetre{"metre", "meter", 1.0};

} // namespace survey
