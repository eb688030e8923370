#include "host/app/paths.h"

#include "host/app/disk.h"
#include "host/app/session.h"
#include "store/text/text.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace
{

constexpr char16_t kBackslashOfName = 0xDC5C;
constexpr const char* kMakersFolder = "PLX";

std::filesystem::path configHome()
{
    // A relative folder would mean another place in every working directory.
    if (const char* config = std::getenv("XDG_CONFIG_HOME"); config != nullptr && config[0] == '/')
        return config;
    const char* home = std::getenv("HOME");
    return home != nullptr && home[0] == '/' ? std::filesystem::path(home) / ".config" : std::filesystem::path{};
}

} // namespace

std::string nativePath(std::u16string_view path)
{
    std::u16string slashed{path};
    std::replace(slashed.begin(), slashed.end(), u'\\', u'/');
    return keptBytes(slashed);
}

std::u16string modulePath(std::string_view path)
{
    std::u16string wide = keepBytes(path);
    std::replace(wide.begin(), wide.end(), u'\\', kBackslashOfName);
    return wide;
}

std::u16string storedPath(std::u16string path)
{
    std::replace(path.begin(), path.end(), kBackslashOfName, u'\\');
    return path;
}

std::optional<std::u16string> roamingFolder()
{
    const std::filesystem::path folder = configHome();
    if (folder.empty())
        return std::nullopt;
    if (host::keepsNothing())
        return roamingPath();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder, error))
        return std::nullopt;
    if (host::Session::hasCurrent())
        std::filesystem::create_directory(folder / kMakersFolder, error);
    return modulePath(folder.string());
}

std::u16string roamingPath()
{
    return modulePath(configHome().string());
}

std::optional<std::u16string> dataFolderOverride()
{
    if (!host::Session::hasCurrent() || host::Session::current().options().userDataFolder.empty())
        return std::nullopt;
    return modulePath(host::Session::current().options().userDataFolder);
}
