#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

#include <functional>
#include <set>
#include <string>

namespace desktop
{

/// Notices that files, or the folders that they stand in, change. Many changes at once are told once, a moment later.
class WatchedFiles
{
public:
    explicit WatchedFiles(std::function<void()> onChange);

    /// Watches these files, and no others any more.
    void watch(const std::set<std::string>& paths);

private:
    QFileSystemWatcher m_watcher;
    QTimer m_pause;
};

} // namespace desktop
