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
    : m_path{std::move(read.path)}, m_seen{read.seen}, m_isConverted{read.isConverted},
      m_host{addDocument(std::move(read.store), m_path)}, m_scene{std::make_shared<Scene>(*m_host.database(),
                                                                                          fontFolders(m_path))}
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

bool OpenDocument::isChanged()
{
    return database().changeCount() != m_savedCount && database().isModified();
}

void OpenDocument::saved(const std::string& path, uint64_t changeCount)
{
    m_path = path;
    m_seen = disk::stampOf(path);
    m_isConverted = false;
    m_savedCount = changeCount;
    m_host.setFileName(modulePath(path));
}

} // namespace desktop
