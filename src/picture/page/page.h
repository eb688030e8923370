#pragma once

#include "picture/look/palette.h"
#include "picture/map2d.h"

#include <optional>
#include <string>

namespace picture
{

/// A window of the drawing that gets a page or a picture of its own.
struct Page
{
    Box2d frame;                   ///< drawing units
    bool isTight = false;          ///< the frame is shown as it is, without a margin
    bool isCutToFrame = false;     ///< nothing is shown outside the frame, even where the page has room
    std::u16string title;          ///< what stands above the drawing; the scale is added to it
    std::u16string entry;          ///< in the list of contents
    std::u16string message;        ///< shown in place of a drawing that there is not
    double millimetresPerUnit = 0; ///< of the world, in a drawing unit; 0 where no scale can be told
};

/// What pages are to be made like.
struct PageOptions
{
    struct Size
    {
        double width;
        double height;
    };
    std::optional<Size> paper;  ///< millimetres
    std::optional<Size> pixels; ///< size of a picture without paper
    double dpi = 0.0;           ///< 0: the usual for the kind of file
    double scale = 0.0;         ///< N of 1:N; 0: as large as fits
    Rgb background = 0xFFFFFF;
    bool isTransparent = false;
    bool isMonochrome = false;
};

/// Where everything on a page goes, in page units (y down).
struct Layout
{
    double width = 0.0;
    double height = 0.0;
    double unitsPerMillimetre = 0.0; ///< 0 where a page unit is a pixel of no size
    double titleHeight = 0.0;        ///< of its letters; 0: there is no title
    Box2d room;                      ///< for the drawing
    Box2d shown;                     ///< what of it may be painted on
    Map2d toPage;
    double scale = 0.0; ///< N of 1:N that results; 0 when it cannot be told
    bool isCut = false; ///< at the scale asked for, not all of the frame has room
};

/// `unitsPerMillimetre` is that of the paper; 0 without paper.
Layout layOut(const Page& page, const PageOptions& options, double unitsPerMillimetre);

/// "1:200", with up to three digits that count.
std::u16string scaleText(double scale);

} // namespace picture
