#pragma once

#include <string>

/// The scratch file "temp.temp" in the user's folder, by way of which 8-bit texts go; it is left in place, in the end
/// with the last text. Each text is meant to replace the one before, but only the first and the last are really
/// written: one object serves one run over many texts.
class ScratchFile
{
public:
    ScratchFile() = default;
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    /// Takes a text, its line end included. False when the file cannot be made; it is tried once.
    bool pass(const std::string& bytes);

private:
    bool write();

    std::u16string m_path;
    std::string m_last;
    bool m_writable = false;
    bool m_isLastWritten = false;
};
