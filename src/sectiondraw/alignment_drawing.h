#pragma once

#include <cstddef>
#include <vector>

struct CrossSectionXdata;
struct DrawStyle;
struct ItemReferenceLine;

/// The drawings of an alignment's sections as a whole. Each section remembers in the scan's result what was placed on
/// it, and the alignment remembers it in the drawing, in the record at the same position; nothing placed is ever looked
/// for by any other way.

/// Draws the sections at `positions`, in rising order, in place of what earlier drawings placed on them. Positions
/// behind the last section are left out; a section without a record is drawn and not remembered. False when the
/// alignment cannot be changed: then nothing is done.
bool DrawSections(ItemReferenceLine& alignment, std::vector<size_t> positions, DrawStyle style);

/// Erases what drawings placed on any section of the alignment. False when the alignment cannot be changed: what only
/// it remembers then stays.
bool EraseSections(ItemReferenceLine& alignment);

/// Erases what the section remembers, as far as it is still there, and forgets it. Cancels what the command line is
/// asking and gives the focus to the host's main window.
void EraseSectionDrawing(CrossSectionXdata& section);
