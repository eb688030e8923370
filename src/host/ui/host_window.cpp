#include "host/ui/host_window.h"

#include "host/app/paths.h"
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
    host::Session& session = host::Session::current();
    std::optional<std::u16string> path = session.frontEnd().askFile(question);
    if (path && question.namesSymbols)
        session.symbolSearch().lookFirstIn(host::SymbolSearch::foldersBeside(nativePath(*path)));
    return path;
}
