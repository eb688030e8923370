#pragma once

#include "host/app/front_end.h"
#include "host/ui/window.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace console
{

/// A front end without a display: dialogs are reached by what plays the user, questions are answered from a queue, and
/// what the queue does not answer is cancelled. Message boxes are answered OK; their texts go to `onMessage`.
class ScriptFrontEnd : public FrontEnd
{
public:
    /// An answer waiting for its question: a path, a colour, or (neither) a cancellation.
    struct Answer
    {
        std::optional<std::u16string> path;
        std::optional<int> color;
    };

    ScriptFrontEnd();

    void queue(Answer answer) { m_answers.push_back(std::move(answer)); }
    /// What plays the user while a modal dialog is open; called by each one, nested ones too. It returns when the
    /// dialog was closed or when it has nothing more to do (then the dialog is cancelled).
    std::function<void(CDialog&)> onModal;
    std::function<void(const std::u16string&)> onMessage;

    /// The innermost modal dialog, else the modeless one shown last; null when none is open.
    CDialog* currentDialog() const;

    CWnd* mainWindow() override { return &m_mainWindow; }
    void shown(CDialog& dialog) override;
    void gone(CDialog& dialog) override;
    int runModal(CDialog& dialog) override;
    void changed(CWnd&) override {}
    void setFocus(CWnd*) override {}
    void messageBox(const std::u16string& text) override;
    std::optional<std::u16string> askFile(const FileQuestion& question) override;
    std::optional<int> askColor(int current) override;

private:
    template <class Fits>
    Answer takeAnswer(Fits fits);

    CWnd m_mainWindow;
    std::vector<CDialog*> m_modeless;
    std::vector<CDialog*> m_modal;
    std::deque<Answer> m_answers;
};

} // namespace console
