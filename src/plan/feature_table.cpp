#include "plan/feature_table.h"

#include "host/text.h"
#include "util/fields.h"
#include "util/folders.h"
#include "util/numbers.h"
#include "util/text_lines.h"

namespace
{

constexpr char16_t kTableDelimiter = u',';
constexpr char16_t kStateDelimiter = u'#';
constexpr std::u16string_view kNoFile = u"NULL"; ///< in the last state, where an empty field would not be kept
constexpr const char16_t* kLastState = u"\\FcodeBD.cfg";

constexpr size_t kFlag = kRowFields.size();

std::optional<FeatureRow> parseRow(std::u16string_view line, char16_t delimiter)
{
    const std::vector<std::u16string> fields = SplitFields(line, delimiter, EmptyFields::kSkip);
    if (fields.size() < kRowFields.size())
        return std::nullopt;
    const bool atVertex = fields.size() == kFlag + 1 && ToInteger(fields[kFlag]) != 0;
    return FeatureRow{MakeRow(fields), atVertex};
}

FeatureRows readRows(std::u16string_view path, char16_t delimiter)
{
    FeatureRows rows;
    for (const std::u16string& line : ReadTextLines(path))
        if (std::optional<FeatureRow> row = parseRow(line, delimiter))
            rows.push_back(std::move(*row));
    return rows;
}

void writeRows(std::u16string_view path, const FeatureRows& rows, char16_t delimiter)
{
    std::vector<std::u16string> lines;
    for (const FeatureRow& row : rows)
        (lines.emplace_back(JoinRow(row, delimiter)) += delimiter) += row.atVertex ? u'1' : u'0';
    WriteTextLines(path, lines);
}

} // namespace

const FeatureRow* FindFeatureRow(const FeatureRows& rows, std::u16string_view code)
{
    for (const FeatureRow& row : rows)
        if (equalNoCase(row.key, code))
            return &row;
    return nullptr;
}

std::optional<FeatureRow> ParseFeatureRow(std::u16string_view line)
{
    return parseRow(line, kTableDelimiter);
}

FeatureRows ReadFeatureTable(std::u16string_view path)
{
    return readRows(path, kTableDelimiter);
}

void WriteFeatureTable(std::u16string_view path, const FeatureRows& rows)
{
    writeRows(path, rows, kTableDelimiter);
}

FeatureRows ReadLastState()
{
    FeatureRows rows = readRows(UserDataPath() + kLastState, kStateDelimiter);
    for (FeatureRow& row : rows)
        if (equalNoCase(row.file, kNoFile))
            row.file.clear();
    return rows;
}

void WriteLastState(const FeatureRows& rows)
{
    FeatureRows kept = rows;
    for (FeatureRow& row : kept)
        if (row.file.empty())
            row.file = kNoFile;
    writeRows(UserDataFolder() + kLastState, kept, kStateDelimiter);
}
