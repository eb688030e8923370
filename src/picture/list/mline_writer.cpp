#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "store/handle_table.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <array>

namespace picture
{

namespace
{

/// A vertex of a multiple line: where each of its lines passes on the way of the mitre, and where it is interrupted.
struct MlineVertex
{
    AcGePoint3d at;
    AcGeVector3d direction; ///< of the piece that begins here
    AcGeVector3d mitre;
    std::vector<std::vector<double>> lines; ///< the way along the mitre, then along the direction: on, off, on ...

    AcGePoint3d begin(size_t line) const
    {
        return line < lines.size() && !lines[line].empty() ? at + mitre * lines[line][0] : at;
    }
};

struct Mline
{
    std::vector<MlineVertex> vertices;
    uint64_t style = 0;
    bool isClosed = false;
    bool hasStartCap = true;
    bool hasEndCap = true;
};

Mline readMline(std::string_view text)
{
    constexpr int64_t kClosed = 2;
    constexpr int64_t kNoStartCap = 4;
    constexpr int64_t kNoEndCap = 8;
    Mline mline;
    size_t left = 0; ///< numbers of the line at hand that are still to come
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
    {
        const bool isInVertex = !mline.vertices.empty();
        if (tag.code == 340)
            mline.style = tag.handle();
        else if (tag.code == 71)
        {
            mline.isClosed = (tag.integer() & kClosed) != 0;
            mline.hasStartCap = (tag.integer() & kNoStartCap) == 0;
            mline.hasEndCap = (tag.integer() & kNoEndCap) == 0;
        }
        else if (tag.code == 11)
            mline.vertices.push_back({pairs.pointFrom(tag), {}, {}, {}});
        else if (tag.code == 12 && isInVertex)
            mline.vertices.back().direction = pairs.pointFrom(tag).asVector();
        else if (tag.code == 13 && isInVertex)
            mline.vertices.back().mitre = pairs.pointFrom(tag).asVector();
        else if (tag.code == 74 && isInVertex)
        {
            mline.vertices.back().lines.emplace_back();
            left = static_cast<size_t>(std::max<int64_t>(0, tag.integer()));
        }
        else if (tag.code == 41 && isInVertex && left > 0)
        {
            mline.vertices.back().lines.back().push_back(tag.real());
            --left;
        }
    }
    return mline;
}

/// What a style says of its ends.
struct MlineCaps
{
    bool isSquareAtStart = false;
    bool isRoundAtStart = false;
    bool isSquareAtEnd = false;
    bool isRoundAtEnd = false;
};

MlineCaps capsOf(int64_t flags)
{
    return {(flags & 16) != 0, (flags & 64) != 0, (flags & 256) != 0, (flags & 1024) != 0};
}

/// Half a circle that joins two points, bulging away from a direction.
CurvePath roundCap(const AcGePoint3d& from, const AcGePoint3d& to, const AcGeVector3d& away)
{
    const AcGeVector3d across = to - from;
    const double bulge = across.x * away.y - across.y * away.x > 0.0 ? -1.0 : 1.0;
    return CurvePath::plane({{from.x, from.y, bulge, 0.0}, {to.x, to.y, 0.0, 0.0}}, false, from.z);
}

} // namespace

void EntityWriter::writeMline(std::string_view pairs)
{
    const Mline mline = readMline(pairs);
    if (mline.vertices.size() < 2)
        return;
    int64_t flags = 0;
    const std::vector<uint32_t> looks = looksOfMlineStyle(mline.style, flags);
    size_t count = 0;
    for (const MlineVertex& vertex : mline.vertices)
        count = std::max(count, vertex.lines.size());
    const uint32_t own = m_look;
    const size_t pieces = mline.vertices.size() - (mline.isClosed ? 0 : 1);
    for (size_t line = 0; line < count; ++line)
    {
        m_look = line < looks.size() ? looks[line] : own;
        AcGePoint3dArray whole;
        for (size_t i = 0; i < pieces; ++i)
        {
            const MlineVertex& from = mline.vertices[i];
            const MlineVertex& to = mline.vertices[(i + 1) % mline.vertices.size()];
            const AcGePoint3d begin = from.begin(line);
            if (line >= from.lines.size() || from.lines[line].size() <= 2)
            {
                if (whole.empty())
                    whole.push_back(begin);
                whole.push_back(to.begin(line));
                continue;
            }
            // Interrupted: the numbers behind the first are where it goes on and off, the last piece runs to the end.
            writePath(whole, false);
            whole.clear();
            const std::vector<double>& marks = from.lines[line];
            for (size_t k = 1; k < marks.size(); k += 2)
                writePath({begin + from.direction * marks[k],
                           k + 1 < marks.size() ? begin + from.direction * marks[k + 1] : to.begin(line)},
                          false);
        }
        writePath(whole, false);
    }
    m_look = own;
    if (!mline.isClosed && count > 1)
    {
        const MlineCaps caps = capsOf(flags);
        const auto cap = [&](const MlineVertex& end, const AcGeVector3d& away, bool isSquare, bool isRound)
        {
            if (isSquare)
                writePath({end.begin(0), end.begin(count - 1)}, false);
            if (isRound)
                writeCurve(roundCap(end.begin(0), end.begin(count - 1), away));
        };
        const MlineVertex& first = mline.vertices.front();
        const MlineVertex& last = mline.vertices.back();
        cap(first, -first.direction, mline.hasStartCap && caps.isSquareAtStart,
            mline.hasStartCap && caps.isRoundAtStart);
        cap(last, mline.vertices[mline.vertices.size() - 2].direction, mline.hasEndCap && caps.isSquareAtEnd,
            mline.hasEndCap && caps.isRoundAtEnd);
    }
}

/// The look of each line as the style has it, where it has one; `flags` receives the style's own.
std::vector<uint32_t> EntityWriter::looksOfMlineStyle(uint64_t handle, int64_t& flags)
{
    std::vector<uint32_t> looks;
    const ObjectRecord* style = handle != 0 ? m_lists.database().handles().find(handle) : nullptr;
    if (style == nullptr || m_lists.database().dxfNameOf(*style) != "MLINESTYLE")
        return looks;
    Look look = m_lists.looks().look(m_look);
    const Look own = look;
    bool isElement = false;
    const auto end = [&]
    {
        if (isElement)
            looks.push_back(m_lists.looks().indexOf(look));
    };
    OwnPairs pairs{style->view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 70)
            flags = tag.integer();
        else if (tag.code == 49)
        {
            end();
            isElement = true;
            look = own;
        }
        // An element that takes its colour from the layer is drawn as the entity says.
        else if (tag.code == 62 && isElement && tag.integer() != 256)
            look.color = Looks::colorOf(tag.integer());
        else if (tag.code == 6 && isElement)
            if (const int32_t linetype = m_lists.looks().linetypeNamed(tag.word()); linetype != Look::kByLayer)
                look.linetype = linetype;
    end();
    return looks;
}

} // namespace picture
