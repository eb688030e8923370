#include "console/report_parts.h"

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
