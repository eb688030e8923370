#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace picture
{

/// A line of text with the codes in it (%%d, %%p, %%c, %%nnn, %%%) replaced by what they stand for. Those that switch
/// lines under and over the text on and off are taken out; what lies between them is told.
struct PlainText
{
    /// Code units of `text`.
    struct Range
    {
        size_t first = 0;
        size_t end = 0;
    };
    std::u16string text;
    std::vector<Range> underlined;
    std::vector<Range> overlined;
};

PlainText withoutCodes(std::u16string_view text);

} // namespace picture
