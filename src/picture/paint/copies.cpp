#include "picture/paint/copies.h"

#include <algorithm>
#include <cmath>

namespace picture
{

namespace
{

constexpr double kMostCopies = 200'000.0;

/// The steps whose number lies between two values, one more at each end.
void narrowTo(double low, double high, uint32_t& begin, uint32_t& end)
{
    if (!std::isfinite(low) || !std::isfinite(high))
        return;
    const double most = end;
    begin = static_cast<uint32_t>(std::clamp(std::floor(low) - 1.0, 0.0, most));
    end = static_cast<uint32_t>(std::clamp(std::ceil(high) + 2.0, static_cast<double>(begin), most));
}

} // namespace

Copies::Copies(const Grid& grid, const Map2d& toPage, const Box2d& box, const Box2d& reach)
    : m_grid{grid}, m_box{box}, m_reach{reach}, m_columns{0, grid.columns}, m_rows{0, grid.rows}
{
    const auto stepOf = [&toPage](const Vertex& v) {
        return Vertex{toPage.xx * v.x + toPage.xy * v.y, toPage.yx * v.x + toPage.yy * v.y};
    };
    m_column = stepOf(grid.columnStep);
    m_row = stepOf(grid.rowStep);
    narrow();
}

/// Where the middles of copies in view may lie, as numbers of columns and rows.
void Copies::narrow()
{
    Map2d grid{m_column.x, m_row.x, m_column.y, m_row.y, 0.0, 0.0};
    // Copies in one line leave the other axis open: any step across it will do.
    if (m_grid.rows == 1)
        grid = {m_column.x, -m_column.y, m_column.y, m_column.x, 0.0, 0.0};
    else if (m_grid.columns == 1)
        grid = {-m_row.y, m_row.x, m_row.x, m_row.y, 0.0, 0.0};
    const std::optional<Map2d> back = grid.inverse();
    if (!back)
        return;
    const Box2d seen = back->boxAround(
        {m_reach.minX - m_box.maxX, m_reach.minY - m_box.maxY, m_reach.maxX - m_box.minX, m_reach.maxY - m_box.minY});
    if (m_grid.columns > 1)
        narrowTo(seen.minX, seen.maxX, m_columns.begin, m_columns.end);
    if (m_grid.rows > 1)
        narrowTo(seen.minY, seen.maxY, m_rows.begin, m_rows.end);
}

bool Copies::areCountable() const
{
    return static_cast<double>(m_columns.end - m_columns.begin) * (m_rows.end - m_rows.begin) <= kMostCopies;
}

std::vector<Vertex> Copies::ground() const
{
    const Vertex at{m_box.minX, m_box.minY};
    const Vertex right = wayTo(m_grid.columns - 1.0, 0.0);
    const Vertex up = wayTo(0.0, m_grid.rows - 1.0);
    return {at,
            {at.x + right.x, at.y + right.y},
            {at.x + right.x + up.x, at.y + right.y + up.y},
            {at.x + up.x, at.y + up.y}};
}

} // namespace picture
