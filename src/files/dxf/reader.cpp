#include "files/dxf/reader.h"

#include "files/dxf/binary.h"
#include "files/dxf/indexer.h"
#include "files/error.h"
#include "files/file_bytes.h"

#include <array>
#include <utility>

namespace files
{

namespace
{

constexpr int kR2000 = 1015;
constexpr int kR2018 = 1032;

std::string nameOfVersion(int version)
{
    static constexpr std::array<std::pair<int, const char*>, 12> kNames{{{1006, "R10"},
                                                                         {1009, "R12"},
                                                                         {1012, "R13"},
                                                                         {1014, "R14"},
                                                                         {1015, "R2000"},
                                                                         {1018, "R2004"},
                                                                         {1021, "R2007"},
                                                                         {1024, "R2010"},
                                                                         {1027, "R2013"},
                                                                         {1032, "R2018"},
                                                                         {1002, "R2.5"},
                                                                         {1004, "R9"}}};
    for (const auto& [number, name] : kNames)
        if (number == version)
            return name;
    return "AC" + std::to_string(version);
}

void requireVersion(int version, const std::string& path)
{
    if (version < kR2000)
        throw FileError{path, "is a drawing of version " + nameOfVersion(version) +
                                  ", older than R2000: open it in your CAD program and save it as DXF of version "
                                  "R2000 or newer"};
    if (version > kR2018)
        throw FileError{path, "is a drawing of version " + nameOfVersion(version) +
                                  ", newer than R2018: save it as DXF of version R2018 or older"};
}

} // namespace

DrawingStore DxfReader::read(const std::string& path, Purpose purpose)
{
    return readDxf(readFile(path), path, purpose);
}

DrawingStore readDxf(FileText bytes, const std::string& path, DrawingReader::Purpose purpose)
{
    const bool binary = isBinaryDxf(bytes.view());
    FileText text = binary ? textOfBinaryDxf(bytes.view(), path) : bytes;
    DrawingStore store = DxfIndexer{path, std::move(text)}.run();
    if (binary)
        store.original = std::move(bytes);
    if (purpose == DrawingReader::Purpose::Drawing)
        requireVersion(store.version, path);
    return store;
}

} // namespace files
