#include "sectiondraw/draw_section.h"

#include "sectiondraw/section_sketch.h"

void DrawCrossSection(CrossSectionXdata& section, DrawingRun& run)
{
    SectionSketch sketch(section, run);
    for (const RowPlacement& row : FindPlacements(section, run.style))
        sketch.place(row);
}
