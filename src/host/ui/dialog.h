#pragma once

#include "host/ui/controls.h"
#include "host/ui/grid_ctrl.h"
#include "host/ui/user_action.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

class CTabCtrlSSL;

/// Results of a dialog, and the ids of the buttons that stand for them.
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

/// What a control tells its dialog.
enum class Notification
{
    kClicked,         ///< a push button or check box (which has toggled itself already)
    kSelectionChanged ///< a drop-down list
};

/// A dialog: its controls exist from construction, made from its template; a derived class keeps references to those
/// that it works with (`CComboBox& m_combo = control<CComboBox>(1113);`) and lists its handlers in its constructor with
/// `onMessage` and `onGridClick`. Handlers change state and nothing else. The dialog owns its controls; whoever made
/// the dialog owns it. It is open from `DoModal` or `Create` until `EndDialog` or `DestroyWindow`.
class CDialog : public CWnd
{
public:
    CDialog(const DialogTemplate& dialogTemplate, CWnd* parent);
    ~CDialog() override;

    std::string_view kindName() const override { return "dialog"; }
    /// The name of the derived class.
    virtual std::string_view className() const = 0;
    const DialogTemplate& dialogTemplate() const { return m_template; }

    /// Direct children, in the template's order.
    const std::vector<std::unique_ptr<CWnd>>& controls() const { return m_controls; }
    /// The first child of that id; null when there is none.
    CWnd* GetDlgItem(int id) const;
    /// The dialog's tab control; null when it has none.
    CTabCtrlSSL* tabControl() const;

    /// Runs the dialog until it is ended and answers how. A front end that returns early has cancelled it.
    int DoModal();
    /// Opens it beside everything else.
    void Create();
    /// Ends it: a modal run returns `result`, a modeless dialog is hidden but stays what it is until destroyed.
    void EndDialog(int result);
    void DestroyWindow();
    bool isOpen() const { return m_open; }
    bool isModal() const { return m_modal; }
    /// How it was ended last.
    int result() const { return m_result; }

    /// The child that has, or had last, the keyboard focus; may be null.
    CWnd* focusedChild() const { return m_focused; }
    /// The least size that the user can drag the dialog to, in pixels.
    virtual CSize minimumSize() const { return {}; }

    /// What the user does. A control is looked for on the shown tab page first, then on the dialog; one that is
    /// missing, hidden, disabled, read-only or of another kind refuses with a reason, and so does a closed dialog. The
    /// dialog may be closed when an operation returns; it is not destroyed by it. The control becomes the focused
    /// child.

    /// Presses and releases the left button on a button or check box. What the press sent to the host's command line
    /// is run before the release.
    UserAction userClick(int id);
    UserAction userSetText(int id, const std::u16string& text);
    UserAction userChoose(int id, const std::u16string& text);
    UserAction userChoose(int id, int index);
    UserAction userTick(int id, int row, bool on);
    UserAction userTab(int page);
    /// Types into a cell of the grid, or picks from its list.
    UserAction userCell(int row, int column, const std::u16string& text);
    UserAction userMark(int row, int column, bool on);
    /// Presses a cell's push button.
    UserAction userPress(int row, int column);
    /// Clicks on the text part of a cell.
    UserAction userClickCell(int row, int column);
    /// Drags the bottom right corner until the dialog has that size.
    UserAction userResize(int width, int height);
    /// Drags an edge or corner until the dialog would stand at `wanted`.
    UserAction userSizing(SizingEdge edge, CRect wanted);
    /// Escape cancels, Enter presses the default button.
    UserAction userKey(UserKey key);
    /// The close box.
    UserAction userClose();
    /// The user moved the keyboard focus to a control.
    UserAction userFocus(CWnd& control);

protected:
    /// The child of that id, which the template must have with that kind: std::logic_error when it has not.
    template <class T>
    T& control(int id)
    {
        if (auto* found = dynamic_cast<T*>(GetDlgItem(id)))
            return *found;
        throw std::logic_error("a dialog lacks a control of its template");
    }

    template <class Dialog>
    void onMessage(int id, Notification what, void (Dialog::*handler)())
    {
        m_messages.push_back({id, what, [this, handler] { (static_cast<Dialog*>(this)->*handler)(); }});
    }
    template <class Dialog>
    void onGridClick(int id, void (Dialog::*handler)(const GridClick&))
    {
        m_gridClicks.push_back(
            {id, [this, handler](const GridClick& click) { (static_cast<Dialog*>(this)->*handler)(click); }});
    }

    /// Called once when the dialog opens, before it is shown.
    virtual void OnInitDialog() {}
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }
    /// Sees what the user does before the control does; true keeps it from the control.
    virtual bool PreTranslateMessage(const UserMessage&) { return false; }
    /// The dialog has a new client size.
    virtual void OnSize(int, int) {}

    void open(bool modal);
    void sized() override;

private:
    friend class CWnd; // tells which child has the focus

    struct MessageEntry
    {
        int id;
        Notification what;
        std::function<void()> handler;
    };
    struct GridClickEntry
    {
        int id;
        std::function<void(const GridClick&)> handler;
    };

    CDialog* shownPage() const;
    CWnd* findControl(int id) const;
    CGridCtrl* findGrid() const;
    CGridCtrl* ownGrid() const;
    UserAction reach(const CWnd* control, const std::string& name) const;
    template <class Kind, class Action>
    UserAction act(int id, Action action);
    template <class Action>
    UserAction actOnCell(int row, int column, Action action);
    template <class Pick>
    UserAction choose(int id, Pick pick);
    UserAction release(CButton& button);

    void notify(int id, Notification what);
    void notify(int id, const GridClick& click);
    void clicked(CButton& button);
    bool isModeless() const { return !m_modal && m_template.frame != DialogFrame::kPage; }

    const DialogTemplate& m_template;
    std::vector<std::unique_ptr<CWnd>> m_controls;
    std::vector<MessageEntry> m_messages;
    std::vector<GridClickEntry> m_gridClicks;
    CWnd* m_focused = nullptr;
    bool m_open = false;
    bool m_modal = false;
    int m_result = IDCANCEL;
};
