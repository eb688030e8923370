#pragma once

#include "files/dxf/save.h"
#include "files/reader.h"
#include "host/app/session.h"
#include "support/memory_front_end.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// A host for one input, with the module loaded and nothing stored by earlier ones. At its end nothing may be left
/// open, locked or selected.
class Desk
{
public:
    Desk();
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    host::Session& session() { return *m_session; }
    MemoryFrontEnd& frontEnd() { return m_frontEnd; }

    /// Makes a drawing file's bytes the current drawing; false when they are refused.
    bool open(std::string_view bytes);
    AcDbDatabase& drawing() { return *m_session->documents().curDocument()->database(); }

    /// Runs a command, its questions answered by what `frontEnd` was given.
    void command(std::u16string_view name);

    /// The folder of the process, where what is written stays until the next desk or `clearFolder`. Module paths are as
    /// the module writes them.
    static std::string folder();
    static void clearFolder();
    static std::u16string modulePath(const std::string& name);
    static void write(const std::string& name, std::string_view bytes);
    static std::string read(const std::string& name);

private:
    files::FileReader m_reader;
    files::DxfWriter m_writer;
    MemoryFrontEnd m_frontEnd;
    std::optional<host::Session> m_session;
};

/// A small whole road: alignments with sections, ground, coded points, lines and blocks.
std::string smallRoad();
/// A drawing of R2000 with nothing in it.
std::string emptyDrawing();

/// A drawing from a file's bytes, or null when they are refused.
std::unique_ptr<AcDbDatabase> readDrawing(std::string_view bytes, DrawingReader::Purpose purpose);

/// The bytes that a drawing is saved as.
std::string savedAs(AcDbDatabase& drawing);

/// Gives every row that the last scan found the symbol drawing at `file`, and switches everything on that can be drawn.
void giveSymbols(const std::u16string& file);
