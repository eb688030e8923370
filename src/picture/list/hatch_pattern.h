#pragma once

#include "picture/map2d.h"

#include <string_view>
#include <vector>

namespace picture
{

/// A family of parallel lines of a hatch pattern, in the hatch's own plane and at its own scale.
struct PatternLine
{
    double angle = 0.0; ///< radians
    Vertex base;
    Vertex offset; ///< from each line of the family to the next
    std::vector<double> dashes;
};

/// What a hatch says of its filling.
struct HatchFill
{
    bool isSolid = false;
    int style = 0; ///< 0 islands and islands in them, 1 the outermost only, 2 islands do not count
    std::vector<PatternLine> lines;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
};

HatchFill readHatchFill(std::string_view pairs);

/// A line of a pattern within a boundary.
struct HatchStroke
{
    Vertex from;
    Vertex to;
};

/// Loops of points; a point is inside when it is inside an odd number of them.
using Loops = std::vector<std::vector<Vertex>>;

/// The strokes of the pattern inside the loops. `tooMany` receives whether the pattern is so dense that it was thinned
/// out.
std::vector<HatchStroke> hatchStrokes(const HatchFill& fill, const Loops& loops, bool& tooMany);

} // namespace picture
