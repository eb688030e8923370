#pragma once

#include "host/app/front_end.h"
#include "host/ui/window.h"

#include <functional>

namespace desktop
{

/// What the host asks of the window. Dialogs of the module are not shown yet: one that is opened is ended again.
class WindowFrontEnd : public FrontEnd
{
public:
    std::function<void()> onDrawingChanged;
    std::function<void(const std::u16string&)> onMessage;

    CWnd* mainWindow() override { return &m_mainWindow; }
    void shown(CDialog&) override {}
    void gone(CDialog&) override {}
    int runModal(CDialog&) override;
    void changed(CWnd&) override {}
    void setFocus(CWnd*) override {}
    void messageBox(const std::u16string& text) override
    {
        if (onMessage)
            onMessage(text);
    }
    std::optional<std::u16string> askFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<int> askColor(int) override { return std::nullopt; }
    void drawingChanged() override
    {
        if (onDrawingChanged)
            onDrawingChanged();
    }

private:
    CWnd m_mainWindow;
};

} // namespace desktop
