#pragma once

namespace desktop
{

class Interpreter;
class Workspace;

/// The command ZOOM: everything, what was shown before, or a window by two corners.
void startZoom(Workspace& workspace, Interpreter& interpreter);

} // namespace desktop
