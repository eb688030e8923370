#pragma once

#include "disk/faults.h"

#include <string>
#include <string_view>
#include <vector>

namespace disk
{

/// Writes pieces to an open file a part at a time, so that the disk begins while the rest is handed over: small pieces
/// are gathered, large ones go as they are. `path` is the file as the caller named it. 0 or the error number.
int writePieces(int file, const std::vector<std::string_view>& pieces, const std::string& path, Faults& faults);

} // namespace disk
