#include "tools/font/glyph_text.h"

#include <charconv>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace font
{
namespace
{

constexpr int kDotRadius = 3;

[[noreturn]] void Refuse(const std::string& reason)
{
    throw std::runtime_error(reason);
}

double ToNumber(std::string_view word)
{
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || !(std::abs(value) <= 180))
        Refuse("not a number up to 180: " + std::string(word));
    return value;
}

int ToHalfUnits(std::string_view word)
{
    const double halves = 2 * ToNumber(word);
    if (halves != std::floor(halves))
        Refuse("not a whole or half number: " + std::string(word));
    return static_cast<int>(halves);
}

int ToCode(std::string_view word)
{
    int code = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), code, 16);
    if (error != std::errc() || end != word.data() + word.size() || code < 1 || code > 255)
        Refuse("not an 8-bit code: " + std::string(word));
    return code;
}

Path Dot(int x, int y)
{
    return {{x - kDotRadius, y}, {x + kDotRadius, y, 180}, {x - kDotRadius, y, 180}};
}

Path ReadPath(const std::vector<std::string>& words)
{
    Path path;
    double turn = 0;
    for (std::size_t i = 1; i < words.size(); ++i)
    {
        if (words[i].front() == '@')
            turn = ToNumber(std::string_view(words[i]).substr(1));
        else if (i + 1 == words.size())
            Refuse("a coordinate is missing");
        else
        {
            path.push_back({ToHalfUnits(words[i]), ToHalfUnits(words[i + 1]), turn});
            turn = 0;
            ++i;
        }
    }
    if (path.size() < 2 || turn != 0 || path.front().turn != 0)
        Refuse("a path goes from one point to another");
    return path;
}

/// Collects glyphs and marks line by line; strokes belong to what was begun last.
class Reader
{
public:
    void TakeLine(const std::string& line)
    {
        std::istringstream stream(line);
        std::vector<std::string> words;
        for (std::string word; stream >> word;)
            words.push_back(word);
        if (!words.empty() && words[0] != "#")
            TakeWords(words);
    }

    Glyphs Finish() { return std::move(m_coded); }

    /// Gives the glyph begun last its code, now that its strokes are complete.
    void Close()
    {
        if (m_code != 0)
            m_coded.emplace(m_code, *m_current);
        m_code = 0;
    }

private:
    void TakeWords(const std::vector<std::string>& words)
    {
        const std::string& word = words[0];
        if (word == "glyph" && words.size() == 4)
            BeginGlyph(words);
        else if (word == "mark" && words.size() == 2)
            Begin(words[1], "-");
        else if (word == "join" && (words.size() == 5 || words.size() == 7 || words.size() == 8))
            Join(words);
        else if (word == "path" && m_current != nullptr)
            m_current->paths.push_back(ReadPath(words));
        else if (word == "dot" && words.size() == 3 && m_current != nullptr)
            m_current->paths.push_back(Dot(ToHalfUnits(words[1]), ToHalfUnits(words[2])));
        else
            Refuse("does not belong here: " + word);
    }

    Glyph& Begin(const std::string& name, const std::string& code)
    {
        Close();
        const auto [place, fresh] = m_named.try_emplace(name);
        if (!fresh)
            Refuse("name used twice: " + name);
        m_code = code == "-" ? 0 : ToCode(code);
        if (m_coded.count(m_code) != 0)
            Refuse("code used twice: " + code);
        m_current = &place->second;
        return *m_current;
    }

    void BeginGlyph(const std::vector<std::string>& words)
    {
        Glyph& glyph = Begin(words[1], words[2]);
        glyph.width = ToHalfUnits(words[3]);
        glyph.middle = glyph.width / 2;
    }

    void Join(const std::vector<std::string>& words)
    {
        Glyph& glyph = Begin(words[1], words[2]);
        const Glyph& mark = Find(words[4]);
        glyph = Find(words[3]);
        const bool moved = words.size() > 5;
        const int dx = glyph.middle + (moved ? ToHalfUnits(words[5]) : 0);
        const int dy = moved ? ToHalfUnits(words[6]) : 0;
        for (Path path : mark.paths)
        {
            for (Vertex& vertex : path)
                vertex = {vertex.x + dx, vertex.y + dy, vertex.turn};
            glyph.paths.push_back(std::move(path));
        }
        if (words.size() == 8)
            glyph.width = ToHalfUnits(words[7]);
    }

    const Glyph& Find(const std::string& name) const
    {
        const auto found = m_named.find(name);
        if (found == m_named.end() || &found->second == m_current)
            Refuse("not defined before: " + name);
        return found->second;
    }

    std::map<std::string, Glyph> m_named;
    Glyphs m_coded;
    Glyph* m_current = nullptr;
    int m_code = 0;
};

} // namespace

Glyphs ReadGlyphs(std::istream& text)
{
    Reader reader;
    int number = 0;
    try
    {
        for (std::string line; std::getline(text, line);)
        {
            ++number;
            reader.TakeLine(line);
        }
        reader.Close();
        return reader.Finish();
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
    }
}

} // namespace font
