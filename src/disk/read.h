#pragma once

#include "disk/faults.h"
#include "disk/file_text.h"

#include <string>

namespace disk
{

/// The whole of a regular file in memory of our own: what another program does to the file afterwards changes nothing
/// here. Followed by a line feed that is not part of it. What is no regular file is refused, never waited for. Throws
/// FileError.
FileText readFile(const std::string& path, Faults& faults = noFaults());

/// At most the first `size` bytes of a regular file; fewer when it has no more, none when it cannot be read.
std::string beginOfFile(const std::string& path, size_t size);

} // namespace disk
