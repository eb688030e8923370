#include "picture/paint/dashes.h"

#include <cmath>

namespace picture
{

namespace
{

double lengthOf(std::span<const Vertex> points)
{
    double length = 0.0;
    for (size_t i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    return length;
}

} // namespace

void walkDashes(const Linetype& linetype, double scale, std::span<const Vertex> given, bool closed,
                const std::function<void(std::span<const Vertex>)>& dash)
{
    std::vector<Vertex> points{given.begin(), given.end()};
    if (closed && !points.empty())
        points.push_back(points.front());
    const double length = lengthOf(points);
    double period = linetype.length * scale;
    const double firstDash = std::max(0.0, linetype.dashes.front()) * scale;
    const double periods = std::floor((length - firstDash) / period);
    if (!(periods >= 1.0))
        return dash(points);
    if (firstDash == 0.0)
    {
        // There is no dash to be lengthened: the pattern is stretched.
        scale *= length / (periods * period);
        period = length / periods;
    }
    // What is left over lengthens the dashes at both ends.
    const double lengthened = firstDash + (length - firstDash - periods * period) / 2.0;
    size_t at = 0;
    double left = lengthened;
    bool down = true;
    std::vector<Vertex> drawn{points.front()};
    const auto next = [&]
    {
        at = (at + 1) % linetype.dashes.size();
        left = std::fabs(linetype.dashes[at]) * scale;
        down = linetype.dashes[at] >= 0.0;
    };
    for (size_t i = 1; i < points.size(); ++i)
    {
        Vertex from = points[i - 1];
        const Vertex to = points[i];
        double way = std::hypot(to.x - from.x, to.y - from.y);
        while (way > left)
        {
            const double part = left / way;
            from = {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
            way -= left;
            if (down)
            {
                drawn.push_back(from);
                dash(drawn);
            }
            next();
            drawn.assign(1, from);
        }
        left -= way;
        if (down)
            drawn.push_back(to);
    }
    if (down && drawn.size() > 1)
        dash(drawn);
}

} // namespace picture
