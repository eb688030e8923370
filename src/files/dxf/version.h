#pragma once

#include <string>

namespace files
{

/// Numbers of drawing versions as they stand behind "AC" in a file.
constexpr int kR2000 = 1015;
constexpr int kR2018 = 1032;

/// What users call a version: "R2000" for 1015; "AC1050" for one that has no such name.
std::string nameOfVersion(int version);

} // namespace files
