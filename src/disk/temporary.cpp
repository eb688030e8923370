#include "disk/temporary.h"

#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <random>

namespace disk
{

std::string folderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string temporaryName(const std::string& folder)
{
    static std::random_device random;
    char name[64];
    std::snprintf(name, sizeof name, "/.veloxa-%d-%08x%08x.tmp", static_cast<int>(getpid()), random(), random());
    return folder + name;
}

TemporaryFile::TemporaryFile(const std::string& folder, mode_t mode)
{
    constexpr int kAttempts = 10; // a name that is taken is next to impossible
    for (int attempt = 0; attempt < kAttempts && !m_file.isOpen(); ++attempt)
    {
        m_path = temporaryName(folder);
        m_file = Descriptor{open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode)};
        m_error = m_file.isOpen() ? 0 : errno;
        if (m_error != 0 && m_error != EEXIST)
            break;
    }
    if (m_error != 0)
        m_path.clear();
}

TemporaryFile::~TemporaryFile()
{
    if (!m_path.empty())
        unlink(m_path.c_str());
}

TemporaryFolder::TemporaryFolder()
{
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    std::string name = parent / "veloxa-XXXXXX";
    if (!error && mkdtemp(name.data()) != nullptr)
        m_path = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    if (!m_path.empty())
        std::filesystem::remove_all(m_path, ignored);
}

} // namespace disk
