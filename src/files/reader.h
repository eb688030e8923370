#pragma once

#include "files/dwg/convert.h"
#include "host/db/drawing_io.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace files
{

/// Whether the bytes begin as a drawing does: DWG, binary DXF or text DXF.
bool isDrawing(std::string_view bytes);

/// Whether a file begins as a DWG does; false for one that cannot be read.
bool isDwgFile(const std::string& path);

/// Reads drawings of every kind that the program knows, told apart by their content: DXF as it is, DWG converted to
/// DXF. Throws FileError.
class FileReader : public DrawingReader
{
public:
    explicit FileReader(dwg::Options options = {}) : m_options{std::move(options)} {}

    DrawingStore read(const std::string& path, Purpose purpose) override;

    /// Converts the DWG files among `paths` together, so that reading them one by one then costs no process each. What
    /// cannot be read is told when it is read.
    void prepare(const std::vector<std::string>& paths);

private:
    dwg::Options m_options;
    std::map<std::string, dwg::Outcome> m_prepared;
};

} // namespace files
