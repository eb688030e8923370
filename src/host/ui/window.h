#pragma once

#include "host/ui/dialog_template.h"
#include "host/ui/rect.h"

#include <string>
#include <string_view>

/// A font by its face and its height in pixels (negative: of its characters, positive: of its lines).
struct CFont
{
    std::u16string face;
    int height = 0;
};

/// Anything that a window system would show: the host's main window, a dialog, a control. It is state only; each change
/// is told to the session's front end. A window knows its parent and is owned by whoever made it: controls by their
/// dialog, dialogs by their openers.
class CWnd
{
public:
    explicit CWnd(CWnd* parent = nullptr, int id = kNoControlId) : m_parent{parent}, m_id{id} {}
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd() = default;

    /// What it is in one word: "window", "dialog", or for a control "button", "checkbox", "static", "group", "edit",
    /// "combo", "checklist", "grid", "tab".
    virtual std::string_view kindName() const { return "window"; }

    CWnd* GetParent() const { return m_parent; }
    int GetDlgCtrlID() const { return m_id; }

    virtual std::u16string GetWindowText() const { return m_text; }
    void SetWindowText(std::u16string text);

    bool IsWindowEnabled() const { return m_enabled; }
    void EnableWindow(bool enable);
    bool IsWindowVisible() const { return m_visible; }
    void ShowWindow(bool show);
    /// Whether the user can reach it: enabled and visible, and so is everything that it stands in.
    bool isReachable() const;

    /// In pixels, relative to the dialog or page that it stands in.
    const CRect& rect() const { return m_rect; }
    void MoveWindow(const CRect& rect);
    CSize clientSize() const { return {m_rect.width(), m_rect.height()}; }

    const CFont& GetFont() const { return m_font; }
    virtual void SetFont(const CFont& font);

    /// Gives it the keyboard focus; its dialog remembers.
    void SetFocus();

protected:
    void setParent(CWnd* parent) { m_parent = parent; }
    /// Tells the front end that the state changed.
    void changed();
    /// Its size changed.
    virtual void sized() {}
    /// `pixels` at 96 dots an inch, on this display.
    static int onDisplay(int pixels);

private:
    CWnd* m_parent;
    int m_id;
    std::u16string m_text;
    bool m_enabled = true;
    bool m_visible = true;
    CRect m_rect;
    CFont m_font;
};
