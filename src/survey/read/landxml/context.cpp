#include "survey/read/landxml/context.h"

#include "store/text/text.h"
#include "survey/read/length_unit.h"
#include "survey/read/number_text.h"
#include "util/fields.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace survey::landxml
{

namespace
{

std::string inMetres(const LengthUnit& unit)
{
    const std::string factor = unit.xmlName == "USSurveyFoot" ? "1200/3937" : std::to_string(unit.metres);
    return "lengths are converted to metres: 1 " + std::string{unit.name} + " is " +
           factor.substr(0, factor.find_last_not_of('0') + 1) + " m";
}

} // namespace

void Context::setUnits(const pugi::xml_node& units, const LengthUnit& otherwise)
{
    pugi::xml_node kind = childOf(units, "Metric");
    if (!kind)
        kind = childOf(units, "Imperial");
    const std::string_view name = attributeOf(kind, "linearUnit");
    const std::optional<LengthUnit> said = findLengthUnit(name);
    const LengthUnit unit = said.value_or(otherwise);
    const std::string taken = std::string{unit.name} + " is taken";
    if (!name.empty() && !said)
        unusable(kind, "the unit of length " + quoted(name) + " is not known; " + taken);
    else if (!said)
        note(units, "the unit of length is not said; " + taken);
    if (unit.metres != 1.0)
        note(kind ? kind : units, inMetres(unit));
    m_metres = unit.metres;
    m_survey.files[m_list.file()].units = unit.name;

    const std::string_view angle = attributeOf(kind, "angularUnit");
    m_isSexagesimal = angle == "decimal dd.mm.ss";
    m_radians = angle == "grads"                                ? std::numbers::pi / 200.0
                : angle == "decimal degrees" || m_isSexagesimal ? std::numbers::pi / 180.0
                                                                : 1.0;
}

double Context::radians(double angle) const
{
    if (!m_isSexagesimal)
        return angle * m_radians;
    const double size = std::fabs(angle) + 1e-9;
    const double degrees = std::floor(size);
    const double minutes = std::floor((size - degrees) * 100.0);
    const double seconds = ((size - degrees) * 100.0 - minutes) * 100.0;
    return std::copysign(degrees + minutes / 60.0 + seconds / 3600.0, angle) * m_radians;
}

void Context::unusable(const pugi::xml_node& node, const std::string& text)
{
    m_list.unusable(m_xml.lineOf(node), m_xml.lastLineOf(node), text);
}

Coordinates Context::coordinates(double first, double second, std::optional<double> elevation) const
{
    if (m_swapped)
        std::swap(first, second);
    Coordinates place;
    place.point = {metres(second), metres(first), metres(elevation.value_or(0.0))};
    place.hasElevation = elevation.has_value();
    return place;
}

std::optional<Coordinates> Context::placeIn(std::string_view text) const
{
    NumberText numbers{text};
    const auto first = numbers.next();
    const auto second = numbers.next();
    const auto elevation = numbers.next();
    return second && numbers.rest().empty() ? std::optional{coordinates(*first, *second, elevation)} : std::nullopt;
}

std::optional<Coordinates> Context::coordinatesOf(const pugi::xml_node& node, const std::string& what)
{
    if (!node)
        return std::nullopt;
    if (const std::string_view name = attributeOf(node, "pntRef"); !name.empty())
        return referredTo(node, name, what);
    const auto place = node.first_child() ? placeIn(textOf(node)) : placeIn(node.value());
    if (!place)
        unusable(node, what + " is no place of two or three numbers: " + quoted(node.value()));
    return place;
}

std::optional<std::vector<Coordinates>> Context::coordinateList(const pugi::xml_node& list)
{
    constexpr size_t kUsualLength = 30;
    const std::string whole = list.first_child() ? textOf(list) : std::string{};
    const std::string_view text = list.first_child() ? std::string_view{whole} : std::string_view{list.value()};
    const bool hasElevations = !isNamed(list, "PntList2D");
    std::vector<Coordinates> places;
    places.reserve(text.size() / kUsualLength + 1);
    NumberText numbers{text};
    while (const auto first = numbers.next())
    {
        const auto second = numbers.next();
        const auto elevation = hasElevations && second ? numbers.next() : std::nullopt;
        if (!second || (hasElevations && !elevation))
        {
            unusable(list, std::string{localName(list.name())} + " does not end with a whole point of " +
                               (hasElevations ? "three" : "two") + " numbers");
            return std::nullopt;
        }
        places.push_back(coordinates(*first, *second, elevation));
    }
    if (numbers.rest().empty())
        return places;
    unusable(list, std::string{localName(list.name())} + " holds something that is no number");
    return std::nullopt;
}

std::optional<Coordinates> Context::referredTo(const pugi::xml_node& node, std::string_view name,
                                               const std::string& what)
{
    if (const Point* const point = findPoint(name))
        return Coordinates{point->position, point->hasElevation};
    unusable(node, what + " refers to the point " + quoted(name) + ", which there is none of");
    return std::nullopt;
}

void Context::endOfPoints()
{
    settleNames(m_survey, m_firstPoint, m_list);
    for (const std::function<void()>& action : std::exchange(m_afterPoints, {}))
        action();
}

void Context::makeRoom(size_t points)
{
    const size_t all = m_survey.points.size() + points;
    if (all > m_survey.points.capacity())
        m_survey.points.reserve(std::max(all, 2 * m_survey.points.size()));
}

Point* Context::findPoint(std::string_view name)
{
    const std::u16string wanted = toUtf16(name);
    if (!m_names)
        m_names = PointNames{m_survey.points, m_firstPoint};
    if (const auto found = m_names->find(m_survey.points, wanted))
        return &m_survey.points[*found];
    const auto other =
        std::find_if(m_survey.points.begin(), m_survey.points.end(),
                     [&](const Point& point) { return point.place.file != m_list.file() && point.name == wanted; });
    return other == m_survey.points.end() ? nullptr : &*other;
}

std::optional<double> Context::numberOf(const pugi::xml_node& node, const char* attribute)
{
    const std::string_view text = attributeOf(node, attribute);
    if (text.empty())
        return std::nullopt;
    NumberText number{text};
    const auto value = number.next();
    if (value && number.rest().empty())
        return value;
    unusable(node, std::string{attribute} + " is no number: " + quoted(text));
    return std::nullopt;
}

std::optional<std::vector<double>> Context::numbersOf(const pugi::xml_node& node)
{
    auto list = survey::numbersOf(node.first_child() ? textOf(node) : std::string{node.value()});
    if (!list)
        unusable(node, "a list of numbers holds something that is none");
    return list;
}

Coding codingOf(const pugi::xml_node& node)
{
    Coding coding;
    const auto take = [](std::u16string& to, std::string_view text)
    {
        if (to.empty())
            to = TrimSpace(toUtf16(text));
    };
    for (const pugi::xml_node& feature : node)
    {
        if (!isNamed(feature, "Feature"))
            continue;
        for (const pugi::xml_node& property : feature)
        {
            const std::u16string label = toUtf16(attributeOf(property, "label"));
            const auto endsWith = [&](std::u16string_view end)
            {
                return label.size() >= end.size() &&
                       equalNoCase(std::u16string_view{label}.substr(label.size() - end.size()), end);
            };
            if (endsWith(u"Desc") || endsWith(u"Description"))
                take(coding.description, attributeOf(property, "value"));
            else if (endsWith(u"Coding") || endsWith(u"Code"))
                take(coding.coding, attributeOf(property, "value"));
        }
    }
    take(coding.description, attributeOf(node, "desc"));
    take(coding.coding, attributeOf(node, "code"));
    return coding;
}

} // namespace survey::landxml
