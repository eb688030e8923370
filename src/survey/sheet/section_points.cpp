#include "survey/sheet/section_points.h"

#include "survey/surface/cell_lists.h"

#include <array>
#include <cmath>

namespace survey
{

namespace
{

struct Address
{
    size_t alignment;
    size_t section;
};

std::vector<Address> addressesOf(const std::vector<PlannedAlignment>& alignments)
{
    std::vector<Address> addresses;
    for (size_t alignment = 0; alignment < alignments.size(); ++alignment)
        for (size_t section = 0; section < alignments[alignment].sections.size(); ++section)
            addresses.push_back({alignment, section});
    return addresses;
}

} // namespace

std::vector<std::optional<PointSection>> sectionsOfPoints(const std::vector<Point>& points,
                                                          const std::vector<PlannedAlignment>& alignments,
                                                          const WriteOptions& options)
{
    const std::vector<Address> addresses = addressesOf(alignments);
    const auto sectionAt = [&](size_t number) -> const PlannedSection&
    { return alignments[addresses[number].alignment].sections[addresses[number].section]; };
    const auto line = [&](size_t number) {
        return std::array{sectionAt(number).placeOf(-options.halfWidth), sectionAt(number).placeOf(options.halfWidth)};
    };
    Box2d box;
    for (size_t number = 0; number < addresses.size(); ++number)
        for (const AcGePoint2d& end : line(number))
            box.add(end.x, end.y);
    const CellLists lists{box, addresses.size(), 4 * addresses.size(), line};

    std::vector<std::optional<PointSection>> found(points.size());
    std::vector<uint32_t> near;
    for (size_t i = 0; i < points.size(); ++i)
    {
        const AcGePoint2d place{points[i].position.x, points[i].position.y};
        lists.collect(std::array{place}, options.tolerance, near);
        for (const uint32_t number : near)
        {
            const PlannedSection& section = sectionAt(number);
            const AcGeVector2d from{place.x - section.center.x, place.y - section.center.y};
            const double offset = from.dotProduct(section.right);
            const double away = std::abs(from.crossProduct(section.right));
            if (std::abs(offset) <= options.halfWidth && away <= options.tolerance &&
                (!found[i] || away < found[i]->away))
                found[i] = PointSection{addresses[number].alignment, addresses[number].section, offset, away};
        }
    }
    return found;
}

} // namespace survey
