#include "survey/read/line_ends.h"

#include <algorithm>

namespace survey
{

bool addLine(Survey& survey, CodedLine line)
{
    constexpr double kSamePlace = 0.0005;
    const auto isSame = [](const AcGePoint3d& a, const AcGePoint3d& b) { return a.distanceTo(b) < kSamePlace; };
    AcGePoint3dArray& vertices = line.vertices;
    vertices.erase(std::unique(vertices.begin(), vertices.end(), isSame), vertices.end());
    if (vertices.size() > 2 && isSame(vertices.front(), vertices.back()))
    {
        vertices.pop_back();
        line.closed = vertices.size() > 2;
    }
    if (vertices.size() < 2)
        return false;
    survey.lines.push_back(std::move(line));
    return true;
}

} // namespace survey
