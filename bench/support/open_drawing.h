#pragma once

#include "files/dxf/reader.h"
#include "files/dxf/save.h"
#include "host/app/front_end.h"
#include "host/app/session.h"
#include "host/ui/dialog.h"

#include <string>

namespace bench
{

/// A front end for runs without a user: every question is cancelled, messages are dropped.
class SilentFrontEnd : public FrontEnd
{
public:
    CWnd* mainWindow() override { return &m_window; }
    void shown(CDialog&) override {}
    void gone(CDialog&) override {}
    int runModal(CDialog& dialog) override;
    void changed(CWnd&) override {}
    void setFocus(CWnd*) override {}
    void messageBox(const std::u16string&) override {}
    std::optional<std::u16string> askFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<int> askColor(int) override { return std::nullopt; }

private:
    CWnd m_window;
};

/// A running host with a drawing open in it, as the programs have it. Sessions end in the reverse order.
class OpenDrawing
{
public:
    /// `path` is UTF-8. Throws what the reader throws.
    explicit OpenDrawing(const std::string& path);

    host::Session& session() { return m_session; }
    AcApDocument& document() { return *m_document; }
    AcDbDatabase& database() { return *m_document->database(); }

private:
    files::DxfReader m_reader;
    files::DxfWriter m_writer;
    SilentFrontEnd m_frontEnd;
    host::Session m_session;
    AcApDocument* m_document;
};

/// Reads a drawing so that the next command can start: the index of the file, its handles, blocks and layers known.
void readForCommands(AcDbDatabase& database, const std::string& path);

} // namespace bench
