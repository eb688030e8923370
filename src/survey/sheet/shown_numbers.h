#pragma once

#include "kernel/point3d.h"

#include <string>

namespace survey
{

/// Numbers as findings and sheets show them: with a point, never "-0.00".
std::u16string fixed(double value, int decimals);
/// "1.234 m"
std::string metres(double value);
/// "(598000.123, 2317000.456)"
std::string shownPlace(const AcGePoint3d& place);

} // namespace survey
