#include "host/ui/tab_ctrl.h"

namespace
{

// At 96 dots an inch.
constexpr int kTabRowHeight = 21;
constexpr int kPageMargin = 4;

} // namespace

void CTabCtrlSSL::AddPage(std::u16string title, CTabPageSSL& page)
{
    m_tabs.push_back({std::move(title), &page});
    page.MoveWindow(displayArea());
    page.ShowWindow(m_current < 0);
    if (m_current < 0)
        m_current = 0;
    changed();
}

CTabPageSSL* CTabCtrlSSL::currentPage() const
{
    return m_current < 0 ? nullptr : m_tabs[static_cast<size_t>(m_current)].page;
}

void CTabCtrlSSL::SetCurSel(int index)
{
    if (index == m_current || index < 0 || index >= static_cast<int>(m_tabs.size()))
        return;
    currentPage()->OnLeaveTab();
    currentPage()->ShowWindow(false);
    m_current = index;
    enterCurrent();
    changed();
}

void CTabCtrlSSL::enterCurrent()
{
    CTabPageSSL& page = *currentPage();
    if (page.focusedChild() != nullptr)
        page.focusedChild()->SetFocus();
    page.MoveWindow(displayArea());
    page.ShowWindow(true);
    page.OnEnterTab();
}

CRect CTabCtrlSSL::displayArea() const
{
    const CSize size = clientSize();
    return {kPageMargin, onDisplay(kTabRowHeight), size.width - kPageMargin, size.height - kPageMargin};
}

void CTabPageSSL::CreatePage(CTabCtrlSSL& tab)
{
    setParent(&tab);
    open(false);
}
