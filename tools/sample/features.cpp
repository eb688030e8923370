#include "features.h"

#include "catalogue.h"
#include "random.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double kPi = 3.14159265358979;
constexpr double kShortestRun = 40; // metres; keeps features of a crowded road long enough to cross a section

/// The stretch of road that one pass through the catalogue covers.
struct Block
{
    double from;
    double to;
};

/// Makes the vertices of features in the road's own frame: chainage and offset.
class FeatureMaker
{
public:
    FeatureMaker(const RoadDrawing& drawing, Block block, Random& random)
        : m_drawing(drawing), m_block(block), m_random(random)
    {
    }

    std::vector<Vertex> Make(const LineFeature& feature)
    {
        switch (feature.shape)
        {
        case Shape::Parallel:
            return m_drawing.road.Parallel(m_block.from, m_block.to, feature.offset);
        case Shape::Along:
            return Run(m_block.from, m_block.to, feature.offset, 1.2);
        case Shape::Piece:
            return Piece();
        case Shape::House:
            return House();
        case Shape::Pond:
            return Outline(m_random.Between(5, 9), 0.25, 8);
        case Shape::Parcel:
            return Parcel();
        case Shape::Crossing:
            break;
        }
        return Crossing();
    }

private:
    Vertex On(double chainage, double offset) const
    {
        return {m_drawing.road.At(chainage, offset), m_drawing.terrain.Height(m_drawing.road, chainage, offset), 0};
    }

    double Somewhere(double margin)
    {
        return m_random.Between(m_block.from + margin, std::max(m_block.from + margin + 1, m_block.to - margin));
    }

    std::vector<Vertex> Run(double from, double to, double offset, double wander)
    {
        std::vector<Vertex> line;
        for (double at = from; at < to; at += m_random.Between(7, 14))
            line.push_back(On(at, offset + m_random.Between(-wander, wander)));
        line.push_back(On(to, offset));
        return line;
    }

    std::vector<Vertex> Piece()
    {
        const double length = m_random.Between(25, 90);
        const double from = Somewhere(length / 2) - length / 2;
        return Run(from, from + length, m_random.EitherSide(9, 28), 0.8);
    }

    std::vector<Vertex> House()
    {
        const double at = Somewhere(10);
        const double offset = m_random.EitherSide(16, 34);
        const double turn = m_random.Between(-0.2, 0.2);
        const double halfLength = m_random.Between(4, 8);
        const double halfWidth = m_random.Between(2.5, 4.5);
        std::vector<Vertex> outline;
        for (const auto& [along, across] : {std::pair{-1, -1}, {1, -1}, {1, 1}, {-1, 1}})
        {
            const double dx = along * halfLength;
            const double dy = across * halfWidth;
            outline.push_back(
                On(at + dx * std::cos(turn) - dy * std::sin(turn), offset + dx * std::sin(turn) + dy * std::cos(turn)));
        }
        return outline;
    }

    std::vector<Vertex> Outline(double radius, double bulge, int corners)
    {
        const double at = Somewhere(radius);
        const double offset = m_random.EitherSide(16, 45);
        std::vector<Vertex> outline;
        for (int i = 0; i < corners; ++i)
        {
            const double angle = 2 * kPi * i / corners;
            const double reach = radius * m_random.Between(0.75, 1.15);
            outline.push_back(On(at + 1.5 * reach * std::cos(angle), offset + reach * std::sin(angle)));
            outline.back().bulge = -bulge; // offsets grow to the right, so the outline runs clockwise
        }
        return outline;
    }

    std::vector<Vertex> Parcel()
    {
        const int corners = 6 + m_random.Index(6);
        return Outline(m_random.Between(9, 16), 0, corners);
    }

    std::vector<Vertex> Crossing()
    {
        const double at = Somewhere(6);
        const double lean = m_random.Between(-0.4, 0.4);
        const double left = -m_random.Between(8, 45);
        const double right = m_random.Between(8, 45);
        std::vector<Vertex> line;
        for (double offset = left; offset < right; offset += m_random.Between(4, 8))
            line.push_back(On(at + lean * offset + m_random.Between(-0.5, 0.5), offset));
        line.push_back(On(at + lean * right, right));
        return line;
    }

    const RoadDrawing& m_drawing;
    Block m_block;
    Random& m_random;
};

bool IsClosed(Shape shape)
{
    return shape == Shape::House || shape == Shape::Pond || shape == Shape::Parcel;
}

std::u16string_view VertexCode(const LineFeature& feature)
{
    if (feature.shape == Shape::House)
        return u"NHA";
    if (feature.layer == "DIEN")
        return u"Cột điện";
    return feature.layer == "THUC_VAT" ? u"CAY" : u"";
}

void Decorate(Entities& entities, const LineFeature& feature, const std::vector<Vertex>& line, Random& random)
{
    if (feature.shape != Shape::House && feature.shape != Shape::Pond)
        return;
    const bool house = feature.shape == Shape::House;
    if (random.Percent(70))
        entities.Hatch(feature.layer, line, !house, house ? 9 : 151);
    const Point middle{(line.front().at.x + line[line.size() / 2].at.x) / 2,
                       (line.front().at.y + line[line.size() / 2].at.y) / 2};
    entities.Text("GHI_CHU", middle, house ? (random.Percent(50) ? u"Nhµ t«n" : u"Nhµ g¹ch") : u"Ao c¸",
                  {.height = 1.8, .align = Entities::Align::Middle, .style = ".VnTime"});
}
} // namespace

int DrawFeatures(const RoadDrawing& drawing, int count, int pointBudget)
{
    Entities entities(drawing.out);
    Random random(drawing.seed, 2);
    const auto features = LineFeatures();
    const auto perBlock = static_cast<int>(features.size());
    const double blockLength = drawing.road.Length() * perBlock / std::max(count, perBlock);
    int points = 0;
    for (int i = 0; i < count; ++i)
    {
        const int block = i / perBlock;
        const double from = blockLength * block;
        const double to = std::min(drawing.road.Length(), from + std::max(blockLength, kShortestRun));
        const LineFeature& feature = features[static_cast<std::size_t>(i % perBlock)];
        FeatureMaker maker(drawing, {std::min(from, std::max(0.0, to - kShortestRun)), to}, random);
        const std::vector<Vertex> line = maker.Make(feature);
        entities.Polyline(feature.lineClass, feature.layer, line, IsClosed(feature.shape), feature.form);
        ++drawing.out.Running().codedPolylines;
        Decorate(entities, feature, line, random);
        for (std::size_t v = 0; v < line.size() && points < pointBudget; v += 3, ++points)
            entities.SurveyPoint(line[v].at, line[v].z, VertexCode(feature));
    }
    return points;
}
