#pragma once

#include "kernel/curve/curve_path.h"

/// `intersect` for two paths of which one runs in space, or whose planes are not parallel.
void crossInSpace(const CurvePath& a, const CurvePath& b, AcGePoint3dArray& points);
