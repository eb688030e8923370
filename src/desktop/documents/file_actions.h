#pragma once

#include "desktop/documents/reading.h"
#include "desktop/documents/watched_files.h"
#include "desktop/workspace/jobs.h"

#include <string>

namespace desktop
{

class DocumentTab;
class Workspace;

/// What is done with drawings and their files: open, save, close, and what other programs do to them meanwhile. Called
/// while the window does something for the user (`Workspace::perform`); tells failures itself.
class FileActions
{
public:
    explicit FileActions(Workspace& workspace);

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

private:
    void startReading(DocumentTab& tab, const std::string& path);
    void finishReading(DocumentTab& tab, Outcome<ReadDrawing> outcome);
    bool saveTo(DocumentTab& tab, const std::string& path);
    bool settleConflict(DocumentTab& tab, const std::string& path);
    bool write(DocumentTab& tab, const std::string& path, const disk::FileStamp& seen);
    void renewWatch();
    void lookAtDisk();
    void offerReload(DocumentTab& tab);

    Workspace& m_workspace;
    WatchedFiles m_watched;
};

} // namespace desktop
