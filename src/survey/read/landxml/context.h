#pragma once

#include "survey/model/survey.h"
#include "survey/read/finding_list.h"
#include "survey/read/length_unit.h"
#include "survey/read/point_names.h"
#include "survey/read/xml_document.h"

#include <functional>
#include <optional>
#include <string>

namespace survey::landxml
{

/// A place as LandXML gives it: "northing easting" or "northing easting elevation".
struct Coordinates
{
    AcGePoint3d point; ///< metres, x the easting
    bool hasElevation = false;

    AcGePoint2d plan() const { return {point.x, point.y}; }
};

/// One LandXML file on its way into a survey: what its parts share.
class Context
{
public:
    Context(Survey& survey, uint32_t file, const XmlDocument& xml)
        : m_survey{survey}, m_xml{xml}, m_list{survey, file}, m_firstPoint{survey.points.size()}
    {
    }

    Survey& survey() { return m_survey; }
    FindingList& findings() { return m_list; }
    double metres(double length) const { return length * m_metres; }
    double radians(double angle) const;

    /// Takes the units of a `Units` element, `otherwise` where it says none.
    void setUnits(const pugi::xml_node& units, const LengthUnit& otherwise);
    void setSwapped(bool swapped) { m_swapped = swapped; }

    uint32_t lineOf(const pugi::xml_node& node) const { return m_xml.lineOf(node); }
    Place placeOf(const pugi::xml_node& node) const { return m_list.place(m_xml.lineOf(node)); }
    void unusable(const pugi::xml_node& node, const std::string& text);
    void note(const pugi::xml_node& node, const std::string& text) { m_list.note(m_xml.lineOf(node), text); }

    /// The place in an element's text, or that of the point it names. Nothing without an element; nothing, and a
    /// finding that calls it `what`, when there is no such place.
    std::optional<Coordinates> coordinatesOf(const pugi::xml_node& node, const std::string& what);
    /// The place that a text gives; nothing when it gives none.
    std::optional<Coordinates> placeIn(std::string_view text) const;
    Coordinates coordinates(double first, double second, std::optional<double> elevation) const;
    /// The places of a list of two (PntList2D) or three numbers each. Nothing, and a finding, when it is no such list.
    std::optional<std::vector<Coordinates>> coordinateList(const pugi::xml_node& list);

    /// A number in an attribute; nothing when it is missing, or is none, which becomes a finding.
    std::optional<double> numberOf(const pugi::xml_node& node, const char* attribute);
    /// All numbers in a list; nothing, and a finding, when something in it is none.
    std::optional<std::vector<double>> numbersOf(const pugi::xml_node& node);

    /// Something to do with points that may stand further down, when all of them are read.
    void afterPoints(std::function<void()> action) { m_afterPoints.push_back(std::move(action)); }
    /// So many points will come.
    void makeRoom(size_t points);
    /// The last point was read: from now on they can be found by name.
    void endOfPoints();
    /// A point of this file by its name, else one of the files before it; null when there is none.
    Point* findPoint(std::string_view name);

private:
    std::optional<Coordinates> referredTo(const pugi::xml_node& node, std::string_view name, const std::string& what);

    Survey& m_survey;
    const XmlDocument& m_xml;
    FindingList m_list;
    double m_metres = 1.0;
    double m_radians = 1.0;
    bool m_isSexagesimal = false; ///< angles are degrees, minutes and seconds as one decimal
    bool m_swapped = false;
    size_t m_firstPoint;               ///< of this file
    std::optional<PointNames> m_names; ///< made when first asked for
    std::vector<std::function<void()>> m_afterPoints;
};

/// What `Feature` children and attributes say an element is.
struct Coding
{
    std::u16string description;
    std::u16string coding;
};
Coding codingOf(const pugi::xml_node& node);

} // namespace survey::landxml
