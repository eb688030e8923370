#pragma once

#include "survey/model/survey.h"
#include "survey/sheet/write_drawing.h"
#include "survey/surface/section_cut.h"

#include <optional>

namespace survey
{

/// The surface that sections are cut through: one of the survey's that has triangles, else triangles over the points of
/// one that has none, else over the survey's own points, with its break lines.
class GroundSource
{
public:
    /// What was decided on the way is added to `findings`.
    GroundSource(const Survey& survey, const WriteOptions& options, std::vector<Finding>& findings);
    GroundSource(const GroundSource&) = delete;
    GroundSource& operator=(const GroundSource&) = delete;

    bool isThere() const { return m_cutter.has_value(); }
    GroundCut cut(const CutLine& line) const { return m_cutter ? m_cutter->cut(line) : GroundCut{}; }

private:
    Tin takeGiven(const Surface& surface, std::vector<Finding>& findings) const;
    Tin make(const Survey& survey, const AcGePoint3dArray& points, const Place& place,
             std::vector<Finding>& findings) const;

    const WriteOptions& m_options;
    Tin m_tin;
    std::optional<SectionCutter> m_cutter;
};

} // namespace survey
