#include "desktop/documents/watched_files.h"

#include "desktop/language/qt_text.h"
#include "disk/temporary.h"

namespace desktop
{

WatchedFiles::WatchedFiles(std::function<void()> onChange)
{
    constexpr int kPause = 300; ///< milliseconds
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    QObject::connect(&m_pause, &QTimer::timeout, &m_pause, std::move(onChange));
    const auto noticed = [this] { m_pause.start(); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_pause, noticed);
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_pause, noticed);
}

void WatchedFiles::watch(const std::set<std::string>& paths)
{
    // A file that is replaced is another file: its folder tells.
    QStringList wanted;
    for (const std::string& path : paths)
        wanted << qtPath(path) << qtPath(disk::folderOf(path));
    wanted.removeDuplicates();
    QStringList gone;
    for (const QString& each : m_watcher.files() + m_watcher.directories())
        if (!wanted.contains(each))
            gone << each;
        else
            wanted.removeAll(each);
    if (!gone.isEmpty())
        m_watcher.removePaths(gone);
    if (!wanted.isEmpty())
        m_watcher.addPaths(wanted);
}

} // namespace desktop
