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

inline uint32_t shareOf(float covered)
{
    return static_cast<uint32_t>(covered * 256.0F + 0.5F);
}

} // namespace

LineRaster::LineRaster(uint32_t* pixels, int width, int height, size_t stride)
    : m_pixels{pixels}, m_width{width}, m_height{height}, m_stride{stride}, m_reach{-kWidest, -kWidest, width + kWidest,
                                                                                    height + kWidest}
{
}

void LineRaster::line(std::span<const Vertex> points, bool closed, Rgb color, double width) const
{
    const auto half = static_cast<float>(width / 2);
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
void LineRaster::segment(Vertex from, Vertex to, uint32_t color, float halfWidth) const
{
    const auto isOut = [this](const Vertex& v)
    { return !(v.x >= m_reach.minX && v.x <= m_reach.maxX && v.y >= m_reach.minY && v.y <= m_reach.maxY); };
    if ((isOut(from) || isOut(to)) && !clipLine(from, to, m_reach))
        return;
    const bool isSteep = std::fabs(to.y - from.y) > std::fabs(to.x - from.x);
    auto a0 = static_cast<float>(isSteep ? from.y : from.x); // along
    auto c0 = static_cast<float>(isSteep ? from.x : from.y); // across
    auto a1 = static_cast<float>(isSteep ? to.y : to.x);
    auto c1 = static_cast<float>(isSteep ? to.x : to.y);
    if (a0 > a1)
    {
        std::swap(a0, a1);
        std::swap(c0, c1);
    }
    const float length = a1 - a0;
    const float slope = length > 0.0F ? (c1 - c0) / length : 0.0F;
    const float reach = halfWidth * std::sqrt(1.0F + slope * slope);
    const int ends = isSteep ? m_height : m_width;
    const int across = isSteep ? m_width : m_height;
    const size_t alongStep = isSteep ? m_stride : 1;
    const size_t acrossStep = isSteep ? 1 : m_stride;
    const int last = std::min(ends - 1, static_cast<int>(std::floor(a1)));
    for (int at = std::max(0, static_cast<int>(std::floor(a0))); at <= last; ++at)
    {
        const float begin = std::max(a0, static_cast<float>(at));
        const float end = std::min(a1, static_cast<float>(at + 1));
        const float share = end - begin;
        const float middle = c0 + slope * ((begin + end) / 2 - a0);
        const float low = std::max(middle - reach, 0.0F);
        const float high = std::min(middle + reach, static_cast<float>(across));
        if (!(low < high))
            continue;
        const int first = static_cast<int>(low);
        uint32_t* pixel = m_pixels + static_cast<size_t>(at) * alongStep + static_cast<size_t>(first) * acrossStep;
        for (int row = first; static_cast<float>(row) < high; ++row, pixel += acrossStep)
            mix(*pixel, color,
                shareOf(share *
                        (std::min(high, static_cast<float>(row + 1)) - std::max(low, static_cast<float>(row)))));
    }
}

} // namespace picture
