#pragma once

#include "picture/list/display_list.h"

#include <cstdint>
#include <vector>

namespace picture
{

/// Those copies of a block in rows and columns that may be seen.
class Copies
{
public:
    /// `box` holds the first copy on the page, `reach` what is seen of the page; `toPage` carries the grid's units.
    Copies(const Grid& grid, const Map2d& toPage, const Box2d& box, const Box2d& reach);

    /// Whether few enough are in view to be painted one by one.
    bool areCountable() const;
    /// Calls `place` with the way from the first copy to each in view, page units.
    template <class Place>
    void visit(const Place& place) const
    {
        for (uint32_t row = m_rows.begin; row < m_rows.end; ++row)
            for (uint32_t column = m_columns.begin; column < m_columns.end; ++column)
                if (const Vertex by = wayTo(column, row); isSeen(by))
                    place(by);
    }
    /// The outline of what all copies cover, near enough for what cannot be told apart.
    std::vector<Vertex> ground() const;

private:
    struct Range
    {
        uint32_t begin = 0;
        uint32_t end = 0;
    };

    Vertex wayTo(double column, double row) const
    {
        return {m_column.x * column + m_row.x * row, m_column.y * column + m_row.y * row};
    }
    bool isSeen(const Vertex& by) const
    {
        return !Box2d{m_box.minX + by.x, m_box.minY + by.y, m_box.maxX + by.x, m_box.maxY + by.y}.isApart(m_reach, 0.0);
    }
    void narrow();

    const Grid& m_grid;
    Box2d m_box;
    Box2d m_reach;
    Vertex m_column;
    Vertex m_row;
    Range m_columns;
    Range m_rows;
};

} // namespace picture
