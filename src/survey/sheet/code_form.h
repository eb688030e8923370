#pragma once

#include <string>

namespace survey
{

/// A feature code in the one form in which points and lines of a drawing both give it back.
struct CodeForm
{
    std::u16string text;    ///< as survey points have it, and as a line's code reads
    std::u16string stored;  ///< as a line has it: 8-bit Vietnamese, each byte as the character of its value
    bool isChanged = false; ///< `text` is not the code as it was given: the letters that lines cannot have are others
    bool isWide = false;    ///< it has letters without an 8-bit form, and stands on lines as it is
};

/// The form of a code. Vietnamese letters are composed, control characters become blanks, blanks at the ends go; what
/// the extended data of a drawing has no room for is cut off.
CodeForm codeForm(const std::u16string& code);

} // namespace survey
