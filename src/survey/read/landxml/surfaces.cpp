#include "survey/read/landxml/parts.h"

#include "store/text/text.h"
#include "survey/read/line_ends.h"
#include "survey/read/number_text.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace survey::landxml
{

namespace
{

/// The points of a surface by their numbers, which mostly count up from 1.
class PointNumbers
{
public:
    /// False when the number is taken.
    bool add(int64_t number, uint32_t index)
    {
        if (m_byNumber.empty() && number == m_first + static_cast<int64_t>(index))
            return true;
        if (m_byNumber.empty())
            for (uint32_t i = 0; i < index; ++i)
                m_byNumber.emplace(m_first + i, i);
        return m_byNumber.emplace(number, index).second;
    }
    void begin(int64_t first) { m_first = first; }

    /// The index of a point among `count`; `count` for a number that none has.
    uint32_t find(int64_t number, uint32_t count) const
    {
        if (m_byNumber.empty())
        {
            const int64_t index = number - m_first;
            return index >= 0 && index < count ? static_cast<uint32_t>(index) : count;
        }
        const auto found = m_byNumber.find(number);
        return found == m_byNumber.end() ? count : found->second;
    }

private:
    int64_t m_first = 1;
    std::unordered_map<int64_t, uint32_t> m_byNumber; ///< empty while they count up
};

/// One surface on its way into the survey.
class SurfaceReader
{
public:
    SurfaceReader(Context& context, const pugi::xml_node& node)
        : m_context{context}, m_what{"surface " + quoted(attributeOf(node, "name"))}
    {
        m_surface.name = toUtf16(attributeOf(node, "name"));
        m_surface.place = context.placeOf(node);
        for (const pugi::xml_node& child : node)
            if (isNamed(child, "Definition"))
                readDefinition(child);
            else if (isNamed(child, "SourceData"))
                readSource(child);
        if (m_flatFaces > 0)
            context.note(node, m_what + ": " + counted(m_flatFaces, "face") + " with the same point twice left out");
    }

    /// The surface; where it has no triangles, with the points that they are to be made of.
    Surface take()
    {
        if (m_surface.faces.empty())
            m_surface.points.insert(m_surface.points.end(), m_sourcePoints.begin(), m_sourcePoints.end());
        return std::move(m_surface);
    }
    const std::string& what() const { return m_what; }

private:
    void readDefinition(const pugi::xml_node& definition)
    {
        for (const pugi::xml_node& child : definition)
            if (isNamed(child, "Pnts"))
                readPoints(child);
        for (const pugi::xml_node& child : definition)
            if (isNamed(child, "Faces"))
                readFaces(child);
    }

    void readPoints(const pugi::xml_node& points)
    {
        m_surface.points.reserve(m_surface.points.size() + likelyChildren(points));
        for (const pugi::xml_node& node : points)
            if (isNamed(node, "P"))
                readPoint(node);
    }

    void readPoint(const pugi::xml_node& node)
    {
        const std::string_view id = attributeOf(node, "id");
        const auto number = NumberText{id}.nextInteger();
        const auto place = m_context.placeIn(node.value());
        if (!number || !place || !place->hasElevation)
        {
            tellPoint(node, !number ? "has no number as id" : !place ? "is no place" : "has no elevation");
            return;
        }
        const auto index = static_cast<uint32_t>(m_surface.points.size());
        if (index == 0)
            m_numbers.begin(*number);
        if (m_numbers.add(*number, index))
            m_surface.points.push_back(place->point);
        else
            tellPoint(node, "has the id " + quoted(id) + ", which another has already");
    }

    void tellPoint(const pugi::xml_node& node, const std::string& text)
    {
        m_context.unusable(node, "a point of " + m_what + " " + text);
    }

    void readFaces(const pugi::xml_node& faces)
    {
        m_surface.faces.reserve(m_surface.faces.size() + likelyChildren(faces));
        for (const pugi::xml_node& node : faces)
            if (isNamed(node, "F") && node.attribute("i").as_int() == 0)
                readFace(node);
    }

    /// Three points, or the four of a cell of a grid, which are two triangles.
    void readFace(const pugi::xml_node& node)
    {
        NumberText numbers{node.value()};
        std::array<uint32_t, 4> corners{};
        size_t count = 0;
        const auto all = static_cast<uint32_t>(m_surface.points.size());
        for (auto number = numbers.nextInteger(); number && count < corners.size(); number = numbers.nextInteger())
        {
            corners[count] = m_numbers.find(*number, all);
            if (corners[count++] == all)
            {
                m_context.unusable(node, "a face of " + m_what + " refers to the point " + std::to_string(*number) +
                                             ", which there is none of");
                return;
            }
        }
        if (!numbers.rest().empty() || count < 3)
            m_context.unusable(node, "a face of " + m_what + " does not name three points");
        else
        {
            addFace({corners[0], corners[1], corners[2]});
            if (count == 4)
                addFace({corners[0], corners[2], corners[3]});
        }
    }

    void addFace(const Surface::Face& face)
    {
        if (face[0] == face[1] || face[1] == face[2] || face[2] == face[0])
            ++m_flatFaces;
        else
            m_surface.faces.push_back(face);
    }

    void readSource(const pugi::xml_node& source)
    {
        for (const pugi::xml_node& group : source)
            if (isNamed(group, "Breaklines"))
                readLines(group, "Breakline");
            else if (isNamed(group, "Contours"))
                readLines(group, "Contour");
            else if (isNamed(group, "DataPoints"))
                readDataPoints(group);
            else if (group.type() == pugi::node_element && !isNamed(group, "Feature"))
                m_context.note(group, m_what + ": " + std::string{localName(group.name())} + " is not read");
    }

    void readLines(const pugi::xml_node& group, std::string_view name)
    {
        for (const pugi::xml_node& node : group)
            if (isNamed(node, name))
                readLine(node);
    }

    void readLine(const pugi::xml_node& node)
    {
        CodedLine line;
        line.name = toUtf16(attributeOf(node, "name"));
        Coding coding = codingOf(node);
        line.description = std::move(coding.description);
        line.coding = std::move(coding.coding);
        line.isBreakLine = true;
        line.place = m_context.placeOf(node);
        const auto elevation = m_context.numberOf(node, "elev");
        for (const pugi::xml_node& list : node)
            if (isNamed(list, "PntList3D") || isNamed(list, "PntList2D"))
                if (const auto places = m_context.coordinateList(list))
                    addVertices(line, *places, elevation);
        finish(line, node);
    }

    void addVertices(CodedLine& line, const std::vector<Coordinates>& places, std::optional<double> elevation) const
    {
        line.vertices.reserve(line.vertices.size() + places.size());
        for (const Coordinates& place : places)
        {
            line.vertices.push_back(place.point);
            if (!place.hasElevation && elevation)
                line.vertices.back().z = m_context.metres(*elevation);
            line.hasElevations = line.hasElevations && (place.hasElevation || elevation);
        }
    }

    void finish(CodedLine& line, const pugi::xml_node& node)
    {
        const std::string what = m_what + ": " + std::string{localName(node.name())} + " " + quoted(line.name);
        if (addLine(m_context.survey(), std::move(line)))
            return;
        m_context.unusable(node, what + " has no length");
    }

    void readDataPoints(const pugi::xml_node& group)
    {
        for (const pugi::xml_node& list : group)
            if (isNamed(list, "PntList3D"))
                if (const auto places = m_context.coordinateList(list))
                    for (const Coordinates& place : *places)
                        m_sourcePoints.push_back(place.point);
    }

    Context& m_context;
    std::string m_what;
    Surface m_surface;
    PointNumbers m_numbers;
    AcGePoint3dArray m_sourcePoints;
    size_t m_flatFaces = 0;
};

bool hasSurface(const Survey& survey, std::u16string_view name)
{
    return std::any_of(survey.surfaces.begin(), survey.surfaces.end(),
                       [&](const Surface& surface) { return equalNoCase(surface.name, name); });
}

} // namespace

void readSurfaces(Context& context, const pugi::xml_node& surfaces)
{
    for (const pugi::xml_node& node : surfaces)
        if (isNamed(node, "Surface"))
        {
            SurfaceReader reader{context, node};
            if (hasSurface(context.survey(), toUtf16(attributeOf(node, "name"))))
                context.unusable(node, reader.what() + ": another one has this name");
            else
                context.survey().surfaces.push_back(reader.take());
        }
}

} // namespace survey::landxml
