#pragma once

#include "disk/faults.h"
#include "disk/file_text.h"

#include <memory>
#include <string>
#include <string_view>

namespace disk
{

/// The whole of a regular file in memory of our own: what another program does to the file afterwards changes nothing
/// here. Followed by a line feed that is not part of it. What is no regular file is refused, never waited for. Throws
/// FileError.
FileText readFile(const std::string& path, Faults& faults = noFaults());

/// The bytes of a file in memory that whoever read them may change.
struct OwnBytes
{
    std::shared_ptr<char> bytes;
    size_t size = 0;

    std::string_view view() const { return {bytes.get(), size}; }
};

/// As `readFile`, for those who take a file apart where it lies.
OwnBytes readOwnBytes(const std::string& path, Faults& faults = noFaults());

/// At most the first `size` bytes of a regular file; fewer when it has no more, none when it cannot be read.
std::string beginOfFile(const std::string& path, size_t size);

} // namespace disk
