#include "files/reader.h"

#include "disk/read.h"
#include "files/dxf/binary.h"
#include "files/dxf/error.h"
#include "files/dxf/reader.h"
#include "host/app/disk.h"

namespace files
{

namespace
{

FileText textOf(std::string dxf)
{
    const auto text = std::make_shared<const std::string>(std::move(dxf));
    return {std::shared_ptr<const char>{text, text->data()}, text->size()};
}

/// Text DXF begins with the group code of a section's start or of a comment.
bool beginsAsTextDxf(std::string_view bytes)
{
    const size_t begin = std::min(bytes.find_first_not_of(" \t"), bytes.size());
    const std::string_view code = bytes.substr(begin, bytes.find_first_of(" \t\r\n", begin) - begin);
    return code == "0" || code == "999";
}

} // namespace

bool isDrawing(std::string_view bytes)
{
    return dwg::isDwg(bytes) || isBinaryDxf(bytes) || beginsAsTextDxf(bytes);
}

bool isDwgFile(const std::string& path)
{
    constexpr size_t kBegin = 64;
    return dwg::isDwg(disk::beginOfFile(path, kBegin));
}

DrawingStore FileReader::read(const std::string& path, Purpose purpose)
{
    FileText bytes = disk::readFile(path, host::diskFaults());
    if (!dwg::isDwg(bytes.view()))
        return readDxf(std::move(bytes), path, purpose);
    auto prepared = m_prepared.extract(path);
    dwg::Outcome outcome = prepared ? std::move(prepared.mapped()) : dwg::convert({path}, m_options).front();
    if (!outcome.ok())
        throw FileError{path, outcome.reason};
    DrawingStore store = readDxf(textOf(std::move(outcome.dxf)), path, purpose);
    store.lost = std::move(outcome.lost);
    store.hasLines = false;
    return store;
}

void FileReader::prepare(const std::vector<std::string>& paths)
{
    std::vector<std::filesystem::path> drawings;
    for (const std::string& path : paths)
        if (!m_prepared.contains(path) && isDwgFile(path))
            drawings.emplace_back(path);
    if (drawings.empty())
        return;
    std::vector<dwg::Outcome> outcomes = dwg::convert(drawings, m_options);
    for (size_t i = 0; i < drawings.size(); ++i)
        m_prepared.insert_or_assign(drawings[i].string(), std::move(outcomes[i]));
}

} // namespace files
