#include "disk/output.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace disk
{

namespace
{

class Output
{
public:
    Output(int file, int64_t limit) : m_file{file}, m_limit{limit} {}

    /// 0 or the error number.
    int add(std::string_view piece)
    {
        if (m_gathered.size() + piece.size() > kPart)
            if (const int error = flush(); error != 0)
                return error;
        for (; piece.size() > kPart; piece.remove_prefix(kPart))
            if (const int error = put(piece.substr(0, kPart)); error != 0)
                return error;
        if (m_gathered.empty())
            m_gathered.reserve(kPart);
        m_gathered.append(piece);
        return 0;
    }

    /// Writes what was gathered; 0 or the error number.
    int flush()
    {
        const int error = put(m_gathered);
        m_gathered.clear();
        return error;
    }

private:
    static constexpr size_t kPart = size_t{1} << 20;

    int put(std::string_view part)
    {
        const int64_t room =
            m_limit < 0 ? static_cast<int64_t>(part.size()) : std::max<int64_t>(m_limit - m_written, 0);
        std::string_view left = part.substr(0, static_cast<size_t>(room));
        const bool refused = left.size() < part.size();
        while (!left.empty())
        {
            const ssize_t got = write(m_file, left.data(), left.size());
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0)
                return errno;
            left.remove_prefix(static_cast<size_t>(got));
        }
        // Only asks the disk to begin: what it makes of this is known when the file is flushed.
        sync_file_range(m_file, m_written, static_cast<off64_t>(part.size()), SYNC_FILE_RANGE_WRITE);
        m_written += static_cast<int64_t>(part.size());
        return refused ? ENOSPC : 0;
    }

    int m_file;
    int64_t m_limit; ///< a write that goes beyond it fails; -1 for none
    std::string m_gathered;
    int64_t m_written = 0;
};

} // namespace

int writePieces(int file, const std::vector<std::string_view>& pieces, const std::string& path, Faults& faults)
{
    Output out{file, faults.failWriteAt(path)};
    for (const std::string_view piece : pieces)
        if (const int error = out.add(piece); error != 0)
            return error;
    return out.flush();
}

} // namespace disk
