#pragma once

#include "files/dxf/line_scanner.h"
#include "store/drawing_store.h"

#include <string>
#include <string_view>
#include <vector>

namespace files
{

/// Finds the objects of a DXF text in one pass: where each begins and ends, its handle and type, which table, block or
/// section holds it. Decodes nothing else. What is not a drawing's structure is damage: FileError with the line.
class DxfIndexer
{
public:
    DxfIndexer(std::string path, FileText text);

    DrawingStore run();

private:
    using Result = PairScanner::Result;

    bool advance();
    bool advancePastComments();
    [[noreturn]] void fail(const std::string& reason) const;
    void requireZero(std::string_view word, const char* where);

    void readHeader();
    void readClasses();
    void readTables();
    void readBlocks();
    void readObjects(Container::Kind kind);
    void skipSection();
    void readSection();

    size_t beginContainer(Container::Kind kind);
    uint32_t beginNamed(Container::Kind kind);
    ObjectRecord& beginRecord(uint32_t container);
    void readRecord(ObjectRecord& record, bool dimensionStyle);
    void readBlock();
    void readTable();
    void finishStore();

    std::string m_path;
    PairScanner m_scanner;
    DrawingStore m_store;
    std::vector<std::string_view> m_sections; ///< the names of those that were read
    bool m_atZero = false;                    ///< the pair at hand is the next object's code 0
    uint16_t m_lastKind = 0;
};

} // namespace files
