#include "console/program.h"

#include "frame/entry/module.h"
#include "host/text.h"

#include <filesystem>
#include <iostream>

namespace console
{

namespace
{

host::SessionOptions sessionOptions(const CommonOptions& options)
{
    host::SessionOptions session;
    session.userDataFolder = options.settingsFolder;
    session.symbolFolders = options.symbolFolders;
    return session;
}

} // namespace

std::string programFolder()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

Program::Program(const CommonOptions& options) : m_session{m_reader, m_writer, m_frontEnd, sessionOptions(options)}
{
    m_frontEnd.onMessage = [](const std::u16string& text) { std::cerr << toUtf8(text) << '\n'; };
    m_session.loadModule(&acrxEntryPoint, programFolder() + "/Veloxa.arx");
}

AcApDocument* Program::open(const std::string& path)
{
    return m_session.documents().open(toUtf16(path));
}

void Program::command(std::u16string_view name)
{
    if (!m_session.runCommand(name))
        throw Failure{"there is no command " + toUtf8(name)};
}

} // namespace console
