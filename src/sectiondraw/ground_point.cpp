#include "sectiondraw/ground_point.h"

#include "host/drawing/polyline.h"
#include "sections/records.h"

namespace
{

constexpr double kProbeLength = 1000.0;
constexpr double kStraight = 0.0;
constexpr double kDefaultWidth = -1.0;

} // namespace

bool HasGroundLine(const CrossSectionXdata& section)
{
    return AcDbObjectPointer<AcDbPolyline>(section.m_idGroundLine).openStatus() == Acad::eOk;
}

std::optional<AcGePoint3d> FindGroundPoint(const CrossSectionXdata& section, double offset)
{
    const AcDbObjectPointer<AcDbPolyline> ground(section.m_idGroundLine);
    if (!ground)
        return std::nullopt;

    const AcGePoint2d base{section.m_ptOrigin.x + section.m_dScale * offset, section.m_ptOrigin.y};
    AcDbPolyline probe(2);
    probe.addVertexAt(0, base, kStraight, kDefaultWidth, kDefaultWidth);
    probe.addVertexAt(1, {base.x, base.y + kProbeLength}, kStraight, kDefaultWidth, kDefaultWidth);
    static AcGePoint3dArray met; // keeps its room: a drawing probes once for every row and more
    met.clear();
    ground->intersectWith(&probe, AcDb::kOnBothOperands, met);
    return met.empty() ? std::nullopt : std::optional(met.front());
}
