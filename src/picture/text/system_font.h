#pragma once

#include "picture/text/font.h"

#include <memory>
#include <optional>
#include <string>

namespace picture
{

/// A TrueType font that the system has.
struct SystemFont
{
    std::unique_ptr<Font> font;
    std::string family; ///< what was found, which may be another one than was asked for
};

/// The family whose file is of this name in drawings ("arial.ttf"): the name of the family where that is known, else
/// the name without its ending.
std::string familyOfFile(const std::string& file);

/// The system's font of a family, or what the system has in its place. Needs a running QGuiApplication.
SystemFont findSystemFont(const std::string& family, bool bold, bool italic);

} // namespace picture
