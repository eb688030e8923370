#include "files/dwg/temp_folder.h"

#include <stdlib.h> // mkdtemp is not in <cstdlib>

namespace fs = std::filesystem;

namespace dwg
{

TempFolder::TempFolder()
{
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    if (error)
        return;
    std::string name = parent / "veloxa-XXXXXX";
    if (mkdtemp(name.data()) != nullptr)
        m_path = name;
}

TempFolder::~TempFolder()
{
    if (m_path.empty())
        return;
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

} // namespace dwg
