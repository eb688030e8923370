#include "host/ui/controls.h"

#include "store/text/text.h"

#include <algorithm>

std::string_view CButton::kindName() const
{
    switch (m_style)
    {
    case ButtonStyle::kCheckBox:
        return "checkbox";
    case ButtonStyle::kGroupBox:
        return "group";
    default:
        return "button";
    }
}

void CButton::SetCheck(bool checked)
{
    m_checked = checked;
    changed();
}

std::u16string CComboBox::GetWindowText() const
{
    return GetLBText(m_selected);
}

void CComboBox::ResetContent()
{
    m_items.clear();
    m_selected = -1;
    changed();
}

int CComboBox::AddString(std::u16string text)
{
    m_items.push_back(std::move(text));
    changed();
    return GetCount() - 1;
}

std::u16string CComboBox::GetLBText(int index) const
{
    return index >= 0 && index < GetCount() ? m_items[static_cast<size_t>(index)] : std::u16string{};
}

void CComboBox::SetCurSel(int index)
{
    m_selected = index >= 0 && index < GetCount() ? index : -1;
    changed();
}

int CComboBox::FindStringExact(std::u16string_view text) const
{
    auto found = std::find(m_items.begin(), m_items.end(), text);
    if (found == m_items.end())
        found =
            std::find_if(m_items.begin(), m_items.end(), [text](const auto& item) { return equalNoCase(item, text); });
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

int CComboBox::SelectString(std::u16string_view prefix)
{
    const auto begins = [prefix](const std::u16string& item) { return startsWithNoCase(item, prefix); };
    const auto found = std::find_if(m_items.begin(), m_items.end(), begins);
    if (found == m_items.end())
        return -1;
    SetCurSel(static_cast<int>(found - m_items.begin()));
    return m_selected;
}

void CCheckListBox::ResetContent()
{
    m_rows.clear();
    changed();
}

int CCheckListBox::AddString(std::u16string text)
{
    m_rows.push_back({std::move(text)});
    changed();
    return GetCount() - 1;
}

std::u16string CCheckListBox::GetText(int index) const
{
    return holds(index) ? m_rows[static_cast<size_t>(index)].text : std::u16string{};
}

bool CCheckListBox::GetCheck(int index) const
{
    return holds(index) && m_rows[static_cast<size_t>(index)].checked;
}

void CCheckListBox::SetCheck(int index, bool checked)
{
    if (!holds(index))
        return;
    m_rows[static_cast<size_t>(index)].checked = checked;
    changed();
}
