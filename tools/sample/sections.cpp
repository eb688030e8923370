#include "sections.h"

#include "catalogue.h"
#include "entities.h"
#include "random.h"
#include "section_sheet.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
constexpr double kScaleValue = 200;
constexpr int kMostPointsASection = 10;

/// The alignment's record of one cross-section, kept until the alignment is written.
struct Record
{
    std::u16string name;
    Point a;
    Point b;
    Point base;
    Handle groundLine;
    std::vector<Handle> points;
    bool hasOwnDc;
};

std::u16string SectionName(const Road& road, int index, double chainage)
{
    if (road.Name().back() % 2 != 0) // T1, T3, ... number their sections, the others name them by chainage
        return u"C" + Wide(std::to_string(index + 1));
    const auto metres = static_cast<int>(std::lround(chainage));
    std::string rest = std::to_string(metres % 1000);
    rest.insert(0, 3 - rest.size(), '0');
    return u"Km" + Wide(std::to_string(metres / 1000) + "+" + rest);
}

struct Shot
{
    std::u16string_view code;
    double offset;
};

/// The shots of a section in the order they are worth taking: the road's edges first, then details beside it.
std::vector<Shot> SectionShots(int index, int count, double extent, Random& random)
{
    std::vector<Shot> shots{{u"MT1", -kRoadEdge}, {u"MP1", kRoadEdge}};
    if (index % 3 == 0)
        shots.insert(shots.end(), {{u"DC_T", -kShoulder}, {u"DC_P", kShoulder}});
    else if (index % 3 == 1)
        shots.insert(shots.end(), {{u"DC1", -kShoulder}, {u"DC2", kShoulder}});
    if (index % 5 == 0)
        shots.push_back({u"TIM", 0});
    while (shots.size() < static_cast<std::size_t>(kMostPointsASection))
    {
        const double offset = random.EitherSide(6, extent - 1);
        const auto codes = PointCodes();
        shots.push_back({random.Percent(30)
                             ? u""
                             : codes[static_cast<std::size_t>(random.Index(static_cast<int>(codes.size())))].code,
                         offset});
    }
    shots.resize(static_cast<std::size_t>(count));
    return shots;
}

bool HasOwnDc(const std::vector<Shot>& shots)
{
    return std::any_of(shots.begin(), shots.end(), [](const Shot& shot) { return shot.code.substr(0, 2) == u"DC"; });
}

void WriteRecord(DxfOut& out, const Record& record)
{
    out.Text(2, record.name);
    out.At(10, record.a, 0);
    out.At(11, record.b, 0);
    out.At(12, record.base, 0);
    out.Hex(340, record.groundLine);
    out.Tag(70, 0);
    out.Tag(91, static_cast<int>(record.points.size()));
    for (const Handle point : record.points)
        out.Hex(330, point);
    out.Tag(92, record.hasOwnDc ? 0 : 2);
    if (!record.hasOwnDc)
    {
        out.Real(43, -kShoulder);
        out.Real(43, kShoulder);
    }
    out.Tag(93, 0);
}

void WriteAlignment(Entities& entities, const Road& road, double extent, const std::vector<Record>& records)
{
    DxfOut& out = entities.Out();
    entities.Begin("PLXDBALIGNMENT", "TIM_TUYEN");
    ++out.Running().alignments;
    out.Tag(100, "PlxDbAlignment");
    out.Tag(1, road.Name());
    out.Real(40, kScaleValue);
    out.Real(41, extent);
    out.Real(42, extent);
    out.Tag(90, static_cast<int>(records.size()));
    for (const Record& record : records)
        WriteRecord(out, record);
}

void DrawSectionLine(Entities& entities, const RoadDrawing& drawing, const Record& record, double chainage)
{
    entities.Line("COC", record.a, record.b);
    const double direction = drawing.road.At(chainage).heading * 180 / 3.14159265358979;
    entities.Text("COC", drawing.road.At(chainage, -7), record.name, {.height = 1.6, .rotation = direction + 90});
}
} // namespace

Point SectionGrid::Next()
{
    constexpr double kWidth = 400;
    constexpr double kHeight = 240;
    const int column = used % columns;
    const int row = used / columns;
    ++used;
    return {corner.x + kWidth * (column + 0.5), corner.y - kHeight * (row + 1)};
}

int DrawSections(const RoadDrawing& drawing, SectionGrid& grid, int count, int pointBudget)
{
    Entities entities(drawing.out);
    Random random(drawing.seed, 1);
    const double extent = drawing.road.Name().back() % 2 != 0 ? 25 : 30;
    const double spacing = drawing.road.Length() / count;
    const int shotsEach = std::min(kMostPointsASection, pointBudget / 2 / count);
    std::vector<Record> records;
    for (int i = 0; i < count; ++i)
    {
        const double chainage = spacing * i;
        Record record{SectionName(drawing.road, i, chainage),
                      drawing.road.At(chainage, -extent),
                      drawing.road.At(chainage, extent),
                      grid.Next(),
                      0,
                      {},
                      false};
        const auto shots = SectionShots(i, shotsEach, extent, random);
        record.hasOwnDc = HasOwnDc(shots);
        for (const Shot& shot : shots)
            record.points.push_back(entities.SurveyPoint(drawing.road.At(chainage, shot.offset),
                                                         drawing.terrain.Height(drawing.road, chainage, shot.offset),
                                                         shot.code));
        DrawSectionLine(entities, drawing, record, chainage);
        record.groundLine = DrawSectionSheet(entities, drawing, {record.name, chainage, extent, record.base}, random);
        records.push_back(std::move(record));
        ++drawing.out.Running().sections;
    }
    WriteAlignment(entities, drawing.road, extent, records);
    return shotsEach * count;
}
