#pragma once

namespace desktop
{

class MainWindow;

/// Gives the window its menus, its shortcuts and its commands: what the user can do stands in one table.
void addUserActions(MainWindow& window);

} // namespace desktop
