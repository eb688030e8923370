#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

/// The symbols of `symbols.txt` as data. Coordinates are in the symbol's own units, the origin being its base point;
/// angles are degrees, counter-clockwise from the x axis.
namespace symbols
{

struct Point
{
    double x;
    double y;
};

enum class StrokeKind
{
    kPath,
    kRing,
    kCircle,
    kArc,
    kFill,
    kDisc
};

/// One drawn element. `points` are the vertices of a path, ring or fill, or the one centre of a round element.
struct Stroke
{
    StrokeKind kind;
    std::vector<Point> points;
    double radius = 0;
    double startAngle = 0;
    double endAngle = 0;
};

/// Where the base point lies: on the ground below a symbol that is drawn standing, or in the middle of one that is
/// drawn from above.
enum class Base
{
    kFoot,
    kCentre
};

struct Symbol
{
    std::string name; ///< ASCII; the name of the drawing file without its ending
    std::string vietnamese;
    std::string english;
    Base base = Base::kFoot;
    std::vector<Stroke> strokes;
};

/// Reads every symbol of the text, in its order. Throws std::runtime_error that names the line for a word, number or
/// count that does not belong there, a name used twice, and a symbol that lacks a title, a base or strokes.
std::vector<Symbol> ReadSymbols(std::istream& text);

/// The symbols as rows of a Markdown table: file name, titles and base point.
std::string SymbolTable(const std::vector<Symbol>& symbols);

} // namespace symbols
