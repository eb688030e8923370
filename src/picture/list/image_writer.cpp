#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "store/handle_table.h"
#include "store/pair_edit.h"

#include <algorithm>

namespace picture
{

namespace
{

/// A picture in the drawing, or a shape that covers what lies behind it: both are told in pixels.
struct ImageFrame
{
    AcGePoint3d corner; ///< lower left
    AcGeVector3d u;     ///< a pixel to the right
    AcGeVector3d v;     ///< a pixel upwards
    double width = 1.0; ///< pixels
    double height = 1.0;
    uint64_t definition = 0;
    bool isShown = true;
    std::vector<Vertex> clip; ///< pixels, y down from the upper left pixel's middle; two are corners of a rectangle

    /// The outline of what is seen, in the world.
    AcGePoint3dArray outline() const
    {
        std::vector<Vertex> corners = clip;
        if (corners.size() < 2)
            corners = {{-0.5, -0.5}, {width - 0.5, height - 0.5}};
        if (corners.size() == 2)
            corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
        AcGePoint3dArray points;
        for (const Vertex& pixel : corners)
            points.push_back(corner + u * (pixel.x + 0.5) + v * (height - pixel.y - 0.5));
        return points;
    }
};

ImageFrame readImageFrame(std::string_view text)
{
    constexpr int64_t kShown = 1;
    ImageFrame frame;
    bool isClipped = true;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 10:
            frame.corner = pairs.pointFrom(tag);
            break;
        case 11:
            frame.u = pairs.pointFrom(tag).asVector();
            break;
        case 12:
            frame.v = pairs.pointFrom(tag).asVector();
            break;
        case 13:
        {
            const AcGePoint3d size = pairs.pointFrom(tag);
            frame.width = size.x;
            frame.height = size.y;
            break;
        }
        case 14:
        {
            const AcGePoint3d at = pairs.pointFrom(tag);
            frame.clip.push_back({at.x, at.y});
            break;
        }
        case 70:
            frame.isShown = (tag.integer() & kShown) != 0;
            break;
        case 280:
            isClipped = tag.integer() != 0;
            break;
        case 340:
            frame.definition = tag.handle();
            break;
        default:
            break;
        }
    if (!isClipped)
        frame.clip.clear();
    return frame;
}

} // namespace

/// Covers what was drawn before it with the ground of the page.
void EntityWriter::writeWipeout(std::string_view pairs)
{
    const ImageFrame frame = readImageFrame(pairs);
    std::vector<Vertex> loop;
    for (const AcGePoint3d& point : frame.outline())
        loop.push_back(place(point));
    const uint32_t own = m_look;
    Look look = m_lists.looks().look(own);
    look.color = {Color::kBackground};
    m_look = m_lists.looks().indexOf(look);
    writeLoops({loop}, Primitive::kArea);
    m_look = own;
}

/// The picture where it is found, else its frame and the name of its file.
void EntityWriter::writeImage(std::string_view pairs)
{
    const ImageFrame frame = readImageFrame(pairs);
    std::string path;
    if (const ObjectRecord* definition = m_lists.database().handles().find(frame.definition))
    {
        OwnPairs reader{definition->view()};
        for (Tag tag; reader.next(tag);)
            if (tag.code == 1)
                path = toUtf8(m_lists.database().encoding().decode(tag.value));
    }
    const AcGePoint3dArray outline = frame.outline();
    const std::string found = m_lists.styles().findFile(path);
    if (!found.empty() && frame.isShown && frame.width > 0.0 && frame.height > 0.0)
    {
        const Map2d pixels = Map2d::planOf(m_toList);
        const auto carried = [&](const AcGeVector3d& v) {
            return Vertex{pixels.xx * v.x + pixels.xy * v.y, pixels.yx * v.x + pixels.yy * v.y};
        };
        const Vertex u = carried(frame.u * frame.width);
        const Vertex v = carried(frame.v * frame.height);
        const Vertex at = place(frame.corner);
        std::vector<Vertex> clip;
        for (const AcGePoint3d& point : outline)
            clip.push_back(place(point));
        if (std::all_of(clip.begin(), clip.end(), [this](const Vertex& each) { return isUsable(each); }))
            m_list.addImage(m_look, {{u.x, v.x, u.y, v.y, at.x, at.y}, found, clip});
        return;
    }
    writePath(outline, true);
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    if (frame.isShown)
        m_lists.notes().texts.insert("picture " + name + " was not found: its frame and name are drawn");
    const std::u16string text = toUtf16(name);
    const Font& font = m_lists.styles().fontFor(m_lists.styles().style("Standard").face, text);
    const TextExtent extent = extentOf(font, text);
    const double width = frame.u.length() * frame.width;
    const double height = std::min(0.6 * width / std::max(1.0, extent.advance), 0.1 * frame.v.length() * frame.height);
    if (height > 0.0)
        writeLine(text, font, extent,
                  worldAt(frame.corner + frame.u * (0.05 * frame.width) + frame.v * (0.05 * frame.height)) *
                      Map2d::rotation(std::atan2(frame.u.y, frame.u.x)) * Map2d::scaling(height, height));
}

} // namespace picture
