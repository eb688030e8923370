#include "fuzz/support/stage.h"

#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/road_work.h"
#include "host/db/database.h"

#include <csignal>
#include <filesystem>
#include <iostream>

namespace fs = std::filesystem;

namespace
{

constexpr const char* kWork = "work";
constexpr const char* kSettings = "settings";

constexpr const char* kLibrary = "[SYMBOL]\nMUONG,SYMBOL.dxf,1.00,1.00,0.00\n[TN]\nDC1,SYMBOL.dxf,2.00,1.00,0.50\n";
constexpr const char* kTable = "COT,SYMBOL.dxf,1.00,1.00,0.00,0\n";

std::string outside()
{
    return Desk::folder() + "/outside";
}

/// Everything that a program takes for the user's own place leads outside.
void moveHome()
{
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "AppData", "TMPDIR"})
        ::setenv(variable, outside().c_str(), 1);
}

bool isTemporary(const fs::path& path)
{
    return path.filename().string().starts_with(".veloxa-");
}

} // namespace

Stage::Stage() : m_cameFrom{fs::current_path().string()}, m_terminal{std::cerr.rdbuf(m_said.rdbuf())}
{
    static const std::string road = smallRoad();
    Desk::clearFolder();
    for (const std::string& folder : {work(), settings(), outside(), work() + "/folder"})
        fs::create_directory(folder);
    Desk::write("work/road.dxf", road);
    Desk::write("work/SYMBOL.dxf", kSymbol);
    Desk::write("work/road.dv", kLibrary);
    Desk::write("work/road.dvbd", kTable);
    Desk::write("outside/road.dxf", road);
    Desk::write("road.dxf", road);
    moveHome();
    m_outside = filesOutside();
    m_inside = filesInside();
    fs::current_path(work());
}

Stage::~Stage()
{
    fs::current_path(m_cameFrom);
    std::cerr.rdbuf(m_terminal);
}

std::string Stage::work()
{
    return Desk::folder() + '/' + kWork;
}

std::string Stage::settings()
{
    return Desk::folder() + '/' + kSettings;
}

Stage::Files Stage::filesOutside()
{
    Files files;
    for (auto entry = fs::recursive_directory_iterator{Desk::folder()}; entry != fs::recursive_directory_iterator{};
         ++entry)
    {
        const std::string path = fs::relative(entry->path(), Desk::folder()).string();
        files[path] = entry->is_regular_file() ? Desk::read(path) : "";
        if (path == kWork || path == kSettings)
            entry.disable_recursion_pending();
    }
    return files;
}

Stage::Files Stage::filesInside()
{
    Files files;
    for (const auto& entry : fs::directory_iterator{work()})
        if (entry.is_regular_file())
        {
            const std::string name = entry.path().filename().string();
            files[name] = Desk::read(std::string{kWork} + "/" + name);
        }
    return files;
}

void Stage::mustBeSound() const
{
    mustHold(filesOutside() == m_outside, "nothing is written outside");
    for (const std::string& folder : {work(), settings()})
        for (const auto& entry : fs::directory_iterator{folder})
            mustHold(!isTemporary(entry.path()), "no temporary file is left");
    for (const auto& [name, bytes] : filesInside())
    {
        const auto before = m_inside.find(name);
        const bool isAsBefore = before != m_inside.end() && before->second == bytes;
        if (m_saved.contains(name) && !m_answered.contains(name) && !isAsBefore)
            mustHold(readDrawing(bytes, DrawingReader::Purpose::Drawing) != nullptr, "a saved drawing is whole");
    }
}

Room::Room(std::optional<size_t> bytes)
{
    std::signal(SIGXFSZ, SIG_IGN); // then writing fails with an error instead
    ::getrlimit(RLIMIT_FSIZE, &m_before);
    if (bytes)
    {
        const rlimit limit{*bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
}

Room::~Room()
{
    ::setrlimit(RLIMIT_FSIZE, &m_before);
}
