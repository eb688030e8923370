#include "disk/replace.h"

#include "disk/error.h"
#include "disk/output.h"
#include "disk/temporary.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
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

/// The replacing of one file, step by step; the first step that fails throws.
class Replacement
{
public:
    Replacement(const std::string& name, const ReplaceRules& rules, Faults& faults)
        : m_name{name}, m_path{throughLinks(name)}, m_rules{rules}, m_faults{faults}
    {
        m_replaces = stat(m_path.c_str(), &m_earlier) == 0;
        if (m_replaces && !S_ISREG(m_earlier.st_mode))
            throw FileError{m_name, "cannot be written: it is not a regular file"};
    }

    void run(const std::vector<std::string_view>& pieces)
    {
        TemporaryFile fresh{folderOf(m_path), m_replaces ? kPrivateMode : kNewFileMode};
        require(fresh.error());
        require(writePieces(fresh.file().get(), pieces, m_name, m_faults));
        if (m_replaces)
            (void)fchmod(fresh.file().get(), m_earlier.st_mode & 07777);
        if (m_rules.durable)
            require(asked(Step::kSync, m_name, [&] { return fsync(fresh.file().get()); }));
        require(fresh.file().close() ? 0 : errno);
        if (m_replaces && m_rules.keepEarlier)
            keepEarlier();
        require(asked(Step::kRename, m_name, [&] { return std::rename(fresh.path().c_str(), m_path.c_str()); }));
        fresh.release();
        if (m_rules.durable)
            syncFolder(folderOf(m_path));
    }

private:
    /// The error number of a step, which the faults may refuse.
    template <class Action>
    int asked(Step step, const std::string& path, Action action)
    {
        const int refused = m_faults.refuse(step, path);
        return refused != 0 ? refused : action() == 0 ? 0 : errno;
    }

    void require(int error) const
    {
        if (error != 0)
            throw FileError{m_name, std::string{"cannot be written: "} + std::strerror(error)};
    }

    void keepEarlier()
    {
        const std::string backup = m_path + ".bak";
        unlink(backup.c_str());
        const int error = asked(Step::kLink, backup, [&] { return link(m_path.c_str(), backup.c_str()); });
        require(error == EPERM || error == ENOTSUP ? 0 : error);
    }

    std::string m_name;
    std::string m_path;
    ReplaceRules m_rules;
    Faults& m_faults;
    struct stat m_earlier = {};
    bool m_replaces = false;
};

} // namespace

void replaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const ReplaceRules& rules,
                 Faults& faults)
{
    Replacement{path, rules, faults}.run(pieces);
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
