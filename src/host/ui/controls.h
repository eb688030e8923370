#pragma once

#include "host/ui/window.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// The plain controls of a dialog. Their operations change state without notifying the dialog; what the user does goes
/// through the dialog's `user...` operations, which notify it. An index out of range reads as nothing and sets nothing.

enum class ButtonStyle
{
    kPush,
    kDefaultPush,
    kCheckBox, ///< toggles itself when clicked
    kGroupBox
};

class CButton : public CWnd
{
public:
    CButton(CWnd* parent, int id, ButtonStyle style) : CWnd{parent, id}, m_style{style} {}

    std::string_view kindName() const override;
    ButtonStyle style() const { return m_style; }
    bool isPushButton() const { return m_style == ButtonStyle::kPush || m_style == ButtonStyle::kDefaultPush; }
    bool GetCheck() const { return m_checked; }
    void SetCheck(bool checked);

private:
    ButtonStyle m_style;
    bool m_checked = false;
};

class CStatic : public CWnd
{
public:
    using CWnd::CWnd;
    std::string_view kindName() const override { return "static"; }
};

class CEdit : public CWnd
{
public:
    using CWnd::CWnd;
    std::string_view kindName() const override { return "edit"; }
};

/// A drop-down list: its text is that of the selected item.
class CComboBox : public CWnd
{
public:
    using CWnd::CWnd;
    std::string_view kindName() const override { return "combo"; }
    std::u16string GetWindowText() const override;

    const std::vector<std::u16string>& items() const { return m_items; }
    int GetCount() const { return static_cast<int>(m_items.size()); }
    void ResetContent();
    int AddString(std::u16string text);
    std::u16string GetLBText(int index) const;
    /// The selected item's index; -1 when none is.
    int GetCurSel() const { return m_selected; }
    /// Selects an item; -1, or an index that there is not, selects none.
    void SetCurSel(int index);
    /// The index of the item that is exactly `text`, else of the first that is without regard to case; -1 for none.
    int FindStringExact(std::u16string_view text) const;
    /// Selects the first item that begins with `prefix` without regard to case. When none does, the selection stays
    /// and the answer is -1.
    int SelectString(std::u16string_view prefix);

private:
    std::vector<std::u16string> m_items;
    int m_selected = -1;
};

/// A list whose rows can be ticked.
class CCheckListBox : public CWnd
{
public:
    struct Row
    {
        std::u16string text;
        bool checked = false;
    };

    using CWnd::CWnd;
    std::string_view kindName() const override { return "checklist"; }

    const std::vector<Row>& rows() const { return m_rows; }
    int GetCount() const { return static_cast<int>(m_rows.size()); }
    void ResetContent();
    int AddString(std::u16string text);
    std::u16string GetText(int index) const;
    bool GetCheck(int index) const;
    void SetCheck(int index, bool checked);

private:
    bool holds(int index) const { return index >= 0 && index < GetCount(); }

    std::vector<Row> m_rows;
};
