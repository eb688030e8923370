#pragma once

#include "desktop/window/main_window.h"

#include <memory>

namespace desktop
{

/// The window with all that the user can do in it.
std::unique_ptr<MainWindow> makeWindow(host::SessionOptions options = {});

} // namespace desktop
