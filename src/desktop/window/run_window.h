#pragma once

#include <string>
#include <vector>

namespace desktop
{

/// Shows the window with these drawings until it is closed; answers the program's exit status.
int runWindow(int& argc, char** argv, const std::vector<std::string>& drawings);

} // namespace desktop
