#pragma once

#include "host/db/database.h"
#include "kernel/point3d.h"

#include <cstdint>
#include <string>

/// Whether a drawing has the section that blocks stand in; without it no block can be made.
bool hasBlocksSection(const DrawingStore& store);

/// Gives a block record that was just added its contents: the block's head and end, and between them room for
/// entities. Index of the container.
uint32_t addBlockContents(AcDbDatabase& drawing, const std::u16string& name, ObjectRecord& blockRecord,
                          const AcGePoint3d& basePoint);

/// The pairs of a block record behind its owner.
void encodeBlockRecord(TagWriter& out, const AcDbDatabase& drawing, const std::u16string& name);

/// Handle of the plot style that layer "0" of the drawing names, for new layers; 0 when there is none.
uint64_t plotStyleOfLayers(AcDbDatabase& drawing);
