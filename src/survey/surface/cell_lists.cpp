#include "survey/surface/cell_lists.h"

#include <algorithm>
#include <cmath>

namespace survey
{

namespace
{

/// Ranges and bands are taken a little wider than they are, in sizes of a cell: what lies on a border is in both cells.
constexpr double kMargin = 1e-6;

} // namespace

CellGrid::CellGrid(const Box2d& box, size_t cells)
{
    if (box.isEmpty() || cells < 2)
        return;
    const double width = box.maxX - box.minX;
    const double height = box.maxY - box.minY;
    const auto wanted = static_cast<double>(cells);
    const double size = std::max(std::sqrt(width / wanted * height), std::max(width, height) / wanted);
    if (!(size > 0.0) || !std::isfinite(size))
        return;
    m_x = box.minX;
    m_y = box.minY;
    m_size = size;
    m_columns = static_cast<size_t>(width / size) + 1;
    m_rows = static_cast<size_t>(height / size) + 1;
}

CellGrid::Range CellGrid::rangeInRow(Shape shape, double gap, size_t row) const
{
    // The first and the last row reach to infinity: they hold what lies outside.
    const double margin = gap + kMargin * m_size;
    const double low = row == 0 ? -HUGE_VAL : m_y + static_cast<double>(row) * m_size - margin;
    const double high = row + 1 == m_rows ? HUGE_VAL : m_y + static_cast<double>(row + 1) * m_size + margin;
    Range range{HUGE_VAL, -HUGE_VAL};
    for (size_t i = 0; i < shape.size(); ++i)
    {
        const AcGePoint2d& a = shape[i];
        const AcGePoint2d& b = shape[(i + 1) % shape.size()];
        if (std::max(a.y, b.y) < low || std::min(a.y, b.y) > high)
            continue;
        const auto include = [&](double x) { range = {std::min(range.low, x), std::max(range.high, x)}; };
        if (a.y == b.y)
        {
            include(a.x);
            include(b.x);
            continue;
        }
        for (const double end : {a.y, b.y})
            include(a.x + (std::clamp(end, low, high) - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    range.low -= kMargin * m_size;
    range.high += kMargin * m_size;
    return range;
}

void CellLists::collect(CellGrid::Shape shape, double gap, std::vector<uint32_t>& found) const
{
    found.clear();
    m_grid.visitRows(shape, gap,
                     [&](size_t cell, size_t behind)
                     {
                         // The cells of a row stand side by side, and so do their items.
                         found.insert(found.end(), m_items.begin() + m_starts[cell],
                                      m_items.begin() + m_starts[behind]);
                     });
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
}

} // namespace survey
