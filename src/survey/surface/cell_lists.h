#pragma once

#include "kernel/segment2d.h"

#include <cstdint>
#include <span>
#include <vector>

namespace survey
{

/// Square cells over a part of the plane. What lies outside counts to the cells of the border.
class CellGrid
{
public:
    /// A convex shape: a point, the two ends of a segment or the three corners of a triangle.
    using Shape = std::span<const AcGePoint2d>;

    /// About `cells` of them, one at least. An empty box gives one cell.
    CellGrid(const Box2d& box, size_t cells);

    size_t count() const { return m_columns * m_rows; }

    /// Calls `visit(first, behind)` for each row with the range of cells that the shape, grown by `gap`, touches. A few
    /// cells beside it may be among them.
    template <class Visit>
    void visitRows(Shape shape, double gap, Visit visit) const
    {
        Box2d box;
        for (const AcGePoint2d& corner : shape)
            box.add(corner.x, corner.y);
        const size_t lastRow = rowOf(box.maxY + gap);
        for (size_t row = rowOf(box.minY - gap); row <= lastRow; ++row)
        {
            const Range range = rangeInRow(shape, gap, row);
            if (range.low <= range.high)
                visit(row * m_columns + columnOf(range.low - gap), row * m_columns + columnOf(range.high + gap) + 1);
        }
    }

private:
    struct Range
    {
        double low;
        double high;
    };

    static size_t clamped(double cell, size_t count)
    {
        return cell <= 0.0 ? 0 : cell >= static_cast<double>(count) ? count - 1 : static_cast<size_t>(cell);
    }
    size_t columnOf(double x) const { return clamped((x - m_x) / m_size, m_columns); }
    size_t rowOf(double y) const { return clamped((y - m_y) / m_size, m_rows); }
    /// From where to where the shape reaches within the row's band; an empty range when it is not in it.
    Range rangeInRow(Shape shape, double gap, size_t row) const;

    double m_x = 0.0;
    double m_y = 0.0;
    double m_size = 1.0;
    size_t m_columns = 1;
    size_t m_rows = 1;
};

/// Items of the plane by the cells they touch. An item is known by its index.
class CellLists
{
public:
    /// `shapeOf(item)` gives the corners of an item, as something that a `CellGrid::Shape` can be made of.
    template <class ShapeOf>
    CellLists(const Box2d& box, size_t items, size_t cells, ShapeOf shapeOf) : m_grid{box, cells}
    {
        m_starts.assign(m_grid.count() + 1, 0);
        forEachEntry(items, shapeOf, [this](size_t cell, uint32_t) { ++m_starts[cell + 1]; });
        for (size_t cell = 0; cell < m_grid.count(); ++cell)
            m_starts[cell + 1] += m_starts[cell];
        m_items.resize(m_starts.back());
        std::vector<uint32_t> next(m_starts.begin(), m_starts.end() - 1);
        forEachEntry(items, shapeOf, [this, &next](size_t cell, uint32_t item) { m_items[next[cell]++] = item; });
    }

    /// The items that come within `gap` of the shape, and others near it; each once, rising.
    void collect(CellGrid::Shape shape, double gap, std::vector<uint32_t>& found) const;

private:
    template <class ShapeOf, class Visit>
    void forEachEntry(size_t items, ShapeOf shapeOf, Visit visit) const
    {
        for (size_t item = 0; item < items; ++item)
        {
            const auto corners = shapeOf(item);
            m_grid.visitRows(corners, 0.0,
                             [&](size_t cell, size_t behind)
                             {
                                 for (; cell < behind; ++cell)
                                     visit(cell, static_cast<uint32_t>(item));
                             });
        }
    }

    CellGrid m_grid;
    std::vector<uint32_t> m_starts; ///< of each cell in `m_items`, and the end
    std::vector<uint32_t> m_items;
};

} // namespace survey
