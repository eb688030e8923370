#include "survey/read/line_index.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace survey
{

namespace
{

constexpr uint64_t kEvery = 0x0101010101010101;

/// Has the highest bit of every byte of `word` that is a line feed.
uint64_t lineFeedsIn(uint64_t word)
{
    constexpr uint64_t kLow = 0x7F * kEvery;
    const uint64_t other = word ^ ('\n' * kEvery);
    return ~(((other & kLow) + kLow) | other | kLow);
}

} // namespace

LineIndex::LineIndex(std::string_view text)
{
    constexpr size_t kUsualLength = 40;
    m_ends.reserve(text.size() / kUsualLength);
    size_t at = 0;
    if constexpr (std::endian::native == std::endian::little)
        for (uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word)
        {
            std::memcpy(&word, text.data() + at, sizeof word);
            for (uint64_t found = lineFeedsIn(word); found != 0; found &= found - 1)
                m_ends.push_back(static_cast<uint32_t>(at + static_cast<size_t>(std::countr_zero(found)) / 8));
        }
    for (; at < text.size(); ++at)
        if (text[at] == '\n')
            m_ends.push_back(static_cast<uint32_t>(at));
}

uint32_t LineIndex::lineOf(size_t offset) const
{
    constexpr size_t kNear = 8;
    size_t from = m_last == 0 || m_ends[m_last - 1] < offset ? m_last : 0;
    const size_t near = std::min(m_ends.size(), from + kNear);
    while (from < near && m_ends[from] < offset)
        ++from;
    if (from == near)
        from = static_cast<size_t>(std::lower_bound(m_ends.data() + from, m_ends.data() + m_ends.size(), offset) -
                                   m_ends.data());
    m_last = from;
    return static_cast<uint32_t>(from) + 1;
}

} // namespace survey
