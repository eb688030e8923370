#include "host/db/object.h"
#include "sections/crossing_search.h"
#include "sections/feature_path.h"
#include "sections/remembered_settings.h"
#include "sections/scan.h"
#include "sections/scan_steps.h"
#include "sections/survey_info.h"
#include "util/document_lock.h"

namespace
{

/// Through the midpoint along the section, the first extent to both sides.
SearchLine searchLineOf(const CrossSectionXdata& section)
{
    const AcGePoint3d& m = section.m_ptCenter;
    const AcGeVector3d& u = section.m_vecDir;
    const double e = section.m_dExtent1;
    return {{m.x + e * u.x, m.y + e * u.y}, {m.x - e * u.x, m.y - e * u.y}};
}

double offsetOf(const CrossSectionXdata& section, const AcGePoint3d& point)
{
    return SignedOffset(section.m_ptCenter, section.m_vecDir, point);
}

void addRow(CrossSectionXdata& section, const LineCrossing& crossing, const std::u16string& code,
            const SetName_Index* remembered)
{
    BlockData& row = section.m_listBlockData2.append();
    row.m_strName = code;
    row.m_dOffset1 = offsetOf(section, crossing.first);
    row.m_dOffset2 = crossing.second ? offsetOf(section, *crossing.second) : 0.0;
    if (remembered != nullptr)
        row.look() = remembered->look();
}

} // namespace

void AddCrossingRows(const AcDbObjectIdArray& polylines, const RememberedSettings& remembered,
                     const std::vector<CrossSectionXdata*>& sections)
{
    std::vector<SearchLine> lines;
    lines.reserve(sections.size());
    for (const CrossSectionXdata* section : sections)
        lines.push_back(searchLineOf(*section));
    CrossingSearch search(lines);

    const OpenForWrite lock;
    SurveyInfoReader info;
    std::vector<AcGePoint2d> path;
    for (const AcDbObjectId id : polylines)
    {
        // What cannot be opened has no code that could be read, and is passed over like everything without one.
        const AcDbObjectPointer<AcDbObject> polyline(id);
        const auto code = polyline ? info.codeOf(*polyline) : std::nullopt;
        if (!code)
            continue;
        CollectFeaturePath(*polyline, path);
        const auto& crossings = search.find(path);
        const SetName_Index* known = crossings.empty() ? nullptr : remembered.symbols.find(*code);
        for (const LineCrossing& crossing : crossings)
            addRow(*sections[crossing.line], crossing, *code, known);
    }
}
