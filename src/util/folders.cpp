#include "util/folders.h"

#include "host/app/paths.h"
#include "host/text.h"

#include <cstdlib>
#include <sys/stat.h>

namespace
{

constexpr mode_t kFolderMode = 0777;
const std::u16string kModuleData = u"\\PLX\\Kavendo";

std::u16string withLastLevel(std::u16string folder)
{
    (void)::mkdir(nativePath(folder).c_str(), kFolderMode);
    return folder;
}

} // namespace

std::u16string ModuleFolder;

std::u16string UserDataFolder()
{
    if (const auto given = dataFolderOverride())
        return withLastLevel(*given);
    if (const auto roaming = roamingFolder())
        return withLastLevel(*roaming + kModuleData);
    const char* fallback = std::getenv("AppData");
    return toUtf16(fallback != nullptr ? fallback : "") + kModuleData;
}
