#pragma once

#include <string>

/// Where the module finds and keeps its files. A name joined to one of these folders begins with a backslash
/// (`UserDataFolder() + u"\\iniSymbol.cfg"`); opening a file takes either separator.

/// The folder of the module file, without a separator at its end; symbol drawings and the label font stand in it.
/// Empty until the module starts.
extern std::u16string ModuleFolder;

/// Where the user's folder of the module is (or the one that the session was given in its place), whether it exists or
/// not: for reading.
std::u16string UserDataPath();

/// That folder, for keeping settings, last states and the scratch file. Its last level is made here when it is missing;
/// that it cannot be made shows when a file in it cannot be written.
std::u16string UserDataFolder();
