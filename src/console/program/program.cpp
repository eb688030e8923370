#include "console/program/program.h"

#include "console/program/damage.h"
#include "console/program/symbol_folders.h"
#include "console/text/shown_text.h"
#include "dbkit/symbol_block.h"
#include "disk/replace.h"
#include "frame/entry/module.h"
#include "host/app/paths.h"
#include "store/table_index.h"
#include "store/text/text.h"
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

std::optional<host::NothingKept> nothingKept(const CommonOptions& options)
{
    return options.keepsNothing ? std::optional<host::NothingKept>{std::in_place} : std::optional<host::NothingKept>{};
}

} // namespace

std::string settingsFolderOf(const CommonOptions& options)
{
    return options.settingsFolder.empty() ? nativePath(UserDataPath()) : options.settingsFolder;
}

std::string programFolder()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

Program::Program(const CommonOptions& options)
    : m_overwrite{options.overwrite}, m_nothingKept{nothingKept(options)}, m_session{m_reader, m_writer, m_frontEnd,
                                                                                     sessionOptions(options)}
{
    m_frontEnd.onMessage = [](const std::u16string& text) { std::cerr << shownText(toUtf8(text) + "\n"); };
    m_session.loadModule(&acrxEntryPoint, programFolder() + "/Veloxa.arx");
}

AcApDocument* Program::open(const std::string& path)
{
    const disk::FileStamp seen = disk::stampOf(path); // before it is read: what changes meanwhile counts
    AcApDocument* document = m_session.documents().open(modulePath(path));
    m_seen[document] = seen;
    return document;
}

std::string Program::save(const std::string& path)
{
    refuseDamage();
    AcApDocument* document = m_session.documents().curDocument();
    const bool isOwn = document != nullptr && disk::isSameFile(path, nativePath(document->fileName()));
    const bool isLost = disk::cannotBeKept(path);
    m_writer.seen = isOwn && !m_overwrite ? m_seen[document] : disk::FileStamp{};
    try
    {
        m_session.saveCurrent(modulePath(path));
    }
    catch (const disk::ChangedFile& changed)
    {
        throw Failure{changed.what() + std::string{", and is not overwritten (--overwrite insists)"}};
    }
    m_seen[document] = disk::stampOf(path);
    return isLost ? path + ": the earlier file was not kept: with .bak its name would be too long" : std::string{};
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

void Program::refuseDamage()
{
    if (const std::string damage = whatStopsTheWork(m_session); !damage.empty())
        throw Failure{damage};
}

} // namespace console
