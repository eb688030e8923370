#include "disk/temporary.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>

namespace disk
{

namespace
{

constexpr std::string_view kBegin = ".veloxa-";
constexpr std::string_view kEnd = ".tmp";
constexpr size_t kRandomDigits = 16;

std::string newName()
{
    static std::random_device random;
    std::array<char, kRandomDigits + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x%08x", random(), random());
    return std::string{kBegin} + std::to_string(getpid()) + '-' + digits.data() + std::string{kEnd};
}

/// The process that made a temporary name; 0 for any other name.
pid_t makerOf(std::string_view name)
{
    constexpr size_t kTail = 1 + kRandomDigits + kEnd.size();
    if (!name.starts_with(kBegin) || !name.ends_with(kEnd) || name.size() <= kBegin.size() + kTail)
        return 0;
    const std::string_view number = name.substr(kBegin.size(), name.size() - kBegin.size() - kTail);
    const std::string_view random = name.substr(kBegin.size() + number.size(), kTail - kEnd.size());
    pid_t maker = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), maker);
    const bool isNumber = error == std::errc{} && end == number.data() + number.size() && number.front() != '0';
    const bool isRandom =
        random.front() == '-' && random.find_first_not_of("0123456789abcdef", 1) == std::string_view::npos;
    return isNumber && isRandom ? std::max(maker, 0) : 0;
}

bool isGone(pid_t process)
{
    return kill(process, 0) != 0 && errno == ESRCH;
}

/// Whether a file is a regular one of this user's that nobody holds. A saver on another machine is no process here, but
/// its lock shows.
bool isAbandoned(const std::string& path)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != geteuid())
        return false;
    const Descriptor file{open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)};
    return !file.isOpen() || flock(file.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

} // namespace

std::string folderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

TemporaryName::TemporaryName(const std::string& folder)
    : m_path{folder + '/' + newName()}, m_transient{Transient::kFile, m_path}
{
}

TemporaryName::~TemporaryName()
{
    if (!m_released)
        unlink(m_path.c_str());
}

void TemporaryName::release()
{
    m_transient.release();
    m_released = true;
}

TemporaryFile::TemporaryFile(const std::string& folder, mode_t mode)
    : m_name{folder}, m_file{open(m_name.path().c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode)},
      m_error{m_file.isOpen() ? 0 : errno}
{
    if (m_file.isOpen())
        flock(m_file.get(), LOCK_EX | LOCK_NB);
    else
        m_name.release();
}

void clearLeftovers(const std::string& folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator entry{folder, error}; !error && entry != end; entry.increment(error))
    {
        const std::string& path = entry->path().native();
        const pid_t maker = makerOf(std::string_view{path}.substr(path.rfind('/') + 1));
        if (maker != 0 && isGone(maker) && isAbandoned(path))
            unlink(path.c_str());
    }
}

TemporaryFolder::TemporaryFolder()
{
    const SignalsHeld untilKnown;
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    std::string name = parent / "veloxa-XXXXXX";
    if (error || mkdtemp(name.data()) == nullptr)
        return;
    m_path = name;
    m_transient = Transient{Transient::kFolder, m_path};
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    if (!m_path.empty())
        std::filesystem::remove_all(m_path, ignored);
}

} // namespace disk
