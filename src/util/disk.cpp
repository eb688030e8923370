#include "util/disk.h"

#include "host/app/paths.h"

#include <array>
#include <cerrno>
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

bool writeTo(const std::string& path, std::string_view bytes)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
    return file.isOpen() && writeAll(file.get(), bytes) && file.close();
}

/// Writes `bytes` to the new file `path` with the mode of `earlier`, if there is one.
bool writeNew(const std::string& path, std::string_view bytes, const struct stat* earlier)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.isOpen())
        return false;
    if (earlier != nullptr)
        (void)::fchmod(file.get(), earlier->st_mode & 07777);
    const bool complete = writeAll(file.get(), bytes) && ::fsync(file.get()) == 0;
    return file.close() && complete;
}

/// The file that `path` leads to through links, so that a link is kept and its file replaced.
std::string resolveLinks(const std::string& path)
{
    std::error_code error;
    const auto resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved.string();
}

} // namespace

std::optional<std::string> ReadWholeFile(std::u16string_view path)
{
    const Descriptor file(nativePath(path), O_RDONLY);
    if (!file.isOpen())
        return std::nullopt;
    std::string bytes;
    std::array<char, 65536> buffer;
    for (;;)
    {
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
    const std::string target = resolveLinks(nativePath(path));
    struct stat earlier
    {
    };
    const bool exists = ::stat(target.c_str(), &earlier) == 0;
    if (exists && !S_ISREG(earlier.st_mode))
        return writeTo(target, bytes);
    if (exists && ::access(target.c_str(), W_OK) != 0)
        return false;

    const std::string fresh = target + "." + std::to_string(::getpid()) + ".new";
    if (writeNew(fresh, bytes, exists ? &earlier : nullptr) && ::rename(fresh.c_str(), target.c_str()) == 0)
        return true;
    ::unlink(fresh.c_str());
    return false;
}
