#pragma once

#include "store/drawing_store.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace files
{

/// The bytes of a drawing as it is now, as pieces to be written one behind the other: what was not touched are pieces
/// of the file it was read from. Valid until the database or this object changes.
class DrawingPieces
{
public:
    explicit DrawingPieces(AcDbDatabase& database);
    const std::vector<std::string_view>& pieces() const { return m_pieces; }

private:
    /// Replaces a range of the file's text. Of edits at the same place the first made comes first.
    struct Edit
    {
        const char* begin;
        const char* end;
        std::string_view text;
    };

    void editHeader(AcDbDatabase& database);
    void replace(std::string_view original, std::string_view text);
    void insertAt(const char* at, const ObjectRecord& record);
    void appendAdded(const DrawingStore& store, const Container& container);
    void appendBlock(const Container& block, const char* at);
    void assemble(std::string_view file);

    std::deque<std::string> m_texts; ///< what edits say where it stands nowhere else
    std::vector<Edit> m_edits;
    std::vector<std::string_view> m_pieces;
};

} // namespace files
