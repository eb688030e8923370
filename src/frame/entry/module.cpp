#include "frame/entry/module.h"

#include "frame/entry/command_table.h"
#include "frame/tracking/tracking.h"
#include "host/app/paths.h"
#include "host/app/session.h"
#include "sectiondraw/veloxa_dlg.h"
#include "sections/database_cs.h"
#include "sections/ownership.h"
#include "util/dialog_help.h"
#include "util/display_scale.h"
#include "util/folders.h"

#include <optional>

namespace
{

constexpr const char16_t* kModuleFile = u"Veloxa.arx";
constexpr const char16_t* kDialogFace = u"Tahoma";
constexpr int kDialogFontHeight = -11;
/// The host release family that the module is made for.
constexpr int kHostInterfaceVersion = 24;

/// Has the shared state let go of a drawing before it is closed.
class ClosingReactor : public AcApDocManagerReactor
{
public:
    ClosingReactor() { acDocManagerPtr()->addReactor(this); }
    ~ClosingReactor() override { acDocManagerPtr()->removeReactor(this); }
    ClosingReactor(const ClosingReactor&) = delete;
    ClosingReactor& operator=(const ClosingReactor&) = delete;

    void documentToBeDestroyed(AcApDocument* document) override { ForgetDrawing(g_DatabaseCS, document->database()); }
};

std::optional<ClosingReactor> g_closingReactor;

/// The folder of the module file; empty when the host does not know it.
std::u16string findModuleFolder()
{
    const std::u16string file = modulePath(host::Session::current().moduleFile(kModuleFile));
    const size_t separator = file.find_last_of(u"/\\");
    return separator == std::u16string::npos ? std::u16string{} : file.substr(0, separator);
}

void initialise()
{
    ModuleFolder = findModuleFolder();
    DialogFont = CFont{kDialogFace, ScaleByDisplay(kDialogFontHeight)};
    RegisterCommands();
    acrxBuildClassHierarchy();
    g_DatabaseCS.LoadSettings();
}

/// Sessions follow one another in one process: each finds the module as if it had just been mapped.
void load(void* applicationId)
{
    g_DatabaseCS = DatabaseCS{};
    g_displayScale = MakeDisplayScale(host::Session::current().frontEnd().displayDpi());

    acrxBuildClassHierarchy();
    acrxDynamicLinker()->unlockApplication(applicationId);
    acrxDynamicLinker()->registerAppMDIAware(applicationId);
    StartTracking();
    g_closingReactor.emplace();
    initialise();
}

void unload()
{
    RemoveCommands();
    DialogFont.reset();
    g_pVeloxaDlg.reset();
    g_DatabaseCS.m_listReferenceLines.clear();
    g_closingReactor.reset();
    StopTracking();
    ModuleFolder.clear();
}

} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* applicationId)
{
    if (message == AcRx::kInitAppMsg)
        load(applicationId);
    else if (message == AcRx::kUnloadAppMsg)
        unload();
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion()
{
    return kHostInterfaceVersion;
}
