#pragma once

#include <string>
#include <string_view>

namespace dwg
{

/// The SHA-256 digest (FIPS 180-4) of `bytes`, as 64 lower-case hexadecimal digits.
std::string sha256(std::string_view bytes);

} // namespace dwg
