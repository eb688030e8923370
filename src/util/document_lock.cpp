#include "util/document_lock.h"

#include "host/app/document.h"
#include "host/ui/host_window.h"
#include "host/ui/window.h"

OpenForWrite::OpenForWrite() : m_document(acDocManagerPtr()->curDocument())
{
    if (acDocManagerPtr()->lockDocument(m_document, AcAp::kWrite) != Acad::eOk)
        m_document = nullptr;
}

OpenForWrite::~OpenForWrite()
{
    if (m_document != nullptr)
        acDocManagerPtr()->unlockDocument(m_document);
}

void SendCommandString(const std::u16string& text)
{
    acDocManagerPtr()->sendStringToExecute(acDocManagerPtr()->curDocument(), text.c_str(), true, false, true);
    if (CWnd* frame = acedGetAcadFrame())
        frame->SetFocus();
}
