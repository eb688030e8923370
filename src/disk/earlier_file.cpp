#include "disk/earlier_file.h"

#include "disk/error.h"
#include "disk/output.h"
#include "disk/read.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace disk
{

std::string backupOf(const std::string& path)
{
    return path + ".bak";
}

bool isTooLongForBackup(const std::string& path)
{
    struct stat status = {};
    return lstat(backupOf(path).c_str(), &status) != 0 && errno == ENAMETOOLONG;
}

void requireRoomForBackup(const std::string& path, const std::string& name)
{
    struct stat status = {};
    if (lstat(backupOf(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        throw FileError{name,
                        "cannot be written: " + backupOf(name) + ", under which the earlier file is kept, is a folder"};
}

EarlierFile::EarlierFile(const std::string& path, const std::string& name, Faults& faults)
    : m_backup{backupOf(path)}, m_temporary{folderOf(path)}, m_faults{faults}
{
    requireRoomForBackup(path, name);
    if (m_faults.refuse(Step::kLink, m_backup) != 0 || link(path.c_str(), m_temporary.path().c_str()) != 0)
        copy(path, name, faults);
}

void EarlierFile::copy(const std::string& path, const std::string& name, Faults& faults)
{
    const FileText earlier = readFile(path);
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        throw FileError{name, std::string{"cannot be written: "} + std::strerror(errno)};
    Descriptor file{open(m_temporary.path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, status.st_mode & 0777)};
    int error = file.isOpen() ? writePieces(file.get(), {earlier.view()}, m_backup, faults) : errno;
    const timespec times[] = {status.st_atim, status.st_mtim};
    if (error == 0 && (fsync(file.get()) != 0 || futimens(file.get(), times) != 0 || !file.close()))
        error = errno;
    if (error != 0)
        throw FileError{name, "cannot be written: the earlier file cannot be kept as " + backupOf(name) + ": " +
                                  std::strerror(error)};
}

int EarlierFile::keep()
{
    if (const int refused = m_faults.refuse(Step::kRename, m_backup); refused != 0)
        return refused;
    struct stat status = {};
    m_isNew = lstat(m_backup.c_str(), &status) != 0;
    const char* from = m_temporary.path().c_str();
    m_exchanged = !m_isNew && renameat2(AT_FDCWD, from, AT_FDCWD, m_backup.c_str(), RENAME_EXCHANGE) == 0;
    return m_exchanged || std::rename(from, m_backup.c_str()) == 0 ? 0 : errno;
}

void EarlierFile::takeBack()
{
    if (m_exchanged)
        std::rename(m_temporary.path().c_str(), m_backup.c_str());
    else if (m_isNew)
        unlink(m_backup.c_str());
}

} // namespace disk
