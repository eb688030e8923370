#pragma once

#include "files/dwg/outcome.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace dwg
{

/// What became of drawings, kept in a folder, one file each. Several programs may use one folder at once: an entry gets
/// its name when it is whole. A cache that cannot be read or written just keeps nothing; no failure is ever reported.
class Cache
{
public:
    /// Keeps at most `limit` bytes in `folder`, which is made when first needed; an empty path keeps nothing.
    Cache(std::filesystem::path folder, std::uint64_t limit);

    /// The name of the entry for a DWG of this content converted by this version of the converter.
    static std::string keyOf(std::string_view dwg, std::string_view version);

    /// Gives the outcome that was stored and marks it as just used; nothing when there is no whole one.
    std::optional<Outcome> find(const std::string& key) const;
    void store(const std::string& key, const Outcome& outcome) const;

    /// Removes the entries longest unused until the rest keeps the limit.
    void trim() const;

private:
    std::filesystem::path m_folder;
    std::uint64_t m_limit;
};

} // namespace dwg
