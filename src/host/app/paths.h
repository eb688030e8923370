#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Paths between module and file system. A module path is UTF-16, and both "\" and "/" separate its levels.

/// The path to give to the operating system for `path`: UTF-8, "/" between the levels.
std::string nativePath(std::u16string_view path);

/// The user's folder for application data ($XDG_CONFIG_HOME, else ~/.config), made when it is missing; nothing when
/// there is none and none can be made.
std::optional<std::u16string> roamingFolder();

/// Where that folder is, whether it exists or not; empty when there is none.
std::u16string roamingPath();

/// The folder that stands in for the user's folder of the module in this session; nothing when none does.
std::optional<std::u16string> dataFolderOverride();
