#include "host/db/entity/viewport.h"

ACRX_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, u"VIEWPORT")
