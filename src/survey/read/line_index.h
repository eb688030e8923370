#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace survey
{

/// Where the lines of a text end, so that places in it can be told as lines when the text itself is gone. A text has
/// less than 4 GiB.
class LineIndex
{
public:
    LineIndex() = default;
    explicit LineIndex(std::string_view text);

    /// The line of the byte at `offset`, counted from 1.
    uint32_t lineOf(size_t offset) const;

private:
    std::vector<uint32_t> m_ends; ///< of the lines but the last
    mutable size_t m_last = 0;    ///< the line asked for last, from 0: the next is often near
};

} // namespace survey
