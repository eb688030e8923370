#include "tools/symbols/symbol_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <set>
#include <stdexcept>

namespace symbols
{
namespace
{

/// What a stroke's word asks for: the kind and how many numbers may follow.
struct StrokeForm
{
    std::string_view word;
    StrokeKind kind;
    std::size_t least;
    std::size_t most;
};

constexpr std::size_t kAnyCount = 1000;
constexpr std::array<StrokeForm, 6> kForms{{{"path", StrokeKind::kPath, 4, kAnyCount},
                                            {"ring", StrokeKind::kRing, 6, kAnyCount},
                                            {"circle", StrokeKind::kCircle, 3, 3},
                                            {"arc", StrokeKind::kArc, 5, 5},
                                            {"fill", StrokeKind::kFill, 6, 8},
                                            {"disc", StrokeKind::kDisc, 3, 3}}};

std::string_view TakeWord(std::string_view& rest)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r"), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(" \t\r"));
    rest.remove_prefix(word.size());
    return word;
}

std::string Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

double ToNumber(std::string_view word)
{
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(value))
        throw std::runtime_error("not a number: " + std::string(word));
    return value;
}

std::vector<double> TakeNumbers(std::string_view rest)
{
    std::vector<double> numbers;
    for (std::string_view word = TakeWord(rest); !word.empty(); word = TakeWord(rest))
        numbers.push_back(ToNumber(word));
    return numbers;
}

Stroke RoundStroke(StrokeKind kind, const std::vector<double>& numbers)
{
    Stroke stroke{kind, {{numbers[0], numbers[1]}}, numbers[2]};
    if (stroke.radius <= 0)
        throw std::runtime_error("a radius must be positive");
    if (kind == StrokeKind::kArc)
    {
        stroke.startAngle = numbers[3];
        stroke.endAngle = numbers[4];
    }
    return stroke;
}

Stroke VertexStroke(StrokeKind kind, const std::vector<double>& numbers)
{
    if (numbers.size() % 2 != 0)
        throw std::runtime_error("a coordinate is missing");
    Stroke stroke{kind, {}};
    for (std::size_t i = 0; i < numbers.size(); i += 2)
        stroke.points.push_back({numbers[i], numbers[i + 1]});
    return stroke;
}

Stroke ReadStroke(std::string_view word, std::string_view rest)
{
    const auto form = std::find_if(kForms.begin(), kForms.end(), [&](const auto& f) { return f.word == word; });
    if (form == kForms.end())
        throw std::runtime_error("unknown word: " + std::string(word));
    const std::vector<double> numbers = TakeNumbers(rest);
    if (numbers.size() < form->least || numbers.size() > form->most)
        throw std::runtime_error("wrong count of numbers after " + std::string(word));
    const bool round =
        form->kind == StrokeKind::kCircle || form->kind == StrokeKind::kArc || form->kind == StrokeKind::kDisc;
    return round ? RoundStroke(form->kind, numbers) : VertexStroke(form->kind, numbers);
}

/// The stroke's mirror image on the other side of the y axis.
Stroke Mirrored(Stroke stroke)
{
    for (Point& point : stroke.points)
        point.x = 0 - point.x;
    const double start = stroke.startAngle;
    stroke.startAngle = 180 - stroke.endAngle;
    stroke.endAngle = 180 - start;
    return stroke;
}

/// Collects the symbols line by line.
class Reader
{
public:
    void TakeLine(std::string_view line)
    {
        std::string_view rest = line;
        const std::string_view word = TakeWord(rest);
        if (word.empty() || word.front() == '#')
            return;
        if (word == "symbol")
            Begin(Trimmed(rest));
        else if (m_symbols.empty())
            throw std::runtime_error("a symbol's name must come first");
        else
            TakeProperty(m_symbols.back(), word, rest);
    }

    std::vector<Symbol> Finish()
    {
        CheckLast();
        return std::move(m_symbols);
    }

private:
    void Begin(std::string name)
    {
        CheckLast();
        const auto plain = [](char c)
        { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); };
        if (name.empty() || !std::all_of(name.begin(), name.end(), plain))
            throw std::runtime_error("a name is made of ASCII letters and digits");
        if (!m_names.insert(name).second)
            throw std::runtime_error("name used twice: " + name);
        m_symbols.emplace_back();
        m_symbols.back().name = std::move(name);
        m_based = false;
    }

    void TakeProperty(Symbol& symbol, std::string_view word, std::string_view rest)
    {
        if (word == "vi")
            symbol.vietnamese = Trimmed(rest);
        else if (word == "en")
            symbol.english = Trimmed(rest);
        else if (word == "at")
            TakeBase(symbol, Trimmed(rest));
        else if (word == "pair")
            TakePair(symbol, rest);
        else
            symbol.strokes.push_back(ReadStroke(word, rest));
    }

    void TakeBase(Symbol& symbol, std::string_view base)
    {
        if (base != "foot" && base != "centre")
            throw std::runtime_error("the base is at foot or at centre");
        symbol.base = base == "foot" ? Base::kFoot : Base::kCentre;
        m_based = true;
    }

    static void TakePair(Symbol& symbol, std::string_view rest)
    {
        const std::string_view word = TakeWord(rest);
        symbol.strokes.push_back(ReadStroke(word, rest));
        symbol.strokes.push_back(Mirrored(symbol.strokes.back()));
    }

    void CheckLast() const
    {
        if (m_symbols.empty())
            return;
        const Symbol& last = m_symbols.back();
        if (last.vietnamese.empty() || last.english.empty() || last.strokes.empty() || !m_based)
            throw std::runtime_error(last.name + " lacks a title, a base or strokes");
    }

    std::vector<Symbol> m_symbols;
    std::set<std::string> m_names;
    bool m_based = false;
};

} // namespace

std::vector<Symbol> ReadSymbols(std::istream& text)
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
        return reader.Finish();
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
    }
}

std::string SymbolTable(const std::vector<Symbol>& symbols)
{
    std::string table = "| Tệp / file | Tên / name | Stands for | Base point |\n|---|---|---|---|\n";
    for (const Symbol& symbol : symbols)
    {
        table += "| `" + symbol.name + ".dxf` | " + symbol.vietnamese + " | " + symbol.english + " | ";
        table += symbol.base == Base::kFoot ? "foot |\n" : "centre |\n";
    }
    return table;
}

} // namespace symbols
