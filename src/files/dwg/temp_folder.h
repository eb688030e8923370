#pragma once

#include <filesystem>

namespace dwg
{

/// A folder that only this user can enter, removed with all that is in it. Its path is empty when none could be made.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace dwg
