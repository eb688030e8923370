#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace console
{

/// One action of a script: its words, and the line (from 1) it stands on.
struct ScriptLine
{
    size_t number = 0;
    std::vector<std::string> words;
};

/// The actions of a script. Words are separated by blanks; a word with blanks stands in double quotes, `""` is a quote
/// inside; a line that starts with # is a comment. Failure with the line number for a quote that is not closed.
std::vector<ScriptLine> parseScript(std::string_view text);

} // namespace console
