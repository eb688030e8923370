#include "sectiondraw/commands.h"

#include "dbkit/symbol_tables.h"
#include "host/ed/command.h"
#include "host/ui/host_window.h"
#include "sectiondraw/main_window.h"
#include "sectiondraw/veloxa_dlg.h"
#include "sections/database_cs.h"
#include "sections/refresh.h"
#include "sections/scan.h"
#include "util/document_lock.h"

namespace
{

constexpr const char16_t* kNoMainWindow = u"Unable to locate AutoCAD parent window.";
constexpr const char16_t* kEscape = u"\x1b";

/// Shows the whole drawing while it lives: selections by polygon see only what is shown.
class ZoomedOut
{
public:
    ZoomedOut() { acedCommandS({u"Zoom", u"e"}); }
    ~ZoomedOut() { acedCommandS({u"Zoom", u"p"}); }
    ZoomedOut(const ZoomedOut&) = delete;
    ZoomedOut& operator=(const ZoomedOut&) = delete;
};

void openDialog(CWnd* mainWindow)
{
    g_pVeloxaDlg.reset();
    g_DatabaseCS.m_nColorSymbolText = kColorByLayer;
    g_DatabaseCS.m_nColorFcodeText = kColorByLayer;
    g_DatabaseCS.m_nColorSymbol = kColorByLayer;
    g_pVeloxaDlg = std::make_unique<VeloxaDlg>(mainWindow);
    g_pVeloxaDlg->Create();
}

} // namespace

void DssCommand()
{
    EnsureTextStyle(kLabelTextStyle);
    {
        const ZoomedOut view;
        ScanCrossSections(g_DatabaseCS);
    }
    if (CWnd* mainWindow = adsw_acadMainWnd())
        openDialog(mainWindow);
    else
        AfxMessageBox(kNoMainWindow);
}

void ZeCommand()
{
    FocusMainWindow();
    const OpenForWrite lock;
    {
        const ZoomedOut view;
        RefreshAllSections(g_DatabaseCS);
    }
    SendCommandString(kEscape);
}
