#include "survey/sheet/write_drawing.h"

#include "host/companion/alignment.h"
#include "store/header_variables.h"
#include "store/text/text.h"
#include "survey/read/finding_list.h"
#include "survey/sheet/drawing_frame.h"
#include "survey/sheet/earlier_content.h"
#include "survey/sheet/ground_source.h"
#include "survey/sheet/plan_drawing.h"
#include "survey/sheet/section_sheet.h"
#include "survey/sheet/sheet_columns.h"
#include "survey/sheet/shown_numbers.h"
#include "survey/sheet/survey_content.h"

#include <algorithm>

namespace survey
{

namespace
{

constexpr double kOnLine = 0.001; ///< metres from a section's line within which a point's side is recognised

std::string shownName(const PlannedAlignment& alignment, const PlannedSection& section)
{
    return toUtf8(alignment.name) + ": " + toUtf8(section.name);
}

/// Gathers sections of which the same is to be told.
class SectionsTold
{
public:
    void add(const PlannedAlignment& alignment, const PlannedSection& section)
    {
        constexpr size_t kMostNamed = 5;
        if (m_count++ == 0)
            m_place = section.given != nullptr ? section.given->place : alignment.line->place;
        if (m_count <= kMostNamed)
            m_names += (m_count == 1 ? "" : ", ") + shownName(alignment, section);
        else if (m_count == kMostNamed + 1)
            m_names += " ...";
    }

    void tell(FindingKind kind, const std::string& what, std::vector<Finding>& findings) const
    {
        if (m_count > 0)
            findings.push_back(
                {kind, m_place, m_place.line, counted(m_count, "section") + " " + what + " (" + m_names + ")"});
    }

private:
    size_t m_count = 0;
    Place m_place;
    std::string m_names;
};

WrittenSection writtenSection(const PlannedAlignment& alignment, const PlannedSection& section)
{
    WrittenSection written;
    written.alignment = alignment.name;
    written.name = section.name;
    written.station = section.station;
    written.distance = section.distance;
    written.isGiven = section.given != nullptr;
    written.points = section.points;
    written.groundPieces = section.ground.size();
    if (const GroundPiece* ground = section.drawnGround())
    {
        written.groundVertices = ground->size();
        written.groundFrom = ground->front().offset;
        written.groundTo = ground->back().offset;
    }
    return written;
}

/// One import at work.
class Import
{
public:
    Import(const Survey& survey, const WriteOptions& options, AcDbDatabase& drawing)
        : m_survey{survey}, m_options{options}, m_drawing{drawing}, m_plan{survey, options, m_result.findings}
    {
    }

    WriteResult run();

private:
    void cutGround();
    void tellUnits();
    void dropTaken();
    void replaceEarlier();
    void assignPoints();
    void draw();
    void drawPoints(SurveyContent& content, const std::u16string& layer);
    void drawAlignments(DrawingPen& pen, const PlanLayers& layers);
    void drawAlignment(DrawingPen& pen, const PlanLayers& layers, size_t index, AcGePoint2d& upperLeft, double least);
    void report();

    std::vector<PlannedAlignment>& alignments() { return m_plan.alignments(); }

    const Survey& m_survey;
    const WriteOptions& m_options;
    AcDbDatabase& m_drawing;
    WriteResult m_result;
    SectionPlan m_plan;
    std::vector<std::optional<PointSection>> m_sectionOf;   ///< by survey point
    std::vector<std::vector<AcDbObjectIdArray>> m_pointIds; ///< by alignment and section
    AcGeExtents m_before;
};

void Import::cutGround()
{
    const auto isCut = [](const PlannedSection& section) { return section.given == nullptr; };
    const bool isAsked =
        std::any_of(alignments().begin(), alignments().end(),
                    [&](const PlannedAlignment& alignment)
                    { return std::any_of(alignment.sections.begin(), alignment.sections.end(), isCut); });
    SectionsTold bare;
    SectionsTold outside;
    SectionsTold gaps;
    SectionsTold overlaps;
    std::optional<GroundSource> source;
    if (isAsked)
        source.emplace(m_survey, m_options, m_result.findings);
    for (PlannedAlignment& alignment : alignments())
        for (PlannedSection& section : alignment.sections)
        {
            if (isCut(section))
            {
                const GroundCut cut =
                    source->cut({section.center, section.right, m_options.halfWidth, m_options.halfWidth});
                section.ground = cut.pieces;
                if (cut.overlaps > 0)
                    overlaps.add(alignment, section);
            }
            if (section.drawnGround() == nullptr)
                (isCut(section) && source->isThere() ? outside : bare).add(alignment, section);
            else if (section.ground.size() > 1)
                gaps.add(alignment, section);
        }
    bare.tell(FindingKind::kNote, "without a ground line: there is nothing to cut", m_result.findings);
    outside.tell(FindingKind::kUnusable, "outside the surface, without a ground line", m_result.findings);
    gaps.tell(FindingKind::kNote, "with gaps in the ground: the longest piece is drawn", m_result.findings);
    overlaps.tell(FindingKind::kNote, "through triangles that lie over one another: the first from the left counts",
                  m_result.findings);
}

void Import::tellUnits()
{
    constexpr int64_t kUnitless = 0;
    constexpr int64_t kMetres = 6;
    const int64_t units = m_drawing.header().integerOr("$INSUNITS", kUnitless);
    if (units != kUnitless && units != kMetres)
        m_result.findings.push_back({FindingKind::kNote,
                                     {},
                                     0,
                                     "the drawing's units are not metres ($INSUNITS " + std::to_string(units) +
                                         "): the survey's metres are put in as they are"});
}

/// Leaves out alignments whose names the drawing has already.
void Import::dropTaken()
{
    std::erase_if(
        alignments(),
        [&](const PlannedAlignment& alignment)
        {
            const AcDbObjectId earlier = findAlignment(m_drawing, alignment.name);
            if (earlier.isNull() || m_options.replace)
                return false;
            m_result.findings.push_back(
                {FindingKind::kUnusable, alignment.line->place, alignment.line->place.line,
                 "the drawing has an alignment " + quoted(alignment.name) + " already: --replace takes it out"});
            return true;
        });
}

void Import::replaceEarlier()
{
    if (!m_options.replace)
        return;
    size_t kept = 0;
    std::set<std::u16string> origins;
    for (const PlannedAlignment& alignment : alignments())
    {
        const AcDbObjectId earlier = findAlignment(m_drawing, alignment.name);
        if (earlier.isNull())
            continue;
        ++m_result.replacedAlignments;
        kept += eraseAlignment(earlier);
        origins.insert(alignmentOrigin(alignment.name));
    }
    for (const SurveyFile& file : m_survey.files)
        origins.insert(fileOrigin(file.path));
    kept += eraseImported(m_drawing, origins);
    if (kept > 0)
        m_result.findings.push_back(
            {FindingKind::kUnusable, {}, 0, counted(kept, "object") + " on locked layers not replaced"});
}

void Import::assignPoints()
{
    m_sectionOf = sectionsOfPoints(m_survey.points, alignments(), m_options);
    for (size_t i = 0; i < m_sectionOf.size(); ++i)
        if (const auto& found = m_sectionOf[i])
            alignments()[found->alignment].sections[found->section].points.push_back(i);
    for (const PlannedAlignment& alignment : alignments())
        m_pointIds.emplace_back(alignment.sections.size());
}

void Import::drawPoints(SurveyContent& content, const std::u16string& layer)
{
    for (size_t i = 0; i < m_survey.points.size(); ++i)
    {
        const Point& point = m_survey.points[i];
        AcGePoint3d at = point.position;
        const std::optional<PointSection>& found = m_sectionOf[i];
        if (found && m_options.snap)
        {
            const AcGePoint2d foot = alignments()[found->alignment].sections[found->section].placeOf(found->offset);
            at = {foot.x, foot.y, at.z};
        }
        const AcDbObjectIdArray ids = content.drawPoint(point, at, layer);
        if (!found)
            continue;
        AcDbObjectIdArray& own = m_pointIds[found->alignment][found->section];
        own.insert(own.end(), ids.begin(), ids.end());
    }
}

void Import::drawAlignment(DrawingPen& pen, const PlanLayers& layers, size_t index, AcGePoint2d& upperLeft,
                           double least)
{
    const PlannedAlignment& alignment = alignments()[index];
    pen.mark(alignmentOrigin(alignment.name));
    drawAxis(pen, layers, *alignment.line);

    std::vector<SectionSheet> sheets;
    std::vector<SheetSize> sizes;
    for (const PlannedSection& section : alignment.sections)
    {
        const SectionSheet& sheet = sheets.emplace_back(section, m_options);
        sizes.push_back({sheet.width(), sheet.height()});
    }
    const std::vector<AcGePoint2d> places = columnPlaces(sizes, upperLeft, least);
    const SheetLayers sheetLayers{pen};
    std::vector<SectionRecord> records;
    for (size_t i = 0; i < sheets.size(); ++i)
    {
        const PlannedSection& section = alignment.sections[i];
        drawSectionLine(pen, layers, section, m_options.halfWidth);
        const SectionSheet::Drawn drawn = sheets[i].draw(pen, sheetLayers, places[i]);
        const AcGePoint2d a = section.placeOf(-m_options.halfWidth);
        const AcGePoint2d b = section.placeOf(m_options.halfWidth);
        records.push_back({section.name,
                           {a.x, a.y, 0.0},
                           {b.x, b.y, 0.0},
                           drawn.basePoint,
                           drawn.ground,
                           m_pointIds[index][i],
                           section.dcOffsets,
                           0,
                           {}});
    }
    if (!sheets.empty())
        upperLeft.x = rightEndOf(sizes, places) + 2.0 * kSheetGap;

    auto object = std::make_unique<PlxDbAlignment>();
    object->setName(alignment.name);
    object->setScaleValue(m_options.scale);
    object->setExtents(m_options.halfWidth, m_options.halfWidth);
    object->setSections(std::move(records));
    pen.alignment(layers.sections, std::move(object));
}

/// The sheets stand to the right of the plan and of what the drawing had before.
void Import::drawAlignments(DrawingPen& pen, const PlanLayers& layers)
{
    AcGeExtents taken = m_before;
    taken.addExtents(pen.extents());
    for (const PlannedAlignment& alignment : alignments())
        taken.addExtents(planExtents(alignment, m_options.halfWidth));
    if (!taken.isValid())
        return;
    const AcGePoint3d low = taken.minPoint();
    const AcGePoint3d high = taken.maxPoint();
    AcGePoint2d upperLeft{high.x + 2.0 * kSheetGap, high.y};
    for (size_t i = 0; i < alignments().size(); ++i)
        drawAlignment(pen, layers, i, upperLeft, high.y - low.y);
}

void Import::draw()
{
    m_before = contentExtents(m_drawing);
    DrawingPen pen{m_drawing};
    const PlanLayers layers{pen};
    SurveyContent content{m_survey, m_options, pen, m_result};
    content.drawLines();
    drawPoints(content, layers.points);
    drawAlignments(pen, layers);
    content.tellCodes();
    m_result.extents = pen.extents();
    setExtents(m_drawing, pen.extents(), !m_before.isValid());
}

void Import::report()
{
    std::vector<size_t> first; // section of each alignment
    for (const PlannedAlignment& alignment : alignments())
    {
        first.push_back(m_result.sections.size());
        for (const PlannedSection& section : alignment.sections)
            m_result.sections.push_back(writtenSection(alignment, section));
    }
    for (size_t i = 0; i < m_sectionOf.size(); ++i)
        if (const std::optional<PointSection>& found = m_sectionOf[i]; !found)
            m_result.unusedPoints.push_back(i);
        else if (!m_options.snap && found->away > kOnLine)
            m_result.offLine.push_back({i, first[found->alignment] + found->section, found->away});
}

WriteResult Import::run()
{
    tellUnits();
    dropTaken();
    cutGround();
    assignPoints();
    replaceEarlier();
    draw();
    report();
    return std::move(m_result);
}

} // namespace

WriteResult writeDrawing(const Survey& survey, const WriteOptions& options, AcDbDatabase& drawing)
{
    return Import{survey, options, drawing}.run();
}

} // namespace survey
