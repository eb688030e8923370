#pragma once

#include "console/program/failure.h"
#include "console/program/script_front_end.h"
#include "disk/stamp.h"
#include "files/dxf/save.h"
#include "files/reader.h"
#include "host/app/disk.h"
#include "host/app/session.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace console
{

/// What every subcommand takes.
struct CommonOptions
{
    std::string drawing;
    std::string settingsFolder;
    std::vector<std::string> symbolFolders;
    bool json = false;
    bool overwrite = false;    ///< a drawing that changed on disk since it was opened is replaced all the same
    bool keepsNothing = false; ///< no settings are written, no folder is made
};

/// Writes drawings as DXF, over a file that is still as it was seen only.
class SavingWriter : public DrawingWriter
{
public:
    disk::FileStamp seen; ///< of no file: whatever stands there is replaced

    void write(AcDbDatabase& database, const std::string& path) override { files::saveDrawing(database, path, seen); }
};

/// The folder of the user's settings, which may be missing.
std::string settingsFolderOf(const CommonOptions& options);

/// A host without a display, with the module loaded into it.
class Program
{
public:
    explicit Program(const CommonOptions& options);

    host::Session& session() { return m_session; }
    const host::Session& session() const { return m_session; }
    ScriptFrontEnd& frontEnd() { return m_frontEnd; }

    /// Opens a drawing and makes it current.
    AcApDocument* open(const std::string& path);
    /// Gets symbol files, named as the module names them, ready to be read.
    void prepareFiles(const std::vector<std::u16string>& files);
    /// The same, but for those whose block the current drawing has already: they will not be read.
    void prepareSymbols(const std::vector<std::u16string>& files);
    /// Runs a command by name; Failure when there is none, or when it came upon damage.
    void command(std::u16string_view name);
    /// Saves the current drawing; Failure when what was done rests on damage, or when a file would be replaced that was
    /// changed since it was opened or saved here. Throws what saving throws. Answers what the user should know, or an
    /// empty text.
    std::string save(const std::string& path);
    /// Failure that tells of a value that is no number where the work so far rests on one: file, line and value.
    void refuseDamage();

private:
    bool m_overwrite;
    std::map<const AcApDocument*, disk::FileStamp> m_seen; ///< the files of the open drawings, as they were last seen
    std::optional<host::NothingKept> m_nothingKept;
    files::FileReader m_reader;
    SavingWriter m_writer;
    ScriptFrontEnd m_frontEnd;
    host::Session m_session;
};

/// The folder that the running program stands in; the module stands beside it.
std::string programFolder();

} // namespace console
