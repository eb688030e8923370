#include "host/ui/window.h"

#include "host/app/session.h"
#include "host/ui/dialog.h"
#include "host/ui/dialog_units.h"

void CWnd::SetWindowText(std::u16string text)
{
    m_text = std::move(text);
    changed();
}

void CWnd::EnableWindow(bool enable)
{
    m_enabled = enable;
    changed();
}

void CWnd::ShowWindow(bool show)
{
    m_visible = show;
    changed();
}

bool CWnd::isReachable() const
{
    for (const CWnd* window = this; window != nullptr; window = window->m_parent)
    {
        if (!window->m_enabled || !window->m_visible)
            return false;
    }
    return true;
}

void CWnd::MoveWindow(const CRect& rect)
{
    const CSize before = clientSize();
    m_rect = rect;
    changed();
    if (clientSize() != before)
        sized();
}

void CWnd::SetFont(const CFont& font)
{
    m_font = font;
    changed();
}

void CWnd::SetFocus()
{
    if (auto* dialog = dynamic_cast<CDialog*>(m_parent))
        dialog->m_focused = this;
    host::Session::current().frontEnd().setFocus(this);
}

void CWnd::changed()
{
    if (host::Session::hasCurrent())
        host::Session::current().frontEnd().changed(*this);
}

int CWnd::onDisplay(int pixels)
{
    return scaleToDisplay(pixels, host::Session::current().frontEnd().displayDpi());
}
