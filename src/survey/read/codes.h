#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace survey
{

/// The codes of a text in which ";" or "|" parts several, trimmed, without empty ones.
std::vector<std::u16string> splitCodes(std::u16string_view text);

/// The words of a text between white space.
std::vector<std::u16string> splitWords(std::u16string_view text);

} // namespace survey
