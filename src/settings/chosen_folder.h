#pragma once

#include <string>
#include <string_view>

/// The folder of a file that the user chose, with the separator at its end: the parts of the path but the last, empty
/// ones left out. Of a path without "\" it is what stands before the last "/", that included.
std::u16string FolderOf(std::u16string_view path);
