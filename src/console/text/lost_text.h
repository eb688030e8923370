#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace console
{

/// A character that has no form in the 8-bit set of the module's files and label font.
struct LostCharacter
{
    std::string character; ///< in UTF-8
    std::string code;      ///< such as "U+1EBE"
};

/// Those of a text, each once, in order of appearance.
std::vector<LostCharacter> lostCharacters(std::u16string_view text);

/// The same for a sentence: "Ế (U+1EBE), Á (U+00C1)".
std::string namesOf(const std::vector<LostCharacter>& characters);

} // namespace console
