#include "host/companion/alignment.h"

#include "host/companion/alignment_pairs.h"
#include "host/db/database.h"

ACRX_DEFINE_MEMBERS(PlxDbAlignment, AcDbEntity, u"PLXDBALIGNMENT")

Acad::ErrorStatus PlxDbAlignment::setName(const std::u16string& name)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_name = name;
    return status;
}

Acad::ErrorStatus PlxDbAlignment::setScaleValue(double scale)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_scaleValue = scale;
    return status;
}

Acad::ErrorStatus PlxDbAlignment::setExtents(double extent1, double extent2)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status != Acad::eOk)
        return status;
    m_extent1 = extent1;
    m_extent2 = extent2;
    return status;
}

Acad::ErrorStatus PlxDbAlignment::setSections(std::vector<SectionRecord> sections)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_sections = std::move(sections);
    return status;
}

void PlxDbAlignment::setSectionFlag(size_t index, uint16_t bits)
{
    if (index >= m_sections.size() || !mayChange())
        return;
    m_sections[index].flags |= bits;
    m_changed.resize(m_sections.size());
    m_changed[index] = true;
}

void PlxDbAlignment::setDrawnIds(size_t index, AcDbObjectIdArray ids)
{
    if (index >= m_sections.size() || !mayChange())
        return;
    m_sections[index].drawnIds = std::move(ids);
    m_changed.resize(m_sections.size());
    m_changed[index] = true;
}

std::vector<CurvePath> PlxDbAlignment::curves() const
{
    std::vector<CurvePath> lines;
    for (const SectionRecord& section : m_sections)
        lines.push_back(CurvePath::line(section.pointA, section.pointB));
    return lines;
}

void PlxDbAlignment::decode(TagReader& pairs)
{
    SectionReader reader{*database()};
    OwnPairs own{pairs};
    bool inAlignment = false;
    for (Tag tag; own.next(tag);)
        if (tag.code == 100)
            inAlignment = tag.word() == "PlxDbAlignment";
        else if (!inAlignment)
            continue;
        else if (tag.code == 1)
            m_name = decodeText(tag.value);
        else if (tag.code == 40)
            m_scaleValue = tag.real();
        else if (tag.code == 41)
            m_extent1 = tag.real();
        else if (tag.code == 42)
            m_extent2 = tag.real();
        else
            reader.take(tag, own);
    if (!reader.isSound())
        damaged();
    m_sections = reader.take();
}

void PlxDbAlignment::encode(TagWriter& out) const
{
    AcDbEntity::encode(out);
    out.text(100, "PlxDbAlignment");
    out.text(1, encodeText(m_name));
    out.real(40, m_scaleValue);
    out.real(41, m_extent1);
    out.real(42, m_extent2);
    encodeSections(m_sections, database()->encoding(), out);
}

void PlxDbAlignment::beforeClose()
{
    if (m_changed.empty() || isFresh())
        return;
    setPairs(withChangedSections(pairs(), m_sections, m_changed));
    m_changed.clear();
}
