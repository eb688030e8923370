#include "files/file_bytes.h"

#include "files/error.h"
#include "host/app/session.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
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

/// Writes pieces to a file a part at a time, so that the disk begins while the rest is handed over: small pieces are
/// gathered, large ones go as they are.
class Output
{
public:
    Output(int file, const std::string& path)
        : m_file{file}, m_limit{faults() != nullptr ? faults()->failWriteAt(path) : -1}
    {
        m_gathered.reserve(kPart);
    }

    /// 0 or the error number.
    int add(std::string_view piece)
    {
        if (m_gathered.size() + piece.size() > kPart)
            if (const int error = flush(); error != 0)
                return error;
        for (; piece.size() > kPart; piece.remove_prefix(kPart))
            if (const int error = put(piece.substr(0, kPart)); error != 0)
                return error;
        m_gathered.append(piece);
        return 0;
    }

    /// Writes what was gathered; 0 or the error number.
    int flush()
    {
        const int error = put(m_gathered);
        m_gathered.clear();
        return error;
    }

private:
    static constexpr size_t kPart = size_t{1} << 20;

    int put(std::string_view part)
    {
        for (std::string_view left = part; !left.empty();)
        {
            const ssize_t got = write(m_file, left.data(), left.size());
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0)
                return errno;
            left.remove_prefix(static_cast<size_t>(got));
        }
        // Only asks the disk to begin: what it makes of this is known when the file is flushed.
        sync_file_range(m_file, m_written, static_cast<off64_t>(part.size()), SYNC_FILE_RANGE_WRITE);
        m_written += static_cast<int64_t>(part.size());
        return m_limit >= 0 && m_written > m_limit ? ENOSPC : 0;
    }

    int m_file;
    int64_t m_limit; ///< a write that goes beyond it fails, for tests; -1 for none
    std::string m_gathered;
    int64_t m_written = 0;
};

/// Writes every piece; answers 0 or the error number.
int writeAll(int file, const std::vector<std::string_view>& pieces, const std::string& path)
{
    Output out{file, path};
    for (const std::string_view piece : pieces)
        if (const int error = out.add(piece); error != 0)
            return error;
    return out.flush();
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
