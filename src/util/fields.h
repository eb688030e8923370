#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One line of text as fields, as all files of the module are split.

enum class EmptyFields
{
    kKeep,
    kSkip
};

/// `text` without the white space at both ends.
std::u16string_view TrimSpace(std::u16string_view text);

/// Whether `unit` is white space: blanks and line ends of ASCII and the wider blanks of Unicode.
bool IsSpace(char16_t unit);

/// The fields of `text` between `delimiter`s. The text is trimmed as a whole, its fields are not. A field "~" before
/// the last delimiter stands for an empty one, which counts even where empty fields are skipped; the rest behind the
/// last delimiter is a field unless it is empty.
std::vector<std::u16string> SplitFields(std::u16string_view text, char16_t delimiter, EmptyFields empty);
