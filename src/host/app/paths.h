#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Paths between module and file system. A module path is UTF-16, and both "\" and "/" separate its levels; a native
/// one is the bytes that the operating system knows, UTF-8 or not. These two functions are the only way between them,
/// and give every native path back as it was.

/// The path to give to the operating system for `path`, "/" between the levels.
std::string nativePath(std::u16string_view path);

/// The module path of a file of this system. A backslash is a letter of its name and no separator: it and the bytes
/// that are not UTF-8 are carried (see `keepBytes`).
std::u16string modulePath(std::string_view path);

/// `path` as libraries and drawings keep it: a backslash separates levels there, also one that came from a name.
std::u16string storedPath(std::u16string path);

/// The user's folder for application data ($XDG_CONFIG_HOME, else ~/.config), to keep something in: made when it is
/// missing, and in a session also the folder of the maker's programs in it, "PLX", below which the module makes its
/// own. Nothing when there is none and none can be made.
std::optional<std::u16string> roamingFolder();

/// Where that folder is, whether it exists or not; empty when there is none.
std::u16string roamingPath();

/// The folder that stands in for the user's folder of the module in this session; nothing when none does.
std::optional<std::u16string> dataFolderOverride();
