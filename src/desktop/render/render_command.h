#pragma once

#include "desktop/render/render_options.h"

namespace desktop
{

/// Makes pictures of drawings and tells on standard error what they do not show as it is. Throws Failure or UsageError,
/// or what reading throws. Needs a running QGuiApplication.
void render(const RenderArguments& arguments);

} // namespace desktop
