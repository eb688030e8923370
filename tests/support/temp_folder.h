#pragma once

#include "store/text/text.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// A folder of its own for one test, gone with all that is in it when the test ends.
class TempFolder
{
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "veloxa-test-XXXXXX").string();
        m_path = ::mkdtemp(pattern.data());
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    /// The path of `name` in the folder, as the module writes paths.
    std::u16string modulePath(const std::string& name) const { return toUtf16((m_path / name).string()); }

    void write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }

    std::string read(const std::string& name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// How many files and folders stand directly in it.
    size_t count() const { return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(m_path), {})); }

private:
    std::filesystem::path m_path;
};

/// Sets an environment variable for one test, or unsets it for a null value, and puts the earlier value back.
class ScopedVariable
{
public:
    ScopedVariable(const char* name, const char* value) : m_name(name)
    {
        if (const char* earlier = std::getenv(name))
        {
            m_earlier = earlier;
            m_wasSet = true;
        }
        set(value);
    }
    ~ScopedVariable() { set(m_wasSet ? m_earlier.c_str() : nullptr); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const char* value) const { value != nullptr ? ::setenv(m_name, value, 1) : ::unsetenv(m_name); }

    const char* m_name;
    std::string m_earlier;
    bool m_wasSet = false;
};
