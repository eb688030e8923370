#include "picture/paint/line_raster.h"

#include "picture/paint/clip.h"

#include <algorithm>
#include <cmath>

namespace picture
{

namespace
{

constexpr uint32_t kOpaque = 0xFF000000;

/// Mixes a colour into a pixel, two channels at a time. `share` of 0 to 256.
inline void mix(uint32_t& pixel, uint32_t color, uint32_t share)
{
    constexpr uint32_t kEven = 0x00FF00FF;
    const uint32_t rest = 256 - share;
    const uint32_t even = ((color & kEven) * share + (pixel & kEven) * rest) >> 8 & kEven;
    const uint32_t odd = ((color >> 8 & kEven) * share + (pixel >> 8 & kEven) * rest) & ~kEven;
    pixel = even | odd;
}

/// Numbers with 16 binary places.
constexpr int kPlaces = 16;
constexpr int kOne = 1 << kPlaces;

inline int fixed(double number)
{
    return static_cast<int>(number * kOne);
}

inline uint32_t shareOf(int covered, int wide)
{
    return static_cast<uint32_t>((covered >> 8) * (wide >> 8)) >> 8;
}

} // namespace

LineRaster::LineRaster(uint32_t* pixels, int width, int height, size_t stride)
    : m_pixels{pixels}, m_width{width}, m_height{height}, m_stride{stride}, m_reach{-kWidest, -kWidest, width + kWidest,
                                                                                    height + kWidest}
{
}

void LineRaster::line(std::span<const Vertex> points, bool closed, Rgb color, double width) const
{
    const double half = width / 2;
    for (size_t i = 1; i < points.size(); ++i)
        segment(points[i - 1], points[i], color | kOpaque, half);
    if (closed && points.size() > 2)
        segment(points.back(), points.front(), color | kOpaque, half);
}

void LineRaster::speck(const Vertex& middle, double size, Rgb color) const
{
    const int side = std::max(1, static_cast<int>(std::lround(size)));
    const double left = std::floor(middle.x - (side - 1) / 2.0);
    const double top = std::floor(middle.y - (side - 1) / 2.0);
    if (!(left > -side && left < m_width && top > -side && top < m_height))
        return;
    const int endX = std::min(m_width, static_cast<int>(left) + side);
    const int endY = std::min(m_height, static_cast<int>(top) + side);
    for (int y = std::max(0, static_cast<int>(top)); y < endY; ++y)
        for (int x = std::max(0, static_cast<int>(left)); x < endX; ++x)
            m_pixels[static_cast<size_t>(y) * m_stride + static_cast<size_t>(x)] = color | kOpaque;
}

/// Walks along the axis that the line leans to, a pixel at a time; across it the line covers two pixels or three.
void LineRaster::segment(Vertex from, Vertex to, uint32_t color, double halfWidth) const
{
    const auto isOut = [this](const Vertex& v)
    { return !(v.x >= m_reach.minX && v.x <= m_reach.maxX && v.y >= m_reach.minY && v.y <= m_reach.maxY); };
    if ((isOut(from) || isOut(to)) && !clipLine(from, to, m_reach))
        return;
    const bool isSteep = std::fabs(to.y - from.y) > std::fabs(to.x - from.x);
    if (isSteep ? from.y > to.y : from.x > to.x)
        std::swap(from, to);
    const double along = isSteep ? to.y - from.y : to.x - from.x;
    const double slope = along > 0.0 ? (isSteep ? to.x - from.x : to.y - from.y) / along : 0.0;
    const Walk walk{fixed(isSteep ? from.y : from.x),
                    fixed(isSteep ? to.y : to.x),
                    fixed(isSteep ? from.x : from.y),
                    fixed(slope),
                    fixed(halfWidth * std::sqrt(1.0 + slope * slope)),
                    isSteep ? m_height : m_width,
                    isSteep ? m_width : m_height,
                    isSteep ? m_stride : 1,
                    isSteep ? 1 : m_stride};
    this->walk(walk, color);
}

void LineRaster::walk(const Walk& w, uint32_t color) const
{
    const int last = std::min(w.alongCount - 1, (w.end - 1) >> kPlaces);
    for (int at = std::max(0, w.begin >> kPlaces); at <= last; ++at)
    {
        const int begin = std::max(w.begin, at << kPlaces);
        const int end = std::min(w.end, (at + 1) << kPlaces);
        const int wide = end - begin;
        const int middle =
            w.across +
            static_cast<int>(static_cast<int64_t>(w.slope) * ((begin + (end - begin) / 2) - w.begin) >> kPlaces);
        const int low = std::max(middle - w.reach, 0);
        const int high = std::min(middle + w.reach, w.acrossCount << kPlaces);
        if (low >= high)
            continue;
        const int first = low >> kPlaces;
        const int final = (high - 1) >> kPlaces;
        uint32_t* pixel = m_pixels + static_cast<size_t>(at) * w.alongStep + static_cast<size_t>(first) * w.acrossStep;
        if (first == final)
        {
            mix(*pixel, color, shareOf(high - low, wide));
            continue;
        }
        mix(*pixel, color, shareOf(((first + 1) << kPlaces) - low, wide));
        for (int row = first + 1; row < final; ++row)
            mix(*(pixel += w.acrossStep), color, shareOf(kOne, wide));
        mix(*(pixel + w.acrossStep), color, shareOf(high - (final << kPlaces), wide));
    }
}

} // namespace picture
