#include "survey/sheet/drawing_frame.h"

#include "host/db/damage.h"
#include "store/header_variables.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <algorithm>

namespace survey
{

namespace
{

constexpr double kMargin = 1.05; ///< of what the first view shows around everything

void setPoint(AcDbDatabase& drawing, const char* variable, const AcGePoint3d& value)
{
    TagWriter out;
    out.point(10, value);
    drawing.header().set(variable, out.take());
}

/// What the header says of the extents; empty when it says nothing of use.
AcGeExtents saidExtents(AcDbDatabase& drawing)
{
    try
    {
        const AcGePoint3d low = drawing.header().point("$EXTMIN", {1.0, 1.0, 1.0});
        const AcGePoint3d high = drawing.header().point("$EXTMAX", {-1.0, -1.0, -1.0});
        return low.x <= high.x && low.y <= high.y ? AcGeExtents{low, high} : AcGeExtents{};
    }
    catch (const DamagedValue&)
    {
        return {};
    }
}

void showAll(AcDbDatabase& drawing, const AcGeExtents& extents)
{
    ObjectRecord* view = drawing.tables().find("VPORT", u"*Active");
    if (view == nullptr)
        return;
    const AcGeVector3d size = extents.maxPoint() - extents.minPoint();
    const AcGePoint3d center = extents.minPoint() + size * 0.5;
    PairEdit edit{view->view()};
    OwnPairs pairs{view->view()};
    double aspect = 1.0;
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 41)
            aspect = std::max(tag.real(), 0.1);
    OwnPairs again{view->view()};
    for (Tag tag; again.next(tag);)
    {
        TagWriter out;
        if (tag.code == 12)
            out.real(12, center.x);
        else if (tag.code == 22)
            out.real(22, center.y);
        else if (tag.code == 40)
            out.real(40, kMargin * std::max({size.y, size.x / aspect, 1.0}));
        else
            continue;
        edit.replace(tag, out.view());
    }
    drawing.setRecordText(*view, edit.take());
}

} // namespace

void setExtents(AcDbDatabase& drawing, const AcGeExtents& added, bool wasEmpty)
{
    if (!added.isValid())
        return;
    AcGeExtents extents = wasEmpty ? AcGeExtents{} : saidExtents(drawing);
    extents.addExtents(added);
    setPoint(drawing, "$EXTMIN", extents.minPoint());
    setPoint(drawing, "$EXTMAX", extents.maxPoint());
    if (wasEmpty)
        showAll(drawing, extents);
}

} // namespace survey
