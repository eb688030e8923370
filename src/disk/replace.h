#pragma once

#include "disk/error.h"
#include "disk/faults.h"
#include "disk/stamp.h"

#include <string>
#include <string_view>
#include <vector>

namespace disk
{

struct ReplaceRules
{
    bool keepEarlier = false;     ///< what stood there stays as `path` + ".bak"
    bool durable = true;          ///< flushed to the disk before it takes the name
    bool inPlaceIfNeeded = false; ///< a file that may be written, in a folder that may not, is written in place
    FileStamp seen = {};          ///< when given, the file is replaced in this state only
};

/// The file is not in the state in which it was to be replaced.
class ChangedFile : public FileError
{
public:
    explicit ChangedFile(std::string path) : FileError{std::move(path), "was changed on disk since it was opened"} {}
};

/// Writes a file so that it is there whole or not at all: everything goes to a new file beside it, is flushed to the
/// disk, and takes the name only then. A link is kept and its file replaced; mode, owner and group of the earlier file
/// stay where that is allowed. Programs that save the same file do so one after the other. `pieces` are written one
/// behind the other. Throws FileError, ChangedFile among them; then the folder holds what it held before.
void replaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const ReplaceRules& rules = {},
                 Faults& faults = noFaults());

/// Whether a file at `path` will be replaced without being kept: with ".bak" its name would be too long.
bool cannotBeKept(const std::string& path);

/// Throws FileError when it is clear already that a file could not be replaced at `path`, keeping the earlier one: for
/// the time before the work. Says nothing of what can only be tried.
void requireReplaceable(const std::string& path);

/// Whether two paths are names of one file, through links.
bool isSameFile(const std::string& a, const std::string& b);

/// Writes a regular file in place, for scratch files only: a failure leaves whatever was written. False when it failed.
bool writeInPlace(const std::string& path, std::string_view bytes, Faults& faults = noFaults());

} // namespace disk
