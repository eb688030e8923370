#pragma once

#include "host/app/front_end.h"

namespace desktop
{

/// The front end of a session in which no dialog is shown.
class QuietFrontEnd : public FrontEnd
{
public:
    CWnd* mainWindow() override { return nullptr; }
    void shown(CDialog&) override {}
    void gone(CDialog&) override {}
    int runModal(CDialog&) override { return 2; }
    void changed(CWnd&) override {}
    void setFocus(CWnd*) override {}
    void messageBox(const std::u16string&) override {}
    std::optional<std::u16string> askFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<int> askColor(int) override { return std::nullopt; }
};

} // namespace desktop
