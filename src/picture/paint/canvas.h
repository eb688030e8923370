#pragma once

#include "picture/look/palette.h"
#include "picture/map2d.h"
#include "picture/paint/line_raster.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class QImage;
class QPainter;

namespace picture
{

/// What a canvas lets show of fine detail.
enum class Medium
{
    kPixels, ///< a picture of pixels, whose coordinates are pixels
    kVectors ///< a file of vectors: nothing is left out because it is small
};

/// Paints lines and areas in page coordinates (y down): onto the pixels of an image, or through a QPainter with its own
/// transformation. Lines of one pen are gathered and painted together, unless they are thin and on pixels.
class Canvas
{
public:
    Canvas(QPainter& painter, Medium medium);
    /// The image has 32 bits a pixel, and is nobody else's meanwhile.
    explicit Canvas(QImage& image);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    Medium medium() const { return m_medium; }
    /// Width in page units; 0 for the thinnest line there is.
    void setPen(Rgb color, double width);
    void line(std::span<const Vertex> points, bool closed = false);
    /// The smallest thing to be seen, `size` page units large.
    void speck(const Vertex& middle, double size);
    /// Whether lines need not be cut to the page, since painting stops at its edge at no cost.
    bool cutsByItself() const { return isDirect(); }
    /// Fills what is inside the loops: by the even-odd rule, or all that any of them goes round.
    void area(std::span<const std::vector<Vertex>> loops, Rgb color, bool evenOdd);
    /// A picture from a file; `map` carries the unit square, the picture's lower left corner at (0, 0), and only what
    /// is in the outline shows. False when it cannot be read.
    bool image(const std::string& file, const Map2d& map, const std::vector<Vertex>& outline);
    /// Lets something be painted within a box: on pixels by a canvas of the box alone, whose corner is at (0, 0); else
    /// by this one, and what is painted has to keep to the box. `paint` is told where on this canvas (0, 0) lies.
    void within(const Box2d& box, const std::function<void(Canvas& canvas, const Vertex& corner)>& paint);
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

    bool isDirect() const { return m_raster.has_value() && m_width <= LineRaster::kWidest; }

    QImage* m_image = nullptr;
    std::unique_ptr<QPainter> m_own;
    QPainter* m_painter;
    Medium m_medium;
    std::optional<LineRaster> m_raster;
    bool m_searchable = false;
    bool m_rounded = false;
    Rgb m_color = 0;
    double m_width = 0.0;
    std::vector<Vertex> m_points;
    std::vector<std::pair<size_t, bool>> m_lines; ///< end in `m_points`, closed
};

} // namespace picture
