#pragma once

#include "picture/look/palette.h"
#include "picture/map2d.h"

#include <span>
#include <string_view>
#include <vector>

class QPainter;

namespace picture
{

/// What a canvas lets show of fine detail.
enum class Medium
{
    kPixels, ///< a picture of pixels, whose coordinates are pixels
    kVectors ///< a file of vectors: nothing is left out because it is small
};

/// Paints lines and areas in page coordinates (y down) through a QPainter, with the painter's own transformation. Lines
/// of one pen are gathered and painted together.
class Canvas
{
public:
    Canvas(QPainter& painter, Medium medium) : m_painter{painter}, m_medium{medium} {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() { flush(); }

    Medium medium() const { return m_medium; }
    /// Width in page units; 0 for the thinnest line there is.
    void setPen(Rgb color, double width);
    void line(std::span<const Vertex> points, bool closed = false);
    /// Fills what is inside the loops: by the even-odd rule, or all that any of them goes round.
    void area(std::span<const std::vector<Vertex>> loops, Rgb color, bool evenOdd);
    /// A text that is found by a search but not seen, over what was drawn of it: `map` carries units of its height, in
    /// which it is `advance` wide.
    void searchable(std::u16string_view text, const Map2d& map, double advance);
    /// Texts of this canvas are to be found by a search.
    void setSearchable(bool on) { m_searchable = on; }
    /// Coordinates go to whole page units, which makes files of vectors half as large.
    void setRounded(bool on) { m_rounded = on; }
    void flush();

private:
    Vertex onGrid(const Vertex& v) const { return m_rounded ? Vertex{std::round(v.x), std::round(v.y)} : v; }

    QPainter& m_painter;
    Medium m_medium;
    bool m_searchable = false;
    bool m_rounded = false;
    Rgb m_color = 0;
    double m_width = 0.0;
    std::vector<Vertex> m_points;
    std::vector<std::pair<size_t, bool>> m_lines; ///< end in `m_points`, closed
};

} // namespace picture
