#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace dwg
{

/// Reads the whole of a regular file into `bytes`. Returns why it could not, or an empty text.
std::string readFile(const std::filesystem::path& file, std::string& bytes);

/// Writes a file anew. False when not all of it could be written; what was written then is gone again.
bool writeFile(const std::filesystem::path& file, std::string_view bytes);

} // namespace dwg
