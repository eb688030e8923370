#include "console/report_parts.h"

#include "files/reader.h"

#include <filesystem>
#include <set>

namespace console
{

void addUnreadable(Report& report, host::Session& session)
{
    std::set<std::string> seen;
    for (const host::UnreadableFile& file : session.unreadableFiles())
        if (seen.insert(toUtf8(file.path)).second)
            report.unreadable.emplace_back(toUtf8(file.path), file.reason);
}

void noteConversion(Report& report, const std::string& drawing)
{
    if (files::isDwgFile(drawing))
        report.notes.push_back(
            "the drawing is a DWG and was converted to DXF: tables without their cells, custom objects "
            "and the off state of layers of R13 and R14 may be lost; the DWG itself stays as it is");
}

void failWhenStrict(const Report& report, bool strict)
{
    if (strict && !report.unreadable.empty())
        throw Failure{"symbol file that cannot be read: " + report.unreadable.front().second};
}

void addFoldersOf(const std::string& file, std::vector<std::string>& folders)
{
    const std::filesystem::path folder = std::filesystem::absolute(file).parent_path();
    folders.insert(folders.begin(), {folder.string(), (folder / "symbols").string()});
}

} // namespace console
