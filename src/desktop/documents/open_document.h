#pragma once

#include "desktop/documents/reading.h"
#include "desktop/documents/undo_stack.h"
#include "desktop/view/scene.h"

#include <memory>
#include <string>

class AcApDocument;

namespace desktop
{

/// A drawing that is open: the host's document, the file it is kept in, its display lists. Closes the document when it
/// goes; nothing is saved then.
class OpenDocument
{
public:
    /// Makes what was read a document of the current session, and current.
    explicit OpenDocument(ReadDrawing read);
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;
    ~OpenDocument();

    AcApDocument& host() { return m_host; }
    AcDbDatabase& database();
    const std::shared_ptr<Scene>& scene() const { return m_scene; }
    UndoStack& undo() { return m_undo; }

    /// The file that it was read from or saved to last.
    const std::string& path() const { return m_path; }
    /// Whether saving it needs a name: it was converted from another kind of file.
    bool needsName() const { return m_isConverted; }
    const disk::FileStamp& seen() const { return m_seen; }
    /// Whether it holds what its file does not.
    bool isChanged() const { return !m_undo.isAsSaved(); }
    /// It was saved as it is; the file is now in the state `seen`.
    void saved(const std::string& path, const disk::FileStamp& seen);
    /// Whether the file is in a state that is neither the one known nor one that this answered true for before.
    bool takeNewsOfFile();

private:
    std::string m_path;
    disk::FileStamp m_seen;
    disk::FileStamp m_news; ///< the state of the file that was told last
    bool m_isConverted;
    AcApDocument& m_host;
    std::shared_ptr<Scene> m_scene;
    UndoStack m_undo;
};

} // namespace desktop
