#include "files/dwg/content_hash.h"

#include <array>
#include <cstdio>
#include <xxhash.h>

namespace dwg
{

std::string contentHash(std::string_view bytes)
{
    const XXH128_hash_t hash = XXH3_128bits(bytes.data(), bytes.size());
    std::array<char, 33> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx%016llx", static_cast<unsigned long long>(hash.high64),
                  static_cast<unsigned long long>(hash.low64));
    return digits.data();
}

} // namespace dwg
