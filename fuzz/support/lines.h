#pragma once

#include <span>
#include <string>
#include <string_view>

/// Changes a text of lines in which fields are parted by `separator`: lines and fields are repeated, moved, dropped or
/// replaced by others of the text or by one of `words`. `seed` decides all.
std::string mutateLines(std::string_view text, char separator, std::span<const std::string_view> words, unsigned seed);
