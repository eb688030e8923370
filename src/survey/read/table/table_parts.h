#pragma once

#include "survey/model/survey.h"
#include "survey/read/finding_list.h"
#include "survey/read/table/columns.h"

/// What the rows of a table are made into. What cannot be used becomes a finding.

namespace survey
{

/// A table whose columns are known.
struct Table
{
    std::vector<Row> rows; ///< without the header
    Columns columns;
    char separator = 0;
    double metres = 1.0; ///< of its unit
    bool swapped = false;
};

void readPointRows(Survey& survey, FindingList& findings, const Table& table);
void readSectionRows(Survey& survey, FindingList& findings, const Table& table);

/// The number in a column. Nothing, and a finding, when it is none; nothing alone when the field is empty and may be.
std::optional<double> numberIn(FindingList& findings, const Table& table, const Row& row, char letter,
                               const std::string& what);

} // namespace survey
