#include "files/dwg/file_bytes.h"

#include <cerrno>
#include <cstring>
#include <fstream>

namespace fs = std::filesystem;

namespace dwg
{

std::string readFile(const fs::path& file, std::string& bytes)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (error || !fs::exists(status))
        return "cannot be read: " + (error ? error.message() : std::strerror(ENOENT));
    if (!fs::is_regular_file(status)) // reading a pipe could wait for ever
        return "cannot be read: not a regular file";

    const std::uintmax_t size = fs::file_size(file, error);
    std::ifstream in(file, std::ios::binary);
    if (error || !in)
        return std::string("cannot be read: ") + std::strerror(errno);
    bytes.resize(size);
    in.read(bytes.data(), static_cast<std::streamsize>(size));
    if (static_cast<std::uintmax_t>(in.gcount()) != size)
        return "cannot be read: it changed while it was read";
    return {};
}

bool writeFile(const fs::path& file, std::string_view bytes)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (out)
        return true;
    std::error_code ignored;
    fs::remove(file, ignored);
    return false;
}

} // namespace dwg
