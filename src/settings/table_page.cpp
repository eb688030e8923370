#include "settings/table_page.h"

#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "sections/database_cs.h"
#include "settings/chosen_folder.h"
#include "util/dialog_help.h"
#include "util/display_scale.h"
#include "util/folders.h"
#include "util/numbers.h"

#include <algorithm>

namespace
{

enum Column
{
    kKey,
    kFile,
    kScaleX,
    kScaleY,
    kRotation,
    kColumnCount
};

constexpr int kColumnWidths[kColumnCount] = {115, 179, 81, 81, 75};
constexpr unsigned kHeaders[kColumnCount] = {0, 10, 6, 7, 8}; // the key's differs by page
constexpr int kPlainPageWidth = 596;                          // what these columns need
constexpr int kEmptyTableRows = 10;
constexpr CellColor kKeyColor{255, 255, 224};
constexpr double kButtonPerRowHeight = 1.2;
constexpr int kButtonPressed = 0;

constexpr int kButtonGap = 10;

/// Which text of a row a column shows.
constexpr std::u16string RowTexts::*textOf(int column)
{
    return kRowFields[static_cast<size_t>(column)];
}

} // namespace

TableSettingPage::TableSettingPage(LibraryFiles& library, const TablePageKind& kind)
    : CTabPageSSL{*FindDialogTemplate(kind.dialogTemplate)}, m_library{library}, m_kind{kind}
{
    onMessage(control_ids::table::kSaveFile, Notification::kClicked, &TableSettingPage::OnSaveFile);
    onMessage(control_ids::table::kOpenFile, Notification::kClicked, &TableSettingPage::OnOpenFile);
    onMessage(control_ids::table::kClear, Notification::kClicked, &TableSettingPage::ClearTable);
    onGridClick(control_ids::table::kGrid, &TableSettingPage::PickBlockFile);
}

void TableSettingPage::OnInitDialog()
{
    ConvertControlCaptions(*this);
    ApplyDialogFont(*this);
    m_grid.SetColumnCount(kColumnCount);
    m_grid.SetRowCount(1);
    m_grid.SetFixedRowCount(1);
    m_grid.SetColumnEditable(kKey, false);
    for (int column = 0; column < kColumnCount; ++column)
    {
        m_grid.SetColumnWidth(column, ScaleByDisplay(kColumnWidths[column]));
        m_grid.cell(0, column).SetFormat(kCellCentredLine);
        m_grid.SetItemText(0, column, LoadText(column == kKey ? m_kind.keyHeader : kHeaders[column]));
    }
    FillTable();
}

void TableSettingPage::OnEnterTab()
{
    if (g_DatabaseCS.m_bDistanceChanged)
        FillTable();
}

/// Lets `action` have every chosen cross-section, in the order of the last scan.
template <class Action>
void TableSettingPage::ForEachChosenSection(Action action) const
{
    std::vector<size_t> chosen = m_arrSectionIndices;
    std::sort(chosen.begin(), chosen.end());
    for (ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
    {
        if (!equalNoCase(line.m_strName, m_strAlignmentName))
            continue;
        size_t position = 0;
        for (CrossSectionXdata& section : line.m_listCrossSections)
        {
            if (std::binary_search(chosen.begin(), chosen.end(), position++))
                action(section);
        }
    }
}

void TableSettingPage::FillTable()
{
    m_setRows.clear();
    ForEachChosenSection([this](const CrossSectionXdata& section) { m_kind.collect(m_setRows, section); });
    const int rows = static_cast<int>(m_setRows.size());
    ShowEmptyTable(rows == 0 ? kEmptyTableRows : rows + 1);
    ShowRows();
    EnableWindow(!m_setRows.empty() || !m_kind.disabledWithoutRows);
}

void TableSettingPage::ShowEmptyTable(int rowCount)
{
    m_grid.SetRowCount(rowCount);
    for (int row = 1; row < rowCount; ++row)
    {
        for (int column = 0; column < kColumnCount; ++column)
        {
            m_grid.SetItemText(row, column, {});
            m_grid.cell(row, column).SetFormat(kCellCentredLine);
        }
        m_grid.cell(row, kKey).SetBackColor(kKeyColor);
        const int buttonWidth = static_cast<int>(kButtonPerRowHeight * m_grid.GetRowHeight(row));
        m_grid.makeCell<CGridBtnCell>(row, kFile).SetupButton(u"...", buttonWidth);
    }
}

void TableSettingPage::ShowRows()
{
    int row = 0;
    for (const SetName_Index& record : m_setRows)
    {
        ++row;
        m_grid.SetItemText(row, kKey, record.m_strName);
        m_grid.SetItemText(row, kFile, record.m_strFile);
        m_grid.SetItemText(row, kScaleX, FormatReal(record.m_dScaleX, 2));
        m_grid.SetItemText(row, kScaleY, FormatReal(record.m_dScaleY, 2));
        m_grid.SetItemText(row, kRotation, FormatReal(record.m_dRotation, 2));
    }
}

RowTexts TableSettingPage::RowAt(int row) const
{
    RowTexts texts;
    for (int column = 0; column < kColumnCount; ++column)
        texts.*textOf(column) = m_grid.GetItemText(row, column);
    return texts;
}

void TableSettingPage::ApplySettings()
{
    const int rows = static_cast<int>(m_setRows.size());
    m_setRows.clear();
    for (int row = 1; row <= rows; ++row)
    {
        const RowTexts texts = RowAt(row);
        m_setRows.insert(SetName_Index{texts.key, texts.look()});
    }
    if (rows != 0)
        ForEachChosenSection([this](CrossSectionXdata& section) { m_kind.apply(m_setRows, section); });
}

TextLines TableSettingPage::CollectTableRows() const
{
    TextLines lines;
    for (int row = 1; row < m_grid.GetRowCount(); ++row)
    {
        if (const RowTexts texts = RowAt(row); !texts.file.empty())
            lines.push_back(JoinRow(texts));
    }
    return lines;
}

void TableSettingPage::LoadTableRows(const TextLines& lines)
{
    const RowLookup lookup{lines};
    for (int row = 1; row < m_grid.GetRowCount(); ++row)
    {
        const RowTexts* found = lookup.find(m_grid.GetItemText(row, kKey));
        for (int column = kFile; found != nullptr && column < kColumnCount; ++column)
            m_grid.SetItemText(row, column, found->*textOf(column));
    }
}

void TableSettingPage::ClearTable()
{
    for (int row = 1; row <= static_cast<int>(m_setRows.size()); ++row)
    {
        for (int column = kFile; column < kColumnCount; ++column)
            m_grid.SetItemText(row, column, {});
    }
    for (std::u16string DatabaseCS::*text :
         {&DatabaseCS::m_strPathSelect, &DatabaseCS::m_strFileSymbolLastSelect, &DatabaseCS::m_strFileLineLastSelect})
        (g_DatabaseCS.*text).clear();
    const SymbolLook zero{{}, 0.0, 0.0, 0.0};
    g_DatabaseCS.StoreScales(zero, zero);
}

void TableSettingPage::PickBlockFile(const GridClick& click)
{
    if (m_grid.isFixed(click.row, click.column) || click.column != kFile || click.buttonState != kButtonPressed)
        return;
    const auto path = AskFileName({FileDialog::kOpen, u"Select File", ModuleFolder, u"dwg", true, false});
    if (!path)
        return;
    g_DatabaseCS.m_strPathSelect = FolderOf(*path);
    g_DatabaseCS.*m_kind.lastFile = *path;
    m_grid.SetItemText(click.row, kFile, *path);
}

void TableSettingPage::LayOutPage(int width, int height)
{
    const CRect page = rectAt(3, 21, width - 24, height - 71);
    MoveWindow(page);
    int left = 20;
    for (CButton* button : {&m_btnSave, &m_btnOpen, &m_btnClear})
    {
        const CSize size = button->clientSize();
        button->MoveWindow(rectAt(left, height - 75 - size.height, size.width, size.height));
        left += size.width + kButtonGap;
    }
    m_group.MoveWindow({5, 10, width - 30, page.height()});
    m_grid.MoveWindow({20, 28, width - 40, page.height() - 35});
    const int wider = (page.width() - kPlainPageWidth) / kColumnCount;
    for (int column = 0; column < kColumnCount; ++column)
        m_grid.SetColumnWidth(column, kColumnWidths[column] + wider);
}
