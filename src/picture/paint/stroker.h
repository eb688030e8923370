#pragma once

#include "picture/look/looks.h"
#include "picture/paint/appearance.h"
#include "picture/paint/canvas.h"

#include <span>
#include <vector>

namespace picture
{

/// Puts lines onto a canvas as far as they can be seen: cut to the page, without details that cannot be told, what is
/// too small as a speck.
class Stroker
{
public:
    /// `page` is what may be painted on, in page units.
    Stroker(Canvas& canvas, const Appearance& appearance, const Box2d& page);

    /// The page and what lines outside it may bring in by their width.
    const Box2d& reach() const { return m_reach; }
    /// Points nearer together than `gap` become one.
    void line(std::span<const Vertex> points, bool closed, double gap);
    /// Along the dashes of a linetype; plain where they cannot be told or are beyond counting. `scale` is page units in
    /// a unit of the pattern.
    void dashed(std::span<const Vertex> points, bool closed, const Linetype& linetype, double scale);
    /// What is smaller than can be told stays to be seen.
    void speck(const Box2d& box);

private:
    void cutLine(std::span<const Vertex> points, bool closed, double gap);

    Canvas& m_canvas;
    const Appearance& m_appearance;
    Box2d m_reach;
    std::vector<Vertex> m_run;
};

} // namespace picture
