#include "survey/read/place_sections.h"

#include "store/text/text.h"
#include "survey/line/alignment_walk.h"
#include "survey/line/elements.h"
#include "survey/line/section_line.h"
#include "survey/line/stations.h"
#include "survey/read/codes.h"
#include "survey/read/finding_list.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace survey
{

namespace
{

/// Between sections that are given without stations, metres.
constexpr double kMadeUpSpacing = 20.0;

std::string nameOf(const GivenSection& section)
{
    return "section " + quoted(section.name.empty() ? stationText({section.distance}) : section.name);
}

bool isLoose(const GivenSection& section)
{
    return section.alignment == GivenSection::kNoAlignment;
}

/// The alignment that loose sections belong to; nothing when there is none. One that cannot be told is a finding.
std::optional<size_t> chosenAlignment(Survey& survey, const std::u16string& wanted, const Place& place)
{
    const auto& lines = survey.alignments;
    const auto isWanted = [&](const AlignmentLine& line) { return equalNoCase(line.name, wanted); };
    const auto found = std::find_if(lines.begin(), lines.end(), isWanted);
    if (!wanted.empty() && found != lines.end())
        return static_cast<size_t>(found - lines.begin());
    if (!wanted.empty())
        FindingList{survey, place.file}.unusable(place.line,
                                                 "there is no alignment " + quoted(wanted) + " for the sections");
    else if (lines.size() > 1)
        FindingList{survey, place.file}.unusable(
            place.line, "there are several alignments: say with --alignment which one the sections belong to");
    return lines.empty() || !wanted.empty() ? std::nullopt : std::optional<size_t>{0};
}

/// The one distance along the line at which a section stands by its station; nothing, and the reason, otherwise.
std::optional<double> distanceOf(const AlignmentLine& line, const GivenSection& section, std::string& why)
{
    if (!section.hasDistance)
    {
        why = "has no station";
        return std::nullopt;
    }
    std::vector<double> distances = distancesOf(line, section.distance);
    if (section.region != 0)
        std::erase_if(distances, [&](double at) { return stationAt(line, at).region != section.region; });
    if (distances.size() == 1)
        return distances.front();
    why = distances.empty() ? "has a station that the alignment does not have"
                            : "has a station that the alignment has " + std::to_string(distances.size()) +
                                  " times: the number of the region in brackets behind it says which is meant";
    return std::nullopt;
}

void placeOn(Survey& survey, size_t alignment)
{
    const auto cannotStand = [&](GivenSection& section)
    {
        if (!isLoose(section))
            return false;
        std::string why;
        const auto distance = distanceOf(survey.alignments[alignment], section, why);
        if (!distance)
        {
            FindingList{survey, section.place.file}.unusable(section.place.line, nameOf(section) + " " + why);
            return true;
        }
        section.alignment = alignment;
        section.distance = *distance;
        return false;
    };
    std::erase_if(survey.sections, cannotStand);
}

/// Gives loose sections without a station one behind the last that has one.
void makeUpStations(Survey& survey)
{
    double last = -kMadeUpSpacing;
    for (const GivenSection& section : survey.sections)
        if (isLoose(section) && section.hasDistance)
            last = std::max(last, section.distance);
    for (GivenSection& section : survey.sections)
        if (isLoose(section) && !section.hasDistance)
            section.distance = last += kMadeUpSpacing;
}

/// A straight alignment to the east on which all loose sections stand at their stations.
void placeOnStraight(Survey& survey, const Place& place)
{
    makeUpStations(survey);
    double first = std::numeric_limits<double>::infinity();
    double last = -first;
    for (const GivenSection& section : survey.sections)
        if (isLoose(section))
        {
            first = std::min(first, section.distance);
            last = std::max(last, section.distance);
        }
    AlignmentLine line;
    line.name = u"T1";
    line.startStation = first;
    line.place = place;
    line.elements.push_back(straightElement({0.0, 0.0}, {std::max(1.0, last - first), 0.0}));
    survey.alignments.push_back(std::move(line));
    for (GivenSection& section : survey.sections)
        if (isLoose(section))
        {
            section.alignment = survey.alignments.size() - 1;
            section.distance -= first;
        }
    FindingList{survey, place.file}.note(
        0, "no alignment is given: the sections stand on a straight one, \"T1\", from the origin to the east");
}

/// A coded point of a section is a point of the survey at its place in the plan.
void addCodedPoints(Survey& survey)
{
    for (const GivenSection& section : survey.sections)
        for (const std::vector<SectionPoint>& piece : section.ground)
            for (const SectionPoint& point : piece)
                if (std::vector<std::u16string> codes = splitCodes(point.code); !codes.empty())
                {
                    const AcGePoint2d at = sectionPlace(survey.alignments[section.alignment], section.distance,
                                                        section.skew, point.offset);
                    survey.points.push_back({{}, std::move(codes), {at.x, at.y, point.elevation}, true, point.place});
                }
}

void placeLooseSections(Survey& survey, const std::u16string& alignment)
{
    const auto loose = std::find_if(survey.sections.begin(), survey.sections.end(), isLoose);
    if (loose == survey.sections.end())
        return;
    const Place place = loose->place;
    if (const auto chosen = chosenAlignment(survey, alignment, place))
        placeOn(survey, *chosen);
    else
        placeOnStraight(survey, place);
}

} // namespace

void placeSections(Survey& survey, const std::u16string& alignment)
{
    placeLooseSections(survey, alignment);
    addCodedPoints(survey);
}

} // namespace survey
