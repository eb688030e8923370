#pragma once

#include "host/app/front_end.h"
#include "host/ui/dialog.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A front end without a display for tests: answers are queued, each used once, and what was asked and said is kept.
/// A modal dialog is played by the next function in the queue; one that nobody plays is cancelled.
class MemoryFrontEnd : public FrontEnd
{
public:
    std::deque<std::optional<std::u16string>> files;
    std::deque<std::optional<int>> colors;
    std::deque<std::function<void(CDialog&)>> plays;
    int dpi = 96;

    std::vector<FileQuestion> fileQuestions;
    std::vector<int> colorQuestions;
    std::vector<std::u16string> messages;
    std::vector<CDialog*> modeless;
    CWnd* focused = nullptr;
    std::vector<const CWnd*> changes;
    CWnd window;

    CWnd* mainWindow() override { return &window; }
    void shown(CDialog& dialog) override { modeless.push_back(&dialog); }
    void gone(CDialog& dialog) override { std::erase(modeless, &dialog); }
    int runModal(CDialog& dialog) override
    {
        if (const auto play = next(plays))
            play(dialog);
        return dialog.result();
    }
    void changed(CWnd& control) override { changes.push_back(&control); }
    void setFocus(CWnd* control) override { focused = control; }
    void messageBox(const std::u16string& text) override { messages.push_back(text); }
    std::optional<std::u16string> askFile(const FileQuestion& question) override
    {
        fileQuestions.push_back(question);
        return next(files);
    }
    std::optional<int> askColor(int current) override
    {
        colorQuestions.push_back(current);
        return next(colors);
    }
    int displayDpi() override { return dpi; }

private:
    template <class T>
    static T next(std::deque<T>& queue)
    {
        if (queue.empty())
            return {};
        T answer = std::move(queue.front());
        queue.pop_front();
        return answer;
    }
};
