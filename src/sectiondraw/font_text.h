#pragma once

#include "util/scratch_file.h"

#include <string>
#include <string_view>

/// Puts texts into the form in which the label font shows them: each character the code of its 8-bit Vietnamese form.
/// They go by way of the scratch file. One object serves one drawing.
class FontText
{
public:
    /// `text` as the font shows it; unchanged when it makes no line or several.
    std::u16string convert(std::u16string_view text);

private:
    ScratchFile m_scratch;
};

/// A single text in the form in which the label font shows it.
std::u16string ToFontText(std::u16string_view text);
