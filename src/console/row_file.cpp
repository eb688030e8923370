#include "console/row_file.h"

#include "files/file_bytes.h"
#include "plan/feature_table.h"
#include "settings/library_lines.h"
#include "util/fields.h"
#include "util/numbers.h"
#include "util/text_lines.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace console
{

namespace
{

constexpr size_t kLongestQuote = 80;

TextLines linesOf(const std::string& path)
{
    return DecodeTextLines(std::string{files::readFile(path).view()});
}

std::string quoted(std::u16string_view text)
{
    const bool cut = text.size() > kLongestQuote;
    return "\"" + toUtf8(text.substr(0, kLongestQuote)) + (cut ? "..." : "") + "\"";
}

/// Takes the rows of one kind, in file order. An empty number of a plan table stands for the default.
class RowCollector
{
public:
    RowCollector(RowFile& file, FeatureKind kind) : m_file{file}, m_kind{kind} {}

    void add(const std::u16string& key, const std::u16string& symbol, const std::array<std::u16string, 3>& numbers)
    {
        if (!m_keys.insert(key).second)
        {
            m_file.problems.push_back("a second row for " + quoted(key) + " in " + titleOf(m_kind) + " does not count");
            return;
        }
        m_file.rows.push_back({m_kind, key, symbol});
        for (const std::u16string& number : numbers)
        {
            const std::string place = "row " + quoted(key) + " of " + titleOf(m_kind) + ": " + quoted(number);
            if (!StartsWithReal(number) && !(number.empty() && m_kind == kTableCodes))
                m_file.problems.push_back(place + " is no number and counts as 0");
            else if (!std::isfinite(ToReal(number)))
                m_file.problems.push_back(place + " is too large a number: drawings hold 0 in its place");
        }
    }

    void addBroken(const std::u16string& line)
    {
        if (!TrimSpace(line).empty())
            m_file.problems.push_back("the line " + quoted(line) + " of " + titleOf(m_kind) +
                                      " does not hold the fields of a row and does not count");
    }

private:
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
    const LibraryLines sections = SplitSections(linesOf(path), GeneralSection::kNone);
    for (const auto& [table, kind] : kLibraryKinds)
    {
        RowCollector rows{file, kind};
        for (const std::u16string& line : sections.tables[table])
            if (const auto row = ParseRow(line))
                rows.add((*row)[0], (*row)[1], {(*row)[2], (*row)[3], (*row)[4]});
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
    for (const std::u16string& line : linesOf(path))
        if (const auto row = ParseFeatureRow(line))
            rows.add(row->code, row->file, {row->scaleX, row->scaleY, row->rotation});
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
