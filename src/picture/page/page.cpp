#include "picture/page/page.h"

#include "store/text/text.h"

#include <cmath>

namespace picture
{

namespace
{

constexpr double kLongSide = 1600.0;
constexpr double kShortest = 64.0; ///< pixels that a side has at the least

/// The frame, grown to a size that can be shown.
Box2d usableFrame(const Box2d& given)
{
    Box2d frame = given;
    if (frame.isEmpty())
        frame.add({0.0, 0.0, 1.0, 1.0});
    const double size = std::max(frame.maxX - frame.minX, frame.maxY - frame.minY);
    const double least = std::max({size * 1e-6, frame.magnitude() * 1e-9, 1e-9});
    if (size < least)
        frame = {frame.minX - 0.5 * std::max(1.0, least), frame.minY - 0.5 * std::max(1.0, least),
                 frame.maxX + 0.5 * std::max(1.0, least), frame.maxY + 0.5 * std::max(1.0, least)};
    return frame;
}

/// Size of a picture of pixels as its frame wants it.
void sizeByFrame(Layout& layout, const Box2d& frame, double margin, double strip)
{
    const double aspect = (frame.maxX - frame.minX) / (frame.maxY - frame.minY);
    const double longSide = kLongSide - 2 * margin;
    layout.width = std::max(kShortest, aspect >= 1.0 ? longSide : longSide * aspect) + 2 * margin;
    layout.height = std::max(kShortest, aspect >= 1.0 ? longSide / aspect : longSide) + 2 * margin + strip;
}

} // namespace

Layout layOut(const Page& page, const PageOptions& options, double unitsPerMillimetre)
{
    constexpr double kPaperMargin = 10.0; // millimetres
    constexpr double kPaperTitle = 3.5;
    const Box2d frame = usableFrame(page.frame);
    const bool isPaper = unitsPerMillimetre > 0.0;
    Layout layout;
    layout.unitsPerMillimetre = unitsPerMillimetre;
    double margin = page.isTight ? 0.0 : isPaper ? kPaperMargin * unitsPerMillimetre : kLongSide / 50;
    layout.titleHeight = page.title.empty() ? 0.0 : isPaper ? kPaperTitle * unitsPerMillimetre : 18.0;
    const double strip = layout.titleHeight * 2.5;
    if (isPaper)
    {
        layout.width = options.paper->width * unitsPerMillimetre;
        layout.height = options.paper->height * unitsPerMillimetre;
        margin = page.isTight ? 0.0 : margin;
    }
    else if (options.pixels)
    {
        layout.width = options.pixels->width;
        layout.height = options.pixels->height;
        margin = page.isTight ? 0.0 : std::min(layout.width, layout.height) / 50;
    }
    else
        sizeByFrame(layout, frame, margin, strip);
    layout.room = {margin, margin + strip, layout.width - margin, layout.height - margin};
    const double width = frame.maxX - frame.minX;
    const double height = frame.maxY - frame.minY;
    const double roomWidth = layout.room.maxX - layout.room.minX;
    const double roomHeight = layout.room.maxY - layout.room.minY;
    double unit = std::min(roomWidth / std::max(width, 1e-300), roomHeight / std::max(height, 1e-300));
    if (options.scale > 0.0 && isPaper && page.millimetresPerUnit > 0.0)
    {
        const double fitted = unit;
        unit = page.millimetresPerUnit / options.scale * unitsPerMillimetre;
        layout.isCut = unit > fitted * (1.0 + 1e-9);
    }
    if (isPaper && page.millimetresPerUnit > 0.0)
        layout.scale = page.millimetresPerUnit * unitsPerMillimetre / unit;
    const double middleX = (layout.room.minX + layout.room.maxX) / 2 - unit * (frame.minX / 2 + frame.maxX / 2);
    const double middleY = (layout.room.minY + layout.room.maxY) / 2 + unit * (frame.minY / 2 + frame.maxY / 2);
    layout.toPage = {unit, 0.0, 0.0, -unit, middleX, middleY};
    layout.shown = layout.room;
    if (page.isCutToFrame)
    {
        const Box2d cut = layout.toPage.boxAround(frame);
        layout.shown = {std::max(layout.room.minX, cut.minX), std::max(layout.room.minY, cut.minY),
                        std::min(layout.room.maxX, cut.maxX), std::min(layout.room.maxY, cut.maxY)};
    }
    return layout;
}

std::u16string scaleText(double scale)
{
    double value = scale;
    double digit = 1.0;
    while (value >= 999.5)
    {
        value /= 10.0;
        digit *= 10.0;
    }
    // A scale that was asked for is told as it is.
    const double whole =
        std::fabs(scale - std::round(scale)) < 1e-6 * scale ? std::round(scale) : std::round(value) * digit;
    if (whole < 1.0 || whole > 1e15)
        return u"1:?";
    return u"1:" + toUtf16(std::to_string(static_cast<long long>(whole)));
}

} // namespace picture
