#include "survey/read/table/read_table.h"

#include "disk/error.h"
#include "survey/read/table/table_parts.h"
#include "survey/read/utf8_text.h"

#include <algorithm>
#include <array>

namespace survey
{

namespace
{

constexpr std::array<std::pair<char, const char*>, 7> kColumnNames{{{'P', "name"},
                                                                    {'N', "northing"},
                                                                    {'E', "easting"},
                                                                    {'Z', "elevation"},
                                                                    {'D', "code"},
                                                                    {'S', "section or station"},
                                                                    {'O', "offset"}}};

std::string inWords(const Columns& columns)
{
    std::string text;
    for (const char letter : columns.letters())
        for (const auto& [known, name] : kColumnNames)
            if (letter == known)
                text += (text.empty() ? "" : ", ") + std::string{name};
    return text + " (" + columns.letters() + ")";
}

/// A first row without a number in it is a header, whatever it says.
bool isHeader(const Row& row)
{
    return std::none_of(row.fields.begin(), row.fields.end(),
                        [](const std::string& field) { return fieldNumber(field).has_value(); });
}

/// Finds the columns, taking the header off the rows. Nothing said by the user is a note.
Columns takeColumns(std::vector<Row>& rows, const std::string& path, const std::string& asked, FindingList& findings)
{
    const uint32_t firstLine = rows.front().line;
    const std::optional<Columns> said = asked.empty() ? std::nullopt : columnsOf(asked);
    if (!asked.empty() && !said)
        throw disk::FileError{path, "the columns \"" + asked +
                                        "\" are none: give letters of P name, N northing, "
                                        "E easting, Z elevation, D code, S section or station, O offset, - none"};
    std::optional<Columns> columns;
    if (isHeader(rows.front()))
    {
        columns = columnsOfHeader(rows.front());
        rows.erase(rows.begin());
    }
    if (said)
        return *said;
    if (!columns)
        columns = guessColumns(rows);
    if (!columns)
        throw disk::FileError{path, firstLine,
                              "what the columns hold cannot be told: say it with --columns, such as "
                              "PNEZD for points or SOZD for sections"};
    findings.note(firstLine, "the columns are taken as " + inWords(*columns));
    return *columns;
}

} // namespace

std::optional<double> numberIn(FindingList& findings, const Table& table, const Row& row, char letter,
                               const std::string& what)
{
    const std::string_view field = table.columns.field(row, letter);
    const std::optional<double> number = fieldNumber(field);
    if (!number)
        findings.unusable(row.line, field.empty() ? what + " is missing" : what + " is no number: " + quoted(field));
    return number;
}

void readTable(Survey& survey, uint32_t file, disk::OwnBytes bytes, const ReadOptions& options)
{
    SurveyFile& entry = survey.files[file];
    entry.format = "table";
    const Utf8Text text = utf8Of(std::move(bytes), entry.path, options.encoding);
    entry.encoding = text.encoding;
    entry.isGuessedEncoding = text.isGuessed;
    if (text.text.view().find('\0') != std::string_view::npos)
        throw disk::FileError{entry.path, "is neither XML, a drawing nor text"};
    Rows rows = readRows(text.text.view());
    if (rows.rows.empty())
        throw disk::FileError{entry.path, "has no rows"};

    FindingList findings{survey, file};
    Table table;
    table.columns = takeColumns(rows.rows, entry.path, options.columns, findings);
    table.rows = std::move(rows.rows);
    table.separator = rows.separator;
    const LengthUnit unit = options.unit.value_or(kMetre);
    table.metres = unit.metres;
    table.swapped = options.swapped.contains(entry.path);
    entry.units = unit.name;
    entry.format = table.columns.isSections() ? "section table" : "points";
    (table.columns.isSections() ? readSectionRows : readPointRows)(survey, findings, table);
}

} // namespace survey
