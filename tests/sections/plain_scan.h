#pragma once

#include "host/db/entity/polyline.h"
#include "sections/feature_path.h"
#include "sections/records.h"
#include "sections/scan.h"
#include "sections/survey_info.h"

#include <memory>
#include <vector>

/// The crossings of one section, found the plain way: every polyline opened, read and intersected by the host for it.
/// What the scan does must come to the same rows.
inline std::vector<BlockData> plainCrossings(const CrossSectionXdata& section, const AcDbObjectIdArray& polylines)
{
    const AcGePoint3d& m = section.m_ptCenter;
    const AcGeVector3d& u = section.m_vecDir;
    const double e = section.m_dExtent1;
    AcDbPolyline searchLine(2);
    searchLine.addVertexAt(0, {m.x + e * u.x, m.y + e * u.y}, 0.0, -1.0, -1.0);
    searchLine.addVertexAt(1, {m.x - e * u.x, m.y - e * u.y}, 0.0, -1.0, -1.0);

    SurveyInfoReader info;
    std::vector<BlockData> rows;
    for (const AcDbObjectId id : polylines)
    {
        BlockData row;
        const AcDbObjectPointer<AcDbEntity> polyline(id);
        const auto code = polyline ? info.codeOf(*polyline) : std::nullopt;
        if (!code)
            continue;
        row.m_strName = *code;
        std::vector<AcGePoint2d> path;
        CollectFeaturePath(*polyline, path);
        if (path.size() < 2)
            continue;
        AcDbPolyline straight(static_cast<unsigned>(path.size()));
        for (const AcGePoint2d& vertex : path)
            straight.addVertexAt(straight.numVerts(), vertex, 0.0, -1.0, -1.0);
        AcGePoint3dArray points;
        if (straight.intersectWith(&searchLine, AcDb::kOnBothOperands, points) != Acad::eOk || points.empty())
            continue;
        row.m_dOffset1 = SignedOffset(m, u, points[0]);
        row.m_dOffset2 = points.size() > 1 ? SignedOffset(m, u, points[1]) : 0.0;
        rows.push_back(row);
    }
    return rows;
}
