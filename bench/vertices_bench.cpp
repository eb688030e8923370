// Whether survey points stand on vertices: the plan command's index, filled and asked. On a sample of the points, the
// answer of comparing with every vertex.
#include "plan/vertex_index.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>

namespace
{

constexpr size_t kVertices = 1'000'000;
constexpr size_t kPoints = 100'000;
constexpr size_t kSampleStep = 500;

struct Field
{
    std::vector<AcGePoint3d> vertices;
    std::vector<AcGePoint3d> points;
};

/// Vertices over 10 by 10 km in the coordinates of a survey. A third of the points stands on a vertex, a third a hair's
/// breadth beside one, near enough or not, the rest anywhere.
Field makeField()
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> place(0.0, 10'000.0);
    std::uniform_real_distribution<double> hair(-2e-10, 2e-10);
    Field field;
    for (size_t i = 0; i < kVertices; ++i)
        field.vertices.emplace_back(580'000.0 + place(random), 1'190'000.0 + place(random), 0.0);
    for (size_t i = 0; i < kPoints; ++i)
    {
        const AcGePoint3d& vertex = field.vertices[i * 7];
        if (i % 3 == 0)
            field.points.push_back(vertex);
        else if (i % 3 == 1)
            field.points.emplace_back(vertex.x + hair(random), vertex.y + hair(random), 0.0);
        else
            field.points.emplace_back(580'000.0 + place(random), 1'190'000.0 + place(random), 0.0);
    }
    return field;
}

const Field& field()
{
    static const Field made = makeField();
    return made;
}

std::vector<char> askIndex()
{
    VertexIndex index(kVertices);
    for (const AcGePoint3d& vertex : field().vertices)
        index.add(vertex);
    std::vector<char> answers;
    answers.reserve(kPoints);
    for (const AcGePoint3d& point : field().points)
        answers.push_back(index.has(point) ? 1 : 0);
    return answers;
}

char askAll(const AcGePoint3d& point)
{
    const std::vector<AcGePoint3d>& vertices = field().vertices;
    return std::any_of(vertices.begin(), vertices.end(),
                       [&](const AcGePoint3d& vertex) { return point.isEqualTo(vertex); })
               ? 1
               : 0;
}

bool agreesWithPlainLoop()
{
    const std::vector<char> answers = askIndex();
    for (size_t i = 0; i < kPoints; i += kSampleStep)
        if (answers[i] != askAll(field().points[i]))
            return false;
    return true;
}

void VertexTest(benchmark::State& state)
{
    static const bool agrees = agreesWithPlainLoop();
    if (!agrees)
        state.SkipWithError("other answers than the plain loop");
    for (auto _ : state)
        benchmark::DoNotOptimize(askIndex());
}

BENCHMARK(VertexTest)->Unit(benchmark::kMillisecond);

} // namespace
