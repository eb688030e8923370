#pragma once

#include <string>
#include <string_view>

/// Puts texts into the form in which the label font shows them: each character the code of its 8-bit Vietnamese form.
/// They go by way of a scratch file in the user's folder, which in the end holds the text converted last; when that
/// file cannot be made, texts stay as they are. One object serves one drawing: it touches the file when the first text
/// comes and when it ends.
class FontText
{
public:
    FontText() = default;
    FontText(const FontText&) = delete;
    FontText& operator=(const FontText&) = delete;
    ~FontText();

    /// `text` as the font shows it; unchanged when it makes no line or several.
    std::u16string convert(std::u16string_view text);

private:
    enum class Scratch
    {
        kUntried,
        kMade,
        kRefused
    };

    Scratch m_scratch = Scratch::kUntried;
    std::u16string m_path;
    std::string m_last; ///< bytes of the last text, its line end included
    bool m_isLastWritten = false;
};

/// A single text in the form in which the label font shows it.
std::u16string ToFontText(std::u16string_view text);
