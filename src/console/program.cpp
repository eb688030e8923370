#include "console/program.h"

#include "console/damage.h"
#include "console/shown_text.h"
#include "console/symbol_folders.h"
#include "dbkit/symbol_block.h"
#include "frame/entry/module.h"
#include "host/app/paths.h"
#include "host/drawing/table_index.h"
#include "host/text.h"
#include "util/folders.h"

#include <filesystem>
#include <iostream>
#include <set>

namespace console
{

namespace
{

host::SessionOptions sessionOptions(const CommonOptions& options)
{
    host::SessionOptions session;
    session.userDataFolder = options.settingsFolder;
    session.symbolFolders = options.symbolFolders;
    const SymbolFolderList kept{settingsFolderOf(options)};
    session.symbolFolders.insert(session.symbolFolders.end(), kept.folders().begin(), kept.folders().end());
    session.symbolFolders.push_back(programFolder() + "/symbols");
    return session;
}

} // namespace

void require(const UserAction& action)
{
    if (!action)
        throw Failure{action.reason()};
}

std::string settingsFolderOf(const CommonOptions& options)
{
    return options.settingsFolder.empty() ? nativePath(UserDataPath()) : options.settingsFolder;
}

std::string programFolder()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

Program::Program(const CommonOptions& options) : m_session{m_reader, m_writer, m_frontEnd, sessionOptions(options)}
{
    m_frontEnd.onMessage = [](const std::u16string& text) { std::cerr << shownText(toUtf8(text) + "\n"); };
    m_session.loadModule(&acrxEntryPoint, programFolder() + "/Veloxa.arx");
}

AcApDocument* Program::open(const std::string& path)
{
    return m_session.documents().open(modulePath(path));
}

void Program::prepareFiles(const std::vector<std::u16string>& files)
{
    std::set<std::string> paths;
    for (const std::u16string& file : std::set<std::u16string>{files.begin(), files.end()})
        if (auto path = m_session.symbolSearch().find(file))
            paths.insert(std::move(*path));
    m_reader.prepare({paths.begin(), paths.end()});
}

void Program::prepareSymbols(const std::vector<std::u16string>& files)
{
    TableIndex& tables = m_session.documents().curDocument()->database()->tables();
    std::vector<std::u16string> wanted;
    for (const std::u16string& file : files)
        if (!file.empty() && tables.find("BLOCK_RECORD", SymbolBlockName(file)) == nullptr)
            wanted.push_back(file);
    prepareFiles(wanted);
}

void Program::command(std::u16string_view name)
{
    if (!m_session.runCommand(name))
        throw Failure{"there is no command " + toUtf8(name)};
    refuseDamage();
}

void Program::save(const std::string& path)
{
    refuseDamage();
    m_session.saveCurrent(modulePath(path));
}

void Program::refuseDamage()
{
    if (const std::string damage = whatStopsTheWork(m_session); !damage.empty())
        throw Failure{damage};
}

} // namespace console
