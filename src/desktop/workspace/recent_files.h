#pragma once

#include <string>
#include <vector>

namespace desktop
{

/// The drawings opened or saved last, the newest first; kept in the user's settings.
std::vector<std::string> recentFiles();
void addRecentFile(const std::string& path);

} // namespace desktop
