#pragma once

#include "host/ui/dialog.h"

#include <string>
#include <vector>

class CTabPageSSL;

/// A row of tabs above the page of the current one. It shows that page in its display area, hides the others, and gives
/// a page that is entered the focus where it was. The pages belong to the dialog.
class CTabCtrlSSL : public CWnd
{
public:
    struct Tab
    {
        std::u16string title;
        CTabPageSSL* page;
    };

    using CWnd::CWnd;
    std::string_view kindName() const override { return "tab"; }

    const std::vector<Tab>& tabs() const { return m_tabs; }
    /// Adds a page that was created in this control as the last tab; the first one added is shown.
    void AddPage(std::u16string title, CTabPageSSL& page);
    /// The index of the current tab; -1 when there are none.
    int GetCurSel() const { return m_current; }
    /// The page shown; null when there is none.
    CTabPageSSL* currentPage() const;
    /// Leaves the current tab and enters that of `index`; nothing when it is the current one or there is none.
    void SetCurSel(int index);
    /// Where a page stands: in from the edges and below the row of tabs.
    CRect displayArea() const;

private:
    void enterCurrent();

    std::vector<Tab> m_tabs;
    int m_current = -1;
};

/// A page of a tab control: a dialog without a frame that OK and Cancel never close.
class CTabPageSSL : public CDialog
{
public:
    explicit CTabPageSSL(const DialogTemplate& dialogTemplate) : CDialog{dialogTemplate, nullptr} {}

    /// Opens the page as a child of `tab`.
    void CreatePage(CTabCtrlSSL& tab);

protected:
    void OnOK() override {}
    void OnCancel() override {}
    /// The page's tab is about to be left; runs while the page is still shown.
    virtual void OnLeaveTab() {}
    /// The page's tab was entered; runs when the page is shown.
    virtual void OnEnterTab() {}

private:
    friend class CTabCtrlSSL;
};
