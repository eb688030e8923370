#include "sections/scan.h"

#include "dbkit/filter_objects.h"
#include "host/companion/alignment.h"
#include "host/db/entity/polyline.h"
#include "sections/database_cs.h"
#include "sections/remembered_settings.h"
#include "sections/scan_steps.h"
#include "sections/survey_info.h"

namespace
{

constexpr double kScaleNumerator = 1000.0;
constexpr double kSideTolerance = 0.001;

AcDbObjectIdArray selectFeaturePolylines()
{
    FilterObjects filter;
    for (const AcRxClass* kind : {AcDbPolyline::desc(), AcDb2dPolyline::desc(), AcDb3dPolyline::desc()})
        filter.AddClass(kind->dxfName());
    filter.AddXdataApp(kSurveyApplication);
    filter.SelectAll();
    return filter.ids();
}

CrossSectionXdata& addSection(ItemReferenceLine& line, const PlxDbAlignment& alignment, const SectionRecord& record)
{
    const AcGeVector3d towardsB = record.pointB - record.pointA;
    CrossSectionXdata& section = line.m_listCrossSections.append();
    section.m_strName = record.name;
    section.m_ptCenter = record.pointA + towardsB * 0.5;
    section.m_vecDir = (-towardsB).normal();
    section.m_dExtent1 = alignment.extent1();
    section.m_dExtent2 = alignment.extent2();
    section.m_ptOrigin = record.basePoint;
    section.m_idGroundLine = record.groundLineId;
    section.m_dScale = kScaleNumerator / alignment.scaleValue();
    return section;
}

/// Adds an alignment with its sections and what their records list. False when it cannot be opened.
bool addAlignment(AcDbObjectId id, const RememberedSettings& remembered, ListItemReferenceLine& tree,
                  std::vector<CrossSectionXdata*>& sections)
{
    const AcDbObjectPointer<PlxDbAlignment> alignment(id);
    if (!alignment)
        return false;
    ItemReferenceLine& line = tree.append();
    line.m_strName = alignment->name();
    line.m_idAlignment = id;
    for (const SectionRecord& record : alignment->sections())
    {
        sections.push_back(&addSection(line, *alignment, record));
        AddSurveyPointRows(record, remembered, *sections.back());
    }
    return true;
}

} // namespace

void ScanCrossSections(DatabaseCS& database)
{
    AcDbObjectIdArray alignments;
    std::vector<std::u16string> names;
    if (FindAlignments(alignments, names) == 0)
        return;
    const AcDbObjectIdArray polylines = selectFeaturePolylines();
    const RememberedSettings remembered(database.m_listReferenceLines);
    database.m_listReferenceLines.clear();

    std::vector<CrossSectionXdata*> sections;
    for (const AcDbObjectId id : alignments)
        if (!addAlignment(id, remembered, database.m_listReferenceLines, sections))
            break;
    AddCrossingRows(polylines, remembered, sections);
}

double SignedOffset(const AcGePoint3d& midpoint, const AcGeVector3d& direction, const AcGePoint3d& point)
{
    const AcGeVector3d way{point.x - midpoint.x, point.y - midpoint.y, 0.0};
    const double distance = way.length();
    const AcGeVector3d towards = AcGeVector3d{way.x, way.y, -midpoint.z}.normal();
    const AcGePoint3d alongSection = midpoint + distance * direction;
    const AcGePoint3d alongWay = midpoint + distance * towards;
    return alongSection.distanceTo(alongWay) < kSideTolerance ? 0.0 - distance : distance;
}
