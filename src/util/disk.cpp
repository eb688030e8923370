#include "util/disk.h"

#include "host/app/paths.h"
#include "host/app/session.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr mode_t kNewFileMode = 0666;

/// An open file, closed with its scope.
class Descriptor
{
public:
    Descriptor(const std::string& path, int flags) : m_descriptor(::open(path.c_str(), flags | O_CLOEXEC, kNewFileMode))
    {
    }
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    /// False when bytes given earlier turn out not to have arrived.
    bool close() { return m_descriptor < 0 || ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor;
};

/// The place in a file at which the session wants an operation on it to fail; beyond every file when it does not.
size_t refusedAt(int64_t (Faults::*operation)(const std::string&), const std::string& path)
{
    const int64_t at = host::Session::hasCurrent() ? (host::Session::current().faults().*operation)(path) : -1;
    return at < 0 ? SIZE_MAX : static_cast<size_t>(at);
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

/// Writes `bytes` into a file that is known as `path`.
bool writeAs(const std::string& path, int descriptor, std::string_view bytes)
{
    const size_t refused = refusedAt(&Faults::failWriteAt, path);
    return writeAll(descriptor, bytes.substr(0, refused)) && refused >= bytes.size();
}

bool writeTo(const std::string& path, std::string_view bytes)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
    return file.isOpen() && writeAs(path, file.get(), bytes) && file.close();
}

/// Writes `bytes`, meant for `target`, to the new file `path` with the mode of `earlier`, if there is one.
bool writeNew(const std::string& path, const std::string& target, std::string_view bytes, const struct stat* earlier)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.isOpen())
        return false;
    if (earlier != nullptr)
        (void)::fchmod(file.get(), earlier->st_mode & 07777);
    const bool complete = writeAs(target, file.get(), bytes) && ::fsync(file.get()) == 0;
    return file.close() && complete;
}

/// The file that `path` leads to through links, so that a link is kept and its file replaced.
std::string resolveLinks(const std::string& path)
{
    std::error_code error;
    const auto resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved.string();
}

bool replaceNative(const std::string& target, std::string_view bytes)
{
    struct stat earlier
    {
    };
    const bool exists = ::stat(target.c_str(), &earlier) == 0;
    if (exists && !S_ISREG(earlier.st_mode))
        return writeTo(target, bytes);
    if (exists && ::access(target.c_str(), W_OK) != 0)
        return false;

    const std::string fresh = target + "." + std::to_string(::getpid()) + ".new";
    if (writeNew(fresh, target, bytes, exists ? &earlier : nullptr) && ::rename(fresh.c_str(), target.c_str()) == 0)
        return true;
    ::unlink(fresh.c_str());
    return false;
}

} // namespace

std::optional<std::string> ReadWholeFile(std::u16string_view path)
{
    const std::string native = nativePath(path);
    const Descriptor file(native, O_RDONLY);
    if (!file.isOpen())
        return std::nullopt;
    const size_t refused = refusedAt(&Faults::failReadAt, native);
    std::string bytes;
    std::array<char, 65536> buffer;
    for (;;)
    {
        if (bytes.size() >= refused)
            return std::nullopt;
        const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return bytes;
        bytes.append(buffer.data(), static_cast<size_t>(count));
    }
}

bool WriteInPlace(std::u16string_view path, std::string_view bytes)
{
    return writeTo(nativePath(path), bytes);
}

bool ReplaceFile(std::u16string_view path, std::string_view bytes)
{
    const std::string native = nativePath(path);
    if (replaceNative(resolveLinks(native), bytes))
        return true;
    if (host::Session::hasCurrent())
        host::Session::current().unwrittenFiles().push_back(native);
    return false;
}
