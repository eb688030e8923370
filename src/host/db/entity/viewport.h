#pragma once

#include "host/db/entity/entity.h"

/// A window of a paper space onto the model. Known by its class only.
class AcDbViewport : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
};
