#pragma once

#include "dbkit/symbol_look.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One row of the plan's feature-code table, as its files keep it: what the user typed, unchanged.
struct FeatureRow : RowTexts
{
    bool atVertex = false; ///< only where a point is a vertex of a survey polyline
};

using FeatureRows = std::vector<FeatureRow>;

/// The first row of that code, without regard to case; null when there is none.
const FeatureRow* FindFeatureRow(const FeatureRows& rows, std::u16string_view code);

/// The row of a line of a feature-table file: five fields or more; any other line makes none.
std::optional<FeatureRow> ParseFeatureRow(std::u16string_view line);

/// The rows of a feature-table file (".dvbd"); none when it cannot be read. Lines that make no row are left out.
FeatureRows ReadFeatureTable(std::u16string_view path);

/// Replaces a feature-table file. No rows: it is left as it is.
void WriteFeatureTable(std::u16string_view path, const FeatureRows& rows);

/// The rows that the user closed the table with last, kept in the user's folder ("FcodeBD.cfg").
FeatureRows ReadLastState();
void WriteLastState(const FeatureRows& rows);
