#include "survey/line/section_line.h"

#include "survey/line/alignment_walk.h"

#include <cmath>

namespace survey
{

AcGeVector2d sectionDirection(const AlignmentLine& line, double distance, double skew)
{
    const AcGeVector2d forward = directionAt(line, distance);
    return -forward.perpVector() * std::cos(skew) - forward * std::sin(skew);
}

AcGePoint2d sectionPlace(const AlignmentLine& line, double distance, double skew, double offset)
{
    return pointAt(line, distance) + sectionDirection(line, distance, skew) * offset;
}

} // namespace survey
