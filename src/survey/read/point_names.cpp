#include "survey/read/point_names.h"

#include <algorithm>
#include <functional>

namespace survey
{

namespace
{

size_t hashOf(std::u16string_view name)
{
    return std::hash<std::u16string_view>{}(name);
}

/// Tells of a repeat; whether it is the same point again.
bool tellRepeat(const Survey& survey, const PointNames::Repeat& repeat, FindingList& findings)
{
    constexpr double kSamePlace = 0.0005;
    const Point& first = survey.points[repeat.first];
    const Point& second = survey.points[repeat.index];
    const bool isSame = first.position.distanceTo(second.position) < kSamePlace;
    const std::string text = "the point " + quoted(first.name) + " stands on line " + std::to_string(first.place.line) +
                             " already, at " + (isSame ? "the same place" : "another place");
    if (isSame)
        findings.note(second.place.line, text);
    else
        findings.unusable(second.place.line, text);
    return isSame;
}

} // namespace

PointNames::PointNames(const std::vector<Point>& points, size_t first)
{
    m_entries.reserve(points.size() - first);
    for (size_t i = first; i < points.size(); ++i)
        if (!points[i].name.empty())
            m_entries.push_back({hashOf(points[i].name), static_cast<uint32_t>(i)});
    std::sort(m_entries.begin(), m_entries.end());
}

std::optional<size_t> PointNames::find(const std::vector<Point>& points, std::u16string_view name) const
{
    const size_t hash = hashOf(name);
    for (auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), Entry{hash, 0});
         entry != m_entries.end() && entry->hash == hash; ++entry)
        if (points[entry->index].name == name)
            return entry->index;
    return std::nullopt;
}

std::vector<PointNames::Repeat> PointNames::repeats(const std::vector<Point>& points) const
{
    std::vector<Repeat> found;
    for (size_t i = 1; i < m_entries.size(); ++i)
        if (m_entries[i].hash == m_entries[i - 1].hash)
            if (const auto first = find(points, points[m_entries[i].index].name); *first != m_entries[i].index)
                found.push_back({m_entries[i].index, *first});
    std::sort(found.begin(), found.end(), [](const Repeat& a, const Repeat& b) { return a.index < b.index; });
    return found;
}

void settleNames(Survey& survey, size_t first, FindingList& findings)
{
    std::vector<bool> goes(survey.points.size());
    bool any = false;
    for (const PointNames::Repeat& repeat : PointNames{survey.points, first}.repeats(survey.points))
        if (tellRepeat(survey, repeat, findings))
            any = goes[repeat.index] = true;
    size_t index = 0;
    if (any)
        std::erase_if(survey.points, [&](const Point&) { return goes[index++]; });
}

} // namespace survey
