#pragma once

#include "host/app/document.h"
#include "host/app/registry.h"

/// On the database of one document for as long as it lives. It reacts to nothing yet: what a document needs done at
/// changes of its drawing goes here.
class ArxDbReactor : public AcDbDatabaseReactor
{
public:
    explicit ArxDbReactor(AcApDocument* document) : m_document(document) { m_document->database()->addReactor(this); }
    ~ArxDbReactor() override { m_document->database()->removeReactor(this); }
    ArxDbReactor(const ArxDbReactor&) = delete;
    ArxDbReactor& operator=(const ArxDbReactor&) = delete;

private:
    AcApDocument* m_document;
};

/// With the editor for as long as it lives; has newly opened drawings tracked.
class ArxEdReactor : public AcEditorReactor
{
public:
    ArxEdReactor();
    ~ArxEdReactor() override { m_editor->removeReactor(this); }
    ArxEdReactor(const ArxEdReactor&) = delete;
    ArxEdReactor& operator=(const ArxEdReactor&) = delete;

    void endDwgOpen(AcDbDatabase* database) override;

private:
    AcEditor* m_editor;
};
