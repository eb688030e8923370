#pragma once

#include "host/ui/grid_cell.h"
#include "host/ui/window.h"

#include <memory>
#include <vector>

/// Where the user clicked in a grid. The button state is 0 when a cell's push button was pressed and released, 1 for
/// any other part of a cell.
struct GridClick
{
    int row = 0;
    int column = 0;
    int buttonState = 1;
};

/// An editable table with fixed header rows and columns at its start. Rows and columns count from 0, the fixed ones
/// included; asking for a cell that there is not throws std::out_of_range.
class CGridCtrl : public CWnd
{
public:
    using CWnd::CWnd;
    std::string_view kindName() const override { return "grid"; }

    int GetRowCount() const { return static_cast<int>(m_rows.size()); }
    int GetColumnCount() const { return static_cast<int>(m_columns.size()); }
    /// Cells that stay keep what they hold; new ones are empty text cells.
    void SetRowCount(int count);
    void SetColumnCount(int count);
    int GetFixedRowCount() const { return m_fixedRows; }
    int GetFixedColumnCount() const { return m_fixedColumns; }
    void SetFixedRowCount(int count);
    void SetFixedColumnCount(int count);
    bool isFixed(int row, int column) const { return row < m_fixedRows || column < m_fixedColumns; }

    int GetColumnWidth(int column) const { return m_columns.at(column).width; }
    void SetColumnWidth(int column, int pixels);
    int GetRowHeight(int row) const { return m_rows.at(row).height; }
    void SetRowHeight(int row, int pixels);
    /// Whether the cells of a column can be edited in place.
    bool IsColumnEditable(int column) const { return m_columns.at(column).editable; }
    void SetColumnEditable(int column, bool editable);

    bool holds(int row, int column) const;
    CGridCell& cell(int row, int column) { return *m_rows.at(row).cells.at(column); }
    const CGridCell& cell(int row, int column) const { return *m_rows.at(row).cells.at(column); }
    /// The cell as one of kind `T`; null when it is of another kind.
    template <class T>
    T* cellAs(int row, int column)
    {
        return dynamic_cast<T*>(&cell(row, column));
    }
    /// Makes the cell one of kind `T`, with the text, background and format that it had.
    template <class T>
    T& makeCell(int row, int column)
    {
        auto made = std::make_unique<T>();
        T& result = *made;
        replaceCell(row, column, std::move(made));
        return result;
    }

    std::u16string GetItemText(int row, int column) const { return cell(row, column).GetText(); }
    void SetItemText(int row, int column, std::u16string text) { cell(row, column).SetText(std::move(text)); }

    /// A cell's state changed; for the cells.
    void cellChanged() { changed(); }

private:
    struct Row
    {
        int height = 0;
        std::vector<std::unique_ptr<CGridCell>> cells;
    };
    struct Column
    {
        int width = 0;
        bool editable = true;
    };

    std::unique_ptr<CGridCell> newCell();
    void replaceCell(int row, int column, std::unique_ptr<CGridCell> made);

    std::vector<Row> m_rows;
    std::vector<Column> m_columns;
    int m_fixedRows = 0;
    int m_fixedColumns = 0;
};
