#include "console/command_words.h"

#include "files/dxf/drawing_names.h"
#include "store/text/text.h"

#include <algorithm>

namespace console
{

namespace
{

/// Edit distance with swapped neighbours as one change.
size_t changesBetween(std::u16string_view a, std::u16string_view b)
{
    std::vector<std::vector<size_t>> least(a.size() + 1, std::vector<size_t>(b.size() + 1));
    for (size_t i = 0; i <= a.size(); ++i)
        for (size_t j = 0; j <= b.size(); ++j)
        {
            if (i == 0 || j == 0)
            {
                least[i][j] = i + j;
                continue;
            }
            const size_t replaced = least[i - 1][j - 1] + (equalNoCase(a.substr(i - 1, 1), b.substr(j - 1, 1)) ? 0 : 1);
            least[i][j] = std::min({least[i - 1][j] + 1, least[i][j - 1] + 1, replaced});
            if (i > 1 && j > 1 && equalNoCase(a.substr(i - 1, 1), b.substr(j - 2, 1)) &&
                equalNoCase(a.substr(i - 2, 1), b.substr(j - 1, 1)))
                least[i][j] = std::min(least[i][j], least[i - 2][j - 2] + 1);
        }
    return least[a.size()][b.size()];
}

} // namespace

bool isFileWord(const std::string& word)
{
    return word.find('/') != std::string::npos || files::isDrawingName(word);
}

std::string nearestWord(const std::string& typed, const std::vector<std::string>& words)
{
    constexpr size_t kLongestCompared = 64;
    const std::u16string wide = toUtf16(typed).substr(0, kLongestCompared);
    const auto changes = [&](const std::string& word) { return changesBetween(wide, toUtf16(word)); };
    const auto nearest =
        std::min_element(words.begin(), words.end(),
                         [&](const std::string& a, const std::string& b) { return changes(a) < changes(b); });
    return nearest == words.end() ? std::string{} : *nearest;
}

} // namespace console
