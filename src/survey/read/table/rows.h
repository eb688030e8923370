#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace survey
{

/// A line of a table of text: its fields without blanks around them.
struct Row
{
    uint32_t line = 0;
    std::vector<std::string> fields;
};

/// The rows of a text and what parts their fields: ";", a tab, "," or, as 0, any number of blanks. Empty lines and
/// those that begin with "#" are no rows.
struct Rows
{
    std::vector<Row> rows;
    char separator = 0;
};

/// Splits a text with the separator that gives the most numbers, of equals the one that splits the most rows. A field
/// between quotation marks may hold the separator.
Rows readRows(std::string_view text);

/// A field as a number: with a point, or with a decimal comma.
std::optional<double> fieldNumber(std::string_view field);

} // namespace survey
