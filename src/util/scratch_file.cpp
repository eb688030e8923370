#include "util/scratch_file.h"

#include "host/app/disk.h"
#include "util/folders.h"

namespace
{

constexpr const char16_t* kName = u"\\temp.temp";

} // namespace

ScratchFile::~ScratchFile()
{
    if (m_writable && !m_isLastWritten)
        write();
}

bool ScratchFile::pass(const std::string& bytes)
{
    m_last = bytes;
    m_isLastWritten = false;
    if (m_path.empty())
    {
        m_path = UserDataFolder() + kName;
        m_writable = write();
    }
    return m_writable;
}

bool ScratchFile::write()
{
    m_isLastWritten = true;
    return WriteInPlace(m_path, m_last);
}
