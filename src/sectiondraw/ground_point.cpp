#include "sectiondraw/ground_point.h"

#include "host/drawing/polyline.h"
#include "sections/records.h"

namespace
{

constexpr double kProbeLength = 1000.0;

/// A vertical line that is asked where it meets ground lines. It is moved, not made anew, and keeps its room: a drawing
/// probes for every row.
class VerticalProbe
{
public:
    VerticalProbe()
    {
        m_line.addVertexAt(0, {0.0, 0.0});
        m_line.addVertexAt(1, {0.0, kProbeLength});
    }

    /// The first place, along the ground line, that stands over `base`.
    std::optional<AcGePoint3d> firstOn(const AcDbPolyline& ground, const AcGePoint2d& base)
    {
        m_line.setPointAt(0, base);
        m_line.setPointAt(1, {base.x, base.y + kProbeLength});
        m_met.clear();
        ground.intersectWith(&m_line, AcDb::kOnBothOperands, m_met);
        return m_met.empty() ? std::nullopt : std::optional(m_met.front());
    }

private:
    AcDbPolyline m_line{2};
    AcGePoint3dArray m_met;
};

} // namespace

bool HasGroundLine(const CrossSectionXdata& section)
{
    return AcDbObjectPointer<AcDbPolyline>(section.m_idGroundLine).openStatus() == Acad::eOk;
}

std::optional<AcGePoint3d> FindGroundPoint(const CrossSectionXdata& section, double offset)
{
    static VerticalProbe probe;
    const AcDbObjectPointer<AcDbPolyline> ground(section.m_idGroundLine);
    if (!ground)
        return std::nullopt;
    return probe.firstOn(*ground, {section.m_ptOrigin.x + section.m_dScale * offset, section.m_ptOrigin.y});
}
