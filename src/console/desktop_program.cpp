#include "console/desktop_program.h"

#include "console/program.h"

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

} // namespace console
