#include "generate.h"

#include "frame.h"
#include "plan.h"
#include "random.h"
#include "sections.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr Pose kStart{{580120, 1190340}, 0.12};

/// Appends arcs to either side with straights between them, so that the road keeps its general direction.
void AppendCurves(Road& road, double length, Random& random)
{
    const double home = road.End().heading;
    double side = random.Percent(50) ? 1 : -1;
    while (length - road.Length() > 1)
    {
        const double left = length - road.Length();
        road.Append(std::min(left, random.Between(40, 110)), 0);
        const double turn = home + side * random.Between(0.35, 0.7) - road.End().heading;
        const double radius = random.Between(140, 320);
        if (const double rest = length - road.Length(); rest > 1)
            road.Append(std::min(rest, std::abs(turn) * radius), (turn > 0 ? 1 : -1) / radius);
        side = -side;
    }
}

std::vector<Road> LayRoads(const Options& options)
{
    std::vector<Road> roads;
    Pose start = kStart;
    for (int i = 0; i < options.alignments; ++i)
    {
        Random random(options.seed, 1000 + static_cast<std::uint64_t>(i));
        Road road("T" + std::to_string(i + 1), {start.at, kStart.heading});
        const double length = options.km * 1000 / options.alignments;
        if (i % 2 == 0)
            road.Append(length, 0);
        else
            AppendCurves(road, length, random);
        start = road.End();
        roads.push_back(std::move(road));
    }
    return roads;
}

SectionGrid GridBeside(const std::vector<Road>& roads, int sections)
{
    Box plan;
    for (const Road& road : roads)
    {
        plan.Add(road.Bounds().low);
        plan.Add(road.Bounds().high);
    }
    const int columns = std::max(4, static_cast<int>(std::sqrt(sections * 0.5)));
    return {{plan.high.x + 150, plan.high.y + 100}, columns};
}

/// What the k-th of `parts` gets of `total`, so that all of them together get exactly that.
int Share(int total, std::size_t k, std::size_t parts)
{
    const auto upTo = [&](std::size_t i)
    { return static_cast<std::int64_t>(total) * static_cast<std::int64_t>(i) / static_cast<std::int64_t>(parts); };
    return static_cast<int>(upTo(k + 1) - upTo(k));
}
} // namespace

Totals GenerateDrawing(std::FILE* file, const Options& options, const Totals& expected)
{
    DxfOut out(file, options.release, kFirstFreeHandle);
    WriteOpening(out, expected);
    WriteEntitiesStart(out);

    const std::vector<Road> roads = LayRoads(options);
    const Terrain terrain(options.seed);
    SectionGrid grid = GridBeside(roads, options.sections);
    for (std::size_t i = 0; i < roads.size(); ++i)
    {
        const int points = Share(options.points, i, roads.size());
        RoadDrawing drawing{out, roads[i], terrain, options.seed * 7919 + i};
        const int used = DrawSections(drawing, grid, Share(options.sections, i, roads.size()), points);
        DrawPlan(drawing, Share(options.polylines, i, roads.size()), points - used);
    }
    WriteClosing(out, expected);
    out.Flush();
    return out.Running();
}
