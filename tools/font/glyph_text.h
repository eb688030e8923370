#pragma once

#include <istream>
#include <map>
#include <string>
#include <vector>

/// The glyphs of `glyphs.txt` as data, in half units of that file (capitals are 60 high), so that everything is whole.
namespace font
{

/// One vertex of a stroke; the piece that leads to it turns by `turn` degrees, 0 for a straight one.
struct Vertex
{
    int x;
    int y;
    double turn = 0;
};

using Path = std::vector<Vertex>;

struct Glyph
{
    int width = 0;  ///< of the ink; the space round it is the compiler's
    int middle = 0; ///< where marks are centred
    std::vector<Path> paths;
};

/// The glyphs by their 8-bit code.
using Glyphs = std::map<int, Glyph>;

/// Reads the glyphs of the text that have a code. Throws std::runtime_error that names the line for a word or number
/// that does not belong there, a name or code used twice, and a name that was not defined before.
Glyphs ReadGlyphs(std::istream& text);

} // namespace font
