#pragma once

#include <optional>
#include <string_view>

namespace survey
{

/// A station as it is written, and the region that it is counted in where that is said.
struct WrittenStation
{
    double value = 0.0; ///< in the unit it is written in; kilometres count 1000
    size_t region = 0;  ///< 0: not said
};

/// "1234.5", "1+234.5", "Km1+234.5", "Km1+234.5 (2)", in any case and with a decimal comma. Nothing for another text,
/// such as the name of a section.
std::optional<WrittenStation> readStation(std::string_view text);

} // namespace survey
