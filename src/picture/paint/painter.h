#pragma once

#include "picture/list/drawing_lists.h"
#include "picture/list/hidden.h"
#include "picture/paint/appearance.h"
#include "picture/paint/canvas.h"
#include "picture/paint/stroker.h"

#include <atomic>
#include <optional>
#include <vector>

namespace picture
{

/// Paints display lists onto a page. Several painters may work on the same lists at once, each with a canvas of its
/// own, as long as nobody changes the lists.
class Painter
{
public:
    /// `page` is what may be painted on, in page units. `notes` receives what is not shown as it is.
    Painter(const DrawingLists& lists, Canvas& canvas, const Appearance& appearance, const Box2d& page, Notes& notes);

    /// Leaves something out; null nothing. What is given must live as long as the painter.
    void hide(const Hidden* hidden) { m_hidden = hidden; }
    /// Gives up as soon as the flag is raised.
    void setStop(const std::atomic<bool>* stop) { m_stop = stop; }

    /// Paints a list of the drawing; `toPage` carries drawing units.
    void paint(const DisplayList& list, const Map2d& toPage);
    /// Only some items of it, in the order given.
    void paint(const DisplayList& list, const Map2d& toPage, const std::vector<uint32_t>& items);

private:
    struct Scope
    {
        const DisplayList& list;
        Map2d toPage;
        const Pen* around;  ///< of the block reference that is open; null at the top
        double speck = 0.0; ///< drawing units: what is smaller cannot be told
    };

    Scope scopeOf(const DisplayList& list, const Map2d& toPage, const Pen* around) const;
    void paintItem(const Scope& scope, uint32_t item);
    void paintContents(const Scope& scope);
    bool paintAsSpeck(const Scope& scope, uint32_t item);
    std::optional<Pen> firstPen(const DisplayList& list, const DisplayList::Item& item, const Pen* around,
                                size_t depth) const;
    void paintPrimitive(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintPath(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintStrokes(const Scope& scope, const Primitive& primitive);
    void paintArea(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintDot(const Vertex& at, bool isSurvey, double scale);
    void paintStraight(const Scope& scope, const Primitive& primitive);
    void paintText(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintBar(const Map2d& map, double advance, double height, const Pen& pen);
    void paintGlyphs(std::u16string_view letters, const Font& font, const Map2d& map, const Pen& pen);
    void paintBlock(const Scope& scope, const Primitive& primitive, const Pen& pen);
    void paintImage(const Scope& scope, const Primitive& primitive);
    void paintView(const Scope& scope, const Primitive& primitive);
    void paintCopies(const Scope& scope, const PlacedBlock& placed, const Grid& grid, const Pen& pen);
    void putOnPage(const Scope& scope, const Primitive& primitive);
    Pen penOf(uint32_t look, const Pen* around) const;
    void usePen(const Pen& pen);
    Rgb colorOf(const Pen& pen) const;
    double halfDot(bool isSurvey, double scale) const;
    bool isPixels() const { return m_canvas.medium() == Medium::kPixels; }
    bool spend();

    const DrawingLists& m_lists;
    Canvas& m_canvas;
    const Appearance m_appearance;
    Box2d m_page;
    Notes& m_notes;
    Stroker m_stroker;
    const Hidden* m_hidden = nullptr;
    const std::atomic<bool>* m_stop = nullptr;
    std::vector<Pen> m_pens; ///< by look, of what stands in no block
    size_t m_spent = 0;
    size_t m_depth = 0;           ///< of blocks
    bool m_isInView = false;      ///< what is painted is seen through a window of a layout
    std::vector<Vertex> m_points; ///< of the primitive at hand, on the page
};

} // namespace picture
