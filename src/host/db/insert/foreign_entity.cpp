#include "host/db/insert/foreign_entity.h"

#include "host/db/insert/carried_boundary.h"
#include "host/db/insert/foreign_names.h"
#include "host/db/insert/subclass_markers.h"
#include "store/group_codes.h"
#include "store/pair_edit.h"
#include "store/point_order.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int kR2004 = 1018;
constexpr int kR2007 = 1021;
constexpr int kR2010 = 1024;

constexpr std::array<std::string_view, 23> kCarried{
    "3DFACE", "ARC",    "ATTDEF", "ATTRIB",     "CIRCLE", "DIMENSION", "ELLIPSE",  "HATCH",
    "INSERT", "LEADER", "LINE",   "LWPOLYLINE", "MTEXT",  "POINT",     "POLYLINE", "RAY",
    "SOLID",  "SPLINE", "TEXT",   "TOLERANCE",  "TRACE",  "VERTEX",    "XLINE"};

bool within(int code, int first, int last)
{
    return code >= first && code <= last;
}

bool oneOf(int code, std::initializer_list<int> codes)
{
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

/// Pairs that come with a later version than the target has, by kind.
bool isTooNew(std::string_view kind, int code, int version)
{
    if (kind == "HATCH")
        return version < kR2004 && (within(code, 450, 470) || code == 63 || code == 421);
    if (kind == "MTEXT")
        return (version < kR2004 && oneOf(code, {45, 63, 90, 421, 431, 441})) ||
               (version < kR2007 && oneOf(code, {46, 48, 49, 75, 76, 78, 79}));
    if (kind == "ATTRIB" || kind == "ATTDEF" || kind == "DIMENSION")
        return version < kR2010 && code == 280;
    return false;
}

bool hasMarkers(const std::vector<CarriedPair>& pairs)
{
    return std::any_of(pairs.begin(), pairs.end(), [](const CarriedPair& pair) { return pair.code == 100; });
}

/// A direction without a length is none: what has it stands upright.
void repairNormal(std::vector<CarriedPair>& pairs)
{
    const auto isZero = [](const CarriedPair& pair) { return Tag{pair.code, pair.value}.real() == 0.0; };
    for (size_t i = 0; i + 2 < pairs.size(); ++i)
        if (pairs[i].code == 210 && pairs[i + 2].code == 230 &&
            std::all_of(pairs.begin() + static_cast<ptrdiff_t>(i), pairs.begin() + static_cast<ptrdiff_t>(i) + 3,
                        isZero))
            pairs[i + 2].value = "1.0";
}

/// Every entity names its layer.
void ensureLayer(std::vector<CarriedPair>& pairs)
{
    const auto has = [](int code) { return [code](const CarriedPair& pair) { return pair.code == code; }; };
    if (std::any_of(pairs.begin(), pairs.end(), has(dxf::kLayer)))
        return;
    const auto marker = std::find_if(pairs.begin(), pairs.end(), has(100));
    pairs.insert(marker == pairs.end() ? pairs.begin() : marker + 1, {dxf::kLayer, "0"});
}

/// Applications of the kind whose data names objects of the source.
std::string_view leftApplication(std::string_view kind)
{
    return kind == "DIMENSION" || kind == "LEADER" || kind == "TOLERANCE" ? "ACAD" : std::string_view{};
}

/// Whether a linetype, style or layer may be called so in any drawing.
bool canName(std::u16string_view name)
{
    return !name.empty() && name.find_first_of(u"<>/\\\":;?*=`") == name.npos;
}

} // namespace

bool isCarriedKind(std::string_view kind)
{
    return std::find(kCarried.begin(), kCarried.end(), kind) != kCarried.end();
}

bool ForeignEntity::isLeftOut(int code) const
{
    constexpr std::array kOwnOrSpace{0, 5, 67, 105, 410};
    if (std::find(kOwnOrSpace.begin(), kOwnOrSpace.end(), code) != kOwnOrSpace.end() || dxf::isReference(code))
        return true;
    const int version = m_values.target().version();
    if (version < kR2004 && oneOf(code, {420, 430, 440}))
        return true;
    if (m_part == "AcDbEntity")
        return oneOf(code, {92, 160, 284, 310});
    // Texts of several lines hang a record of their own on an attribute.
    if (m_part == "AcDbXrecord")
        return true;
    if (code == 66)
        return !m_followed;
    if (code == 91 && (m_kind == "LWPOLYLINE" || m_kind == "VERTEX"))
        return true;
    return isTooNew(m_kind, code, version);
}

/// The table whose records a group code names; none for a code that names nothing.
std::string_view ForeignEntity::tableOf(int code) const
{
    switch (code)
    {
    case 3:
        return m_kind == "DIMENSION" || m_kind == "LEADER" || m_kind == "TOLERANCE" ? "DIMSTYLE" : "";
    case 6:
        return "LTYPE";
    case 7:
        return "STYLE";
    case 8:
        return "LAYER";
    default:
        return {};
    }
}

std::string ForeignEntity::valueFor(const Tag& tag) const
{
    constexpr std::string_view kNoAnnotation = "3";
    if (tag.code == 2 && (m_kind == "INSERT" || m_kind == "DIMENSION"))
        return std::string{m_block};
    if (tag.code == 71 && m_kind == "HATCH")
        return "0";
    if (tag.code == 73 && m_kind == "LEADER")
        return std::string{kNoAnnotation};
    const std::string_view table = tableOf(tag.code);
    return table.empty() ? m_values.value(tag) : m_values.names().use(table, m_values.decoded(tag));
}

void ForeignEntity::carry(const Tag& tag)
{
    if (tag.code == 100)
        m_part = tag.word();
    if (tag.code == 100 ? m_part == "AcDbXrecord" : isLeftOut(tag.code))
        return;
    if (oneOf(tag.code, {6, 7, 8}) && !canName(m_values.decoded(tag)))
        return; // the entity gets what it has without one
    m_pairs.push_back({tag.code, valueFor(tag)});
}

/// The meaning of a hatch's pairs hangs on their order.
void ForeignEntity::carryHatch(std::string_view text)
{
    OwnPairs own{text};
    CarriedBoundary boundary{m_values.target().version() >= kR2010};
    for (Tag tag; own.next(tag);)
        if (boundary.carries(tag, own, m_pairs))
            carry(tag);
}

void ForeignEntity::carryOwn(std::string_view text)
{
    m_pairs.clear();
    m_part = {};
    if (m_kind == "HATCH")
        carryHatch(text);
    else
        for (const Tag& tag : inPointOrder(text))
            carry(tag);
    repairNormal(m_pairs);
    ensureLayer(m_pairs);
}

std::string ForeignEntity::write(std::string_view kind, std::string_view pairs, uint64_t handle, uint64_t owner,
                                 std::string_view block, bool followed)
{
    m_kind = kind;
    m_block = block;
    m_followed = followed;
    carryOwn(pairs);
    TagWriter out;
    out.text(0, kind);
    out.handle(5, handle);
    out.handle(330, owner);
    if (hasMarkers(m_pairs))
        for (const CarriedPair& pair : m_pairs)
            out.text(pair.code, pair.value);
    else
        writeWithMarkers(out, kind, m_pairs);
    out.raw(m_values.extendedData(pairs, leftApplication(kind)));
    return out.take();
}

std::string ForeignEntity::writePicture(std::string_view pairs, uint64_t handle, uint64_t owner, std::string_view block)
{
    m_kind = "INSERT";
    m_block = block;
    m_followed = false;
    carryOwn(pairs);
    std::erase_if(m_pairs, [](const CarriedPair& pair) { return !oneOf(pair.code, {2, 6, 8, 62}); });
    TagWriter out;
    out.text(0, m_kind);
    out.handle(5, handle);
    out.handle(330, owner);
    for (const int code : {10, 20, 30})
        m_pairs.push_back({code, "0.0"});
    writeWithMarkers(out, m_kind, m_pairs);
    return out.take();
}

std::string ForeignEntity::writeSequenceEnd(uint64_t handle, uint64_t owner) const
{
    TagWriter out;
    out.text(0, "SEQEND");
    out.handle(5, handle);
    out.handle(330, owner);
    out.text(100, "AcDbEntity");
    out.text(8, "0");
    return out.take();
}
