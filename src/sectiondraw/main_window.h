#pragma once

/// Gives the keyboard focus to the host's main window, where there is one.
void FocusMainWindow();
