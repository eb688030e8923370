#pragma once

#include "host/db/entity/entity.h"
#include "kernel/point3d.h"

#include <memory>
#include <string>
#include <vector>

struct DrawStyle;

/// The entities of a label above a point of the ground, in the order of placing: a leader and an arrowhead down to the
/// point, when the labels stand high enough for them, and the text, which is in the form of the label font.
std::vector<std::unique_ptr<AcDbEntity>> MakeLabel(const AcGePoint3d& ground, const std::u16string& fontText,
                                                   const DrawStyle& style);
