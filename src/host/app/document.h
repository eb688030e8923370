#pragma once

#include "host/db/database.h"
#include "host/db/error_status.h"
#include "host/view/view.h"

#include <memory>
#include <string>
#include <vector>

class EntityIndex;

namespace AcAp
{
enum DocLockMode
{
    kNone = 0,
    kAutoWrite = 1,
    kNotLocked = 2,
    kWrite = 4,
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40
};
} // namespace AcAp

/// One open drawing: its database, its view, its lock, and the file it came from. Owned by the document manager.
class AcApDocument
{
public:
    AcApDocument(std::unique_ptr<AcDbDatabase> database, std::u16string fileName);
    AcApDocument(const AcApDocument&) = delete;
    AcApDocument& operator=(const AcApDocument&) = delete;
    ~AcApDocument();

    AcDbDatabase* database() const { return m_database.get(); }
    /// Path of the file as it was opened; empty for a drawing without a file.
    const std::u16string& fileName() const { return m_fileName; }
    void setFileName(std::u16string name) { m_fileName = std::move(name); }
    View& view() { return *m_view; }
    /// The lists and boxes by which selections find entities; built by the selections that need them.
    EntityIndex& index();
    int lockDepth() const { return m_lockDepth; }
    /// What was sent to the document's command line and not run yet.
    std::u16string& pendingInput() { return m_pendingInput; }

private:
    friend class AcApDocManager;
    std::unique_ptr<AcDbDatabase> m_database;
    std::unique_ptr<View> m_view;
    std::unique_ptr<EntityIndex> m_index;
    std::u16string m_fileName;
    std::u16string m_pendingInput;
    int m_lockDepth = 0;
};

/// Hears about documents.
class AcApDocManagerReactor
{
public:
    virtual ~AcApDocManagerReactor() = default;
    virtual void documentCreated(AcApDocument*) {}
    virtual void documentToBeDestroyed(AcApDocument*) {}
};

class AcApDocumentIterator
{
public:
    explicit AcApDocumentIterator(std::vector<AcApDocument*> documents) : m_documents{std::move(documents)} {}
    bool done() const { return m_at >= m_documents.size(); }
    void step() { ++m_at; }
    AcApDocument* document() const { return m_documents[m_at]; }

private:
    std::vector<AcApDocument*> m_documents;
    size_t m_at = 0;
};

/// The open drawings of a session. Locks nest; unlocking more than was locked is noted by the ledger.
class AcApDocManager
{
public:
    AcApDocument* curDocument() const { return m_current; }
    AcApDocument* mdiActiveDocument() const { return m_current; }
    AcApDocument* document(const AcDbDatabase* database) const;
    std::unique_ptr<AcApDocumentIterator> newAcApDocumentIterator() const;
    size_t count() const { return m_documents.size(); }
    AcApDocument* at(size_t index) const { return m_documents[index].get(); }

    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                   const char16_t* globalName = nullptr, const char16_t* localName = nullptr,
                                   bool prompt = true);
    Acad::ErrorStatus unlockDocument(AcApDocument* document);
    /// Hands text to the document's command line: run when the host is idle next; an Escape character cancels what
    /// is pending.
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const char16_t* text, bool activate = true,
                                          bool wrapUpInactive = false, bool echo = true);

    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);
    const std::vector<AcApDocManagerReactor*>& reactors() const { return m_reactors; }

    /// For the programs: opens a drawing with the session's reader and makes it current. Throws what the reader throws.
    AcApDocument* open(const std::u16string& path);
    /// Takes a database that was read elsewhere as a document.
    AcApDocument* add(std::unique_ptr<AcDbDatabase> database, const std::u16string& path);
    void setCurrent(AcApDocument* document) { m_current = document; }
    /// Closes without saving; the drawing opened last becomes current.
    void close(AcApDocument* document);

private:
    std::vector<std::unique_ptr<AcApDocument>> m_documents;
    std::vector<AcApDocManagerReactor*> m_reactors;
    AcApDocument* m_current = nullptr;
};

/// The current session's document manager.
AcApDocManager* acDocManagerPtr();
