#pragma once

#include "host/app/session.h"
#include "support/memory_front_end.h"

#include <stdexcept>
#include <string>
#include <utility>

/// A session for tests that need no drawing: a front end without a display, no files.
class DialogSession
{
public:
    explicit DialogSession(std::string userDataFolder = "/nonexistent")
        : m_session{m_files, m_files, frontEnd, {std::move(userDataFolder), {}}}
    {
    }

    MemoryFrontEnd frontEnd;

private:
    struct NoFiles : DrawingReader, DrawingWriter
    {
        DrawingStore read(const std::string&, Purpose) override { throw std::runtime_error("no files here"); }
        void write(AcDbDatabase&, const std::string&) override { throw std::runtime_error("no files here"); }
    };

    NoFiles m_files;
    host::Session m_session;
};
