#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace disk
{

/// A file that cannot be read or written. `what()` is one line for the user: the file, the line (or byte) where it is
/// known, and the reason.
class FileError : public std::runtime_error
{
public:
    FileError(std::string path, std::string reason)
        : std::runtime_error{path + ": " + reason}, m_path{std::move(path)}, m_reason{std::move(reason)}
    {
    }
    /// `line` counts from 1.
    FileError(std::string path, uint64_t line, std::string reason)
        : std::runtime_error{path + ": line " + std::to_string(line) + ": " + reason}, m_path{std::move(path)},
          m_reason{std::move(reason)}, m_line{line}
    {
    }

    const std::string& path() const { return m_path; }
    /// Without the file and the line.
    const std::string& reason() const { return m_reason; }
    /// 0 when no line is known.
    uint64_t line() const { return m_line; }

private:
    std::string m_path;
    std::string m_reason;
    uint64_t m_line = 0;
};

} // namespace disk
