#pragma once

/// The module's commands, as the host knows them while the module is loaded: each by its local name and, with the
/// group's name before it, by its global one.

void RegisterCommands();
void RemoveCommands();
