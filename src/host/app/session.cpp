#include "host/app/session.h"

#include "host/app/classes.h"
#include "host/app/host_command.h"
#include "host/app/paths.h"
#include "store/text/text.h"

#include <filesystem>
#include <stdexcept>

namespace host
{

namespace
{

thread_local Session* innermost = nullptr;

std::vector<std::u16string> wordsOf(std::u16string_view line)
{
    std::vector<std::u16string> words;
    for (bool inWord = false; const char16_t unit : line)
    {
        const bool blank = unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
        if (!blank && !inWord)
            words.emplace_back();
        if (!blank)
            words.back() += unit;
        inWord = !blank;
    }
    return words;
}

} // namespace

Session::Session(DrawingReader& reader, DrawingWriter& writer, FrontEnd& frontEnd, SessionOptions options)
    : m_outer{innermost}, m_reader{reader}, m_writer{writer}, m_frontEnd{frontEnd}, m_options{std::move(options)},
      m_symbolSearch{m_options.symbolFolders}
{
    registerClasses();
    innermost = this;
    m_outerServices = acdbSetHostApplicationServices(this);
}

Session::~Session()
{
    unloadModule();
    while (m_documents.count() != 0)
        m_documents.close(m_documents.at(m_documents.count() - 1));
    acdbSetHostApplicationServices(m_outerServices);
    innermost = m_outer;
}

Session& Session::current()
{
    if (innermost == nullptr)
        throw std::logic_error("no session is running");
    return *innermost;
}

bool Session::hasCurrent()
{
    return innermost != nullptr;
}

void Session::setFaults(Faults* faults)
{
    m_faults = faults != nullptr ? faults : &m_noFaults;
}

void Session::loadModule(EntryPoint entry, std::string file)
{
    unloadModule();
    m_entry = entry;
    m_moduleFile = std::move(file);
    m_entry(AcRx::kInitAppMsg, &m_moduleFile);
}

void Session::unloadModule()
{
    if (m_entry == nullptr)
        return;
    m_entry(AcRx::kUnloadAppMsg, &m_moduleFile);
    m_entry = nullptr;
    m_moduleFile.clear();
}

std::string Session::moduleFile(std::u16string_view name) const
{
    const std::string fileName = std::filesystem::path(m_moduleFile).filename().string();
    return equalNoCase(toUtf16(fileName), name) ? m_moduleFile : std::string{};
}

bool Session::runCommand(std::u16string_view line)
{
    const bool ran = runLine(line);
    runPending();
    return ran;
}

bool Session::runLine(std::u16string_view line)
{
    const std::vector<std::u16string> words = wordsOf(line);
    if (words.empty() || m_documents.curDocument() == nullptr || m_commandActive)
        return false;
    const AcEdCommandStack::Command* command = m_commands.lookup(words.front());
    if (command == nullptr)
        return runHostCommand(words);

    struct Active
    {
        explicit Active(bool& flag) : m_flag{flag} { m_flag = true; }
        ~Active() { m_flag = false; }
        bool& m_flag;
    };
    const Active active{m_commandActive};
    command->handler();
    return true;
}

void Session::runPending()
{
    while (AcApDocument* document = m_commandActive ? nullptr : m_documents.curDocument())
    {
        std::u16string& pending = document->pendingInput();
        const size_t end = pending.find_first_of(u"\r\n");
        if (end == std::u16string::npos)
            return;
        const std::u16string line = pending.substr(0, end);
        pending.erase(0, end + 1);
        runLine(line);
    }
}

void Session::saveCurrent(const std::u16string& path)
{
    AcApDocument* document = m_documents.curDocument();
    if (document == nullptr)
        throw std::runtime_error("there is no drawing to save");
    m_writer.write(*document->database(), nativePath(path));
    document->setFileName(path);
}

AcDbDatabase* Session::workingDatabase() const
{
    const AcApDocument* document = m_documents.curDocument();
    return document != nullptr ? document->database() : nullptr;
}

bool Session::isWriteAllowed(const AcDbDatabase* database) const
{
    const AcApDocument* document = m_documents.document(database);
    return document == nullptr || document->lockDepth() > 0;
}

DrawingStore Session::readSymbolDrawing(std::u16string_view path)
{
    const std::optional<std::string> file = m_symbolSearch.find(path);
    if (!file)
        throw std::runtime_error{m_symbolSearch.whyMissing(path)};
    return m_reader.read(*file, DrawingReader::Purpose::Symbol);
}

void Session::symbolUnreadable(std::u16string_view path, std::string reason)
{
    m_unreadable.push_back({std::u16string{path}, std::move(reason)});
}

void Session::symbolIncomplete(std::u16string_view path, CountsByKind missing)
{
    m_incomplete.push_back({std::u16string{path}, std::move(missing)});
}

} // namespace host
