#include "host/ui/host_window.h"

#include "host/app/session.h"

CWnd* adsw_acadMainWnd()
{
    return host::Session::current().frontEnd().mainWindow();
}

CWnd* acedGetAcadFrame()
{
    return adsw_acadMainWnd();
}

void AfxMessageBox(const std::u16string& text)
{
    host::Session::current().frontEnd().messageBox(text);
}

std::optional<std::u16string> askFile(const FileQuestion& question)
{
    return host::Session::current().frontEnd().askFile(question);
}
