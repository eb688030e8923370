#include "host/view/view.h"

#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/view/entity_shapes.h"
#include "host/view/layer_states.h"
#include "store/block_index.h"
#include "store/table_index.h"
#include "store/tags.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr size_t kMostPrevious = 10;

/// The active window as the drawing stores it.
struct StoredView
{
    AcGePoint2d center;
    AcGePoint3d target;
    AcGePoint3d direction{0.0, 0.0, 1.0};
    double height = 0.0;
    double aspect = 1.0;

    bool isPlan() const { return direction.x == 0.0 && direction.y == 0.0 && direction.z > 0.0; }
    AcGeExtents window() const
    {
        const AcGeVector3d half{height * aspect / 2, height / 2, 0.0};
        const AcGePoint3d middle{target.x + center.x, target.y + center.y, 0.0};
        return AcGeExtents{middle - half, middle + half};
    }
};

StoredView readStoredView(std::string_view record)
{
    StoredView view;
    TagReader pairs{record};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 12:
        {
            const AcGePoint3d center = pairs.pointFrom(tag);
            view.center = {center.x, center.y};
            break;
        }
        case 16:
            view.direction = pairs.pointFrom(tag);
            break;
        case 17:
            view.target = pairs.pointFrom(tag);
            break;
        case 40:
            view.height = tag.real();
            break;
        case 41:
            view.aspect = tag.real();
            break;
        default:
            break;
        }
    return view;
}

/// What the drawing's window showed when it was saved; nothing when that is no window onto the plan.
std::optional<AcGeExtents> storedWindow(AcDbDatabase& database)
{
    ObjectRecord* record = database.tilemode() ? database.tables().find("VPORT", u"*Active") : nullptr;
    if (record == nullptr)
        return std::nullopt;
    const host::InPassing inPassing;
    const StoredView view = host::readOf(*record, [&] { return readStoredView(record->view()); });
    const AcGeExtents window = view.window();
    const bool usable = view.isPlan() && view.height > 0.0 && view.aspect > 0.0 && window.isValid() &&
                        std::isfinite(view.height * view.aspect);
    return usable ? std::optional{window} : std::nullopt;
}

/// The window grown about its middle to the shape of the screen.
AcGeExtents fitted(const AcGeExtents& window, double aspect)
{
    if (!window.isValid() || !(aspect > 0.0))
        return window;
    const AcGeVector3d size = window.maxPoint() - window.minPoint();
    const double height = std::max(size.y, size.x / aspect);
    const AcGeVector3d half{height * aspect / 2, height / 2, 0.0};
    const AcGePoint3d middle = window.minPoint() + size * 0.5;
    return AcGeExtents{middle - half, middle + half};
}

} // namespace

AcGeExtents drawingExtents(AcDbDatabase& database)
{
    AcGeExtents extents;
    EntityShapes shapes{database};
    LayerStates layers{database};
    if (const ObjectRecord* space = database.blocks().record(u"*Model_Space"))
        for (const AcDbObjectId id : database.blocks().entities(*space))
            if (!layers.isFrozen(*id.record()))
                extents.addExtents(shapes.box(*id.record()));
    return extents;
}

View::Frame& View::current()
{
    if (!m_current)
        m_current = Frame{storedWindow(m_database)};
    return *m_current;
}

bool View::showsEverything()
{
    return !current().window;
}

AcGeExtents View::shown()
{
    const Frame& frame = current();
    return frame.window ? *frame.window : fitted(drawingExtents(m_database), m_aspect);
}

void View::zoomTo(const Frame& frame)
{
    m_previous.push_back(current());
    if (m_previous.size() > kMostPrevious)
        m_previous.erase(m_previous.begin());
    m_current = frame;
}

void View::zoomExtents()
{
    zoomTo({});
}

void View::zoomWindow(const AcGePoint2d& a, const AcGePoint2d& b)
{
    const AcGeExtents window{{a.x, a.y, 0.0}, {b.x, b.y, 0.0}};
    if (window.isValid() && (a.x != b.x || a.y != b.y))
        zoomTo({fitted(window, m_aspect)});
}

void View::lookAt(const AcGePoint2d& a, const AcGePoint2d& b)
{
    const AcGeExtents window{{a.x, a.y, 0.0}, {b.x, b.y, 0.0}};
    if (window.isValid() && a.x != b.x && a.y != b.y)
        m_current = Frame{window};
}

void View::zoomPrevious()
{
    if (m_previous.empty())
        return;
    m_current = m_previous.back();
    m_previous.pop_back();
}
