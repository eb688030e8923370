#include "desktop/desk/window_front_end.h"

#include "host/ui/dialog.h"

namespace desktop
{

int WindowFrontEnd::runModal(CDialog&)
{
    return IDCANCEL;
}

} // namespace desktop
