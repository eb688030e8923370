#pragma once

#include "picture/look/palette.h"
#include "picture/map2d.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace picture
{

/// Paints thin lines, antialiased, straight into the pixels of a picture of 32 bits a pixel (alpha, when there is any,
/// multiplied in). Many times as quick as a general stroker, for which a line of a pixel's width is a polygon.
class LineRaster
{
public:
    /// Lines wider than this look wrong at their ends and joints.
    static constexpr double kWidest = 2.5;

    /// `stride` is in pixels. The pixels must stay where they are.
    LineRaster(uint32_t* pixels, int width, int height, size_t stride);

    /// Coordinates in pixels, y down; a pixel's middle lies at half numbers. `width` of at least 1.
    void line(std::span<const Vertex> points, bool closed, Rgb color, double width) const;
    /// A square with this middle, put on whole pixels.
    void speck(const Vertex& middle, double size, Rgb color) const;

private:
    /// A way over the pixels: along the axis that a line leans to, and across it. Numbers with 16 binary places.
    struct Walk
    {
        int begin;
        int end;
        int across; ///< at the beginning
        int slope;
        int reach; ///< half of what the line covers across
        int alongCount;
        int acrossCount;
        size_t alongStep;
        size_t acrossStep;
    };

    void segment(Vertex from, Vertex to, uint32_t color, double halfWidth) const;
    void walk(const Walk& walk, uint32_t color) const;

    uint32_t* m_pixels;
    int m_width;
    int m_height;
    size_t m_stride;
    Box2d m_reach; ///< where a middle line may lie and still show
};

} // namespace picture
