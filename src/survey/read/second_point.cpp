#include "survey/read/second_point.h"

namespace survey
{

bool keepsSecond(FindingList& findings, uint32_t line, const Point& first, const AcGePoint3d& position)
{
    constexpr double kSamePlace = 0.0005;
    const bool isSame = first.position.distanceTo(position) < kSamePlace;
    const std::string text = "the point " + quoted(first.name) + " stands on line " + std::to_string(first.place.line) +
                             " already, at " + (isSame ? "the same place" : "another place");
    if (isSame)
        findings.note(line, text);
    else
        findings.unusable(line, text);
    return !isSame;
}

} // namespace survey
