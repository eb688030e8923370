#pragma once

#include "disk/faults.h"
#include "disk/temporary.h"

#include <optional>
#include <string>

namespace disk
{

/// The name under which the file at `path` is kept when it is replaced.
std::string backupOf(const std::string& path);

/// Whether that name is too long for the file system, so that the earlier file cannot be kept.
bool isTooLongForBackup(const std::string& path);

/// Throws FileError, with the file named `name`, when a folder has the name of its backup.
void requireRoomForBackup(const std::string& path, const std::string& name);

/// A file that is about to be replaced, kept as ".bak". There is never a moment without a ".bak" that was there before.
class EarlierFile
{
public:
    /// Makes a second name for the file at `path`, or a copy of it where names cannot be had, in the same folder.
    /// Throws FileError with the file named `name`.
    EarlierFile(const std::string& path, const std::string& name, Faults& faults);

    /// Gives it the name of the backup. 0 or the error number.
    int keep();
    /// The file was not replaced after all: the backup that was there before, or none, is back.
    void takeBack();

private:
    void copy(const std::string& path, const std::string& name, Faults& faults);

    std::string m_backup;
    TemporaryName m_temporary;
    Faults& m_faults;
    bool m_exchanged = false; ///< the temporary name has the backup that was there before
    bool m_isNew = false;     ///< there was none
};

} // namespace disk
