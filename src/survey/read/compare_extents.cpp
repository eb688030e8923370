#include "survey/read/compare_extents.h"

#include "survey/line/alignment_walk.h"
#include "survey/read/finding_list.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace survey
{

namespace
{

double gap(double least, double most, double otherLeast, double otherMost)
{
    return std::max({0.0, otherLeast - most, least - otherMost});
}

double distanceBetween(const AcGeExtents& a, const AcGeExtents& b)
{
    return std::hypot(gap(a.minPoint().x, a.maxPoint().x, b.minPoint().x, b.maxPoint().x),
                      gap(a.minPoint().y, a.maxPoint().y, b.minPoint().y, b.maxPoint().y));
}

double sizeOf(const AcGeExtents& box)
{
    const AcGeVector3d diagonal = box.maxPoint() - box.minPoint();
    return std::hypot(diagonal.x, diagonal.y);
}

/// Files of one job lie side by side, or a few kilometres apart.
bool isNear(const AcGeExtents& a, const AcGeExtents& b)
{
    constexpr double kNear = 3000.0;
    return distanceBetween(a, b) <= std::max({kNear, sizeOf(a), sizeOf(b)});
}

/// What may have happened to the coordinates of a file.
struct Mistake
{
    const char* text;
    bool swapped;
    double factor;
};

constexpr double kFoot = 0.3048;
constexpr std::array<Mistake, 3> kMistakes{
    {{"northing and easting look swapped (--swap reads them so)", true, 1.0},
     {"its lengths look like feet that are taken for metres (--unit says the unit of files that do not)", false, kFoot},
     {"its lengths look like metres that are taken for feet", false, 1.0 / kFoot}}};

AcGeExtents undone(const AcGeExtents& box, const Mistake& mistake)
{
    const auto place = [&](const AcGePoint3d& p)
    {
        const AcGePoint3d other = mistake.swapped ? AcGePoint3d{p.y, p.x, p.z} : p;
        return AcGePoint3d{other.x * mistake.factor, other.y * mistake.factor, other.z};
    };
    return {place(box.minPoint()), place(box.maxPoint())};
}

using Group = std::vector<size_t>;

/// The files that have a place, in groups that lie near one another, each by rising index.
std::vector<Group> groupsOf(const std::vector<SurveyFile>& files)
{
    std::vector<Group> groups;
    for (size_t i = 0; i < files.size(); ++i)
    {
        if (!files[i].extents.isValid())
            continue;
        Group joined{i};
        const auto touches = [&](const Group& group)
        {
            return std::any_of(group.begin(), group.end(),
                               [&](size_t other) { return isNear(files[i].extents, files[other].extents); });
        };
        for (Group& group : groups)
            if (touches(group))
            {
                joined.insert(joined.end(), group.begin(), group.end());
                group.clear();
            }
        std::erase_if(groups, [](const Group& group) { return group.empty(); });
        std::sort(joined.begin(), joined.end());
        groups.push_back(std::move(joined));
    }
    return groups;
}

/// The largest of the groups, of equals the one with the first file.
Group largest(std::vector<Group> groups)
{
    std::sort(groups.begin(), groups.end());
    const auto isSmaller = [](const Group& a, const Group& b) { return a.size() < b.size(); };
    return groups.empty() ? Group{} : *std::max_element(groups.begin(), groups.end(), isSmaller);
}

std::string reasonOf(const AcGeExtents& box, const AcGeExtents& others)
{
    for (const Mistake& mistake : kMistakes)
        if (isNear(undone(box, mistake), others))
            return mistake.text;
    constexpr double kKilometre = 1000.0;
    return "it lies " + std::to_string(static_cast<int64_t>(distanceBetween(box, others) / kKilometre)) +
           " km from there";
}

} // namespace

void measureExtents(Survey& survey)
{
    const auto add = [&](const Place& place, const AcGePoint3d& point)
    { survey.files[place.file].extents.addPoint(point); };
    for (const Point& point : survey.points)
        add(point.place, point.position);
    for (const CodedLine& line : survey.lines)
        for (const AcGePoint3d& vertex : line.vertices)
            add(line.place, vertex);
    for (const Surface& surface : survey.surfaces)
        for (const AcGePoint3d& point : surface.points)
            add(surface.place, point);
    constexpr double kCoarse = 1.0;
    for (const AlignmentLine& line : survey.alignments)
        for (const AcGePoint2d& point : chordsOf(line, kCoarse))
            add(line.place, {point.x, point.y, 0.0});
}

void compareExtents(Survey& survey)
{
    const Group group = largest(groupsOf(survey.files));
    if (group.empty())
        return;
    AcGeExtents others;
    for (const size_t file : group)
        others.addExtents(survey.files[file].extents);
    for (size_t i = 0; i < survey.files.size(); ++i)
    {
        const bool isOutside = std::find(group.begin(), group.end(), i) == group.end();
        if (isOutside && survey.files[i].extents.isValid())
            FindingList{survey, static_cast<uint32_t>(i)}.unusable(
                0, "does not lie where " + survey.files[group.front()].path +
                       " does: " + reasonOf(survey.files[i].extents, others));
    }
}

} // namespace survey
