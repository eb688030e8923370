#pragma once

#include "desktop/documents/jobs.h"
#include "desktop/documents/reading.h"
#include "desktop/documents/watched_files.h"

#include <functional>
#include <string>

namespace desktop
{

class DocumentTab;
class MainWindow;

/// What is done with drawings and their files: open, save, close, and what other programs do to them meanwhile. Called
/// while the window does something for the user (`MainWindow::perform`); tells failures itself.
class FileActions
{
public:
    explicit FileActions(MainWindow& window);

    void askToOpen();
    /// Opens a drawing in a tab of its own, or shows the tab that it has.
    void open(const std::string& path);
    /// False when nothing was saved: the user gave it up, or it failed.
    bool save(DocumentTab& tab);
    bool saveAs(DocumentTab& tab);
    /// False when the user wants to go on with it.
    bool close(DocumentTab& tab);
    bool closeAll();
    /// Reads the file anew; what was changed in the drawing is lost.
    void reload(DocumentTab& tab);

    /// A tab got its drawing.
    std::function<void(DocumentTab&)> onOpened;
    /// A drawing was saved.
    std::function<void(DocumentTab&)> onSaved;

private:
    void startReading(DocumentTab& tab, const std::string& path);
    void finishReading(DocumentTab& tab, Outcome<ReadDrawing> outcome);
    bool saveTo(DocumentTab& tab, const std::string& path);
    bool settleConflict(DocumentTab& tab, const std::string& path);
    bool write(DocumentTab& tab, const std::string& path, const disk::FileStamp& seen);
    void renewWatch();
    void lookAtDisk();
    void offerReload(DocumentTab& tab);

    MainWindow& m_window;
    WatchedFiles m_watched;
};

} // namespace desktop
