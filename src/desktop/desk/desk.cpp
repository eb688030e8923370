#include "desktop/desk/desk.h"

#include "frame/entry/module.h"

#include <cstdlib>
#include <filesystem>

namespace desktop
{

Desk::Desk(host::SessionOptions options) : m_session{m_reader, m_writer, m_frontEnd, std::move(options)}
{
    m_session.loadModule(&acrxEntryPoint, programFolder() + "/Veloxa.arx");
}

std::string programFolder()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

std::vector<std::string> fontFolders(const std::string& drawing, const std::vector<std::string>& extra)
{
    std::vector<std::string> folders = extra;
    folders.push_back(std::filesystem::path{drawing}.parent_path().string());
    folders.push_back(programFolder());
    if (const char* home = std::getenv("HOME"))
        folders.push_back(std::string{home} + "/.local/share/fonts");
    return folders;
}

} // namespace desktop
