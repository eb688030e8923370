#pragma once

#include "host/db/entity/entity.h"
#include "sectiondraw/drawing_run.h"
#include "sectiondraw/row_placement.h"

#include <memory>

struct CrossSectionXdata;

/// The drawing of one section in the making, as part of a run. Entities go onto it one by one, each remembered by the
/// section in the order of placing: one that the drawing refuses by the null id.
class SectionSketch
{
public:
    SectionSketch(CrossSectionXdata& section, DrawingRun& run) : m_section(section), m_run(run) {}

    /// Places what a row gives: its symbols, then its labels. All of the row is left out when its symbol file cannot be
    /// used.
    void place(const RowPlacement& row);

private:
    AcDbObjectId append(std::unique_ptr<AcDbEntity> entity, const OptionStyle& style);
    void placeLabel(const AcGePoint3d& ground, const RowPlacement& row);

    CrossSectionXdata& m_section;
    DrawingRun& m_run;
};
