#pragma once

#include <string>
#include <vector>

namespace console
{

/// Whether a word in a command's place means a file: it has a "/" or ends as a drawing does.
bool isFileWord(const std::string& word);

/// The one of `words` that takes the fewest changes of one letter, left out, put in, another one or swapped with its
/// neighbour, to become `typed`; the first of several, empty when there are none. Letter case does not count.
std::string nearestWord(const std::string& typed, const std::vector<std::string>& words);

} // namespace console
