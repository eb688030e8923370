#pragma once

namespace desktop
{

class MainWindow;

/// The command ZOOM: everything, what was shown before, or a window by two corners.
void startZoom(MainWindow& window);

} // namespace desktop
