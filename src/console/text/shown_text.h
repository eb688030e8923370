#pragma once

#include <string>
#include <string_view>

namespace console
{

/// Text for a terminal or a report: control characters (C0, DEL, C1) stand as "\x1b", so that a name in a drawing
/// changes nothing but its own place, and bytes that are not UTF-8 (of paths) as letters of 8-bit Vietnamese.
/// `shownText` keeps line feeds, for texts of several lines; `shownLine` escapes them too and ends the line.
std::string shownText(std::string_view text);
std::string shownLine(std::string_view line);

} // namespace console
