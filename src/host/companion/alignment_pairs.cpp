#include "host/companion/alignment_pairs.h"

#include "host/db/database.h"

namespace
{

constexpr int kSectionName = 2;
constexpr int kFlags = 70;
constexpr int kSections = 90;
constexpr int kPoints = 91;
constexpr int kOffsets = 92;
constexpr int kDrawn = 93;
constexpr int kOffset = 43;
constexpr int kGroundLine = 340;
constexpr int kPoint = 330;
constexpr int kDrawnId = 331;

bool isCount(int64_t declared, size_t found)
{
    return declared >= 0 && static_cast<uint64_t>(declared) == found;
}

void writeFlags(const SectionRecord& section, TagWriter& out)
{
    out.integer(kFlags, static_cast<int16_t>(section.flags));
}

void writeIds(int count, int id, const AcDbObjectIdArray& ids, TagWriter& out)
{
    out.integer(count, static_cast<int64_t>(ids.size()));
    for (const AcDbObjectId each : ids)
        out.handle(id, each.handle().value());
}

/// Rewrites the changed sections while walking the alignment's pairs.
class SectionRewriter
{
public:
    SectionRewriter(std::string_view text, const std::vector<SectionRecord>& sections, const std::vector<bool>& changed)
        : m_text{text}, m_edit{text}, m_sections{sections}, m_changed{changed}
    {
    }
    std::string rewrite();

private:
    void startSection(const Tag& name);
    void rewritePair(const Tag& tag);
    /// Adds what the section at hand had no pair for.
    void endSection(const char* at);
    bool changes() const { return m_at < m_changed.size() && m_changed[m_at]; }
    std::string flags() const;
    std::string drawn() const;

    std::string_view m_text;
    PairEdit m_edit;
    const std::vector<SectionRecord>& m_sections;
    const std::vector<bool>& m_changed;
    size_t m_at = SIZE_MAX; ///< the section at hand; SIZE_MAX before the first
    bool m_flagsDone = false;
    bool m_drawnDone = false;
};

std::string SectionRewriter::flags() const
{
    TagWriter out;
    writeFlags(m_sections[m_at], out);
    return out.take();
}

std::string SectionRewriter::drawn() const
{
    TagWriter out;
    writeIds(kDrawn, kDrawnId, m_sections[m_at].drawnIds, out);
    return out.take();
}

void SectionRewriter::endSection(const char* at)
{
    if (!changes())
        return;
    if (!m_flagsDone)
        m_edit.insert(at, flags());
    if (!m_drawnDone)
        m_edit.insert(at, drawn());
}

void SectionRewriter::startSection(const Tag& name)
{
    endSection(name.begin);
    ++m_at;
    m_flagsDone = false;
    m_drawnDone = false;
}

void SectionRewriter::rewritePair(const Tag& tag)
{
    if (tag.code == kFlags)
    {
        m_edit.replace(tag, flags());
        m_flagsDone = true;
    }
    else if (tag.code == kDrawn)
    {
        m_edit.replace(tag, drawn());
        m_drawnDone = true;
    }
    else if (tag.code == kDrawnId)
        m_edit.replace(tag, {});
}

std::string SectionRewriter::rewrite()
{
    OwnPairs pairs{m_text};
    bool inAlignment = false;
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 100)
            inAlignment = tag.word() == "PlxDbAlignment";
        else if (inAlignment && tag.code == kSectionName)
            startSection(tag);
        else if (inAlignment && changes())
            rewritePair(tag);
    endSection(pairs.position());
    return m_edit.take();
}

} // namespace

AcDbObjectId SectionReader::idOf(const Tag& tag)
{
    AcDbObjectId id;
    m_drawing.getAcDbObjectId(id, true, AcDbHandle{tag.handle()});
    return id;
}

void SectionReader::endSection()
{
    if (m_sections.empty())
        return;
    const SectionRecord& section = m_sections.back();
    m_sound = m_sound && isCount(m_points, section.pointIds.size()) && isCount(m_offsets, section.dcOffsets.size()) &&
              isCount(m_drawn, section.drawnIds.size());
    m_points = m_offsets = m_drawn = 0;
}

bool SectionReader::isSound()
{
    endSection();
    return m_sound && (m_declared < 0 || isCount(m_declared, m_sections.size()));
}

void SectionReader::take(const Tag& tag, OwnPairs& pairs)
{
    if (tag.code == kSectionName)
    {
        endSection();
        m_sections.emplace_back();
        m_sections.back().name = m_drawing.encoding().decode(tag.value);
    }
    else if (tag.code == kSections)
        m_declared = tag.integer();
    else if (!m_sections.empty())
        takeInSection(tag, pairs);
}

void SectionReader::takeInSection(const Tag& tag, OwnPairs& pairs)
{
    SectionRecord& section = m_sections.back();
    switch (tag.code)
    {
    case 10:
        section.pointA = pairs.pointFrom(tag);
        break;
    case 11:
        section.pointB = pairs.pointFrom(tag);
        break;
    case 12:
        section.basePoint = pairs.pointFrom(tag);
        break;
    case kGroundLine:
        section.groundLineId = idOf(tag);
        break;
    case kFlags:
        section.flags = static_cast<uint16_t>(tag.integer());
        break;
    case kPoints:
        m_points = tag.integer();
        break;
    case kPoint:
        section.pointIds.push_back(idOf(tag));
        break;
    case kOffsets:
        m_offsets = tag.integer();
        break;
    case kOffset:
        section.dcOffsets.push_back(tag.real());
        break;
    case kDrawn:
        m_drawn = tag.integer();
        break;
    case kDrawnId:
        section.drawnIds.push_back(idOf(tag));
        break;
    default:
        break;
    }
}

std::string withChangedSections(std::string_view pairs, const std::vector<SectionRecord>& sections,
                                const std::vector<bool>& changed)
{
    return SectionRewriter{pairs, sections, changed}.rewrite();
}

void encodeSections(const std::vector<SectionRecord>& sections, const TextEncoding& encoding, TagWriter& out)
{
    out.integer(kSections, static_cast<int64_t>(sections.size()));
    for (const SectionRecord& section : sections)
    {
        out.text(kSectionName, encoding.encode(section.name));
        out.point(10, section.pointA);
        out.point(11, section.pointB);
        out.point(12, section.basePoint);
        out.handle(kGroundLine, section.groundLineId.handle().value());
        writeFlags(section, out);
        writeIds(kPoints, kPoint, section.pointIds, out);
        out.integer(kOffsets, static_cast<int64_t>(section.dcOffsets.size()));
        for (const double offset : section.dcOffsets)
            out.real(kOffset, offset);
        writeIds(kDrawn, kDrawnId, section.drawnIds, out);
    }
}
