#pragma once

#include <cstddef>
#include <string_view>

namespace survey
{

/// How much of a text reads as Vietnamese, of the words of two letters or more that are not ASCII alone.
struct WordCounts
{
    size_t vietnamese = 0; ///< built as a syllable of the language is
    size_t other = 0;
};
WordCounts countWords(std::u16string_view text);

} // namespace survey
