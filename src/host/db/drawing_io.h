#pragma once

#include "store/drawing_store.h"

#include <string>

class AcDbDatabase;

/// Reads a drawing file for the host. Implemented outside the host (files), registered with the session.
class DrawingReader
{
public:
    enum class Purpose
    {
        Drawing,
        Symbol
    };

    virtual ~DrawingReader() = default;

    /// The index of the drawing file at `path` (a real path). A symbol may be of any version, a drawing must be
    /// R2000 or newer. Throws an exception derived from std::exception whose text says what is wrong and where.
    virtual DrawingStore read(const std::string& path, Purpose purpose) = 0;
};

/// Writes a drawing for the host. Implemented outside the host, registered with the session.
class DrawingWriter
{
public:
    virtual ~DrawingWriter() = default;

    /// Writes `database` to `path`: complete on disk under another name first, then renamed; what stood there is kept
    /// as `path` + ".bak". Throws an exception derived from std::exception; then nothing changed on disk.
    virtual void write(AcDbDatabase& database, const std::string& path) = 0;
};
