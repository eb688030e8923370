#include "disk/replace.h"

#include "disk/earlier_file.h"
#include "disk/lock.h"
#include "disk/output.h"
#include "disk/read.h"
#include "disk/temporary.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace disk
{

namespace
{

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kPrivateMode = 0600;

/// The file a link leads to; a path that is no link as it is.
std::string throughLinks(const std::string& path)
{
    char* real = realpath(path.c_str(), nullptr);
    if (real == nullptr)
        return path;
    std::string resolved{real};
    std::free(real);
    return resolved;
}

/// Makes a name in the folder last: without this a crash could lose the renaming.
void syncFolder(const std::string& folder)
{
    const Descriptor opened{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (opened.isOpen())
        fsync(opened.get());
}

void require(int error, const std::string& name)
{
    if (error != 0)
        throw FileError{name, std::string{"cannot be written: "} + std::strerror(error)};
}

/// What stands at `path`; nothing when there is nothing. Throws when that is no file that may be replaced. The bits of
/// the mode count by themselves: they hold for a user whom the system refuses nothing, too.
std::optional<struct stat> replaceable(const std::string& path, const std::string& name)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
    {
        require(errno == ENOENT ? 0 : errno, name);
        return std::nullopt;
    }
    if (S_ISDIR(status.st_mode))
        throw FileError{name, "cannot be written: it is a folder"};
    if (!S_ISREG(status.st_mode))
        throw FileError{name, "cannot be written: it is not a regular file"};
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        throw FileError{name, "cannot be written: it is write-protected"};
    require(access(path.c_str(), W_OK) == 0 ? 0 : errno, name);
    return status;
}

/// The replacing of one file, step by step; the first step that fails throws.
class Replacement
{
public:
    Replacement(const std::string& name, const ReplaceRules& rules, Faults& faults)
        : m_name{name}, m_path{throughLinks(name)}, m_folder{folderOf(m_path)}, m_rules{rules}, m_faults{faults}
    {
    }

    void run(const std::vector<std::string_view>& pieces)
    {
        m_earlier = replaceable(m_path, m_name);
        m_lock = lockForSaving(m_path, m_name, m_faults);
        m_earlier = replaceable(m_path, m_name);
        if (m_earlier && m_rules.seen.exists() && m_rules.seen != stampOf(*m_earlier))
            throw ChangedFile{m_name};
        clearLeftovers(m_folder);
        TemporaryFile fresh{m_folder, m_earlier ? kPrivateMode : kNewFileMode};
        if (fresh.error() != 0 && m_earlier && m_rules.inPlaceIfNeeded)
            writeOver(pieces);
        else
            replaceBy(fresh, pieces);
    }

private:
    /// The error number of a step, which the faults may refuse.
    template <class Action>
    int asked(Step step, Action action)
    {
        const int refused = m_faults.refuse(step, m_name);
        return refused != 0 ? refused : action() == 0 ? 0 : errno;
    }

    void replaceBy(TemporaryFile& fresh, const std::vector<std::string_view>& pieces)
    {
        require(fresh.error(), m_name);
        const int file = fresh.file().get();
        require(writePieces(file, pieces, m_name, m_faults), m_name);
        if (m_earlier)
            takeOver(file);
        if (m_rules.durable)
            require(asked(Step::kSync, [&] { return fsync(file); }), m_name);
        require(fresh.file().close() ? 0 : errno, m_name);
        putInPlace(fresh);
        if (m_rules.durable)
            syncFolder(m_folder);
    }

    /// Owner, group and mode of the earlier file, as far as that is allowed here.
    void takeOver(int file)
    {
        const bool mayOwn = m_faults.refuse(Step::kOwner, m_name) == 0;
        const bool kept = mayOwn && fchown(file, m_earlier->st_uid, m_earlier->st_gid) == 0;
        if (!kept && mayOwn)
            (void)!fchown(file, static_cast<uid_t>(-1), m_earlier->st_gid);
        if (m_faults.refuse(Step::kMode, m_name) == 0)
            (void)!fchmod(file, m_earlier->st_mode & (kept ? 07777 : 0777));
    }

    void putInPlace(TemporaryFile& fresh)
    {
        std::optional<EarlierFile> earlier;
        if (m_earlier && m_rules.keepEarlier && !isTooLongForBackup(m_path))
            earlier.emplace(m_path, m_name, m_faults);
        const SignalsHeld whole;
        int error = earlier ? earlier->keep() : 0;
        if (error == 0)
        {
            error = asked(Step::kRename, [&] { return std::rename(fresh.name().path().c_str(), m_path.c_str()); });
            if (error != 0 && earlier)
                earlier->takeBack();
        }
        if (error == 0)
            fresh.name().release();
        require(error, m_name);
    }

    /// Where no file can be made beside it: what was in it is put back when that fails.
    void writeOver(const std::vector<std::string_view>& pieces)
    {
        const FileText before = readFile(m_path);
        const SignalsHeld whole;
        Descriptor file{open(m_path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)};
        require(file.isOpen() ? 0 : errno, m_name);
        const int error = fill(file.get(), pieces, m_faults);
        if (error != 0 && (lseek(file.get(), 0, SEEK_SET) != 0 || fill(file.get(), {before.view()}, noFaults()) != 0))
            throw FileError{m_name,
                            "cannot be written, and what it held is lost: " + std::string{std::strerror(error)}};
        require(error, m_name);
    }

    int fill(int file, const std::vector<std::string_view>& pieces, Faults& faults)
    {
        off_t size = 0;
        for (const std::string_view piece : pieces)
            size += static_cast<off_t>(piece.size());
        const int error = writePieces(file, pieces, m_name, faults);
        return error != 0 ? error : ftruncate(file, size) == 0 && fsync(file) == 0 ? 0 : errno;
    }

    std::string m_name;
    std::string m_path;
    std::string m_folder;
    ReplaceRules m_rules;
    Faults& m_faults;
    std::optional<struct stat> m_earlier;
    Descriptor m_lock;
};

} // namespace

void replaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const ReplaceRules& rules,
                 Faults& faults)
{
    Replacement{path, rules, faults}.run(pieces);
}

void requireReplaceable(const std::string& path)
{
    const std::string real = throughLinks(path);
    if (replaceable(real, path))
        requireRoomForBackup(real, path);
    const std::string folder = folderOf(real);
    struct stat status = {};
    require(stat(folder.c_str(), &status) == 0 ? 0 : errno, path);
    require(access(folder.c_str(), W_OK | X_OK) == 0 ? 0 : errno, path);
}

bool cannotBeKept(const std::string& path)
{
    const std::string real = throughLinks(path);
    return access(real.c_str(), F_OK) == 0 && isTooLongForBackup(real);
}

bool isSameFile(const std::string& a, const std::string& b)
{
    return throughLinks(a) == throughLinks(b);
}

bool writeInPlace(const std::string& path, std::string_view bytes, Faults& faults)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        return false;
    Descriptor file{open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC, kNewFileMode)};
    return file.isOpen() && writePieces(file.get(), {bytes}, path, faults) == 0 && file.close();
}

} // namespace disk
