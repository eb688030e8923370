#include "util/folders.h"

#include "host/app/disk.h"
#include "host/app/paths.h"

#include <cstdlib>

namespace
{

const std::u16string kModuleData = u"\\PLX\\Kavendo";

std::u16string withLastLevel(std::u16string folder)
{
    MakeFolder(folder);
    return folder;
}

std::u16string fallbackFolder()
{
    const char* folder = std::getenv("AppData");
    return modulePath(folder != nullptr ? folder : "");
}

} // namespace

std::u16string ModuleFolder;

std::u16string UserDataPath()
{
    if (const auto given = dataFolderOverride())
        return *given;
    const std::u16string roaming = roamingPath();
    return (roaming.empty() ? fallbackFolder() : roaming) + kModuleData;
}

std::u16string UserDataFolder()
{
    if (const auto given = dataFolderOverride())
        return withLastLevel(*given);
    if (const auto roaming = roamingFolder())
        return withLastLevel(*roaming + kModuleData);
    return fallbackFolder() + kModuleData;
}
