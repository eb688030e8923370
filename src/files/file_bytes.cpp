#include "files/file_bytes.h"

#include "files/error.h"
#include "host/app/session.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace files
{

namespace
{

/// An open file that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number{number} {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    int get() const { return m_number; }
    bool close()
    {
        const int number = m_number;
        m_number = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    int m_number;
};

std::string reasonOf(int error)
{
    return std::strerror(error);
}

Faults* faults()
{
    return host::Session::hasCurrent() ? &host::Session::current().faults() : nullptr;
}

/// Anonymous memory, in large pages where the system has them: filling small ones one by one costs more than reading.
std::shared_ptr<char> allocate(size_t size)
{
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc{};
    madvise(memory, size, MADV_HUGEPAGE);
    return {static_cast<char*>(memory), [size](char* at) { munmap(at, size); }};
}

size_t sizeOf(const Descriptor& file, const std::string& path)
{
    struct stat status = {};
    if (fstat(file.get(), &status) != 0)
        throw FileError{path, reasonOf(errno)};
    if (S_ISDIR(status.st_mode))
        throw FileError{path, "is a folder, not a file"};
    if (!S_ISREG(status.st_mode))
        throw FileError{path, "is not a regular file"};
    return static_cast<size_t>(status.st_size);
}

void readAll(const Descriptor& file, char* to, size_t size, const std::string& path)
{
    const int64_t limit = faults() != nullptr ? faults()->failReadAt(path) : -1;
    const size_t readable = limit >= 0 ? std::min(size, static_cast<size_t>(limit)) : size;
    for (size_t done = 0; done < size;)
    {
        const ssize_t got = done < readable
                                ? read(file.get(), to + done, std::min<size_t>(readable - done, size_t{1} << 30))
                                : (errno = EIO, -1);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw FileError{path, "cannot be read: " + reasonOf(errno)};
        if (got == 0)
            throw FileError{path, "became shorter while it was read"};
        done += static_cast<size_t>(got);
    }
}

/// Writes every piece; answers 0 or the error number.
int writeAll(int file, const std::vector<std::string_view>& pieces, const std::string& path)
{
    const int64_t limit = faults() != nullptr ? faults()->failWriteAt(path) : -1;
    int64_t written = 0;
    std::vector<iovec> batch;
    size_t next = 0;
    size_t offset = 0;
    while (next < pieces.size())
    {
        batch.clear();
        for (size_t i = next; i < pieces.size() && batch.size() < IOV_MAX; ++i)
        {
            const std::string_view piece = i == next ? pieces[i].substr(offset) : pieces[i];
            batch.push_back({const_cast<char*>(piece.data()), piece.size()});
        }
        if (limit >= 0 && written >= limit)
            return ENOSPC;
        const ssize_t got = writev(file, batch.data(), static_cast<int>(batch.size()));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        written += got;
        if (limit >= 0 && written > limit)
            return ENOSPC;
        for (auto left = static_cast<size_t>(got); next < pieces.size();)
        {
            const size_t step = std::min(left, pieces[next].size() - offset);
            offset += step;
            left -= step;
            if (offset < pieces[next].size())
                break;
            ++next;
            offset = 0;
        }
    }
    return 0;
}

std::string folderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// Makes a name in the folder last: without this a crash could lose the renaming.
int syncFolder(const std::string& folder)
{
    const Descriptor opened{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (opened.get() < 0)
        return errno;
    return fsync(opened.get()) == 0 || errno == EINVAL ? 0 : errno;
}

/// The file a link leads to; a path that is no link as it is.
std::string throughLinks(const std::string& path)
{
    char* real = realpath(path.c_str(), nullptr);
    if (real == nullptr)
        return path;
    std::string resolved{real};
    std::free(real);
    return resolved;
}

} // namespace

FileText readFile(const std::string& path)
{
    const Descriptor file{open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    if (file.get() < 0)
        throw FileError{path, errno == ENOENT ? "no such file" : "cannot be opened: " + reasonOf(errno)};
    const size_t size = sizeOf(file, path);
    const std::shared_ptr<char> bytes = allocate(size + 1);
    readAll(file, bytes.get(), size, path);
    bytes.get()[size] = '\n';
    return {bytes, size};
}

void replaceFile(const std::string& name, const std::vector<std::string_view>& pieces, bool keepEarlier)
{
    const std::string path = throughLinks(name);
    struct stat earlier = {};
    const bool replaces = stat(path.c_str(), &earlier) == 0;
    if (replaces && !S_ISREG(earlier.st_mode))
        throw FileError{name, "cannot be written: it is not a regular file"};
    std::string temporary = path + ".XXXXXX";
    Descriptor file{mkostemp(temporary.data(), O_CLOEXEC)};
    if (file.get() < 0)
        throw FileError{name, "cannot be written: " + reasonOf(errno)};
    const mode_t mask = umask(0);
    umask(mask);
    int error = fchmod(file.get(), replaces ? earlier.st_mode & 07777 : 0666 & ~mask) == 0 ? 0 : errno;
    if (error == 0)
        error = writeAll(file.get(), pieces, name);
    if (error == 0 && fsync(file.get()) != 0)
        error = errno;
    if (!file.close() && error == 0)
        error = errno;
    const std::string backup = path + ".bak";
    if (error == 0 && replaces && keepEarlier)
    {
        unlink(backup.c_str());
        if (link(path.c_str(), backup.c_str()) != 0)
            error = errno == EPERM || errno == ENOTSUP ? 0 : errno;
    }
    if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0)
        error = errno;
    if (error != 0)
    {
        unlink(temporary.c_str());
        throw FileError{name, "cannot be written: " + reasonOf(error)};
    }
    syncFolder(folderOf(path));
}

} // namespace files
