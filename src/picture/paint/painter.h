#pragma once

#include "picture/list/drawing_lists.h"
#include "picture/paint/canvas.h"

#include <optional>
#include <vector>

namespace picture
{

/// How a drawing is to look on a page.
struct Appearance
{
    Rgb background = 0xFFFFFF;
    bool monochrome = false;
    double unitsPerMillimetre = 0.0; ///< page units; 0 where line weights mean nothing, then all lines are thin
    double thinLine = 1.0;           ///< page units
    double speck = 1.0;              ///< page units in the smallest thing to be seen
    double tolerance = 0.1;          ///< how far a chord may lie from its arc, page units
    double gap = 0.5;                ///< points nearer together become one, page units
};

/// Paints display lists onto a page.
class Painter
{
public:
    /// `page` is what may be painted on, in page units. The lists must not change while the painter lives.
    Painter(DrawingLists& lists, Canvas& canvas, const Appearance& appearance, const Box2d& page);

    /// Paints model space; `toPage` carries drawing units.
    void paint(const Map2d& toPage) { paint(m_lists.modelSpace(), toPage); }
    void paint(DisplayList& list, const Map2d& toPage);

private:
    struct Scope
    {
        DisplayList& list;
        Map2d toPage;
        const Pen* around; ///< of the block reference that is open; null at the top
        size_t depth;
    };

    void paintItem(const Scope& scope, uint32_t item);
    void paintPrimitive(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintPath(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintStrokes(const Scope& scope, const Primitive& primitive);
    void paintArea(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintDot(const Vertex& at, bool isSurvey, double scale);
    void paintStraight(const Scope& scope, const Primitive& primitive);
    void paintText(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintGlyphs(std::u16string_view letters, const Font& font, const Map2d& map, const Pen& pen);
    void paintBlock(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintCopies(const Scope& scope, const PlacedBlock& placed, const Grid& grid, const Pen& pen);
    void paintSpeck(const Box2d& box);
    std::vector<Vertex> onPage(const Scope& scope, const Primitive& primitive) const;
    void stroke(const std::vector<Vertex>& points, bool closed, double gap);
    void usePen(const Pen& pen);
    Rgb colorOf(const Pen& pen) const;
    bool spend();

    DrawingLists& m_lists;
    Canvas& m_canvas;
    Appearance m_appearance;
    Box2d m_page;
    Box2d m_reach; ///< the page and what lines outside it may bring in by their width
    size_t m_spent = 0;
    std::vector<Vertex> m_run;
};

} // namespace picture
