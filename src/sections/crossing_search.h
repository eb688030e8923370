#pragma once

#include "kernel/crossing/plane_crossing.h"
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
    /// A line made ready for telling which segments lie on one side of it, or before or behind it.
    struct Gate
    {
        explicit Gate(const SearchLine& line);
        double slack(double gap) const { return 8.0 * size * (ownGap + gap); }
        uint32_t crossedBy(std::span<const AcGePoint2d> vertices, double slack) const;
        bool mayMeet(const Box2d& box, double gap) const;
        bool isPassed(const AcGePoint2d& a, const AcGePoint2d& b, double slack) const;

        AcGePoint2d from;
        AcGeVector2d way;
        double size;
        double ownGap;
    };
    struct Pair
    {
        uint32_t line;
        uint32_t segment;
        bool operator<(const Pair& other) const
        {
            return line != other.line ? line < other.line : segment < other.segment;
        }
    };

    void collect(std::span<const AcGePoint2d> path, size_t first, size_t last);
    void collectLongSegment(std::span<const AcGePoint2d> path, size_t segment, double gap);
    bool isFirstAsked(uint32_t line);
    void test(uint32_t line, std::span<const AcGePoint2d> path, size_t first, size_t last, double gap);
    void cross(std::span<const AcGePoint2d> path, std::span<const Pair> pairs);

    SectionGrid m_grid;
    std::vector<Gate> m_gates;
    std::vector<BoxedSegment> m_segments;
    Box2d m_extents;                  ///< of all lines, and what counts as touching them
    std::vector<uint64_t> m_lastTest; ///< by line: the number of the last test that it was part of
    uint64_t m_testNumber = 0;
    std::vector<Pair> m_pairs;
    AcGePoint3dArray m_points;
    std::vector<LineCrossing> m_crossings;
};
