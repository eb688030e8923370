#include "sectiondraw/alignment_drawing.h"

#include "host/companion/alignment.h"
#include "host/companion/db_helper.h"
#include "sectiondraw/draw_section.h"
#include "sectiondraw/drawing_run.h"
#include "sectiondraw/main_window.h"
#include "sections/records.h"
#include "util/document_lock.h"

#include <numeric>

namespace
{

constexpr uint16_t kDrawn = 0x02;
constexpr const char16_t* kEscape = u"\x1b";

using AlignmentPointer = AcDbObjectPointer<PlxDbAlignment>;

/// Calls `act` for each of `positions` that the alignment has a record at.
template <class Act>
void forEachRecord(const PlxDbAlignment& alignment, const std::vector<size_t>& positions, const Act& act)
{
    for (const size_t position : positions)
        if (position < alignment.sections().size())
            act(position);
}

void eraseRecorded(PlxDbAlignment& alignment, const std::vector<size_t>& positions)
{
    forEachRecord(alignment, positions,
                  [&](size_t position)
                  {
                      AcDbObjectIdArray ids = alignment.sections()[position].drawnIds;
                      DbHelper::DeleteEntity(ids, true);
                      alignment.setDrawnIds(position, {});
                  });
}

std::vector<size_t> allRecords(const PlxDbAlignment& alignment)
{
    std::vector<size_t> positions(alignment.sections().size());
    std::iota(positions.begin(), positions.end(), size_t{0});
    return positions;
}

} // namespace

bool DrawSections(ItemReferenceLine& line, std::vector<size_t> positions, DrawStyle style)
{
    const AlignmentPointer alignment(line.m_idAlignment, AcDb::kForWrite);
    if (!alignment)
        return false;
    ListCSXdata& sections = line.m_listCrossSections;
    std::erase_if(positions, [&sections](size_t position) { return position >= sections.size(); });
    DrawingRun run(std::move(style));
    eraseRecorded(*alignment, positions);
    for (const size_t position : positions)
        EraseSectionDrawing(sections[position]);
    for (const size_t position : positions)
        DrawCrossSection(sections[position], run);
    forEachRecord(*alignment, positions,
                  [&](size_t position)
                  {
                      alignment->setSectionFlag(position, kDrawn);
                      alignment->setDrawnIds(position, sections[position].m_arrDrawnIds);
                  });
    return true;
}

bool EraseSections(ItemReferenceLine& line)
{
    for (CrossSectionXdata& section : line.m_listCrossSections)
        EraseSectionDrawing(section);
    const AlignmentPointer alignment(line.m_idAlignment, AcDb::kForWrite);
    if (!alignment)
        return false;
    eraseRecorded(*alignment, allRecords(*alignment));
    return true;
}

void EraseSectionDrawing(CrossSectionXdata& section)
{
    FocusMainWindow();
    const OpenForWrite lock;
    DbHelper::DeleteEntity(section.m_arrDrawnIds, true);
    section.m_arrDrawnIds.clear();
    SendCommandString(kEscape);
}
