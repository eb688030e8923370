#pragma once

#include <ctime>
#include <string>
#include <sys/stat.h>

namespace disk
{

/// What tells one state of a file from every other: which file it is, its size, and when it was last changed.
struct FileStamp
{
    dev_t device = 0;
    ino_t inode = 0; ///< 0: there is no file
    off_t size = 0;
    timespec changed = {};

    bool exists() const { return inode != 0; }
    bool operator==(const FileStamp& other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

inline FileStamp stampOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino, status.st_size, status.st_ctim};
}

/// The state of the file at `path` now.
inline FileStamp stampOf(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? stampOf(status) : FileStamp{};
}

} // namespace disk
