#include "console/report/dialog_json.h"

#include "host/ui/dialog.h"
#include "host/ui/tab_ctrl.h"

namespace console
{

namespace
{

Json texts(const std::vector<std::u16string>& items)
{
    Json json = Json::array();
    for (const std::u16string& item : items)
        json.push_back(toUtf8(item));
    return json;
}

Json rectJson(const CRect& rect)
{
    return Json::array({rect.left, rect.top, rect.width(), rect.height()});
}

Json cellJson(const CGridCtrl& grid, int row, int column)
{
    const CGridCell& cell = grid.cell(row, column);
    const CellColor color = cell.GetBackColor();
    Json json{{"text", toUtf8(cell.GetText())},
              {"kind", cell.kindName()},
              {"readonly", cell.IsReadOnly() || grid.isFixed(row, column) || !grid.IsColumnEditable(column)},
              {"background", Json::array({color.red, color.green, color.blue})}};
    if (const auto* check = dynamic_cast<const CGridCellCheck*>(&cell))
        json["checked"] = check->GetCheck();
    if (const auto* combo = dynamic_cast<const CGridCellCombo*>(&cell))
        json["items"] = texts(combo->items());
    return json;
}

void addGrid(Json& json, const CGridCtrl& grid)
{
    json["columns"] = Json::array();
    for (int column = 0; column < grid.GetColumnCount(); ++column)
        json["columns"].push_back(grid.GetColumnWidth(column));
    json["cells"] = Json::array();
    for (int row = 0; row < grid.GetRowCount(); ++row)
    {
        Json cells = Json::array();
        for (int column = 0; column < grid.GetColumnCount(); ++column)
            cells.push_back(cellJson(grid, row, column));
        json["cells"].push_back(std::move(cells));
    }
}

void addCheckList(Json& json, const CCheckListBox& list)
{
    json["items"] = Json::array();
    json["checked"] = Json::array();
    for (const CCheckListBox::Row& row : list.rows())
    {
        json["items"].push_back(toUtf8(row.text));
        json["checked"].push_back(row.checked);
    }
}

Json controlJson(const CWnd& control)
{
    Json json{{"id", control.GetDlgCtrlID()},
              {"kind", control.kindName()},
              {"text", toUtf8(control.GetWindowText())},
              {"enabled", control.IsWindowEnabled()},
              {"visible", control.IsWindowVisible()},
              {"rect", rectJson(control.rect())}};
    if (const auto* button = dynamic_cast<const CButton*>(&control);
        button != nullptr && button->style() == ButtonStyle::kCheckBox)
        json["checked"] = button->GetCheck();
    else if (const auto* combo = dynamic_cast<const CComboBox*>(&control))
        json["items"] = texts(combo->items());
    else if (const auto* list = dynamic_cast<const CCheckListBox*>(&control))
        addCheckList(json, *list);
    else if (const auto* grid = dynamic_cast<const CGridCtrl*>(&control))
        addGrid(json, *grid);
    return json;
}

Json controlsJson(const CDialog& dialog)
{
    Json json = Json::array();
    for (const auto& control : dialog.controls())
        json.push_back(controlJson(*control));
    return json;
}

} // namespace

Json dialogJson(const CDialog& dialog)
{
    const CTabCtrlSSL* tabs = dialog.tabControl();
    Json json{{"class", dialog.className()},
              {"template", dialog.dialogTemplate().id},
              {"title", toUtf8(dialog.GetWindowText())},
              {"modal", dialog.isModal()},
              {"page", tabs != nullptr ? Json(tabs->GetCurSel()) : Json(nullptr)},
              {"rect", rectJson(dialog.rect())},
              {"controls", controlsJson(dialog)}};
    if (tabs == nullptr)
        return json;
    json["pages"] = Json::array();
    for (const CTabCtrlSSL::Tab& tab : tabs->tabs())
        json["pages"].push_back(Json{{"title", toUtf8(tab.title)},
                                     {"class", tab.page->className()},
                                     {"template", tab.page->dialogTemplate().id},
                                     {"enabled", tab.page->IsWindowEnabled()},
                                     {"controls", controlsJson(*tab.page)}});
    return json;
}

} // namespace console
