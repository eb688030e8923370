#include "sectiondraw/main_window.h"

#include "host/ui/host_window.h"
#include "host/ui/window.h"

void FocusMainWindow()
{
    if (CWnd* frame = acedGetAcadFrame())
        frame->SetFocus();
}
