#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "store/handle_table.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <numbers>

namespace picture
{

namespace
{

/// A window of a layout through which model space is seen.
struct Viewport
{
    AcGePoint3d centre; ///< on the sheet
    double width = 0.0;
    double height = 0.0;
    AcGePoint3d viewCentre; ///< about the target, turned
    AcGeVector3d direction = AcGeVector3d::kZAxis;
    AcGePoint3d target;
    double viewHeight = 0.0;
    double twist = 0.0; ///< radians
    int64_t status = 0;
    int64_t number = 0;
    bool isOff = false;
    std::vector<uint64_t> frozen; ///< handles of layers

    explicit Viewport(std::string_view pairs);
    /// The sheet itself counts as a window of its own, with the number 1.
    bool isWindow() const { return number != 1 && status != 0 && !isOff && width > 0.0 && height > 0.0; }
    bool showsPlan() const { return std::hypot(direction.x, direction.y) <= 1e-9 * std::fabs(direction.z); }
};

Viewport::Viewport(std::string_view text)
{
    constexpr int64_t kOff = 0x20000;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 10:
            centre = pairs.pointFrom(tag);
            break;
        case 12:
            viewCentre = pairs.pointFrom(tag);
            break;
        case 16:
            direction = pairs.pointFrom(tag).asVector();
            break;
        case 17:
            target = pairs.pointFrom(tag);
            break;
        case 40:
            width = tag.real();
            break;
        case 41:
            height = tag.real();
            break;
        case 45:
            viewHeight = tag.real();
            break;
        case 51:
            twist = tag.real() * std::numbers::pi / 180.0;
            break;
        case 68:
            status = tag.integer();
            break;
        case 69:
            number = tag.integer();
            break;
        case 90:
            isOff = (tag.integer() & kOff) != 0;
            break;
        case 331:
        case 341:
            frozen.push_back(tag.handle());
            break;
        default:
            break;
        }
}

} // namespace

void EntityWriter::writeViewport(ObjectRecord& entity)
{
    const Viewport window{entity.view()};
    const uint32_t model = m_lists.modelFor(m_list);
    if (model == DrawingLists::kNone || !window.isWindow())
        return;
    const Vertex centre{window.centre.x, window.centre.y};
    const Box2d frame{centre.x - window.width / 2, centre.y - window.height / 2, centre.x + window.width / 2,
                      centre.y + window.height / 2};
    if (!isUsable({frame.minX, frame.minY}) || !isUsable({frame.maxX, frame.maxY}))
        return;
    const std::vector<Vertex> outline{
        {frame.minX, frame.minY}, {frame.maxX, frame.minY}, {frame.maxX, frame.maxY}, {frame.minX, frame.maxY}};
    m_list.add(Primitive::kPath, m_look, outline, true);
    if (!window.showsPlan() || !(window.viewHeight > 0.0))
    {
        m_lists.notes().texts.insert("windows of layouts that look from the side are left empty");
        return;
    }
    const double scale = window.height / window.viewHeight;
    PlacedView view;
    view.map = Map2d::translation(centre) * Map2d::scaling(scale, scale) *
               Map2d::translation({-window.viewCentre.x, -window.viewCentre.y}) * Map2d::rotation(window.twist) *
               Map2d::translation({-window.target.x, -window.target.y});
    view.frame = frame;
    view.list = model;
    for (const uint64_t handle : window.frozen)
        if (const ObjectRecord* layer = m_lists.database().handles().find(handle))
            view.frozenLayers.push_back(nameOfRecord(*layer));
    m_list.addView(m_look, std::move(view));
}

} // namespace picture
