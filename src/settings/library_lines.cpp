#include "settings/library_lines.h"

#include "host/text.h"
#include "util/fields.h"

#include <algorithm>

namespace
{

constexpr std::array<std::u16string_view, kLibraryTableCount> kTableMarkers{u"[SYMBOL]", u"[TN]", u"[BD]"};
constexpr std::u16string_view kGeneralMarker = u"[ALL]";
constexpr char16_t kDelimiter = u',';

void appendSection(TextLines& lines, std::u16string_view marker, const TextLines& section)
{
    if (section.empty())
        return;
    lines.emplace_back(marker);
    lines.insert(lines.end(), section.begin(), section.end());
}

/// The section that a marker line opens; null for any other line.
TextLines* sectionOf(LibraryLines& sections, std::u16string_view line, GeneralSection general)
{
    for (size_t table = 0; table < kLibraryTableCount; ++table)
    {
        if (equalNoCase(line, kTableMarkers[table]))
            return &sections.tables[table];
    }
    return general == GeneralSection::kLast && equalNoCase(line, kGeneralMarker) ? &sections.general : nullptr;
}

struct ByKey
{
    bool operator()(const RowTexts& a, const RowTexts& b) const { return less(a.key, b.key); }
    bool operator()(const RowTexts& a, std::u16string_view b) const { return less(a.key, b); }
    LessNoCase less;
};

} // namespace

TextLines JoinSections(const LibraryLines& sections)
{
    TextLines lines;
    for (size_t table = 0; table < kLibraryTableCount; ++table)
        appendSection(lines, kTableMarkers[table], sections.tables[table]);
    appendSection(lines, kGeneralMarker, sections.general);
    return lines;
}

LibraryLines SplitSections(const TextLines& lines, GeneralSection general)
{
    LibraryLines sections;
    TextLines* current = nullptr;
    for (const std::u16string& line : lines)
    {
        if (TextLines* opened = sectionOf(sections, line, general))
            current = opened;
        else if (current != nullptr)
            current->push_back(line);
    }
    return sections;
}

std::optional<GeneralTexts> ParseGeneralLine(const TextLines& lines)
{
    if (lines.empty())
        return std::nullopt;
    const std::vector<std::u16string> fields = SplitFields(lines.front(), kDelimiter, EmptyFields::kSkip);
    if (fields.size() != 4)
        return std::nullopt;
    return GeneralTexts{fields[0], fields[1], fields[2], fields[3]};
}

std::u16string JoinRow(const RowTexts& row)
{
    return JoinRow(row, kDelimiter);
}

std::u16string_view MarkerOf(LibraryTable table)
{
    return kTableMarkers[table];
}

std::optional<RowTexts> ParseRow(std::u16string_view line)
{
    const std::vector<std::u16string> fields = SplitFields(line, kDelimiter, EmptyFields::kSkip);
    if (fields.size() != kRowFields.size())
        return std::nullopt;
    return MakeRow(fields);
}

RowLookup::RowLookup(const TextLines& lines)
{
    for (const std::u16string& line : lines)
        if (std::optional<RowTexts> row = ParseRow(line))
            m_rows.push_back(std::move(*row));
    std::stable_sort(m_rows.begin(), m_rows.end(), ByKey{});
}

const RowTexts* RowLookup::find(std::u16string_view key) const
{
    const auto at = std::lower_bound(m_rows.begin(), m_rows.end(), key, ByKey{});
    return at != m_rows.end() && equalNoCase(at->key, key) ? &*at : nullptr;
}
