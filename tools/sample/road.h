#pragma once

#include <string>
#include <vector>

/// A position in the plan, in metres.
struct Point
{
    double x = 0;
    double y = 0;
};

/// A vertex of a polyline: its position, height and the bulge of the segment that starts there.
struct Vertex
{
    Point at;
    double z = 0;
    double bulge = 0;
};

/// Position and direction (radians from the x axis) of a road's centre line at one chainage.
struct Pose
{
    Point at;
    double heading = 0;
};

/// The smallest upright rectangle around what was added to it.
struct Box
{
    Point low{1e20, 1e20};
    Point high{-1e20, -1e20};

    void Add(Point point);
};

/// The centre line of one road: straights and arcs joined without a kink. Chainage runs from 0 to `Length()`, offsets
/// are positive to the right of the direction of travel. Chainages outside continue the first or the last piece.
class Road
{
public:
    Road(std::string name, Pose start) : m_name(std::move(name)), m_end(start) {}

    /// Appends a piece of `length` metres; `curvature` is 1 / radius, positive turns left, 0 is straight.
    void Append(double length, double curvature);

    const std::string& Name() const { return m_name; }
    double Length() const { return m_length; }
    Pose End() const { return m_end; }

    Pose At(double chainage) const;
    Point At(double chainage, double offset) const;

    /// The line parallel to the centre line between two chainages, arcs kept as bulges.
    std::vector<Vertex> Parallel(double from, double to, double offset) const;

    Box Bounds() const;

private:
    struct Piece
    {
        double start;
        double length;
        double curvature;
        Pose pose;
    };

    const Piece& PieceAt(double chainage) const;

    std::string m_name;
    std::vector<Piece> m_pieces;
    double m_length = 0;
    Pose m_end;
};
