#pragma once

#include <ctime>
#include <string>
#include <sys/stat.h>

namespace disk
{

/// What tells one state of a file from every other: which file it is, its size, and when its contents were last
/// changed. Other rights or another name beside its own (a backup's hard link) make no other contents.
struct FileStamp
{
    dev_t device = 0;
    ino_t inode = 0; ///< 0: there is no file
    off_t size = 0;
    timespec modified = {};

    bool exists() const { return inode != 0; }
    bool operator==(const FileStamp& other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
    }
};

inline FileStamp stampOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

/// The state of the file at `path` now.
inline FileStamp stampOf(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? stampOf(status) : FileStamp{};
}

} // namespace disk
