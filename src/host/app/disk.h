#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// Whole files by module path (see host/app/paths.h), for the module. Nothing throws; the answers say what happened.

/// The bytes of the file, or nothing when it is no regular file or cannot be read to its end.
std::optional<std::string> ReadWholeFile(std::u16string_view path);

/// Writes the file in place, for scratch files only: a failure leaves whatever was written. False when it failed.
bool WriteInPlace(std::u16string_view path, std::string_view bytes);

/// Replaces the file with one that holds `bytes`: complete on disk before it takes the name, so that a failure leaves
/// the earlier file as it was. False when it failed; the session remembers the path for the programs to tell.
bool ReplaceFile(std::u16string_view path, std::string_view bytes);

/// Makes the last level of a folder where it is missing. That it cannot be made shows when a file in it cannot be
/// written.
void MakeFolder(std::u16string_view path);

namespace disk
{
class Faults;
}

namespace host
{

/// While it lives, what is written through the functions above stays in memory, where they read it again, and no folder
/// is made: for programs that only look.
class NothingKept
{
public:
    NothingKept();
    NothingKept(const NothingKept&) = delete;
    NothingKept& operator=(const NothingKept&) = delete;
    ~NothingKept();

    std::map<std::string, std::string> files; ///< by real path

private:
    NothingKept* m_outer;
};

/// Whether one lives.
bool keepsNothing();

/// What the session that runs wants to be refused on disk; nothing when none runs.
disk::Faults& diskFaults();

} // namespace host
