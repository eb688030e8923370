#pragma once

#include <span>

namespace desktop
{

struct Translation
{
    const char* english;
    const char* vietnamese; ///< UTF-8
};

/// The program's texts in Vietnamese.
std::span<const Translation> vietnameseTexts();

} // namespace desktop
