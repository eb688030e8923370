#pragma once

#include "store/object_id.h"

#include <unordered_map>
#include <utility>

namespace host
{

/// The selection sets in use, by number. A number is never given twice.
class SelectionSets
{
public:
    int64_t keep(AcDbObjectIdArray ids)
    {
        m_sets.emplace(++m_last, std::move(ids));
        return m_last;
    }
    /// Null when there is no such set.
    const AcDbObjectIdArray* find(int64_t number) const
    {
        const auto found = m_sets.find(number);
        return found != m_sets.end() ? &found->second : nullptr;
    }
    /// False when there is no such set.
    bool free(int64_t number) { return m_sets.erase(number) != 0; }

private:
    std::unordered_map<int64_t, AcDbObjectIdArray> m_sets;
    int64_t m_last = 0;
};

} // namespace host
