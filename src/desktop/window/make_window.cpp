#include "desktop/window/make_window.h"

#include "desktop/window/user_actions.h"

namespace desktop
{

std::unique_ptr<MainWindow> makeWindow(host::SessionOptions options)
{
    auto window = std::make_unique<MainWindow>(std::move(options));
    addUserActions(*window);
    return window;
}

} // namespace desktop
