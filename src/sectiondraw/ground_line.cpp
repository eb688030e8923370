#include "sectiondraw/ground_line.h"

#include "sections/records.h"

namespace
{

constexpr double kProbeLength = 1000.0;

} // namespace

GroundLine::GroundLine(const CrossSectionXdata& section)
    : m_id(section.m_idGroundLine), m_origin(section.m_ptOrigin.x, section.m_ptOrigin.y), m_scale(section.m_dScale)
{
    m_probe.addVertexAt(0, {0.0, 0.0});
    m_probe.addVertexAt(1, {0.0, kProbeLength});
}

std::optional<AcGePoint3d> GroundLine::FindGroundPoint(double offset)
{
    if (!isReadable())
        return std::nullopt;
    const AcGePoint2d base{m_origin.x + m_scale * offset, m_origin.y};
    m_probe.setPointAt(0, base);
    m_probe.setPointAt(1, {base.x, base.y + kProbeLength});
    m_met.clear();
    (*m_line)->intersectWith(&m_probe, AcDb::kOnBothOperands, m_met);
    return m_met.empty() ? std::nullopt : std::optional(m_met.front());
}

const AcDbObjectPointer<AcDbPolyline>& GroundLine::opened()
{
    if (!m_line)
        m_line.emplace(m_id);
    return *m_line;
}
