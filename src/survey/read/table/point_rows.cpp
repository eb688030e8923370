#include "survey/read/table/table_parts.h"

#include "store/text/text.h"
#include "survey/read/codes.h"
#include "survey/read/point_names.h"

namespace survey
{

namespace
{

/// The elevation; a point need not have one.
std::optional<double> elevationOf(FindingList& findings, const Table& table, const Row& row)
{
    const std::string_view field = table.columns.field(row, 'Z');
    return field.empty() ? std::nullopt : numberIn(findings, table, row, 'Z', "the elevation");
}

std::optional<Point> pointOf(FindingList& findings, const Table& table, const Row& row)
{
    const auto northing = numberIn(findings, table, row, 'N', "the northing");
    const auto easting = numberIn(findings, table, row, 'E', "the easting");
    if (!northing || !easting)
        return std::nullopt;
    const auto elevation = elevationOf(findings, table, row);
    Point point;
    point.name = toUtf16(table.columns.field(row, 'P'));
    point.codes = splitCodes(table.columns.codes(row, table.separator));
    point.position = {(table.swapped ? *northing : *easting) * table.metres,
                      (table.swapped ? *easting : *northing) * table.metres, elevation.value_or(0.0) * table.metres};
    point.hasElevation = elevation.has_value();
    point.place = findings.place(row.line);
    return point;
}

} // namespace

void readPointRows(Survey& survey, FindingList& findings, const Table& table)
{
    const size_t first = survey.points.size();
    survey.points.reserve(first + table.rows.size());
    for (const Row& row : table.rows)
        if (std::optional<Point> point = pointOf(findings, table, row))
            survey.points.push_back(*std::move(point));
    settleNames(survey, first, findings);
}

} // namespace survey
