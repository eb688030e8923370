#pragma once

#include "host/geometry/plane_crossing.h"
#include "sections/section_grid.h"

#include <optional>
#include <span>
#include <vector>

/// Where one path meets one search line: the first place along the path, and the second one if there is any.
struct LineCrossing
{
    uint32_t line = 0;
    AcGePoint3d first;
    std::optional<AcGePoint3d> second;
};

/// Finds where paths of straight segments meet the search lines of all sections. Paths are streamed past the lines,
/// each once; what a path costs grows with its length and with the lines near it, not with the number of lines. The
/// places are those, in that order, that the host's intersection of the path with the line gives. Owns all it needs.
class CrossingSearch
{
public:
    explicit CrossingSearch(std::span<const SearchLine> lines);

    /// The crossings of a path, by rising line. They live until the next search.
    const std::vector<LineCrossing>& find(std::span<const AcGePoint2d> path);

private:
    /// A line made ready for rejecting segments that lie on one side of it or before or behind it.
    struct Line
    {
        explicit Line(const SearchLine& line);
        bool canMeet(const AcGePoint2d& a, const AcGePoint2d& b, double gap) const;

        BoxedSegment segment;
        AcGePoint2d from;
        AcGeVector2d way;
        double size;
        double gap;
    };
    struct Pair
    {
        uint32_t line;
        uint32_t segment;
        auto operator<=>(const Pair&) const = default;
    };

    void collectChunk(std::span<const AcGePoint2d> path, size_t first, size_t last);
    void collectSegment(const AcGePoint2d& a, const AcGePoint2d& b, uint32_t segment, double gap);
    void collectAlong(const AcGePoint2d& a, const AcGePoint2d& b, uint32_t segment, double gap);
    void add(uint32_t line, uint32_t segment, const AcGePoint2d& a, const AcGePoint2d& b, double gap);
    void cross(std::span<const AcGePoint2d> path, std::span<const Pair> pairs);

    SectionGrid m_grid;
    std::vector<Line> m_lines;
    Box2d m_extents;                     ///< of all lines
    std::vector<uint64_t> m_lastSegment; ///< by line: number of the last segment it was looked at for
    uint64_t m_segmentNumber = 0;
    std::vector<Pair> m_pairs;
    AcGePoint3dArray m_points;
    std::vector<LineCrossing> m_crossings;
};
