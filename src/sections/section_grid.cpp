#include "sections/section_grid.h"

#include <algorithm>

namespace
{

/// Cells that a line of middling length passes.
constexpr double kCellsPerLine = 3.0;
/// Cells of the table for each line, so that few lines from elsewhere share a cell.
constexpr size_t kTablePerLine = 16;
constexpr unsigned kMostBits = 11;
/// A line of more pieces is looked at everywhere.
constexpr double kMostPieces = 1024.0;

double sizeOf(const SearchLine& line)
{
    return std::max(std::fabs(line.to.x - line.from.x), std::fabs(line.to.y - line.from.y));
}

Box2d boxOf(const SearchLine& line)
{
    return Segment2d::box({line.from.x, line.from.y}, {line.to.x, line.to.y});
}

/// The size of the middle one of the lines that have any; 1 when there are none.
double middleSize(std::span<const SearchLine> lines)
{
    std::vector<double> sizes;
    for (const SearchLine& line : lines)
        if (!boxOf(line).isEmpty() && sizeOf(line) > 0.0)
            sizes.push_back(sizeOf(line));
    if (sizes.empty())
        return 1.0;
    const auto middle = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
    std::nth_element(sizes.begin(), middle, sizes.end());
    return *middle;
}

} // namespace

SectionGrid::SectionGrid(std::span<const SearchLine> lines)
{
    chooseCells(lines);
    for (size_t index = 0; index < lines.size(); ++index)
        if (!isWalkable(lines[index]) && !boxOf(lines[index]).isEmpty())
            m_everywhere.push_back(static_cast<uint32_t>(index));

    std::vector<Entry> entries;
    for (size_t index = 0; index < lines.size(); ++index)
        if (isWalkable(lines[index]))
            walk(lines[index], static_cast<uint32_t>(index), entries);
    fillTable(entries);
}

/// Counts the lines of each cell, turns the counts into ends, then fills every cell from its end.
void SectionGrid::fillTable(std::span<const Entry> entries)
{
    m_starts.assign((size_t{1} << (2 * m_bits)) + 1, 0);
    for (const Entry& entry : entries)
        ++m_starts[entry.cell];
    for (size_t cell = 1; cell < m_starts.size(); ++cell)
        m_starts[cell] += m_starts[cell - 1];
    m_lines.resize(entries.size());
    for (const Entry& entry : entries)
        m_lines[--m_starts[entry.cell]] = entry.line;
}

void SectionGrid::chooseCells(std::span<const SearchLine> lines)
{
    m_cellsPerUnit = kCellsPerLine / middleSize(lines);
    while (m_bits < kMostBits && (size_t{1} << (2 * m_bits)) < kTablePerLine * lines.size())
        ++m_bits;
    m_mask = (uint64_t{1} << m_bits) - 1;
}

bool SectionGrid::isWalkable(const SearchLine& line) const
{
    const Box2d box = boxOf(line);
    return !box.isEmpty() && box.magnitude() < reach() && sizeOf(line) * m_cellsPerUnit < kMostPieces;
}

/// Adds the cells that a line passes or comes near, each once: those of the boxes around its pieces of about a cell's
/// size.
void SectionGrid::walk(const SearchLine& line, uint32_t index, std::vector<Entry>& entries) const
{
    const size_t first = entries.size();
    const double gap = placeTolerance(boxOf(line).magnitude());
    const int pieces = static_cast<int>(sizeOf(line) * m_cellsPerUnit) + 1;
    AcGePoint2d from = line.from;
    for (int piece = 1; piece <= pieces; ++piece)
    {
        const AcGePoint2d to = piece == pieces ? line.to : line.from + (line.to - line.from) * (double(piece) / pieces);
        const Cells near = cellsOf(boxOf({from, to}), gap);
        for (uint64_t y = near.minY; y <= near.maxY; ++y)
            for (uint64_t x = near.minX; x <= near.maxX; ++x)
                entries.push_back({indexOf(x, y), index});
        from = to;
    }
    const auto begin = entries.begin() + static_cast<std::ptrdiff_t>(first);
    std::sort(begin, entries.end(), [](const Entry& a, const Entry& b) { return a.cell < b.cell; });
    entries.erase(std::unique(begin, entries.end()), entries.end());
}
