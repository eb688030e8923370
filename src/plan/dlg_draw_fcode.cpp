#include "plan/dlg_draw_fcode.h"

#include "host/app/front_end.h"
#include "host/ui/host_window.h"
#include "resources/control_ids.h"
#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "util/dialog_help.h"
#include "util/display_scale.h"
#include "util/folders.h"
#include "util/numbers.h"
#include "util/tcvn3.h"

namespace
{

using namespace control_ids::table;

enum Column
{
    kCode,
    kFile,
    kScaleX,
    kScaleY,
    kRotation,
    kAtVertex,
    kColumnCount
};

struct ColumnLook
{
    int width;
    unsigned title;
};
constexpr ColumnLook kColumns[kColumnCount] = {{135, 9}, {250, 10}, {61, 6}, {61, 7}, {70, 8}, {100, 20}};

constexpr size_t kLongestTitle = 64;
constexpr int kEmptyTableRows = 20;
constexpr CellColor kCodeBackground{255, 255, 224};
constexpr const char16_t* kBrowse = u"...";
constexpr double kBrowseWidth = 1.2; ///< in row heights

constexpr const char16_t* kPlainScale = u"1";
constexpr const char16_t* kPlainRotation = u"0";
constexpr int kDecimals = 2;

constexpr const char16_t* kTableExtension = u"dvbd";
constexpr const char16_t* kTableFilter = u"File dia vat (*.dvbd)|*.dvbd||";

FileQuestion tableFileQuestion(bool saving)
{
    FileQuestion question;
    question.saving = saving;
    question.namesSymbols = !saving;
    question.defaultExtension = kTableExtension;
    question.filter = kTableFilter;
    return question;
}

std::u16string orElse(std::u16string text, const char16_t* whenEmpty)
{
    return text.empty() ? whenEmpty : std::move(text);
}

std::u16string asShown(const std::u16string& number)
{
    return FormatReal(ToReal(number), kDecimals);
}

} // namespace

DlgDrawFCode::DlgDrawFCode()
    : CDialog(*FindDialogTemplate(kPlanTableDialog), nullptr), m_grid(control<CGridCtrl>(kGrid))
{
    onMessage(kSaveFile, Notification::kClicked, &DlgDrawFCode::OnSaveFile);
    onMessage(kOpenFile, Notification::kClicked, &DlgDrawFCode::OnOpenFile);
    onMessage(kClear, Notification::kClicked, &DlgDrawFCode::OnClear);
    onGridClick(kGrid, &DlgDrawFCode::OnGridClicked);
}

void DlgDrawFCode::OnInitDialog()
{
    ApplyDialogFont(*this);
    ConvertControlCaptions(*this);
    SetWindowText(DecodeStoredText(GetWindowText(), kLongestTitle));
    MakeGrid();

    const FeatureRows lastState = ReadLastState();
    for (size_t i = 0; i < codes.size(); ++i)
    {
        const FeatureRow* kept = FindFeatureRow(lastState, codes[i]);
        FeatureRow row = kept != nullptr ? *kept : FeatureRow{{{}, {}, kPlainScale, kPlainScale, kPlainRotation}};
        for (std::u16string* number : {&row.scaleX, &row.scaleY, &row.rotation})
            *number = asShown(*number);
        m_grid.SetItemText(static_cast<int>(i) + 1, kCode, codes[i]);
        ShowRow(static_cast<int>(i) + 1, row);
    }
}

void DlgDrawFCode::MakeGrid()
{
    m_grid.SetColumnCount(kColumnCount);
    m_grid.SetRowCount(codes.empty() ? kEmptyTableRows : static_cast<int>(codes.size()) + 1);
    m_grid.SetFixedRowCount(1);
    for (int column = 0; column < kColumnCount; ++column)
    {
        m_grid.SetColumnWidth(column, ScaleByDisplay(kColumns[column].width));
        m_grid.cell(0, column).SetFormat(kCellCentredLine);
        m_grid.SetItemText(0, column, LoadText(kColumns[column].title));
    }
    for (int row = 1; row < m_grid.GetRowCount(); ++row)
        MakeDataRow(row);
}

void DlgDrawFCode::MakeDataRow(int row)
{
    for (int column = 0; column < kColumnCount; ++column)
        m_grid.cell(row, column).SetFormat(kCellCentredLine);
    m_grid.cell(row, kCode).SetBackColor(kCodeBackground);
    const int width = static_cast<int>(kBrowseWidth * m_grid.GetRowHeight(row));
    m_grid.makeCell<CGridBtnCell>(row, kFile).SetupButton(kBrowse, width);
    auto& check = m_grid.makeCell<CGridCellCheck>(row, kAtVertex);
    check.SetReadOnly(true);
    check.SetCheck(true);
}

void DlgDrawFCode::ShowRow(int row, const FeatureRow& values)
{
    for (int column = kFile; column <= kRotation; ++column)
        m_grid.SetItemText(row, column, values.*kRowFields[static_cast<size_t>(column)]);
    m_grid.cellAs<CGridCellCheck>(row, kAtVertex)->SetCheck(values.atVertex);
}

FeatureRow DlgDrawFCode::ShownRow(int row)
{
    return {{m_grid.GetItemText(row, kCode), m_grid.GetItemText(row, kFile),
             orElse(m_grid.GetItemText(row, kScaleX), kPlainScale),
             orElse(m_grid.GetItemText(row, kScaleY), kPlainScale),
             orElse(m_grid.GetItemText(row, kRotation), kPlainRotation)},
            m_grid.cellAs<CGridCellCheck>(row, kAtVertex)->GetCheck()};
}

void DlgDrawFCode::OnGridClicked(const GridClick& click)
{
    if (m_grid.isFixed(click.row, click.column) || click.column != kFile || click.buttonState != 0)
        return;
    const FileRequest request{FileDialog::kOpen, u"Select File", ModuleFolder, u"dwg", true, false};
    if (const auto path = AskFileName(request))
        m_grid.SetItemText(click.row, kFile, *path);
}

void DlgDrawFCode::OnClear()
{
    for (size_t i = 0; i < codes.size(); ++i)
        ShowRow(static_cast<int>(i) + 1, {});
}

void DlgDrawFCode::OnOpenFile()
{
    const auto path = askFile(tableFileQuestion(false));
    if (!path)
        return;
    const FeatureRows rows = ReadFeatureTable(*path);
    for (int row = 1; row < m_grid.GetRowCount(); ++row)
        if (const FeatureRow* values = FindFeatureRow(rows, m_grid.GetItemText(row, kCode)))
            ShowRow(row, *values);
}

void DlgDrawFCode::OnSaveFile()
{
    const auto path = askFile(tableFileQuestion(true));
    if (!path)
        return;
    FeatureRows rows;
    for (int row = 1; row < m_grid.GetRowCount(); ++row)
        if (!m_grid.GetItemText(row, kFile).empty())
            rows.push_back(ShownRow(row));
    WriteFeatureTable(*path, rows);
}

void DlgDrawFCode::OnOK()
{
    for (auto* numbers : {&scaleX, &scaleY, &rotation})
        numbers->clear();
    files.clear();
    atVertex.clear();
    FeatureRows rows;
    for (size_t i = 0; i < codes.size(); ++i)
    {
        rows.push_back(ShownRow(static_cast<int>(i) + 1));
        rows.back().key = codes[i];
        TakeResults(rows.back());
    }
    WriteLastState(rows);
    CDialog::OnOK();
}

void DlgDrawFCode::TakeResults(const FeatureRow& row)
{
    const SymbolLook look = row.look();
    files.push_back(look.m_strFile);
    scaleX.push_back(look.m_dScaleX);
    scaleY.push_back(look.m_dScaleY);
    rotation.push_back(look.m_dRotation);
    atVertex.push_back(row.atVertex ? 1 : 0);
}
