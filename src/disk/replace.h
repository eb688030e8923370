#pragma once

#include "disk/faults.h"

#include <string>
#include <string_view>
#include <vector>

namespace disk
{

struct ReplaceRules
{
    bool keepEarlier = false; ///< what stood there stays as `path` + ".bak"
    bool durable = true;      ///< flushed to the disk before it takes the name
};

/// Writes a file so that it is there whole or not at all: everything goes to a new file beside it, is flushed to the
/// disk, and takes the name only then. A link is kept and its file replaced; the mode of the earlier file stays.
/// `pieces` are written one behind the other. Throws FileError; then the folder holds what it held before.
void replaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const ReplaceRules& rules = {},
                 Faults& faults = noFaults());

/// Writes a regular file in place, for scratch files only: a failure leaves whatever was written. False when it failed.
bool writeInPlace(const std::string& path, std::string_view bytes, Faults& faults = noFaults());

} // namespace disk
