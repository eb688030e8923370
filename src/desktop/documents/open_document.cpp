#include "desktop/documents/open_document.h"

#include "desktop/desk/desk.h"
#include "host/app/paths.h"

namespace desktop
{

namespace
{

AcApDocument& addDocument(DrawingStore store, const std::string& path)
{
    auto database = std::make_unique<AcDbDatabase>(false, false);
    database->adopt(std::move(store));
    return *host::Session::current().documents().add(std::move(database), modulePath(path));
}

} // namespace

OpenDocument::OpenDocument(ReadDrawing read)
    : m_path{std::move(read.path)}, m_seen{read.seen}, m_news{read.seen},
      m_isConverted{read.isConverted}, m_host{addDocument(std::move(read.store), m_path)},
      m_scene{std::make_shared<Scene>(*m_host.database(), fontFolders(m_path))}, m_undo{*m_host.database()}
{
}

OpenDocument::~OpenDocument()
{
    m_scene.reset();
    host::Session::current().documents().close(&m_host);
}

AcDbDatabase& OpenDocument::database()
{
    return *m_host.database();
}

void OpenDocument::saved(const std::string& path, const disk::FileStamp& seen)
{
    m_path = path;
    m_seen = seen;
    m_news = seen;
    m_isConverted = false;
    m_undo.setSaved();
    m_host.setFileName(modulePath(path));
}

bool OpenDocument::takeNewsOfFile()
{
    const disk::FileStamp now = disk::stampOf(m_path);
    return !(now == m_seen) && !(now == std::exchange(m_news, now));
}

} // namespace desktop
