#pragma once

#include "store/text/text.h"
#include "survey/model/survey.h"
#include "survey/sheet/write_drawing.h"
#include "survey/surface/section_cut.h"

#include <set>

namespace survey
{

/// A cross-section that will stand in the drawing.
struct PlannedSection
{
    double distance = 0.0; ///< metres from the start of the alignment
    std::u16string name;
    std::u16string station;
    const GivenSection* given = nullptr; ///< null for one that is cut
    AcGePoint2d center;
    AcGeVector2d right; ///< unit vector in the plan, towards positive offsets
    std::vector<GroundPiece> ground;
    std::vector<size_t> points; ///< indexes into `Survey::points`
    std::vector<double> dcOffsets;

    AcGePoint2d placeOf(double offset) const { return center + right * offset; }
    /// The longest piece; null when there is none.
    const GroundPiece* drawnGround() const;
};

struct PlannedAlignment
{
    const AlignmentLine* line = nullptr;
    std::u16string name; ///< never empty, no two alike
    std::vector<PlannedSection> sections;
};

/// Which sections there will be, on which alignments. Ground lines of those that are cut, and points, are not yet among
/// it.
class SectionPlan
{
public:
    /// What has to be decided is added to `findings`. The survey must outlive the plan.
    SectionPlan(const Survey& survey, const WriteOptions& options, std::vector<Finding>& findings);
    SectionPlan(const SectionPlan&) = delete;
    SectionPlan& operator=(const SectionPlan&) = delete;

    std::vector<PlannedAlignment>& alignments() { return m_alignments; }

private:
    using Names = std::set<std::u16string, LessNoCase>;

    PlannedAlignment& addAlignment(const AlignmentLine& line);
    void addGiven(size_t alignment);
    void addCut(PlannedAlignment& planned);
    void add(PlannedAlignment& planned, double distance, const GivenSection* given);
    static std::u16string freeName(const std::u16string& name, Names& names);
    void tell(FindingKind kind, const Place& place, std::string text);

    const Survey& m_survey;
    const WriteOptions& m_options;
    std::vector<Finding>& m_findings;
    std::vector<PlannedAlignment> m_alignments;
    Names m_alignmentNames;
    Names m_names; ///< of the sections of the alignment at hand
};

} // namespace survey
