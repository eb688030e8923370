#include "desktop/documents/snapshot.h"

#include "files/dxf/writer.h"
#include "host/db/database.h"

#include <cstring>

namespace desktop
{

Snapshot::Snapshot(AcDbDatabase& database) : m_file{database.store().file}, m_original{database.store().original}
{
    const files::DrawingPieces drawing{database};
    for (const std::string_view piece : drawing.pieces())
        m_pieces.push_back(m_file.contains(piece.data()) || m_original.contains(piece.data())
                               ? piece
                               : std::string_view{m_copies.emplace_back(piece)});
}

disk::FileText Snapshot::text() const
{
    size_t size = 0;
    for (const std::string_view piece : m_pieces)
        size += piece.size();
    // A reader expects a line feed behind the text.
    const std::shared_ptr<char[]> bytes{new char[size + 1]};
    char* at = bytes.get();
    for (const std::string_view piece : m_pieces)
    {
        std::memcpy(at, piece.data(), piece.size());
        at += piece.size();
    }
    *at = '\n';
    return {std::shared_ptr<const char>{bytes, bytes.get()}, size};
}

} // namespace desktop
