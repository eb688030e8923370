#include "util/folders.h"

#include "host/app/paths.h"
#include "host/text.h"

#include <cstdlib>
#include <sys/stat.h>

namespace
{

constexpr mode_t kFolderMode = 0777;
const std::u16string kModuleData = u"\\PLX\\Kavendo";

} // namespace

std::u16string ModuleFolder;

std::u16string UserDataFolder()
{
    if (const auto folder = dataFolderOverride())
    {
        (void)::mkdir(nativePath(*folder).c_str(), kFolderMode);
        return *folder;
    }
    if (const auto roaming = roamingFolder())
    {
        std::u16string folder = *roaming + kModuleData;
        (void)::mkdir(nativePath(folder).c_str(), kFolderMode);
        return folder;
    }
    const char* fallback = std::getenv("AppData");
    return toUtf16(fallback != nullptr ? fallback : "") + kModuleData;
}
