#pragma once

#include "desktop/documents/reading.h"
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

    /// The file that it was read from or saved to last.
    const std::string& path() const { return m_path; }
    /// Whether saving it needs a name: it was converted from another kind of file.
    bool needsName() const { return m_isConverted; }
    const disk::FileStamp& seen() const { return m_seen; }
    /// Whether it holds what its file does not.
    bool isChanged();
    /// It was saved, with all that is in it.
    void saved(const std::string& path, uint64_t changeCount);

private:
    std::string m_path;
    disk::FileStamp m_seen;
    bool m_isConverted;
    AcApDocument& m_host;
    std::shared_ptr<Scene> m_scene;
    uint64_t m_savedCount = 0; ///< the drawing's change count when it was saved last
};

} // namespace desktop
