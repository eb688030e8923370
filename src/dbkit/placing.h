#pragma once

#include "host/db/entity/entity.h"
#include "kernel/matrix3d.h"

#include <memory>

/// The one way by which new entities get into the current drawing.

enum class Space : unsigned
{
    kCurrent = 0, ///< model space, or paper space while a layout is shown
    kModel = 1,
    kPaper = 2
};

/// Whether an entity's coordinates are the world's or those of the user's coordinate system.
enum class Coordinates
{
    kWorld,
    kUser
};

/// Appends a fresh entity to the drawing, moved into world coordinates if they are not, and closes it: it belongs to
/// the drawing then, and `id` names it. Else the status of the step that failed; an entity that was not appended is
/// gone, and `id` as it was.
Acad::ErrorStatus AppendToSpace(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id,
                                Coordinates coordinates = Coordinates::kWorld, Space space = Space::kCurrent);

/// Carries coordinates of the user's coordinate system, of the space that is current, into the world's.
AcGeMatrix3d UcsToWcsMatrix();
