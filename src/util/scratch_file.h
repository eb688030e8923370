#pragma once

#include <string>

/// The scratch file "temp.temp" in the user's folder, by way of which 8-bit texts go; it is left in place with the last
/// text. Each text is meant to replace the one before, but only the last is really written, when this object goes: one
/// serves one run over many texts. A text goes its way whether the file can be written or not.
class ScratchFile
{
public:
    ScratchFile() = default;
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    /// Takes a text, its line end included.
    void pass(std::string bytes) { m_last = std::move(bytes); }

private:
    std::string m_last;
};
