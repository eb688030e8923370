#include "console/findings/row_file.h"

#include "console/program/failure.h"
#include "disk/read.h"
#include "files/dxf/drawing_names.h"
#include "files/reader.h"
#include "plan/feature_table.h"
#include "settings/library_lines.h"
#include "util/fields.h"
#include "util/numbers.h"
#include "util/text_lines.h"

#include <algorithm>
#include <array>

namespace console
{

namespace
{

constexpr size_t kLongestQuote = 80;

/// A file of rows by its kind: what it is called and how its name ends.
struct RowFileKind
{
    const char* name;
    const char* ending;
};
constexpr RowFileKind kLibrary{"a feature library", "dv"};
constexpr RowFileKind kTable{"a plan table", "dvbd"};

bool isMarker(const std::u16string& line)
{
    constexpr std::array kMarked{kSymbolTable, kSectionFcodeTable, kPlanFcodeTable};
    return std::any_of(kMarked.begin(), kMarked.end(),
                       [&](LibraryTable table) { return equalNoCase(line, MarkerOf(table)); });
}

/// What the lines are by their content; null when that does not say.
const RowFileKind* kindOf(const TextLines& lines)
{
    if (std::any_of(lines.begin(), lines.end(), isMarker))
        return &kLibrary;
    const auto isRow = [](const std::u16string& line) { return ParseFeatureRow(line).has_value(); };
    return std::any_of(lines.begin(), lines.end(), isRow) ? &kTable : nullptr;
}

/// The lines of a file that has to be of `kind`. Failure when it is another one by its name or by what it holds.
TextLines linesOf(const std::string& path, const RowFileKind& kind)
{
    const FileText file = disk::readFile(path);
    const std::string no = path + ": is not " + kind.name + " (." + kind.ending + ") but ";
    if (files::isDrawing(file.view()))
        throw Failure{no + "a drawing"};
    TextLines lines = DecodeTextLines(std::string{file.view()});
    if (const RowFileKind* found = kindOf(lines); found != nullptr && found != &kind)
        throw Failure{no + found->name};
    if (!files::hasEnding(path, kind.ending))
        throw Failure{path + ": is not " + kind.name + ": give a name that ends in ." + kind.ending};
    return lines;
}

std::string inQuotes(std::u16string_view text)
{
    const bool cut = text.size() > kLongestQuote;
    return "\"" + toUtf8(text.substr(0, kLongestQuote)) + (cut ? "..." : "") + "\"";
}

/// Takes the rows of one kind, in file order. An empty number of a plan table stands for the default.
class RowCollector
{
public:
    RowCollector(RowFile& file, FeatureKind kind) : m_file{file}, m_kind{kind} {}

    void add(const RowTexts& row)
    {
        if (!m_keys.insert(row.key).second)
        {
            m_file.problems.push_back("a second row for " + inQuotes(row.key) + " in " + titleOf(m_kind) +
                                      " does not count");
            return;
        }
        m_file.rows.push_back({m_kind, row.key, row.file});
        for (const std::u16string* number : {&row.scaleX, &row.scaleY, &row.rotation})
            checkNumber(row.key, *number);
    }

    void addBroken(const std::u16string& line)
    {
        if (!TrimSpace(line).empty())
            m_file.problems.push_back("the line " + inQuotes(line) + " of " + titleOf(m_kind) +
                                      " does not hold the fields of a row and does not count");
    }

private:
    void checkNumber(const std::u16string& key, const std::u16string& number)
    {
        const std::string place = "row " + inQuotes(key) + " of " + titleOf(m_kind) + ": " + inQuotes(number);
        if (!StartsWithReal(number) && !(number.empty() && m_kind == kTableCodes))
            m_file.problems.push_back(place + " is no number and counts as 0");
    }

    RowFile& m_file;
    FeatureKind m_kind;
    std::set<std::u16string, LessNoCase> m_keys;
};

/// A file of nothing but mistakes is most likely another file.
void noteEmpty(RowFile& file, const std::string& path)
{
    if (file.rows.empty())
        file.problems.push_back(path + " holds no row");
}

constexpr std::array<std::pair<LibraryTable, FeatureKind>, kLibraryTableCount> kLibraryKinds{
    {{kSymbolTable, kNames}, {kSectionFcodeTable, kSectionCodes}, {kPlanFcodeTable, kPlanCodes}}};

} // namespace

const FileRow* RowFile::find(FeatureKind kind, std::u16string_view key) const
{
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const FileRow& each) { return each.kind == kind && equalNoCase(each.key, key); });
    return row == rows.end() ? nullptr : &*row;
}

std::vector<FileRow> RowFile::unused(const FeatureCounts& features) const
{
    std::vector<FileRow> found;
    for (const FileRow& row : rows)
        if (!features.kinds[row.kind].contains(row.key))
            found.push_back(row);
    return found;
}

RowFile readLibraryRows(const std::string& path)
{
    RowFile file;
    const LibraryLines sections = SplitSections(linesOf(path, kLibrary), GeneralSection::kNone);
    for (const auto& [table, kind] : kLibraryKinds)
    {
        RowCollector rows{file, kind};
        for (const std::u16string& line : sections.tables[table])
            if (const auto row = ParseRow(line))
                rows.add(*row);
            else
                rows.addBroken(line);
    }
    noteEmpty(file, path);
    return file;
}

RowFile readTableRows(const std::string& path)
{
    RowFile file;
    RowCollector rows{file, kTableCodes};
    for (const std::u16string& line : linesOf(path, kTable))
        if (const auto row = ParseFeatureRow(line))
            rows.add(*row);
        else
            rows.addBroken(line);
    noteEmpty(file, path);
    return file;
}

std::string titleOf(FeatureKind kind)
{
    for (const auto& [table, ofTable] : kLibraryKinds)
        if (ofTable == kind)
            return toUtf8(MarkerOf(table));
    return "the table";
}

} // namespace console
