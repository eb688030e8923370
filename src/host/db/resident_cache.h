#pragma once

#include "store/record.h"

#include <array>

/// The objects closed last, kept in memory so that opening them again costs nothing: a section's ground line is probed
/// once a row. Owns what it holds.
class ResidentCache
{
public:
    ResidentCache() = default;
    ResidentCache(const ResidentCache&) = delete;
    ResidentCache& operator=(const ResidentCache&) = delete;

    /// Keeps the closed object of `record`, letting go of the one kept longest.
    void keep(ObjectRecord& record);

private:
    static constexpr size_t kSize = 256;
    std::array<ObjectRecord*, kSize> m_ring{};
    size_t m_next = 0;
};
