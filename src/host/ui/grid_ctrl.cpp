#include "host/ui/grid_ctrl.h"

#include <algorithm>

namespace
{

// At 96 dots an inch.
constexpr int kRowHeight = 20;
constexpr int kColumnWidth = 80;

} // namespace

void CGridCtrl::SetRowCount(int count)
{
    const auto size = static_cast<size_t>(std::max(count, 0));
    while (m_rows.size() > size)
        m_rows.pop_back();
    while (m_rows.size() < size)
    {
        Row& row = m_rows.emplace_back();
        row.height = onDisplay(kRowHeight);
        for (size_t column = 0; column < m_columns.size(); ++column)
            row.cells.push_back(newCell());
    }
    changed();
}

void CGridCtrl::SetColumnCount(int count)
{
    const auto size = static_cast<size_t>(std::max(count, 0));
    m_columns.resize(size, {onDisplay(kColumnWidth), true});
    for (Row& row : m_rows)
    {
        while (row.cells.size() > size)
            row.cells.pop_back();
        while (row.cells.size() < size)
            row.cells.push_back(newCell());
    }
    changed();
}

void CGridCtrl::SetFixedRowCount(int count)
{
    m_fixedRows = count;
    changed();
}

void CGridCtrl::SetFixedColumnCount(int count)
{
    m_fixedColumns = count;
    changed();
}

void CGridCtrl::SetColumnWidth(int column, int pixels)
{
    m_columns.at(column).width = pixels;
    changed();
}

void CGridCtrl::SetRowHeight(int row, int pixels)
{
    m_rows.at(row).height = pixels;
    changed();
}

void CGridCtrl::SetColumnEditable(int column, bool editable)
{
    m_columns.at(column).editable = editable;
    changed();
}

bool CGridCtrl::holds(int row, int column) const
{
    return row >= 0 && row < GetRowCount() && column >= 0 && column < GetColumnCount();
}

std::unique_ptr<CGridCell> CGridCtrl::newCell()
{
    auto made = std::make_unique<CGridCell>();
    made->m_grid = this;
    return made;
}

void CGridCtrl::replaceCell(int row, int column, std::unique_ptr<CGridCell> made)
{
    made->m_grid = this;
    made->takeLook(cell(row, column));
    m_rows.at(row).cells.at(column) = std::move(made);
    changed();
}
