#pragma once

<<<<<<<< HEAD:src/desktop/render/render_command.h
#include "desktop/render/render_options.h"
========
#include "desktop/render/render_options.h"
>>>>>>>> aba9512 (Window: pictures and print, recovery after a crash, one window for all):src/desktop/render/render_command.h

namespace desktop
{

    /// Makes pictures of drawings and tells on standard error what they do not show as it is. Throws Failure or
    /// UsageError, or what reading throws. Needs a running QGuiApplication.
    void render(const RenderArguments& arguments);

} // namespace desktop
