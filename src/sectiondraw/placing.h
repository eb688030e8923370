#pragma once

#include "host/drawing/entity.h"
#include "sectiondraw/drawing_run.h"

#include <memory>
#include <string>

struct CrossSectionXdata;

/// The entities of a section's drawing, one by one, each remembered by the section in the order of placing: one that
/// the drawing refuses by the null id.

/// Places an entity with the layer and colour of `look`; a layer that the drawing does not have is left out.
AcDbObjectId PlaceEntity(std::unique_ptr<AcDbEntity> entity, const OptionStyle& look, CrossSectionXdata& section);

/// Places a block with the scales and rotation of `row`.
template <class Row>
void PlaceBlock(const AcGePoint3d& point, AcDbObjectId block, const Row& row, const OptionStyle& look,
                CrossSectionXdata& section);

/// A label: its text, and the code it is marked with; null for no mark.
struct Label
{
    const std::u16string& text;
    const std::u16string* mark = nullptr;
};

/// Places a label above a point of the ground, with a leader and an arrowhead down to it when the labels stand high
/// enough for one.
void PlaceLabel(const AcGePoint3d& ground, const Label& label, const OptionStyle& look, CrossSectionXdata& section,
                DrawingRun& run);
