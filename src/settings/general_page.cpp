#include "settings/general_page.h"

#include "dbkit/symbol_tables.h"
#include "host/ui/color_names.h"
#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "sections/database_cs.h"
#include "sections/refresh.h"
#include "settings/draw_color.h"
#include "util/dialog_help.h"
#include "util/display_scale.h"
#include "util/numbers.h"

#include <cmath>

namespace
{

enum Column
{
    kOption,
    kDraw,
    kLayer,
    kColor,
    kColumnCount
};

constexpr int kOptionCount = static_cast<int>(kDrawOptionCount);
constexpr int kColumnWidths[kColumnCount] = {140, 50, 235, 127};
constexpr int kPlainPageWidth = 592; // what these columns need
constexpr int kRowHeight = 21;
constexpr int kEndMargin = 30; // right of the search zone and the drawing options
constexpr unsigned kHeaders[kColumnCount] = {0, 14, 4, 15};
constexpr unsigned kOptionTexts[kOptionCount] = {11, 13, 17, 18};
constexpr double kSameDistance = 0.001;

/// The colours that are kept, by option.
constexpr int DatabaseCS::*kColors[] = {&DatabaseCS::m_nColorSymbolText, &DatabaseCS::m_nColorFcodeText,
                                        &DatabaseCS::m_nColorSymbol};

std::u16string TextOr(const CEdit& edit, std::u16string_view whenEmpty)
{
    const std::u16string text = edit.GetWindowText();
    return text.empty() ? std::u16string{whenEmpty} : text;
}

} // namespace

GeneralSettingDlg::GeneralSettingDlg() : CTabPageSSL{*FindDialogTemplate(kGeneralPage)} {}

void GeneralSettingDlg::OnInitDialog()
{
    ConvertControlCaptions(*this);
    ApplyDialogFont(*this);
    AnchorTextControls();
    BuildOptionGrid();
    ShowNumbers();
    FillTextStyles();
    FillOptionGrid();
}

/// Notes where the group of the text parameters, and all that stands in it, begins.
void GeneralSettingDlg::AnchorTextControls()
{
    const CRect group = m_groupText.rect();
    const int end = GetParent()->GetParent()->clientSize().width - kEndMargin;
    for (const auto& child : controls())
    {
        const CRect& rect = child->rect();
        if (rect.left >= group.left && rect.bottom <= group.bottom)
            m_textControls.push_back({child.get(), rect.left - end});
    }
}

void GeneralSettingDlg::BuildOptionGrid()
{
    m_grid.SetColumnCount(kColumnCount);
    m_grid.SetRowCount(kOptionCount + 1);
    m_grid.SetFixedRowCount(1);
    m_grid.SetFixedColumnCount(1);
    for (int column = 0; column < kColumnCount; ++column)
    {
        m_grid.SetColumnWidth(column, ScaleByDisplay(kColumnWidths[column]));
        m_grid.cell(0, column).SetFormat(kCellCentredLine);
        m_grid.SetItemText(0, column, LoadText(kHeaders[column]));
    }
    std::vector<std::u16string> layers;
    ListLayerNames(layers);
    m_grid.SetRowHeight(0, ScaleByDisplay(kRowHeight));
    for (int row = 1; row <= kOptionCount; ++row)
        BuildOptionRow(row, layers);
}

void GeneralSettingDlg::BuildOptionRow(int row, const std::vector<std::u16string>& layers)
{
    m_grid.SetRowHeight(row, ScaleByDisplay(kRowHeight));
    m_grid.SetItemText(row, kOption, LoadText(kOptionTexts[row - 1]));
    m_grid.cell(row, kOption).SetFormat(kCellCentredLine);

    auto& draw = m_grid.makeCell<CGridCellCheck>(row, kDraw);
    draw.SetFormat(kCellCentredLine);
    draw.SetReadOnly(true);
    draw.SetCheck(true);

    auto& layer = m_grid.makeCell<CGridCellCombo>(row, kLayer);
    layer.SetFormat(kCellCentredLine);
    layer.SetOptions(layers);
    layer.SetText(CurrentLayerName());

    m_grid.makeCell<CGridCellComboColor>(row, kColor).SetText(colorName(kColorByLayer));
}

void GeneralSettingDlg::ShowNumbers()
{
    m_editForward.SetWindowText(FormatReal(g_DatabaseCS.m_dForwardDistance, 2));
    m_editBackward.SetWindowText(FormatReal(g_DatabaseCS.m_dBackwardDistance, 2));
    m_editTextHeight.SetWindowText(FormatReal(g_DatabaseCS.m_dTextHeight, 2));
    m_editDeltaY.SetWindowText(FormatReal(g_DatabaseCS.m_dDeltaY, 2));
}

/// The style used last is not preselected: the module's own always is, when the drawing has it.
void GeneralSettingDlg::FillTextStyles()
{
    FillSymbolCombo(m_comboTextStyle, SymbolTable::kTextStyles, AcDbObjectId::kNull);
    m_comboTextStyle.SelectString(u"MADIAVATTN");
}

void GeneralSettingDlg::FillOptionGrid()
{
    g_DatabaseCS.m_bDistanceChanged = false;
    const auto& flags = g_DatabaseCS.m_arrDrawFlags;
    for (size_t option = 0; option < flags.size() && option < kDrawOptionCount; ++option)
    {
        const int row = static_cast<int>(option) + 1;
        m_grid.cellAs<CGridCellCheck>(row, kDraw)->SetCheck(flags[option] != 0);
        const auto& layers = g_DatabaseCS.m_arrLayerNames;
        if (option < layers.size() && !layers[option].empty())
            m_grid.SetItemText(row, kLayer, layers[option]);
    }
    int row = 1;
    for (const auto color : kColors)
        m_grid.SetItemText(row++, kColor, colorName(g_DatabaseCS.*color));
}

void GeneralSettingDlg::ApplySettings()
{
    ApplyDistances();
    g_DatabaseCS.m_dTextHeight = ToReal(m_editTextHeight.GetWindowText());
    g_DatabaseCS.m_dDeltaY = ToReal(m_editDeltaY.GetWindowText());
    g_DatabaseCS.m_idTextStyle =
        m_comboTextStyle.GetCurSel() < 0 ? AcDbObjectId::kNull : GetTextStyleId(m_comboTextStyle.GetWindowText());
    ApplyOptions();
}

void GeneralSettingDlg::ApplyDistances()
{
    const double forward = ToReal(m_editForward.GetWindowText());
    const double backward = ToReal(m_editBackward.GetWindowText());
    const auto differ = [](double a, double b) { return std::abs(a - b) > kSameDistance; }; // infinity is like itself
    if (!differ(forward, g_DatabaseCS.m_dForwardDistance) && !differ(backward, g_DatabaseCS.m_dBackwardDistance))
        return;
    g_DatabaseCS.m_dForwardDistance = forward;
    g_DatabaseCS.m_dBackwardDistance = backward;
    g_DatabaseCS.m_bDistanceChanged = true;
    RefreshAllSections(g_DatabaseCS);
}

void GeneralSettingDlg::ApplyOptions()
{
    g_DatabaseCS.m_arrDrawFlags.clear();
    g_DatabaseCS.m_arrLayerNames.clear();
    for (int row = 1; row <= kOptionCount; ++row)
    {
        g_DatabaseCS.m_arrDrawFlags.push_back(m_grid.cellAs<CGridCellCheck>(row, kDraw)->GetCheck() ? 1 : 0);
        g_DatabaseCS.m_arrLayerNames.push_back(m_grid.GetItemText(row, kLayer));
    }
    int row = 1;
    for (const auto color : kColors)
        g_DatabaseCS.*color = DrawColorOf(m_grid.GetItemText(row++, kColor));
}

TextLines GeneralSettingDlg::CollectGeneralLine() const
{
    return {TextOr(m_editBackward, u"5") + u"," + TextOr(m_editForward, u"5") + u"," +
            TextOr(m_editTextHeight, u"0.4") + u"," + TextOr(m_editDeltaY, u"2")};
}

void GeneralSettingDlg::LoadGeneralLine(const TextLines& lines)
{
    const std::optional<GeneralTexts> texts = ParseGeneralLine(lines);
    if (!texts)
        return;
    m_editBackward.SetWindowText(texts->backward);
    m_editForward.SetWindowText(texts->forward);
    m_editTextHeight.SetWindowText(texts->textHeight);
    m_editDeltaY.SetWindowText(texts->deltaY);
}

void GeneralSettingDlg::LayOutPage(int width, int height)
{
    const CRect page = rectAt(3, 21, width - 24, height - 71);
    const int end = width - kEndMargin;
    MoveWindow(page);
    m_groupSearch.MoveWindow({3, 2, end, 2 + m_groupSearch.rect().height()});
    for (const Anchored& each : m_textControls)
    {
        const CRect rect = each.control->rect();
        each.control->MoveWindow(rectAt(end + each.fromEnd, rect.top, rect.width(), rect.height()));
    }
    m_groupOptions.MoveWindow({3, 55, end, page.height() - 5});
    m_grid.MoveWindow({15, 72, width - 40, page.height() - 8});
    const int wider = (page.width() - kPlainPageWidth) / kColumnCount;
    for (int column = 0; column < kColumnCount; ++column)
        m_grid.SetColumnWidth(column, kColumnWidths[column] + wider);
}
