#include "host/app/session.h"
#include "host/ui/dialog.h"
#include "host/ui/tab_ctrl.h"

#include <algorithm>

namespace
{

constexpr int kLargestSize = 32767; // of a window
constexpr int kOnButton = 0;
constexpr int kOnText = 1;

std::string named(int id)
{
    return "control " + std::to_string(id);
}

UserAction refusedCell(int row, int column, const std::string& reason)
{
    return UserAction::refused("cell " + std::to_string(row) + " " + std::to_string(column) + " " + reason);
}

/// Types into a cell that can be reached, as far as the cell takes text.
UserAction typeInto(CGridCtrl& grid, int row, int column, const std::u16string& text)
{
    CGridCell& cell = grid.cell(row, column);
    if (cell.IsReadOnly() || dynamic_cast<CGridCellCheck*>(&cell) != nullptr || !grid.IsColumnEditable(column))
        return refusedCell(row, column, "is read-only");
    if (auto* list = dynamic_cast<CGridCellCombo*>(&cell))
        list->enter(text);
    else
        cell.SetText(text);
    return UserAction::done();
}

} // namespace

CDialog* CDialog::shownPage() const
{
    const CTabCtrlSSL* tab = tabControl();
    return tab == nullptr ? nullptr : tab->currentPage();
}

CWnd* CDialog::findControl(int id) const
{
    if (id == kNoControlId)
        return nullptr;
    const CDialog* page = shownPage();
    CWnd* onPage = page == nullptr ? nullptr : page->GetDlgItem(id);
    return onPage == nullptr ? GetDlgItem(id) : onPage;
}

CGridCtrl* CDialog::findGrid() const
{
    const CDialog* page = shownPage();
    CGridCtrl* onPage = page == nullptr ? nullptr : page->ownGrid();
    return onPage == nullptr ? ownGrid() : onPage;
}

CGridCtrl* CDialog::ownGrid() const
{
    for (const auto& child : m_controls)
    {
        if (auto* grid = dynamic_cast<CGridCtrl*>(child.get()))
            return grid;
    }
    return nullptr;
}

UserAction CDialog::reach(const CWnd* control, const std::string& name) const
{
    if (!m_open)
        return UserAction::refused("the dialog is closed");
    if (control == nullptr)
        return UserAction::refused("there is no " + name);
    if (!control->IsWindowVisible())
        return UserAction::refused(name + " is hidden");
    if (!control->isReachable())
        return UserAction::refused(name + " is disabled");
    return UserAction::done();
}

/// Lets `action` have the control of `id`, of kind `Kind`, and the dialog or page that owns it.
template <class Kind, class Action>
UserAction CDialog::act(int id, Action action)
{
    CWnd* found = findControl(id);
    if (UserAction reached = reach(found, named(id)); !reached)
        return reached;
    auto* control = dynamic_cast<Kind*>(found);
    if (control == nullptr)
        return UserAction::refused(named(id) + " is of kind " + std::string{found->kindName()});
    auto& owner = dynamic_cast<CDialog&>(*found->GetParent());
    owner.m_focused = found;
    return action(*control, owner);
}

/// Lets `action` have the grid in which the cell stands, and the dialog or page that owns it.
template <class Action>
UserAction CDialog::actOnCell(int row, int column, Action action)
{
    CGridCtrl* grid = findGrid();
    if (UserAction reached = reach(grid, "grid"); !reached)
        return reached;
    if (!grid->holds(row, column))
        return refusedCell(row, column, "is out of range");
    if (grid->isFixed(row, column))
        return refusedCell(row, column, "is a header");
    auto& owner = dynamic_cast<CDialog&>(*grid->GetParent());
    owner.m_focused = grid;
    return action(*grid, owner);
}

UserAction CDialog::userClick(int id)
{
    return act<CButton>(id,
                        [&](CButton& button, CDialog& owner)
                        {
                            if (button.style() == ButtonStyle::kGroupBox)
                                return UserAction::refused(named(id) + " is of kind group");
                            const UserMessage down{UserMessage::kLeftButtonDown, &button};
                            if (owner.PreTranslateMessage(down) || (&owner != this && PreTranslateMessage(down)))
                                return UserAction::done();
                            host::Session::current().runPending();
                            return release(button);
                        });
}

UserAction CDialog::release(CButton& button)
{
    const int id = button.GetDlgCtrlID();
    if (UserAction reached = reach(&button, named(id)); !reached)
        return reached;
    if (button.style() == ButtonStyle::kCheckBox)
        button.SetCheck(!button.GetCheck());
    dynamic_cast<CDialog&>(*button.GetParent()).notify(id, Notification::kClicked);
    return UserAction::done();
}

UserAction CDialog::userSetText(int id, const std::u16string& text)
{
    return act<CEdit>(id,
                      [&](CEdit& edit, CDialog&)
                      {
                          edit.SetWindowText(text);
                          return UserAction::done();
                      });
}

template <class Pick>
UserAction CDialog::choose(int id, Pick pick)
{
    return act<CComboBox>(id,
                          [&](CComboBox& combo, CDialog& owner)
                          {
                              const int index = pick(combo);
                              if (index < 0 || index >= combo.GetCount())
                                  return UserAction::refused(named(id) + " has no such entry");
                              if (index == combo.GetCurSel())
                                  return UserAction::done();
                              combo.SetCurSel(index);
                              owner.notify(id, Notification::kSelectionChanged);
                              return UserAction::done();
                          });
}

UserAction CDialog::userChoose(int id, const std::u16string& text)
{
    return choose(id, [&](const CComboBox& combo) { return combo.FindStringExact(text); });
}

UserAction CDialog::userChoose(int id, int index)
{
    return choose(id, [&](const CComboBox&) { return index; });
}

UserAction CDialog::userTick(int id, int row, bool on)
{
    return act<CCheckListBox>(id,
                              [&](CCheckListBox& list, CDialog&)
                              {
                                  if (row < 0 || row >= list.GetCount())
                                      return UserAction::refused(named(id) + " has no row " + std::to_string(row));
                                  list.SetCheck(row, on);
                                  return UserAction::done();
                              });
}

UserAction CDialog::userTab(int page)
{
    CTabCtrlSSL* tab = tabControl();
    if (UserAction reached = reach(tab, "tab control"); !reached)
        return reached;
    if (page < 0 || page >= static_cast<int>(tab->tabs().size()))
        return UserAction::refused("there is no page " + std::to_string(page));
    tab->SetCurSel(page);
    return UserAction::done();
}

UserAction CDialog::userCell(int row, int column, const std::u16string& text)
{
    return actOnCell(row, column, [&](CGridCtrl& grid, CDialog&) { return typeInto(grid, row, column, text); });
}

UserAction CDialog::userMark(int row, int column, bool on)
{
    return actOnCell(row, column,
                     [&](CGridCtrl& grid, CDialog&)
                     {
                         auto* check = grid.cellAs<CGridCellCheck>(row, column);
                         if (check == nullptr)
                             return refusedCell(row, column, "has no check box");
                         check->SetCheck(on);
                         return UserAction::done();
                     });
}

UserAction CDialog::userPress(int row, int column)
{
    return actOnCell(row, column,
                     [&](CGridCtrl& grid, CDialog& owner)
                     {
                         if (grid.cellAs<CGridBtnCell>(row, column) == nullptr)
                             return refusedCell(row, column, "has no button");
                         owner.notify(grid.GetDlgCtrlID(), GridClick{row, column, kOnButton});
                         return UserAction::done();
                     });
}

UserAction CDialog::userClickCell(int row, int column)
{
    CGridCtrl* grid = findGrid();
    if (UserAction reached = reach(grid, "grid"); !reached)
        return reached;
    if (!grid->holds(row, column))
        return refusedCell(row, column, "is out of range");
    dynamic_cast<CDialog&>(*grid->GetParent()).notify(grid->GetDlgCtrlID(), GridClick{row, column, kOnText});
    return UserAction::done();
}

UserAction CDialog::userResize(int width, int height)
{
    const auto size = [](int wanted) { return std::clamp(wanted, 0, kLargestSize); };
    return userSizing(kRightEdge | kBottomEdge, rectAt(rect().left, rect().top, size(width), size(height)));
}

UserAction CDialog::userSizing(SizingEdge edge, CRect wanted)
{
    if (UserAction reached = reach(this, "dialog"); !reached)
        return reached;
    if (m_template.frame != DialogFrame::kSizable)
        return UserAction::refused("the dialog cannot be resized");
    const CSize least = minimumSize();
    if (wanted.width() < least.width && (edge & kLeftEdge) != 0)
        wanted.left = wanted.right - least.width;
    else if (wanted.width() < least.width)
        wanted.right = wanted.left + least.width;
    if (wanted.height() < least.height && (edge & kTopEdge) != 0)
        wanted.top = wanted.bottom - least.height;
    else if (wanted.height() < least.height)
        wanted.bottom = wanted.top + least.height;
    MoveWindow(wanted);
    return UserAction::done();
}

UserAction CDialog::userKey(UserKey key)
{
    if (key == UserKey::kEscape)
        return userClose();
    if (UserAction reached = reach(this, "dialog"); !reached)
        return reached;
    for (const auto& child : m_controls)
    {
        auto* button = dynamic_cast<CButton*>(child.get());
        if (button != nullptr && button->style() == ButtonStyle::kDefaultPush)
            return release(*button);
    }
    OnOK();
    return UserAction::done();
}

UserAction CDialog::userClose()
{
    if (UserAction reached = reach(this, "dialog"); !reached)
        return reached;
    OnCancel();
    return UserAction::done();
}

UserAction CDialog::userFocus(CWnd& control)
{
    if (UserAction reached = reach(&control, "control"); !reached)
        return reached;
    dynamic_cast<CDialog&>(*control.GetParent()).m_focused = &control;
    return UserAction::done();
}
