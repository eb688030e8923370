#pragma once

#include <string>

class AcApDocument;

/// Locks the current document for writing while it lives; locks nest. Without a document there is nothing to lock.
class OpenForWrite
{
public:
    OpenForWrite();
    ~OpenForWrite();
    OpenForWrite(const OpenForWrite&) = delete;
    OpenForWrite& operator=(const OpenForWrite&) = delete;

private:
    AcApDocument* m_document;
};

/// Hands a text to the current document's command line and gives the keyboard focus to the host's main window.
void SendCommandString(const std::u16string& text);
