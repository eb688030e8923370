#include "console/report/check_report.h"
#include "console/report/verdict.h"
#include "console/text/shown_text.h"

#include <cstdio>

namespace console
{

namespace
{

constexpr size_t kFewLines = 10;

std::string shown(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.3f", value);
    return buffer;
}

std::string nameOf(const SectionName& place)
{
    return place.alignment + " " + place.section;
}

std::string counted(const CountedName& each)
{
    return toUtf8(each.name) + " (" + std::to_string(each.count) + "), " + titleOf(each.kind);
}

std::string fileText(const std::u16string& file, const std::map<std::u16string, CheckedFile>& files)
{
    const auto checked = files.find(file);
    if (checked == files.end())
        return "no symbol file";
    const auto& [found, reason, inDrawing] = checked->second;
    std::string text = toUtf8(file) + (found.empty() ? ": not found" : " -> " + found);
    if (!found.empty() && !reason.empty())
        text += ": cannot be read";
    return text + (inDrawing ? "; the drawing has its block" : "");
}

/// "T1 C1, T1 C2 and 23 more".
std::string someOf(const std::vector<SectionName>& sections, bool all)
{
    std::vector<std::string> names;
    for (const SectionName& section : sections)
        if (all || names.size() < kFewLines)
            names.push_back(nameOf(section));
    const size_t left = sections.size() - names.size();
    return joined(names) + (left > 0 ? " and " + std::to_string(left) + " more" : "");
}

/// The lists of a report, each under its title and cut after a few lines unless all are wanted.
class Lists
{
public:
    explicit Lists(bool all) : m_all{all} {}

    template <class List, class LineOf>
    void add(const std::string& title, const List& list, LineOf lineOf)
    {
        m_text += list.empty() ? "" : title + ":\n";
        size_t count = 0;
        for (const auto& element : list)
            if (++count <= kFewLines || m_all)
                m_text += shownLine("  " + lineOf(element));
        if (count > kFewLines && !m_all)
            m_text += "  ... and " + std::to_string(count - kFewLines) + " more (--all)\n";
    }

    bool all() const { return m_all; }
    std::string take() { return std::move(m_text); }

private:
    bool m_all;
    std::string m_text;
};

/// What keeps something from being drawn.
void addStops(Lists& lists, const CheckReport& report)
{
    const std::vector<LostFile> lost = report.lostFiles();
    lists.add("Symbol files that are missing or cannot be read", report.unreadable(),
              [](const UnreadableSymbol& each) { return each.path + ": " + each.reason; });
    lists.add("Not drawn for lack of a symbol file", lost,
              [&](const LostFile& each)
              {
                  std::vector<std::string> names;
                  for (const CountedName& name : each.names)
                      names.push_back(counted(name));
                  return each.path + ": " + joined(names) +
                         (each.sections.empty() ? "" : "; on " + someOf(each.sections, lists.all()));
              });
    lists.add("Sections without a ground line", report.withoutGroundLine,
              [](const CheckedSection& each) { return each.alignment + " " + each.section; });
    const auto itself = [](const std::string& each) { return each; };
    lists.add("Alignments with the name of an earlier one", report.duplicateAlignments, itself);
    lists.add("Alignments that cannot be changed", report.lockedAlignments, itself);
}

/// What is drawn, but perhaps not as it is meant.
void addOddities(Lists& lists, const CheckReport& report)
{
    const SectionFindings& sections = report.sections;
    lists.add("Section lines that do not lie at height 0", sections.raised,
              [](const RaisedSection& each)
              { return nameOf(each.place) + ": A at " + shown(each.heightA) + ", B at " + shown(each.heightB); });
    lists.add("Points on side A that count to side B", sections.wrongSides,
              [](const PointOnWrongSide& each)
              {
                  return nameOf(each.place) + ": " + each.code + " at " + shown(each.offset) + ", " +
                         shown(each.distance) + " off the line";
              });
    lists.add("Layer names that cannot be made", report.badLayers,
              [](const BadLayer& each) { return each.layer + ", for " + each.option; });
    lists.add("Rotations beyond a whole turn, in radians", report.wideRotations,
              [](const WideRotation& each)
              { return each.name + ", " + titleOf(each.kind) + ": " + shown(each.rotation); });
    lists.add("Rows of one name or code at one place", sections.coinciding,
              [](const CoincidingRows& each) {
                  return nameOf(each.place) + ": " + std::to_string(each.count) + " " + each.name + " at " +
                         shown(each.offset);
              });
    lists.add("No ground under", report.withoutGround,
              [](const CheckedSection& each)
              { return each.alignment + " " + each.section + ": " + joined(each.names); });
    lists.add("Texts with characters that have no 8-bit form", report.lostTexts(),
              [](const LostText& each) { return each.text + ": " + namesOf(each.characters); });
}

void addRows(Lists& lists, const CheckReport& report)
{
    lists.add("Without a row", report.withoutRow, counted);
    lists.add("Rows that nothing uses", report.unusedRows,
              [](const FileRow& each)
              { return toUtf8(each.key) + ", " + titleOf(each.kind) + ", " + toUtf8(each.file); });
    lists.add("Symbol files that no row uses", report.unusedFiles, [](const std::string& each) { return each; });
}

/// Every name and code with its symbol file.
void addFeatures(Lists& lists, const CheckReport& report)
{
    for (size_t kind = 0; kind < kFeatureKindCount; ++kind)
    {
        std::vector<std::string> lines;
        for (const auto& [name, counts] : report.features.kinds[kind])
            for (const auto& [file, count] : counts)
                lines.push_back(toUtf8(name) + " (" + std::to_string(count) + "): " + fileText(file, report.files));
        lists.add(kFeatureKinds[kind].title, lines, [](const std::string& line) { return line; });
    }
}

} // namespace

std::string CheckReport::text(bool all) const
{
    std::string text = verdictOf(*this).text() + keptSymbolsText(keptSymbols) + notesText(notes);
    text += shownLine(drawing + (library.empty() ? "" : ", library " + library) +
                      (table.empty() ? "" : ", table " + table));
    Lists lists{all};
    addStops(lists, *this);
    addOddities(lists, *this);
    lists.add("Alignments", alignments,
              [](const auto& each) { return each.first + ": " + std::to_string(each.second) + " sections"; });
    addFeatures(lists, *this);
    addRows(lists, *this);
    return text + lists.take();
}

} // namespace console
