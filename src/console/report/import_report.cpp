#include "console/report/import_report.h"

#include "console/text/shown_text.h"
#include "survey/line/alignment_walk.h"
#include "survey/line/stations.h"
#include "util/numbers.h"

#include <algorithm>

namespace console
{

namespace
{

using survey::Finding;
using survey::FindingKind;
using survey::Survey;

/// How much came from one file.
struct FileCounts
{
    size_t points = 0;
    size_t lines = 0;
    size_t alignments = 0;
    size_t sections = 0;
    size_t surfaces = 0;
    size_t triangles = 0;
};

template <class List>
size_t countOf(const List& list, size_t file)
{
    return static_cast<size_t>(
        std::count_if(list.begin(), list.end(), [file](const auto& each) { return each.place.file == file; }));
}

FileCounts countsOf(const Survey& all, size_t file)
{
    FileCounts counts{countOf(all.points, file), countOf(all.lines, file), countOf(all.alignments, file),
                      countOf(all.sections, file), countOf(all.surfaces, file)};
    for (const survey::Surface& surface : all.surfaces)
        counts.triangles += surface.place.file == file ? surface.faces.size() : 0;
    return counts;
}

Json extentsJson(const AcGeExtents& extents)
{
    if (!extents.isValid())
        return nullptr;
    return {{"min", jsonPoint(extents.minPoint())}, {"max", jsonPoint(extents.maxPoint())}};
}

Json fileJson(const Survey& all, size_t index)
{
    const survey::SurveyFile& file = all.files[index];
    const FileCounts counts = countsOf(all, index);
    return {{"path", file.path},
            {"format", file.format},
            {"units", file.units},
            {"encoding", file.encoding},
            {"guessedEncoding", file.isGuessedEncoding},
            {"points", counts.points},
            {"lines", counts.lines},
            {"alignments", counts.alignments},
            {"sections", counts.sections},
            {"surfaces", counts.surfaces},
            {"triangles", counts.triangles},
            {"extents", extentsJson(file.extents)}};
}

Json sectionJson(const survey::WrittenSection& section)
{
    return {{"name", toUtf8(section.name)},
            {"station", toUtf8(section.station)},
            {"distance", jsonNumber(section.distance)},
            {"given", section.isGiven},
            {"groundPieces", section.groundPieces},
            {"groundVertices", section.groundVertices},
            {"ground", Json::array({jsonNumber(section.groundFrom), jsonNumber(section.groundTo)})},
            {"points", section.points.size()}};
}

Json alignmentJson(const survey::AlignmentLine& line, const survey::WriteResult& result)
{
    Json json{{"name", toUtf8(line.name)},
              {"length", jsonNumber(lengthOf(line))},
              {"startStation", jsonNumber(line.startStation)},
              {"sections", Json::array()}};
    for (const survey::WrittenSection& section : result.sections)
        if (section.alignment == line.name)
            json["sections"].push_back(sectionJson(section));
    return json;
}

Json countsJson(const std::map<std::u16string, size_t>& counts)
{
    Json json = Json::array();
    for (const auto& [code, count] : counts)
        json.push_back({{"code", toUtf8(code)}, {"count", count}});
    return json;
}

Json pointJson(const survey::Point& point)
{
    return {{"name", toUtf8(point.name)},
            {"codes", listJson(point.codes, [](const std::u16string& code) { return toUtf8(code); })},
            {"position", jsonPoint(point.position)}};
}

Json findingJson(const Survey& all, const Finding& finding)
{
    return {{"kind", finding.kind == FindingKind::kUnusable ? "unusable" : "note"},
            {"file", finding.first.file < all.files.size() ? all.files[finding.first.file].path : std::string{}},
            {"line", finding.first.line},
            {"lastLine", finding.lastLine},
            {"text", finding.text}};
}

std::string metresText(double length)
{
    return toUtf8(FormatReal(length, 2));
}

std::string amount(size_t count, const std::string& one)
{
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string joinedParts(const std::vector<std::string>& parts, const char* separator)
{
    std::string text;
    for (const std::string& part : parts)
        if (!part.empty())
            text += (text.empty() ? "" : separator) + part;
    return text;
}

std::string extentsText(const AcGeExtents& extents)
{
    if (!extents.isValid())
        return {};
    const AcGePoint3d& low = extents.minPoint();
    const AcGePoint3d& high = extents.maxPoint();
    return "E " + metresText(low.x) + " to " + metresText(high.x) + ", N " + metresText(low.y) + " to " +
           metresText(high.y);
}

std::string fileText(const Survey& all, size_t index)
{
    const survey::SurveyFile& file = all.files[index];
    const FileCounts counts = countsOf(all, index);
    const auto part = [](size_t count, const char* one) { return count == 0 ? std::string{} : amount(count, one); };
    const std::string encoding = file.encoding + (file.isGuessedEncoding ? " (guessed)" : "");
    const std::string what = joinedParts({part(counts.alignments, "alignment"), part(counts.sections, "cross-section"),
                                          part(counts.points, "point"), part(counts.lines, "line"),
                                          part(counts.surfaces, "surface"), part(counts.triangles, "triangle")},
                                         ", ");
    const std::string about = joinedParts({file.format, file.units, encoding}, ", ");
    return shownLine(file.path + ": " + about) +
           shownLine("  " + joinedParts({what.empty() ? "nothing" : what, extentsText(file.extents)}, "; "));
}

std::string alignmentText(const survey::AlignmentLine& line, const survey::WriteResult& result)
{
    size_t sections = 0;
    size_t cut = 0;
    size_t withoutGround = 0;
    for (const survey::WrittenSection& section : result.sections)
        if (section.alignment == line.name)
        {
            ++sections;
            cut += section.isGiven ? 0 : 1;
            withoutGround += section.groundPieces == 0 ? 1 : 0;
        }
    const std::string stations =
        toUtf8(stationText(stationAt(line, 0.0))) + " to " + toUtf8(stationText(stationAt(line, lengthOf(line))));
    return shownLine("Alignment " + toUtf8(line.name) + ": " + metresText(lengthOf(line)) + " m, " + stations + "; " +
                     amount(sections, "section") + (cut > 0 ? ", " + std::to_string(cut) + " of them cut" : "") +
                     (withoutGround > 0 ? "; " + std::to_string(withoutGround) + " without a ground line" : ""));
}

std::string countsText(const char* what, const std::map<std::u16string, size_t>& counts)
{
    std::vector<std::string> parts;
    for (const auto& [code, count] : counts)
        parts.push_back(toUtf8(code) + " (" + std::to_string(count) + ")");
    return parts.empty() ? "" : shownLine(std::string{what} + ": " + joinedParts(parts, ", "));
}

/// What is to be done about points whose side will not be recognised.
std::string offLineText(const survey::WriteResult& result)
{
    if (result.offLine.empty())
        return {};
    const auto isNearer = [](const auto& a, const auto& b) { return a.distance < b.distance; };
    const auto furthest = std::max_element(result.offLine.begin(), result.offLine.end(), isNearer);
    return shownLine(amount(result.offLine.size(), "point") + " of sections " +
                     (result.offLine.size() == 1 ? "lies" : "lie") + " off the section's line, up to " +
                     toUtf8(FormatReal(furthest->distance, 3)) +
                     " m: draw takes their side by --side-tolerance, or --snap puts them on the line");
}

std::string pointsText(const Survey& all, const survey::WriteResult& result, double tolerance)
{
    if (all.points.empty())
        return {};
    const size_t unused = result.unusedPoints.size();
    std::string text = shownLine(amount(all.points.size(), "survey point") + ": " +
                                 std::to_string(all.points.size() - unused) + " of sections (within " +
                                 metresText(tolerance) + " m), " + std::to_string(unused) + " of the plan alone");
    constexpr size_t kNamed = 20;
    std::vector<std::string> names;
    for (const size_t index : result.unusedPoints)
        if (const survey::Point& point = all.points[index]; !point.name.empty() && names.size() < kNamed)
            names.push_back(toUtf8(point.name));
    if (!names.empty())
        text += shownLine("  of the plan alone: " + joinedParts(names, ", ") +
                          (unused > names.size() ? " and " + std::to_string(unused - names.size()) + " more" : ""));
    return text;
}

std::string findingText(const Survey& all, const Finding& finding)
{
    std::string text = finding.kind == FindingKind::kUnusable ? "  " : "Note: ";
    if (finding.first.file < all.files.size())
        text += all.files[finding.first.file].path + ": ";
    if (finding.lastLine > finding.first.line)
        text += "lines " + std::to_string(finding.first.line) + "-" + std::to_string(finding.lastLine) + ": ";
    else if (finding.first.line > 0)
        text += "line " + std::to_string(finding.first.line) + ": ";
    return shownLine(text + finding.text);
}

/// The findings of a kind, the first of very many.
std::string findingsText(const Survey& all, const std::vector<Finding>& findings, FindingKind kind)
{
    constexpr size_t kShown = 200;
    std::string text;
    size_t count = 0;
    for (const Finding& finding : findings)
        if (finding.kind == kind && ++count <= kShown)
            text += findingText(all, finding);
    return count <= kShown ? text
                           : text + shownLine("  and " + std::to_string(count - kShown) + " more (--json has all)");
}

std::vector<Finding> findingsOf(const ImportReport& report)
{
    std::vector<Finding> all = report.survey->findings;
    all.insert(all.end(), report.result.findings.begin(), report.result.findings.end());
    return all;
}

} // namespace

size_t ImportReport::unusable() const
{
    const std::vector<Finding> all = findingsOf(*this);
    return static_cast<size_t>(std::count_if(
        all.begin(), all.end(), [](const Finding& finding) { return finding.kind == FindingKind::kUnusable; }));
}

Json ImportReport::json() const
{
    Json json{{"output", output}, {"files", Json::array()}};
    for (size_t i = 0; i < survey->files.size(); ++i)
        json["files"].push_back(fileJson(*survey, i));
    json["alignments"] = listJson(survey->alignments, [this](const auto& line) { return alignmentJson(line, result); });
    json["points"] = survey->points.size();
    json["offLine"] = listJson(result.offLine,
                               [this](const survey::PointOffLine& off)
                               {
                                   Json point = pointJson(survey->points[off.point]);
                                   point["section"] = toUtf8(result.sections[off.section].name);
                                   point["distance"] = jsonNumber(off.distance);
                                   return point;
                               });
    json["unusedPoints"] = listJson(result.unusedPoints, [this](size_t i) { return pointJson(survey->points[i]); });
    json["pointCodes"] = countsJson(result.pointCodes);
    json["lineCodes"] = countsJson(result.lineCodes);
    json["extents"] = extentsJson(result.extents);
    json["findings"] = listJson(findingsOf(*this), [this](const Finding& each) { return findingJson(*survey, each); });
    return json;
}

std::string ImportReport::text() const
{
    std::string text;
    for (size_t i = 0; i < survey->files.size(); ++i)
        text += fileText(*survey, i);
    for (const survey::AlignmentLine& line : survey->alignments)
        text += alignmentText(line, result);
    text += pointsText(*survey, result, tolerance) + offLineText(result);
    text += countsText("Codes of points", result.pointCodes) + countsText("Codes of lines", result.lineCodes);
    const std::vector<Finding> all = findingsOf(*this);
    if (unusable() > 0)
        text += "What could not be used:\n" + findingsText(*survey, all, FindingKind::kUnusable);
    text += findingsText(*survey, all, FindingKind::kNote);
    return text + (output.empty() ? "Nothing was saved.\n" : shownLine("-> " + output));
}

} // namespace console
