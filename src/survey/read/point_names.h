#pragma once

#include "survey/read/finding_list.h"

#include <optional>

namespace survey
{

/// The points of one file by their names.
class PointNames
{
public:
    PointNames() = default;
    /// Of the points from index `first` on. Those without a name are left out.
    PointNames(const std::vector<Point>& points, size_t first);

    /// The index of the first point of a name; nothing when there is none. `points` are those it was made of.
    std::optional<size_t> find(const std::vector<Point>& points, std::u16string_view name) const;

    /// A point that has the name of one before it.
    struct Repeat
    {
        size_t index;
        size_t first;
    };
    /// By rising index.
    std::vector<Repeat> repeats(const std::vector<Point>& points) const;

private:
    struct Entry
    {
        size_t hash;
        uint32_t index;

        auto operator<=>(const Entry&) const = default;
    };

    std::vector<Entry> m_entries; ///< sorted
};

/// Tells of the points from index `first` on whose name one of them before has. One that stands at the same place is
/// the same point again, and goes.
void settleNames(Survey& survey, size_t first, FindingList& findings);

} // namespace survey
