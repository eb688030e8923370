#pragma once

#include "kernel/segment2d.h"

#include <bit>
#include <cstdint>
#include <span>
#include <vector>

/// The line in the plan on which a section looks for features.
struct SearchLine
{
    AcGePoint2d from;
    AcGePoint2d to;
};

/// Search lines by the place they pass: a table of square cells, each with the lines that pass it. The table stands for
/// the whole plan: beyond its last cell it begins again, so that no place is outside and no line makes it grow. Knows
/// lines by their index; a line with a coordinate that can be met by nothing is in no cell. Plain memory, made once.
class SectionGrid
{
public:
    explicit SectionGrid(std::span<const SearchLine> lines);

    /// Whether a box covers so few cells that looking into them is cheap.
    bool isSmall(const Box2d& box, double gap) const
    {
        if (!(box.magnitude() < reach()))
            return false;
        const Cells cells = cellsOf(box, gap);
        const uint64_t columns = cells.maxX - cells.minX + 1;
        const uint64_t rows = cells.maxY - cells.minY + 1;
        return columns <= kFewCells && rows <= kFewCells && columns * rows <= kFewCells;
    }

    /// Calls `visit(line)` for every line that comes within `gap` of the box, and for others; for a line more than
    /// once when the box covers several cells. The magnitude of the box must be below `reach()`.
    template <class Visit>
    void visitNear(const Box2d& box, double gap, Visit visit) const
    {
        const Cells cells = cellsOf(box, gap);
        for (uint64_t y = cells.minY; y <= cells.maxY; ++y)
            visitRow(cells.minX, cells.maxX, y, visit);
        for (const uint32_t line : m_everywhere)
            visit(line);
    }

    double cellSize() const { return 1.0 / m_cellsPerUnit; }
    /// Below this coordinate cells can be told apart.
    double reach() const { return kMostCells / m_cellsPerUnit; }

private:
    struct Cells
    {
        uint64_t minX, minY, maxX, maxY;
    };

    /// That a line is in a cell.
    struct Entry
    {
        uint32_t cell;
        uint32_t line;
        bool operator==(const Entry&) const = default;
    };

    static constexpr double kMostCells = 0x1p50;
    static constexpr uint64_t kFewCells = 16;

    /// The number of the cell of a coordinate, up to a constant: the nearest integer, as the low bits of a sum so large
    /// that it has no fraction.
    uint64_t cellOf(double coordinate) const { return std::bit_cast<uint64_t>(coordinate * m_cellsPerUnit + 0x1.8p52); }
    Cells cellsOf(const Box2d& box, double gap) const
    {
        return {cellOf(box.minX - gap), cellOf(box.minY - gap), cellOf(box.maxX + gap), cellOf(box.maxY + gap)};
    }
    uint32_t indexOf(uint64_t x, uint64_t y) const
    {
        return static_cast<uint32_t>(((y & m_mask) << m_bits) | (x & m_mask));
    }

    /// The cells of a row stand side by side in the table, and so do their lines, up to where the table begins again.
    template <class Visit>
    void visitRow(uint64_t minX, uint64_t maxX, uint64_t y, Visit visit) const
    {
        while (minX <= maxX)
        {
            const uint64_t last = std::min(maxX, minX | m_mask);
            const uint32_t end = m_starts[indexOf(last, y) + 1];
            for (uint32_t at = m_starts[indexOf(minX, y)]; at != end; ++at)
                visit(m_lines[at]);
            minX = last + 1;
        }
    }

    void chooseCells(std::span<const SearchLine> lines);
    void walk(const SearchLine& line, uint32_t index, std::vector<Entry>& entries) const;
    void fillTable(std::span<const Entry> entries);
    bool isWalkable(const SearchLine& line) const;

    double m_cellsPerUnit = 1.0;
    unsigned m_bits = 0;
    uint64_t m_mask = 0;
    std::vector<uint32_t> m_starts; ///< of each cell in `m_lines`, and the end
    std::vector<uint32_t> m_lines;
    std::vector<uint32_t> m_everywhere; ///< lines too long or too far out for cells
};
