#include "host/app/document.h"

#include "host/app/paths.h"
#include "host/app/session.h"
#include "host/db/ledger.h"
#include "host/view/entity_index.h"

#include <algorithm>

namespace
{

constexpr char16_t kEscape = 27;

} // namespace

AcApDocument::AcApDocument(std::unique_ptr<AcDbDatabase> database, std::u16string fileName)
    : m_database{std::move(database)}, m_view{std::make_unique<View>(*m_database)}, m_fileName{std::move(fileName)}
{
}

AcApDocument::~AcApDocument() = default;

EntityIndex& AcApDocument::index()
{
    if (!m_index)
        m_index = std::make_unique<EntityIndex>(*m_database);
    return *m_index;
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const
{
    for (const auto& document : m_documents)
        if (document->database() == database)
            return document.get();
    return nullptr;
}

std::unique_ptr<AcApDocumentIterator> AcApDocManager::newAcApDocumentIterator() const
{
    std::vector<AcApDocument*> documents;
    for (const auto& document : m_documents)
        documents.push_back(document.get());
    return std::make_unique<AcApDocumentIterator>(std::move(documents));
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode /*mode*/,
                                               const char16_t* /*globalName*/, const char16_t* /*localName*/,
                                               bool /*prompt*/)
{
    if (document == nullptr)
        return Acad::eNoDocument;
    ++document->m_lockDepth;
    ++ledger().lockDepth;
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document)
{
    if (document == nullptr)
        return Acad::eNoDocument;
    if (document->m_lockDepth == 0)
    {
        ledger().faults.emplace_back("unlocking a document that is not locked");
        return Acad::eLockViolation;
    }
    --document->m_lockDepth;
    --ledger().lockDepth;
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const char16_t* text, bool activate,
                                                      bool /*wrapUpInactive*/, bool /*echo*/)
{
    if (document == nullptr)
        return Acad::eNoDocument;
    if (text == nullptr)
        return Acad::eInvalidInput;
    std::u16string& pending = document->m_pendingInput;
    pending += text;
    if (const size_t cancel = pending.rfind(kEscape); cancel != std::u16string::npos)
        pending.erase(0, cancel + 1);
    if (activate)
        m_current = document;
    return Acad::eOk;
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor)
{
    if (std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor)
{
    std::erase(m_reactors, reactor);
}

AcApDocument* AcApDocManager::open(const std::u16string& path)
{
    auto database = std::make_unique<AcDbDatabase>(false, false);
    database->adopt(host::Session::current().reader().read(nativePath(path), DrawingReader::Purpose::Drawing));
    return add(std::move(database), path);
}

AcApDocument* AcApDocManager::add(std::unique_ptr<AcDbDatabase> database, const std::u16string& path)
{
    m_documents.push_back(std::make_unique<AcApDocument>(std::move(database), path));
    AcApDocument* document = m_documents.back().get();
    m_current = document;
    // Copies: a reactor may take itself or another one off while it is told.
    for (AcApDocManagerReactor* reactor : std::vector{m_reactors})
        reactor->documentCreated(document);
    for (AcEditorReactor* reactor : std::vector{host::Session::current().editor().reactors()})
        reactor->endDwgOpen(document->database());
    return document;
}

void AcApDocManager::close(AcApDocument* document)
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [document](const auto& each) { return each.get() == document; });
    if (found == m_documents.end())
        return;
    for (AcApDocManagerReactor* reactor : std::vector{m_reactors})
        reactor->documentToBeDestroyed(document);
    m_documents.erase(found);
    m_current = m_documents.empty() ? nullptr : m_documents.back().get();
}

AcApDocManager* acDocManagerPtr()
{
    return host::Session::hasCurrent() ? &host::Session::current().documents() : nullptr;
}
