#pragma once

namespace console
{

/// Goes on as the program that draws, with the same words: it stands beside this one, or in a folder of $PATH where
/// this one was installed alone. Comes back only with Failure, when it is not there.
[[noreturn]] void becomeDesktop(char** words);

/// Whether the environment names a display that a window could be shown on.
bool hasDisplay();

} // namespace console
