#include "disk/lock.h"

#include "disk/error.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace disk
{

namespace
{

constexpr std::chrono::seconds kPatience{2};
constexpr std::chrono::milliseconds kPause{10};

/// For writing where that can be had: a lock on a shared folder may need it.
Descriptor openFile(const std::string& path)
{
    constexpr int kFlags = O_CLOEXEC | O_NONBLOCK;
    Descriptor file{open(path.c_str(), O_RDWR | kFlags)};
    return file.isOpen() ? std::move(file) : Descriptor{open(path.c_str(), O_RDONLY | kFlags)};
}

/// 0 or the error number.
int lock(const Descriptor& file)
{
    while (flock(file.get(), LOCK_EX | LOCK_NB) != 0)
        if (errno != EINTR)
            return errno;
    return 0;
}

/// Whoever held the lock may have put another file in the place of the one that was opened.
bool isStill(const Descriptor& file, const std::string& path)
{
    struct stat opened = {};
    struct stat there = {};
    return fstat(file.get(), &opened) == 0 && stat(path.c_str(), &there) == 0 && opened.st_dev == there.st_dev &&
           opened.st_ino == there.st_ino;
}

} // namespace

Descriptor lockForSaving(const std::string& path, const std::string& name, Faults& faults)
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;)
    {
        Descriptor file = openFile(path);
        if (!file.isOpen())
            return file;
        const int refused = faults.refuse(Step::kLock, name);
        const int error = refused != 0 ? refused : lock(file);
        if (error != EWOULDBLOCK && isStill(file, path))
            return file;
        if (std::chrono::steady_clock::now() > end)
            throw FileError{name, "is being saved by another program"};
        if (error == EWOULDBLOCK)
            std::this_thread::sleep_for(kPause);
    }
}

} // namespace disk
