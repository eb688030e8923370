#pragma once

#include "desktop/desk/window_front_end.h"
#include "files/dxf/save.h"
#include "files/reader.h"
#include "host/app/session.h"

namespace desktop
{

/// The host behind the window: its session, with the module loaded into it. Used on the window's thread only.
class Desk
{
public:
    explicit Desk(host::SessionOptions options = {});

    host::Session& session() { return m_session; }
    AcApDocManager& documents() { return m_session.documents(); }
    WindowFrontEnd& frontEnd() { return m_frontEnd; }

private:
    files::FileReader m_reader;
    files::DxfWriter m_writer;
    WindowFrontEnd m_frontEnd;
    host::Session m_session;
};

/// The folder that the running program stands in; the module stands beside it.
std::string programFolder();

/// Where the fonts of a drawing are looked for before the system's, `extra` first.
std::vector<std::string> fontFolders(const std::string& drawing, const std::vector<std::string>& extra = {});

} // namespace desktop
