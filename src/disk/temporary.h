#pragma once

#include "disk/descriptor.h"

#include <string>
#include <sys/types.h>

namespace disk
{

/// The folder that `path` stands in.
std::string folderOf(const std::string& path);

/// A name in `folder` that no user types: ".veloxa-PID-RANDOM.tmp".
std::string temporaryName(const std::string& folder);

/// A new, empty file under such a name, removed when this object goes unless it got another name.
class TemporaryFile
{
public:
    /// `mode` is less the process's mask. A file that cannot be made is none, for the reason `error()`.
    TemporaryFile(const std::string& folder, mode_t mode);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    int error() const { return m_error; }
    const Descriptor& file() const { return m_file; }
    Descriptor& file() { return m_file; }
    const std::string& path() const { return m_path; }
    /// The name is somebody else's now, or none.
    void release() { m_path.clear(); }

private:
    std::string m_path;
    Descriptor m_file;
    int m_error = 0;
};

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
};

} // namespace disk
