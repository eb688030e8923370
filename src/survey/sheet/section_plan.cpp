#include "survey/sheet/section_plan.h"

#include "store/text/text.h"
#include "survey/line/alignment_walk.h"
#include "survey/line/section_line.h"
#include "survey/line/stations.h"
#include "survey/read/finding_list.h"

#include <algorithm>
#include <cmath>

namespace survey
{

namespace
{

constexpr double kSamePlace = 0.01; ///< metres: key points nearer than this to a section get none of their own

GroundPiece groundOf(const std::vector<SectionPoint>& points)
{
    GroundPiece piece;
    for (const SectionPoint& point : points)
        piece.push_back({point.offset, point.elevation});
    return piece;
}

double widthOf(const GroundPiece& piece)
{
    return piece.empty() ? 0.0 : piece.back().offset - piece.front().offset;
}

} // namespace

const GroundPiece* PlannedSection::drawnGround() const
{
    const auto longest =
        std::max_element(ground.begin(), ground.end(),
                         [](const GroundPiece& a, const GroundPiece& b) { return widthOf(a) < widthOf(b); });
    return longest == ground.end() || longest->size() < 2 ? nullptr : &*longest;
}

SectionPlan::SectionPlan(const Survey& survey, const WriteOptions& options, std::vector<Finding>& findings)
    : m_survey{survey}, m_options{options}, m_findings{findings}
{
    for (size_t i = 0; i < survey.alignments.size(); ++i)
    {
        addAlignment(survey.alignments[i]);
        addGiven(i);
        if (m_alignments.back().sections.empty())
            addCut(m_alignments.back());
    }
}

void SectionPlan::tell(FindingKind kind, const Place& place, std::string text)
{
    m_findings.push_back({kind, place, place.line, std::move(text)});
}

PlannedAlignment& SectionPlan::addAlignment(const AlignmentLine& line)
{
    m_names.clear();
    PlannedAlignment& planned = m_alignments.emplace_back();
    planned.line = &line;
    planned.name = freeName(line.name.empty() ? u"Tuyến" : line.name, m_alignmentNames);
    if (planned.name != line.name && !line.name.empty())
        tell(FindingKind::kNote, line.place,
             "the alignment " + quoted(line.name) + " stands twice: the second is called " + quoted(planned.name));
    return planned;
}

/// The name itself the first time, then numbered ones.
std::u16string SectionPlan::freeName(const std::u16string& name, Names& names)
{
    std::u16string free = name;
    for (int number = 2; !names.insert(free).second; ++number)
        free = name + u" #" + toUtf16(std::to_string(number));
    return free;
}

void SectionPlan::add(PlannedAlignment& planned, double distance, const GivenSection* given)
{
    PlannedSection section;
    section.distance = distance;
    section.given = given;
    section.station = stationText(stationAt(*planned.line, distance));
    const double skew = given != nullptr ? given->skew : 0.0;
    section.center = pointAt(*planned.line, distance);
    section.right = sectionDirection(*planned.line, distance, skew);
    if (m_options.edges)
        section.dcOffsets = {m_options.edges->left, m_options.edges->right};
    std::u16string name = section.station;
    if (given != nullptr)
    {
        name = given->name.empty() ? name : given->name;
        for (const std::vector<SectionPoint>& piece : given->ground)
            section.ground.push_back(groundOf(piece));
        if (given->designEdges.size() > 1)
            section.dcOffsets = {given->designEdges.front(), given->designEdges.back()};
    }
    section.name = freeName(name, m_names);
    if (section.name != name)
        tell(FindingKind::kNote, given != nullptr ? given->place : planned.line->place,
             "the section " + quoted(name) + " stands twice: the second is called " + quoted(section.name));
    planned.sections.push_back(std::move(section));
}

void SectionPlan::addGiven(size_t alignment)
{
    PlannedAlignment& planned = m_alignments.back();
    std::vector<const GivenSection*> given;
    for (const GivenSection& section : m_survey.sections)
    {
        if (section.alignment == alignment)
            given.push_back(&section);
    }
    std::stable_sort(given.begin(), given.end(),
                     [](const GivenSection* a, const GivenSection* b) { return a->distance < b->distance; });
    for (const GivenSection* section : given)
        add(planned, section->distance, section);
}

void SectionPlan::addCut(PlannedAlignment& planned)
{
    const double length = lengthOf(*planned.line);
    std::vector<double> distances;
    const auto count = static_cast<size_t>(std::floor(length / m_options.spacing + 1e-9));
    for (size_t i = 0; i <= count; ++i)
        distances.push_back(std::min(static_cast<double>(i) * m_options.spacing, length));
    if (m_options.atKeyPoints)
    {
        const std::vector<double> regular = distances;
        for (const double key : keyDistances(*planned.line))
        {
            const auto next = std::lower_bound(regular.begin(), regular.end(), key - kSamePlace);
            if (next == regular.end() || *next > key + kSamePlace)
                distances.push_back(key);
        }
        std::sort(distances.begin(), distances.end());
    }
    for (const double distance : distances)
        add(planned, distance, nullptr);
}

} // namespace survey
