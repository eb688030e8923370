#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace survey
{

/// Where the lines of a text begin, so that places in it can be told as lines when the text itself is gone.
class LineIndex
{
public:
    LineIndex() = default;
    explicit LineIndex(std::string_view text);

    /// The line of the byte at `offset`, counted from 1.
    uint32_t lineOf(size_t offset) const;

private:
    std::vector<size_t> m_ends; ///< of the lines but the last
};

} // namespace survey
