#include "survey/sheet/ground_source.h"

#include "store/text/text.h"
#include "survey/read/finding_list.h"
#include "survey/sheet/shown_numbers.h"
#include "survey/surface/triangulate.h"

#include <algorithm>
#include <cmath>

namespace survey
{

namespace
{

constexpr double kSameHeight = 0.0005; ///< metres

void note(const Place& place, std::string text, std::vector<Finding>& findings)
{
    findings.push_back({FindingKind::kNote, place, place.line, std::move(text)});
}

/// The surface to use; null when the survey has none. Another than the first is told.
const Surface* chosenSurface(const Survey& survey, const WriteOptions& options, std::vector<Finding>& findings)
{
    const Surface* chosen = nullptr;
    size_t others = 0;
    for (const Surface& surface : survey.surfaces)
    {
        const bool isAsked = options.surface && equalNoCase(surface.name, *options.surface);
        const bool isBetter = chosen == nullptr || (chosen->faces.empty() && !surface.faces.empty());
        others += isAsked || options.surface ? 0 : 1;
        if (options.surface ? isAsked : isBetter)
            chosen = &surface;
    }
    if (options.surface && chosen == nullptr)
        findings.push_back({FindingKind::kUnusable, {}, 0, "no surface is called " + quoted(*options.surface)});
    else if (others > 1)
        note(chosen->place, "of " + std::to_string(others) + " surfaces " + quoted(chosen->name) + " is cut", findings);
    return chosen;
}

AcGePoint3dArray pointsWithHeight(const Survey& survey)
{
    AcGePoint3dArray points;
    for (const Point& point : survey.points)
        if (point.hasElevation)
            points.push_back(point.position);
    return points;
}

/// The break lines that have heights, and where each stood.
struct BreakLines
{
    std::vector<BreakLine> lines;
    std::vector<const CodedLine*> given;
    size_t flat = 0; ///< those without heights
};

BreakLines breakLinesOf(const Survey& survey)
{
    BreakLines found;
    for (const CodedLine& line : survey.lines)
    {
        if (!line.isBreakLine)
            continue;
        found.flat += line.hasElevations ? 0 : 1;
        if (!line.hasElevations)
            continue;
        found.lines.push_back({line.vertices, line.closed});
        found.given.push_back(&line);
    }
    return found;
}

void tellCrossings(const Triangulation& made, const BreakLines& lines, std::vector<Finding>& findings)
{
    const BreakCrossing* worst = nullptr;
    size_t count = 0;
    const auto gap = [](const BreakCrossing& crossing) { return std::abs(crossing.secondHeight - crossing.place.z); };
    for (const BreakCrossing& crossing : made.crossings)
    {
        count += gap(crossing) > kSameHeight ? 1 : 0;
        if (worst == nullptr || gap(crossing) > gap(*worst))
            worst = &crossing;
    }
    if (count == 0)
        return;
    note(lines.given[worst->first]->place,
         counted(count, "crossing") +
             " of break lines with two heights: that of the first line is taken; the largest difference is " +
             metres(gap(*worst)) + " at " + shownPlace(worst->place) + ", with the one in line " +
             std::to_string(lines.given[worst->second]->place.line),
         findings);
}

} // namespace

GroundSource::GroundSource(const Survey& survey, const WriteOptions& options, std::vector<Finding>& findings)
    : m_options{options}
{
    const Surface* surface = chosenSurface(survey, options, findings);
    if (surface != nullptr && !surface->faces.empty())
        m_tin = takeGiven(*surface, findings);
    else if (surface != nullptr)
        m_tin = make(survey, surface->points, surface->place, findings);
    else if (!options.surface)
        m_tin = make(survey, pointsWithHeight(survey), survey.points.empty() ? Place{} : survey.points.front().place,
                     findings);
    if (!m_tin.faces.empty())
        m_cutter.emplace(m_tin);
}

Tin GroundSource::takeGiven(const Surface& surface, std::vector<Finding>& findings) const
{
    Tin tin{surface.points, surface.faces};
    const auto isUsable = [&](uint32_t index)
    {
        return index < tin.points.size() && std::isfinite(tin.points[index].x) && std::isfinite(tin.points[index].y) &&
               std::isfinite(tin.points[index].z);
    };
    const size_t damaged = std::erase_if(tin.faces, [&](const Surface::Face& face)
                                         { return !std::all_of(face.begin(), face.end(), isUsable); });
    if (damaged > 0)
        findings.push_back({FindingKind::kUnusable, surface.place, surface.place.line,
                            counted(damaged, "triangle") + " with corners that have no coordinates"});
    if (m_options.maxEdge)
        note(surface.place, "the surface has triangles of its own: --max-edge does not apply", findings);
    return tin;
}

Tin GroundSource::make(const Survey& survey, const AcGePoint3dArray& points, const Place& place,
                       std::vector<Finding>& findings) const
{
    const BreakLines lines = breakLinesOf(survey);
    Triangulation made = triangulate(points, lines.lines, m_options.maxEdge.value_or(HUGE_VAL));
    if (made.tin.faces.empty())
        return {};
    note(place,
         "triangles were made over " + counted(made.tin.points.size(), "point") + " and " +
             counted(lines.lines.size(), "break line"),
         findings);
    if (lines.flat > 0)
        note(place, counted(lines.flat, "break line") + " without heights: no edges of the surface", findings);
    if (made.merged > 0)
        note(place, counted(made.merged, "point") + " at the place of another one: the first counts", findings);
    if (made.conflicts > 0)
        note(place,
             counted(made.conflicts, "place") + " with two heights: the first counts; the largest difference is " +
                 metres(made.largestConflict),
             findings);
    if (made.leftOut > 0)
        findings.push_back({FindingKind::kUnusable, place, place.line,
                            counted(made.leftOut, "point") + " with coordinates beyond 1,000,000 km"});
    tellCrossings(made, lines, findings);
    return std::move(made.tin);
}

} // namespace survey
