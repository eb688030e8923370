#pragma once

#include "files/dwg/convert.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// A folder for one test, with the temporary and cache folders that convert() uses in it, and a converter of the
/// test's own making.
class Workshop
{
public:
    Workshop();

    /// A file with this content; returns its path.
    std::filesystem::path file(const std::string& name, std::string_view content) const;

    /// Something that begins as a DWG does; the rest tells the pretended converter what to do with it.
    std::filesystem::path drawing(const std::string& name, const std::string& what) const;

    /// Options that use a converter which obeys the words in a drawing: crash, hang, sleep, eat,
    /// killed, refuse, late, lossy.
    dwg::Options pretended() const;

    /// Options for the real converter, and whether it can run here at all.
    dwg::Options real() const;
    static bool realConverterIsInstalled();

    /// How often the pretended converter was started.
    int starts() const;

    const std::filesystem::path& path() const { return m_folder.path(); }
    std::filesystem::path cache() const { return path() / "cache" / "dwg"; }

    /// Whether a child of this process still exists, or convert() left something in the temporary folder.
    bool somethingIsLeft() const;

private:
    TempFolder m_folder;
    ScopedVariable m_temporary;
};

std::string contentOf(const std::filesystem::path& file);

/// The files of a folder, sorted.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder);
