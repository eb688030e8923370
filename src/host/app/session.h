#pragma once

#include "host/app/document.h"
#include "host/app/faults.h"
#include "host/app/front_end.h"
#include "host/app/registry.h"
#include "host/app/selection_sets.h"
#include "host/app/symbol_search.h"
#include "host/db/damage.h"
#include "host/db/drawing_io.h"
#include "host/db/host_services.h"
#include "host/db/ledger.h"

#include <memory>
#include <string>
#include <vector>

namespace host
{

/// What the programs give a session. Folders are real paths, without a separator at the end.
struct SessionOptions
{
    std::string userDataFolder;             ///< in place of the user's; empty: $XDG_CONFIG_HOME/PLX/Kavendo
    std::vector<std::string> symbolFolders; ///< searched by file name when a symbol file's own path does not exist
};

/// A symbol drawing that could not be read, and why.
struct UnreadableFile
{
    std::u16string path;
    std::string reason;
};

/// A symbol drawing that became a block without some of its entities.
struct IncompleteFile
{
    std::u16string path;
    CountsByKind missing;
};

/// A running host: documents, commands, reader and writer, front end. The free functions of the host reach it through
/// `current()`; sessions nest (the inner one is current), each is left in the reverse order. A session belongs to the
/// thread that it was made on; drawings can be read in one on another thread and handed over when it is done. Ends with
/// its documents closed and its module unloaded.
class Session final : public AcDbHostApplicationServices
{
public:
    Session(DrawingReader& reader, DrawingWriter& writer, FrontEnd& frontEnd, SessionOptions options = {});
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() override;

    /// The innermost session; there must be one.
    static Session& current();
    static bool hasCurrent();

    AcApDocManager& documents() { return m_documents; }
    AcEdCommandStack& commands() { return m_commands; }
    AcEditor& editor() { return m_editor; }
    FrontEnd& frontEnd() { return m_frontEnd; }
    DrawingReader& reader() { return m_reader; }
    DrawingWriter& writer() { return m_writer; }
    const SessionOptions& options() const { return m_options; }
    Faults& faults() { return *m_faults; }
    void setFaults(Faults* faults);

    using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);
    /// Starts a module through its entry point; it is stopped when the session ends. `file` is the module's own file.
    void loadModule(EntryPoint entry, std::string file);
    /// Stops the module; nothing when none is loaded.
    void unloadModule();
    /// The real path of a loaded module's file by its name ("Veloxa.arx"); empty when it is not loaded.
    std::string moduleFile(std::u16string_view name) const;

    /// Runs a command as the user would, by local or global name ("zoom" with its options included), then what was
    /// sent to the command line. False when there is none of that name, or no drawing is open.
    bool runCommand(std::u16string_view line);
    /// Runs what was sent to the command line; the programs call it after each user action.
    void runPending();

    /// Saves the current document; throws what the writer throws.
    void saveCurrent(const std::u16string& path);

    std::vector<UnreadableFile>& unreadableFiles() { return m_unreadable; }
    std::vector<IncompleteFile>& incompleteFiles() { return m_incomplete; }

    /// The selection sets in use.
    SelectionSets& selectionSets() { return m_selectionSets; }

    AcDbDatabase* workingDatabase() const override;
    bool isWriteAllowed(const AcDbDatabase* database) const override;
    bool refusesOpenForWrite(AcDbObjectId id) override { return m_faults->refuseOpenForWrite(id); }
    bool refusesAppend() override { return m_faults->refuseAppend(); }
    DamageLog* damageLog() override { return &m_damage; }
    DrawingStore readSymbolDrawing(std::u16string_view path) override;
    void symbolUnreadable(std::u16string_view path, std::string reason) override;
    void symbolIncomplete(std::u16string_view path, CountsByKind missing) override;

    /// What the decoding of drawings found damaged. The programs ask after each command and before saving.
    DamageLog& damage() { return m_damage; }

    /// Real paths of the files that could not be written, in order, for the programs to tell: whoever wrote them is
    /// silent.
    std::vector<std::string>& unwrittenFiles() { return m_unwritten; }

    /// Finds symbol files, named as the module names them, in the session's symbol folders too.
    const SymbolSearch& symbolSearch() const { return m_symbolSearch; }
    SymbolSearch& symbolSearch() { return m_symbolSearch; }

private:
    bool runLine(std::u16string_view line);

    Session* m_outer; ///< the session that is current again when this one ends
    AcDbHostApplicationServices* m_outerServices;
    DrawingReader& m_reader;
    DrawingWriter& m_writer;
    FrontEnd& m_frontEnd;
    SessionOptions m_options;
    SymbolSearch m_symbolSearch;
    Faults m_noFaults;
    Faults* m_faults = &m_noFaults;
    AcEditor m_editor;
    AcEdCommandStack m_commands;
    DamageLog m_damage; ///< drawings that are closed take theirs out of it
    AcApDocManager m_documents;
    EntryPoint m_entry = nullptr;
    std::string m_moduleFile;
    bool m_commandActive = false;
    SelectionSets m_selectionSets;
    std::vector<UnreadableFile> m_unreadable;
    std::vector<IncompleteFile> m_incomplete;
    std::vector<std::string> m_unwritten;
};

} // namespace host
