#pragma once

/// Sizes and rectangles in pixels.

struct CSize
{
    int width = 0;
    int height = 0;
    friend bool operator==(const CSize&, const CSize&) = default;
};

struct CRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    friend bool operator==(const CRect&, const CRect&) = default;
};

/// The rectangle of `width` by `height` at (`left`, `top`).
constexpr CRect rectAt(int left, int top, int width, int height)
{
    return {left, top, left + width, top + height};
}
