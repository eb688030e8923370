#include "console/report/verdict.h"

#include "console/report/check_report.h"
#include "console/text/shown_text.h"

namespace console
{

namespace
{

/// "1 section", "2 sections".
std::string counted(size_t count, const std::string& one, const std::string& many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string amongAll(size_t count, size_t of, const std::string& many)
{
    return std::to_string(count) + " of " + std::to_string(of) + " " + many;
}

/// A list of findings; those that were not found are left out.
class Findings
{
public:
    void add(const char* kind, size_t count, std::string text, size_t of = 0)
    {
        if (count > 0)
            m_list.push_back({kind, count, of, std::move(text)});
    }
    std::vector<Finding> take() { return std::move(m_list); }

private:
    std::vector<Finding> m_list;
};

size_t sectionCount(const CheckReport& report)
{
    size_t count = 0;
    for (const auto& [name, sections] : report.alignments)
        count += sections;
    return count;
}

size_t rowsWithoutSymbol(const CheckReport& report)
{
    size_t count = 0;
    for (const FeatureKind kind : {kNames, kSectionCodes})
        for (const auto& [name, files] : report.features.kinds[kind])
            if (const auto none = files.find(u""); none != files.end())
                count += none->second;
    return count;
}

void addAlignments(Findings& stops, const CheckReport& report)
{
    if (report.alignments.empty() && report.features.kinds[kTableCodes].empty())
        stops.add("noAlignment", 1, "the drawing has no alignment");
    size_t empty = 0;
    size_t unnamed = 0;
    for (const auto& [name, sections] : report.alignments)
    {
        empty += sections == 0 ? 1U : 0U;
        unnamed += name.empty() ? 1U : 0U;
    }
    stops.add("emptyAlignments", empty, counted(empty, "alignment has", "alignments have") + " no section");
    stops.add("unnamedAlignments", unnamed, counted(unnamed, "alignment has", "alignments have") + " no name");
    if (const size_t count = report.duplicateAlignments.size(); count > 0)
        stops.add("duplicateAlignments", count,
                  counted(count, "alignment has", "alignments have") +
                      " the name of an earlier one and cannot be chosen");
    if (const size_t count = report.lockedAlignments.size(); count > 0)
        stops.add("lockedAlignments", count, counted(count, "alignment", "alignments") + " cannot be changed");
    if (sectionCount(report) > 0 && report.sections.rows == 0)
        stops.add("noRows", 1, "nothing was found on the sections");
}

std::vector<Finding> stopsOf(const CheckReport& report)
{
    Findings stops;
    size_t missing = 0;
    size_t unreadable = 0;
    for (const LostFile& file : report.lostFiles())
        ++(file.missing ? missing : unreadable);
    stops.add("missingFiles", missing, counted(missing, "symbol file is", "symbol files are") + " missing");
    stops.add("unreadableFiles", unreadable, counted(unreadable, "symbol file", "symbol files") + " cannot be read");
    addAlignments(stops, report);
    const size_t without = report.withoutGroundLine.size();
    const size_t sections = sectionCount(report);
    stops.add("withoutGroundLine", without,
              amongAll(without, sections, sections == 1 ? "section has" : "sections have") + " no ground line",
              sections);
    return stops.take();
}

std::vector<Finding> warningsOf(const CheckReport& report)
{
    Findings warnings;
    const SectionFindings& sections = report.sections;
    warnings.add("layout", report.layout.empty() ? 0 : 1,
                 "the drawing was saved on the layout \"" + report.layout + "\": symbols go onto it");
    warnings.add("raisedSections", sections.raised.size(),
                 counted(sections.raised.size(), "section line does", "section lines do") +
                     " not lie at height 0: all offsets there count to side B",
                 sectionCount(report));
    warnings.add("wrongSides", sections.wrongSides.size(),
                 amongAll(sections.wrongSides.size(), sections.points, "section points") +
                     " lie off the line on side A and count to side B",
                 sections.points);
    warnings.add("badLayers", report.badLayers.size(),
                 counted(report.badLayers.size(), "layer name of the settings", "layer names of the settings") +
                     " cannot be made: what belongs there goes onto the current layer");
    warnings.add("wideRotations", report.wideRotations.size(),
                 counted(report.wideRotations.size(), "rotation is", "rotations are") +
                     " beyond a whole turn: radians are meant, not degrees");
    const size_t superfluous = sections.superfluousRows();
    warnings.add("coinciding", superfluous,
                 amongAll(superfluous, sections.rows, "rows stand") +
                     " where one of the same name or code stands: both are drawn",
                 sections.rows);
    warnings.add("withoutGround", report.withoutGround.size(),
                 "under parts of " + counted(report.withoutGround.size(), "section", "sections") +
                     " there is no ground",
                 sectionCount(report));
    const size_t plain = rowsWithoutSymbol(report);
    warnings.add("withoutSymbol", plain, amongAll(plain, sections.rows, "rows") + " have no symbol, only a label",
                 sections.rows);
    return warnings.take();
}

std::string joinedTexts(const std::vector<Finding>& findings)
{
    std::string text;
    for (const Finding& finding : findings)
        text += (text.empty() ? "" : ", ") + finding.text;
    return text;
}

Json findingsJson(const std::vector<Finding>& findings)
{
    Json json = Json::array();
    for (const Finding& finding : findings)
    {
        json.push_back({{"kind", finding.kind}, {"count", finding.count}});
        if (finding.of > 0)
            json.back()["of"] = finding.of;
    }
    return json;
}

} // namespace

std::string Verdict::line() const
{
    return isReady() ? "Ready: " + ready + "." : "Not ready: " + joinedTexts(stops) + ".";
}

std::string Verdict::text() const
{
    std::string text = shownLine(line());
    for (const Finding& warning : warnings)
        text += shownLine("But " + warning.text + ".");
    return text;
}

Json Verdict::json() const
{
    return {{"ready", isReady()}, {"stops", findingsJson(stops)}, {"warnings", findingsJson(warnings)}};
}

Verdict verdictOf(const CheckReport& report)
{
    size_t points = 0;
    for (const auto& [code, files] : report.features.kinds[kTableCodes])
        for (const auto& [file, count] : files)
            points += count;
    std::string ready = counted(report.alignments.size(), "alignment", "alignments") + ", " +
                        counted(sectionCount(report), "section", "sections") + ", " +
                        counted(report.sections.rows, "row", "rows");
    if (!report.table.empty())
        ready += ", " + counted(points, "point", "points") + " of the plan";
    return {stopsOf(report), warningsOf(report), std::move(ready)};
}

} // namespace console
