#include "disk/read.h"

#include "disk/descriptor.h"
#include "disk/error.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>

namespace disk
{

namespace
{

/// Anonymous memory, in large pages where the system has them: filling small ones one by one costs more than reading.
std::shared_ptr<char> allocate(size_t size)
{
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc{};
    madvise(memory, size, MADV_HUGEPAGE);
    return {static_cast<char*>(memory), [size](char* at) { munmap(at, size); }};
}

/// Opens a regular file for reading; the size goes into `size`. Looked at before it is opened as well: opening a pipe
/// waits for somebody, opening a device may do something.
Descriptor openRegular(const std::string& path, size_t& size)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        throw FileError{path,
                        errno == ENOENT ? "no such file" : std::string{"cannot be opened: "} + std::strerror(errno)};
    const auto requireRegular = [&]
    {
        if (S_ISDIR(status.st_mode))
            throw FileError{path, "is a folder, not a file"};
        if (!S_ISREG(status.st_mode))
            throw FileError{path, "is not a regular file"};
    };
    requireRegular();
    Descriptor file{open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
    if (!file.isOpen() || fstat(file.get(), &status) != 0)
        throw FileError{path, std::string{"cannot be opened: "} + std::strerror(errno)};
    requireRegular();
    size = static_cast<size_t>(status.st_size);
    return file;
}

void readAll(const Descriptor& file, char* to, size_t size, const std::string& path, Faults& faults)
{
    constexpr size_t kLongestRead = size_t{1} << 30;
    const int64_t limit = faults.failReadAt(path);
    const size_t readable = limit >= 0 ? std::min(size, static_cast<size_t>(limit)) : size;
    for (size_t done = 0; done < size;)
    {
        const ssize_t got =
            done < readable ? read(file.get(), to + done, std::min(readable - done, kLongestRead)) : (errno = EIO, -1);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw FileError{path, std::string{"cannot be read: "} + std::strerror(errno)};
        if (got == 0)
            throw FileError{path, "became shorter while it was read"};
        done += static_cast<size_t>(got);
    }
}

} // namespace

OwnBytes readOwnBytes(const std::string& path, Faults& faults)
{
    size_t size = 0;
    const Descriptor file = openRegular(path, size);
    const std::shared_ptr<char> bytes = allocate(size + 1);
    readAll(file, bytes.get(), size, path, faults);
    bytes.get()[size] = '\n';
    return {bytes, size};
}

FileText readFile(const std::string& path, Faults& faults)
{
    const OwnBytes read = readOwnBytes(path, faults);
    return {read.bytes, read.size};
}

std::string beginOfFile(const std::string& path, size_t size)
try
{
    size_t whole = 0;
    const Descriptor file = openRegular(path, whole);
    std::string bytes(std::min(size, whole), '\0');
    readAll(file, bytes.data(), bytes.size(), path, noFaults());
    return bytes;
}
catch (const FileError&)
{
    return {};
}

} // namespace disk
