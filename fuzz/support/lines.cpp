#include "fuzz/support/lines.h"

#include <algorithm>
#include <array>
#include <random>
#include <vector>

namespace
{

using Random = std::minstd_rand;
using Words = std::vector<std::string>;

constexpr std::array<std::string_view, 14> kOddFields{
    "", "0", "-1", "1.00", "2,5", "1e400", "nan", "abc", "\xA9", "\x01", "\x01\x02", "NULL", " 7 ", "99999999999"};

size_t below(Random& random, size_t count)
{
    return random() % count;
}

Words split(std::string_view text, char separator)
{
    Words parts;
    for (size_t end = 0; end != std::string_view::npos; text.remove_prefix(std::min(end + 1, text.size())))
    {
        end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            break;
    }
    return parts;
}

std::string join(const Words& parts, char separator)
{
    std::string text;
    for (size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : std::string(1, separator)) + parts[i];
    return text;
}

/// Repeats, moves, drops or swaps one of the parts.
void rearrange(Words& parts, Random& random)
{
    const size_t from = below(random, parts.size());
    const size_t to = below(random, parts.size());
    switch (below(random, 4))
    {
    case 0:
        parts.insert(parts.begin() + static_cast<ptrdiff_t>(to), std::string{parts[from]});
        break;
    case 1:
        parts.erase(parts.begin() + static_cast<ptrdiff_t>(from));
        break;
    case 2:
        std::swap(parts[from], parts[to]);
        break;
    default:
        parts[to] = parts[from];
        break;
    }
}

std::string oddField(const Words& lines, char separator, std::span<const std::string_view> words, Random& random)
{
    if (below(random, 3) == 0)
        return std::string{kOddFields[below(random, kOddFields.size())]};
    if (below(random, 2) == 0)
        return std::string{words[below(random, words.size())]};
    const Words fields = split(lines[below(random, lines.size())], separator);
    return fields[below(random, fields.size())];
}

} // namespace

std::string mutateLines(std::string_view text, char separator, std::span<const std::string_view> words, unsigned seed)
{
    Random random{seed};
    Words lines = split(text, '\n');
    for (size_t changes = 1 + below(random, 3); changes > 0 && !lines.empty(); --changes)
    {
        if (below(random, 3) == 0)
        {
            rearrange(lines, random);
            continue;
        }
        std::string& line = lines[below(random, lines.size())];
        Words fields = split(line, separator);
        if (below(random, 4) == 0)
            rearrange(fields, random);
        else
            fields[below(random, fields.size())] = oddField(lines, separator, words, random);
        line = join(fields, separator);
    }
    return join(lines, '\n');
}
