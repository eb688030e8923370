#include "picture/list/hatch_pattern.h"

#include "store/pair_edit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace picture
{

namespace
{

constexpr double kMostLines = 2'000.0;
constexpr size_t kMostStrokes = 50'000;
constexpr double kMostTests = 2e7;

/// A family of lines with the boundary turned so that the lines run along x.
class Family
{
public:
    Family(const PatternLine& line, const Loops& loops);

    /// Lines thinned out to every n-th; 0 when the family has none.
    double thinning() const { return m_thinning; }
    void strokes(std::vector<HatchStroke>& strokes) const;

private:
    Vertex turned(const Vertex& v) const { return {v.x * m_cos + v.y * m_sin, v.y * m_cos - v.x * m_sin}; }
    Vertex back(double x, double y) const { return {x * m_cos - y * m_sin, x * m_sin + y * m_cos}; }
    void strokesAt(double k, std::vector<HatchStroke>& strokes) const;
    void dash(double y, double from, double to, double phase, std::vector<HatchStroke>& strokes) const;

    double m_cos;
    double m_sin;
    Loops m_loops;
    Vertex m_base;
    Vertex m_offset;
    const std::vector<double>& m_dashes;
    double m_period = 0.0;
    double m_first = 0.0;
    double m_last = -1.0;
    double m_thinning = 0.0;
};

Family::Family(const PatternLine& line, const Loops& loops)
    : m_cos{std::cos(line.angle)}, m_sin{std::sin(line.angle)}, m_loops{loops}, m_dashes{line.dashes}
{
    m_base = turned(line.base);
    m_offset = turned(line.offset);
    Box2d box;
    size_t points = 0;
    for (std::vector<Vertex>& loop : m_loops)
        for (Vertex& vertex : loop)
        {
            vertex = turned(vertex);
            box.add(vertex.x, vertex.y);
            ++points;
        }
    for (const double each : m_dashes)
        m_period += std::fabs(each);
    if (box.isEmpty() || !(std::fabs(m_offset.y) > 0.0))
        return;
    const double low = (box.minY - m_base.y) / m_offset.y;
    const double high = (box.maxY - m_base.y) / m_offset.y;
    m_first = std::ceil(std::min(low, high));
    m_last = std::floor(std::max(low, high));
    const double lines = m_last - m_first + 1.0;
    if (!std::isfinite(lines) || lines < 1.0)
        return;
    const double most = std::clamp(kMostTests / static_cast<double>(points), 1.0, kMostLines);
    m_thinning = std::max(1.0, std::ceil(lines / most));
}

void Family::strokes(std::vector<HatchStroke>& strokes) const
{
    if (m_thinning == 0.0)
        return;
    for (double k = m_first; k <= m_last && strokes.size() < kMostStrokes; k += m_thinning)
        strokesAt(k, strokes);
}

void Family::strokesAt(double k, std::vector<HatchStroke>& strokes) const
{
    const double y = m_base.y + k * m_offset.y;
    std::vector<double> crossings;
    for (const std::vector<Vertex>& loop : m_loops)
        for (size_t i = 0; i < loop.size(); ++i)
        {
            const Vertex& a = loop[i];
            const Vertex& b = loop[i + 1 < loop.size() ? i + 1 : 0];
            if ((a.y <= y) != (b.y <= y))
                crossings.push_back(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
        }
    std::sort(crossings.begin(), crossings.end());
    for (size_t i = 0; i + 1 < crossings.size(); i += 2)
        dash(y, crossings[i], crossings[i + 1], m_base.x + k * m_offset.x, strokes);
}

void Family::dash(double y, double from, double to, double phase, std::vector<HatchStroke>& strokes) const
{
    if (!(m_period > 0.0) || (to - from) / m_period > static_cast<double>(kMostStrokes))
    {
        strokes.push_back({back(from, y), back(to, y)});
        return;
    }
    double x = phase + std::floor((from - phase) / m_period) * m_period;
    for (size_t i = 0; x < to && strokes.size() < kMostStrokes; i = (i + 1) % m_dashes.size())
    {
        const double end = x + std::fabs(m_dashes[i]);
        if (m_dashes[i] >= 0.0 && end >= from)
            strokes.push_back({back(std::max(x, from), y), back(std::min(end, to), y)});
        x = end;
    }
}

} // namespace

HatchFill readHatchFill(std::string_view text)
{
    HatchFill fill;
    bool isHead = true;
    bool isLines = false;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code == 91)
            isHead = false;
        else if (tag.code == 70 && isHead)
            fill.isSolid = tag.integer() == 1;
        else if (tag.code == 75 && !isHead)
            fill.style = static_cast<int>(tag.integer());
        else if (tag.code == 210)
            fill.normal = pairs.pointFrom(tag).asVector();
        else if (tag.code == 78)
            isLines = true;
        else if (tag.code == 98)
            break;
        if (!isLines)
            continue;
        if (tag.code == 53)
        {
            fill.lines.emplace_back();
            fill.lines.back().angle = tag.real() * std::numbers::pi / 180.0;
        }
        if (fill.lines.empty())
            continue;
        PatternLine& line = fill.lines.back();
        if (tag.code == 43)
            line.base.x = tag.real();
        else if (tag.code == 44)
            line.base.y = tag.real();
        else if (tag.code == 45)
            line.offset.x = tag.real();
        else if (tag.code == 46)
            line.offset.y = tag.real();
        else if (tag.code == 49)
            line.dashes.push_back(tag.real());
    }
    return fill;
}

std::vector<HatchStroke> hatchStrokes(const HatchFill& fill, const Loops& loops, bool& tooMany)
{
    std::vector<HatchStroke> strokes;
    tooMany = false;
    for (const PatternLine& line : fill.lines)
    {
        const Family family{line, loops};
        tooMany = tooMany || family.thinning() > 1.0;
        family.strokes(strokes);
    }
    tooMany = tooMany || strokes.size() >= kMostStrokes;
    return strokes;
}

} // namespace picture
