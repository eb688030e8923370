#pragma once

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

namespace disk
{
class Faults;
}

namespace host
{

/// What the session that runs wants to be refused on disk; nothing when none runs.
disk::Faults& diskFaults();

} // namespace host
