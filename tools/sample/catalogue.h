#pragma once

#include <span>
#include <string_view>

/// The polyline classes a drawing can hold a feature in.
enum class LineClass
{
    Light,
    Heavy2d,
    Line3d
};

/// How a feature lies in the plan.
enum class Shape
{
    Parallel, ///< exactly parallel to the road, arcs as bulges
    Along,    ///< roughly along the road, over the whole block of features
    Piece,    ///< roughly along the road, a short piece
    House,    ///< a closed rectangle
    Pond,     ///< a closed outline of arcs
    Parcel,   ///< a closed irregular outline
    Crossing, ///< across the road
};

/// A feature that is drawn as a coded polyline. `form` is the code in the 8-bit Vietnamese font form: one character
/// below 256 for each byte. `symbol` is the symbol drawing's bare name, empty for none.
struct LineFeature
{
    std::u16string_view form;
    LineClass lineClass;
    Shape shape;
    std::string_view layer;
    double offset; ///< of a Parallel or Along feature from the centre line, in metres
    std::string_view symbol;
};

/// The features of one block of road, in the order they are drawn; blocks repeat along the road.
std::span<const LineFeature> LineFeatures();

/// A code of survey points: as it stands in the drawing, and in the 8-bit form of library files.
struct PointCode
{
    std::u16string_view code;
    std::u16string_view form;
    std::string_view symbol;
};

/// The codes of surveyed details; the first is the empty code of a plain ground shot.
std::span<const PointCode> PointCodes();

/// The codes of the road's shoulders and centre.
std::span<const PointCode> RoadCodes();

/// The codes of the road's edges, which cross-sections leave out.
std::span<const PointCode> EdgeCodes();

/// A block of the drawing whose references carry a code.
struct CodedBlock
{
    std::string_view block;
    std::u16string_view form;
    std::string_view symbol;
};

std::span<const CodedBlock> CodedBlocks();
