#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Whole files by module path (see host/app/paths.h). Nothing throws; the answers say what happened.

/// The bytes of the file, or nothing when it cannot be opened or read to its end.
std::optional<std::string> ReadWholeFile(std::u16string_view path);

/// Writes the file in place, for scratch files only: a failure leaves whatever was written. False when it failed.
bool WriteInPlace(std::u16string_view path, std::string_view bytes);

/// Replaces the file with one that holds `bytes`: complete on disk before it takes the name, so that a failure leaves
/// the earlier file as it was. What is no regular file (a pipe, a device) is written in place. False when it failed.
bool ReplaceFile(std::u16string_view path, std::string_view bytes);
