#include "survey/read/drawing/drawing_view.h"

#include "host/db/curve/entity_curves.h"
#include "survey/read/codes.h"
#include "survey/read/drawing/entity_texts.h"
#include "survey/read/table/rows.h"
#include "util/fields.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace survey
{

namespace
{

/// Where an entity stands, in metres; nothing, and a finding, when that cannot be read.
std::optional<AcGePoint3d> placeOfEntity(DrawingView& drawing, const Entity& entity)
{
    const auto place = drawing.readOf(entity, [&] { return readInsertionPoint(entity.record->view()); });
    return place ? std::optional{drawing.metres(*place)} : std::nullopt;
}

Point pointOf(const DrawingView& drawing, const Entity& entity, const AcGePoint3d& position)
{
    Point point;
    point.position = position;
    point.hasElevation = position.z != 0.0;
    point.place = drawing.placeOf(*entity.record);
    return point;
}

void setElevation(Point& point, double elevation)
{
    point.position.z = elevation;
    point.hasElevation = true;
}

/// The code of points on a layer.
std::u16string codeOf(const DrawingOptions& what, const std::u16string& layer)
{
    const auto found = what.layerCodes.find(layer);
    return found == what.layerCodes.end() ? layer : found->second;
}

void readLayerPoints(DrawingView& drawing, const DrawingOptions& what, const PointSource& source)
{
    for (const Entity& entity : drawing.entities())
        if (entity.kind == "POINT" && isAmong(source.names, entity.layer))
            if (const auto place = placeOfEntity(drawing, entity))
            {
                Point point = pointOf(drawing, entity, *place);
                point.codes = splitCodes(codeOf(what, entity.layer));
                drawing.survey().points.push_back(std::move(point));
            }
}

void readBlockPoints(DrawingView& drawing, const PointSource& source)
{
    for (const Entity& entity : drawing.entities())
    {
        if (entity.kind != "INSERT" || !isAmong(source.names, blockNameOf(drawing, entity)))
            continue;
        const std::vector<Attribute> attributes = drawing.readOf(entity, [&] { return attributesOf(drawing, entity); });
        const auto place = attributes.empty() ? std::nullopt : placeOfEntity(drawing, entity);
        if (!place)
            continue;
        Point point = pointOf(drawing, entity, *place);
        for (const Attribute& attribute : attributes)
            if (attribute.use == Attribute::kNumber)
                point.name = attribute.text;
            else if (attribute.use == Attribute::kCode)
                point.codes = splitCodes(attribute.text);
            else if (attribute.use == Attribute::kHeight)
            {
                if (const auto height = fieldNumber(toUtf8(attribute.text)))
                    setElevation(point, drawing.metres(*height));
                else if (!attribute.text.empty())
                    drawing.findings().unusable(point.place.line,
                                                "the height of a point is no number: " + quoted(attribute.text));
            }
        drawing.survey().points.push_back(std::move(point));
    }
}

/// Points in a grid, to find the nearest to a text.
class PointGrid
{
public:
    explicit PointGrid(double reach) : m_reach{reach} {}

    void add(size_t index, const AcGePoint3d& place) { m_cells[cellOf(place.x, place.y)].push_back({index, place}); }

    /// The index of the nearest point within reach; nothing when there is none.
    std::optional<size_t> nearest(const AcGePoint3d& place) const
    {
        std::optional<size_t> found;
        double shortest = m_reach;
        for (const double dx : {-m_reach, 0.0, m_reach})
            for (const double dy : {-m_reach, 0.0, m_reach})
                if (const auto cell = m_cells.find(cellOf(place.x + dx, place.y + dy)); cell != m_cells.end())
                    for (const auto& [index, at] : cell->second)
                        if (const double far = std::hypot(at.x - place.x, at.y - place.y); far <= shortest)
                        {
                            shortest = far;
                            found = index;
                        }
        return found;
    }

private:
    uint64_t cellOf(double x, double y) const
    {
        const auto cell = [this](double c)
        { return static_cast<uint32_t>(static_cast<int64_t>(std::floor(c / m_reach))); };
        return uint64_t{cell(x)} << 32 | cell(y);
    }

    double m_reach;
    std::unordered_map<uint64_t, std::vector<std::pair<size_t, AcGePoint3d>>> m_cells;
};

/// A text beside a point: with decimals its height, a whole number its number, else its code.
void takeText(const DrawingView& drawing, Point& point, const std::u16string& text)
{
    const auto number = fieldNumber(toUtf8(text));
    if (number && text.find_first_of(u".,") != text.npos)
        setElevation(point, drawing.metres(*number));
    else if (number)
        point.name = text;
    else
        for (std::u16string& code : splitCodes(text))
            point.codes.push_back(std::move(code));
}

void readTextPoints(DrawingView& drawing, const DrawingOptions& what, const PointSource& source)
{
    std::vector<Point>& points = drawing.survey().points;
    PointGrid grid{what.textDistance};
    for (const Entity& entity : drawing.entities())
        if (entity.kind == "POINT" && isAmong(source.names, entity.layer))
            if (const auto place = placeOfEntity(drawing, entity))
            {
                grid.add(points.size(), *place);
                points.push_back(pointOf(drawing, entity, *place));
            }
    for (const Entity& entity : drawing.entities())
    {
        if (entity.kind != "TEXT" && entity.kind != "MTEXT")
            continue;
        const auto place = placeOfEntity(drawing, entity);
        const std::u16string text = textOf(drawing, entity);
        if (const auto index = place ? grid.nearest(*place) : std::nullopt; index && !text.empty())
            takeText(drawing, points[*index], text);
    }
}

} // namespace

void readDrawingPoints(DrawingView& drawing, const DrawingOptions& what)
{
    for (const PointSource& source : what.points)
    {
        const size_t before = drawing.survey().points.size();
        if (source.kind == PointSource::kLayer)
            readLayerPoints(drawing, what, source);
        else if (source.kind == PointSource::kBlock)
            readBlockPoints(drawing, source);
        else
            readTextPoints(drawing, what, source);
        if (drawing.survey().points.size() == before)
            drawing.findings().unusable(0, source.kind == PointSource::kBlock
                                               ? "there are no blocks with attributes to be points"
                                               : "there are no point entities to be points");
    }
}

} // namespace survey
