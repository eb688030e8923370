#pragma once

#include "sections/section_grid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace bench
{

/// What a scan compares: the search lines of all sections of a drawing and the paths of its feature polylines, taken
/// out of the drawing's objects.
struct CrossingCase
{
    std::vector<SearchLine> lines;
    std::vector<std::vector<AcGePoint2d>> paths;
};

/// One crossing of a section by a polyline: the first place along the polyline, and the second if there is any.
struct CrossingRow
{
    uint32_t path;
    AcGePoint2d first;
    std::optional<AcGePoint2d> second;

    bool operator==(const CrossingRow& other) const;
};

/// By section, in the order of the polylines.
using CrossingRows = std::vector<std::vector<CrossingRow>>;

/// The case of a generated drawing; read once, kept for the whole run.
const CrossingCase& crossingCase(const std::string& name);

/// The rows as the scan finds them.
CrossingRows indexedRows(const CrossingCase& input);
/// The rows of every `step`-th section (the others stay empty) by comparing each polyline with each section: a
/// temporary polyline of its vertices, crossed with the search line.
CrossingRows plainRows(const CrossingCase& input, size_t step);
/// The rows by way of an index of the polylines' boxes in another library, and then the host's test of segment against
/// segment.
CrossingRows strTreeRows(const CrossingCase& input);
CrossingRows rTreeRows(const CrossingCase& input);

/// The row of one polyline and one search line, segment by segment: nothing when they do not meet.
std::optional<CrossingRow> crossSegments(const CrossingCase& input, uint32_t path, size_t line);

/// The box of a polyline or a search line, wider by what counts as touching.
Box2d boxOf(const std::vector<AcGePoint2d>& path);
Box2d boxOf(const SearchLine& line);

} // namespace bench
