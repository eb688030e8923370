#pragma once

#include <string>
#include <string_view>

namespace dwg
{

/// A hash of 128 bits (XXH3) of `bytes`, as 32 lower-case hexadecimal digits.
std::string contentHash(std::string_view bytes);

} // namespace dwg
