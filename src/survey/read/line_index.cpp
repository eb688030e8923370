#include "survey/read/line_index.h"

#include <algorithm>
#include <cstring>

namespace survey
{

LineIndex::LineIndex(std::string_view text)
{
    constexpr size_t kUsualLength = 64;
    m_ends.reserve(text.size() / kUsualLength);
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    for (const char* at = begin; at < end; ++at)
    {
        at = static_cast<const char*>(std::memchr(at, '\n', static_cast<size_t>(end - at)));
        if (at == nullptr)
            break;
        m_ends.push_back(static_cast<size_t>(at - begin));
    }
}

uint32_t LineIndex::lineOf(size_t offset) const
{
    const auto found = std::lower_bound(m_ends.begin(), m_ends.end(), offset);
    return static_cast<uint32_t>(found - m_ends.begin()) + 1;
}

} // namespace survey
