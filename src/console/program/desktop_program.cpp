#include "console/program/desktop_program.h"

#include "console/program/program.h"

#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace console
{

void becomeDesktop(char** words)
{
    constexpr const char* kName = "veloxa-desktop";
    std::cout.flush();
    ::execv((programFolder() + "/" + kName).c_str(), words);
    ::execvp(kName, words);
    throw Failure{"pictures and the window need the program veloxa-desktop, which is not beside this one; "
                  "it is built with Qt 6 (on Debian: qt6-base-dev and qt6-svg-dev)"};
}

bool hasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(name); value != nullptr && *value != '\0')
            return true;
    return false;
}

} // namespace console
