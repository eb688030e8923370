#pragma once

#include "survey/surface/cell_lists.h"
#include "survey/surface/tin.h"

#include <memory>
#include <span>
#include <vector>

namespace survey
{

/// Where a section runs in the plan. Metres.
struct CutLine
{
    AcGePoint2d center;
    AcGeVector2d right; ///< unit vector along the section, towards positive offsets
    double leftWidth = 0.0;
    double rightWidth = 0.0;
};

/// A point of a ground line. Metres.
struct GroundPoint
{
    double offset = 0.0;
    double elevation = 0.0;

    bool operator==(const GroundPoint&) const = default;
};

using GroundPiece = std::vector<GroundPoint>;

/// What of a surface lies on a section: pieces between gaps, by rising offset, two points or more each, with a vertex
/// exactly where the section crosses an edge of a triangle.
struct GroundCut
{
    std::vector<GroundPiece> pieces;
    size_t overlaps = 0; ///< triangles that lie over others by more than a millimetre: there the first counts
};

/// Cuts the triangles of the given numbers.
GroundCut cutFaces(const Tin& tin, std::span<const uint32_t> faces, const CutLine& line);

/// Cuts a surface often: looks at the triangles near a section only. The surface must outlive it.
class SectionCutter
{
public:
    explicit SectionCutter(const Tin& tin);
    GroundCut cut(const CutLine& line) const;

private:
    const Tin& m_tin;
    std::unique_ptr<const CellLists> m_lists;
};

} // namespace survey
