#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Whole text files in TCVN3, line by line. Silent: the callers decide what to tell the user.

/// The lines of the file at `path` without their line ends (LF or CR LF); none when it cannot be read. A line of more
/// than 4095 bytes, line end included, comes in several pieces, each an element; a piece that decodes to nothing is
/// left out.
std::vector<std::u16string> ReadTextLines(std::u16string_view path);

/// The lines of a file with these bytes, as `ReadTextLines` gives them.
std::vector<std::u16string> DecodeTextLines(std::string bytes);

/// Replaces the file at `path` with `lines`, each ended by LF; a line end or an escape inside a line becomes "?". No
/// lines: the file is left as it is. False when the file could not be written; it is then as it was before.
bool WriteTextLines(std::u16string_view path, const std::vector<std::u16string>& lines);
