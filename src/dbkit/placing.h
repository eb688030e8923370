#pragma once

#include "host/drawing/error_status.h"
#include "host/drawing/object_id.h"
#include "host/geometry/matrix3d.h"

class AcDbEntity;

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
/// the drawing then, and `id` names it. Else the status of the step that failed; when the entity was not appended, it
/// stays with the caller and `id` as it was.
Acad::ErrorStatus AppendToSpace(AcDbEntity* entity, AcDbObjectId& id, Coordinates coordinates = Coordinates::kWorld,
                                Space space = Space::kCurrent);

/// Carries coordinates of the user's coordinate system, of the space that is current, into the world's.
AcGeMatrix3d UcsToWcsMatrix();
