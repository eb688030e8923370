#pragma once

#include "survey/read/table/rows.h"

#include <string>

namespace survey
{

/// What the columns of a table hold, a letter each: P a name, N northing, E easting, Z elevation, D codes, S a section
/// or its station, O an offset; "-" nothing of use.
class Columns
{
public:
    Columns() = default;
    explicit Columns(std::string letters) : m_letters{std::move(letters)} {}

    const std::string& letters() const { return m_letters; }
    bool has(char letter) const { return m_letters.find(letter) != m_letters.npos; }
    /// Whether it is a table of sections rather than one of points.
    bool isSections() const { return has('O'); }
    /// The field of a letter; empty when the row or the table has none.
    std::string_view field(const Row& row, char letter) const;
    /// The codes: the column of their letter and whatever stands behind it, `separator` having parted them.
    std::u16string codes(const Row& row, char separator) const;

private:
    std::string m_letters;
};

/// What the user's letters say, in any case. Nothing when they are no columns of points (N and E) or sections (S or P,
/// O and Z).
std::optional<Columns> columnsOf(std::string letters);

/// What the words of a first row say; nothing when it is no such row.
std::optional<Columns> columnsOfHeader(const Row& row);

/// What rows without a header most likely hold: points in the order PNEZD, or sections as SOZD. Nothing when they may
/// be either, or are neither.
std::optional<Columns> guessColumns(const std::vector<Row>& rows);

} // namespace survey
