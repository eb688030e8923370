#pragma once

#include "host/drawing/store.h"

#include <string>
#include <string_view>
#include <vector>

namespace files
{

/// The whole file in memory of our own: what another program does to the file afterwards changes nothing here.
/// Followed by a line feed that is not part of it. Throws FileError.
FileText readFile(const std::string& path);

/// Writes a file so that it is there whole or not at all: everything goes to a new file beside it, is flushed to the
/// disk, and takes the name only then; what stood there stays as `path` + ".bak" when `keepEarlier` is set. Throws
/// FileError; then the folder holds what it held before.
/// `pieces` are written one behind the other.
void replaceFile(const std::string& path, const std::vector<std::string_view>& pieces, bool keepEarlier);

} // namespace files
