#pragma once

#include "disk/descriptor.h"
#include "disk/signals.h"

#include <string>
#include <sys/types.h>

namespace disk
{

/// The folder that `path` stands in.
std::string folderOf(const std::string& path);

/// A name that no user types, ".veloxa-PID-RANDOM.tmp", in a folder: whatever has it goes when this object does, or
/// when a signal ends the process.
class TemporaryName
{
public:
    explicit TemporaryName(const std::string& folder);
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    ~TemporaryName();

    const std::string& path() const { return m_path; }
    /// Nothing of ours has it any more.
    void release();

private:
    std::string m_path;
    Transient m_transient;
    bool m_released = false;
};

/// A new, empty file under such a name, locked as long as it is open.
class TemporaryFile
{
public:
    /// `mode` is less the process's mask. A file that cannot be made is none, for the reason `error()`.
    TemporaryFile(const std::string& folder, mode_t mode);

    int error() const { return m_error; }
    Descriptor& file() { return m_file; }
    TemporaryName& name() { return m_name; }

private:
    TemporaryName m_name;
    Descriptor m_file;
    int m_error;
};

/// Removes from a folder what savers have left that were killed: regular files of exactly such a name, this user's,
/// whose process is gone. Failures do not count.
void clearLeftovers(const std::string& folder);

/// A folder that only this user can enter, removed with all that is in it. Its path is empty when none could be made.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
    Transient m_transient;
};

} // namespace disk
