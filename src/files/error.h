#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace files
{

/// A file that cannot be read or written: the one error of this box. `what()` is one line for the user: the file, the
/// line (or byte) where it is known, and the reason.
class FileError : public std::runtime_error
{
public:
    FileError(std::string path, const std::string& reason)
        : std::runtime_error{path + ": " + reason}, m_path{std::move(path)}
    {
    }
    /// `line` counts from 1.
    FileError(std::string path, uint64_t line, const std::string& reason)
        : std::runtime_error{path + ": line " + std::to_string(line) + ": " + reason}, m_path{std::move(path)},
          m_line{line}
    {
    }

    const std::string& path() const { return m_path; }
    /// 0 when no line is known.
    uint64_t line() const { return m_line; }

private:
    std::string m_path;
    uint64_t m_line = 0;
};

} // namespace files
