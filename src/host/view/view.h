#pragma once

#include "kernel/extents.h"
#include "kernel/point2d.h"

#include <optional>
#include <vector>

class AcDbDatabase;

/// What a document's window shows of the plan: the rectangle that polygon selections see. Extents are worked out only
/// when something asks what is shown.
class View
{
public:
    explicit View(AcDbDatabase& database) : m_database{database} {}

    /// Lower left and upper right corner of what is shown, in drawing units. Starts as the drawing's stored view.
    AcGeExtents shown();
    /// Whether the view is on the drawing's extents, so that nothing of it lies outside. Costs nothing.
    bool showsEverything();
    void zoomExtents();
    void zoomWindow(const AcGePoint2d& a, const AcGePoint2d& b);
    /// Back to what was shown before the last zoom; nothing when there is no such view.
    void zoomPrevious();
    /// Shows a window without a word to the history that `zoomPrevious` walks: the user looks around.
    void lookAt(const AcGePoint2d& a, const AcGePoint2d& b);
    /// Width divided by height of the window.
    void setAspect(double aspect) { m_aspect = aspect; }

private:
    /// A view: a window, or (when empty) the drawing's extents.
    struct Frame
    {
        std::optional<AcGeExtents> window;
    };

    Frame& current();
    void zoomTo(const Frame& frame);

    AcDbDatabase& m_database;
    std::vector<Frame> m_previous;
    std::optional<Frame> m_current;
    double m_aspect = 1.6;
};

/// What the drawing covers in plan: every live entity of model space on a layer that is not frozen.
AcGeExtents drawingExtents(AcDbDatabase& database);
