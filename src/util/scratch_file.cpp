#include "util/scratch_file.h"

#include "host/app/disk.h"
#include "util/folders.h"

ScratchFile::~ScratchFile()
{
    if (!m_last.empty())
        (void)WriteInPlace(UserDataFolder() + u"\\temp.temp", m_last);
}
