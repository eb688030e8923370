#pragma once

#include "kernel/box_tree.h"
#include "picture/map2d.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

struct ObjectRecord;

namespace picture
{

class Font;

/// One thing to be painted. What its vertices mean hangs on its kind.
struct Primitive
{
    enum Kind : uint8_t
    {
        kPath,     ///< points joined by straight lines
        kArcs,     ///< pairs: a point, then the bulge (as x) of the way to the next one
        kStrokes,  ///< pairs of points, each joined by a straight line that is never dashed
        kArea,     ///< loops, the inside by the even-odd rule; before each loop its number of points (as x)
        kBand,     ///< the same, but all of the loops are inside
        kDot,      ///< a point of the drawing, shown as its $PDMODE says
        kSurvey,   ///< a survey point, shown as a cross
        kRay,      ///< a point and a direction
        kInfinite, ///< the same in both directions
        kText,     ///< `first` is the index of a text
        kBlock,    ///< `first` is the index of a placed block
        kImage,    ///< `first` is the index of a picture
        kView      ///< `first` is the index of a window to another list
    };

    uint32_t first = 0; ///< vertex
    uint32_t count = 0; ///< vertices
    uint32_t look = 0;
    Kind kind = kPath;
    bool closed = false;
};

/// A piece of text in one font. `across` and `up` carry units of the text's height into the drawing.
struct PlacedText
{
    Vertex at;
    float acrossX = 0;
    float acrossY = 0;
    float upX = 0;
    float upY = 0;
    float advance = 0; ///< how far the pen goes, in units of the height
    uint32_t firstUnit = 0;
    uint32_t units = 0;
    uint32_t font = 0;

    Map2d map() const { return {acrossX, upX, acrossY, upY, at.x, at.y}; }
};

/// A block that stands somewhere, perhaps in rows and columns.
struct PlacedBlock
{
    Map2d map;
    uint32_t block = 0; ///< index of the block's own list
    uint32_t grid = kNoGrid;
    static constexpr uint32_t kNoGrid = 0xFFFFFFFF;
};

/// A picture of pixels that lies in the drawing.
struct PlacedImage
{
    Map2d map; ///< carries the unit square
    std::string file;
    std::vector<Vertex> outline; ///< of what is seen, drawing units
};

/// A window of a layout through which another list is seen.
struct PlacedView
{
    Map2d map; ///< carries the other list's units
    Box2d frame;
    uint32_t list = 0;
    std::vector<std::u16string> frozenLayers; ///< not seen in this window
};

/// Where the copies of a block go, by column and row.
struct Grid
{
    uint32_t columns = 1;
    uint32_t rows = 1;
    Vertex columnStep;
    Vertex rowStep;
};

/// What a block or a space draws, entity by entity, ready to be painted and found by place. Lists are made once and
/// painted often; an entity that changed gets new primitives in its old place in the order. Drawing units; coordinates
/// are finite.
class DisplayList
{
public:
    struct Item
    {
        ObjectRecord* entity = nullptr;
        uint32_t first = 0; ///< primitive
        uint32_t count : 31 = 0;
        uint32_t isScreenSized : 1 = 0; ///< may reach over its box: lines without end, points of the drawing
    };

    /// Begins an entity behind the others; what is added until `end` belongs to it.
    void begin(ObjectRecord& entity);
    /// Begins an entity anew in its old place.
    void beginAgain(uint32_t item);
    void end();
    /// The entity that was begun last.
    ObjectRecord* openEntity() const { return m_items[m_open].entity; }
    /// Forgets everything.
    void clear() { *this = {}; }
    /// Numbers of the items of some entities.
    std::vector<uint32_t> itemsOf(const std::unordered_set<const ObjectRecord*>& entities) const;

    void add(Primitive::Kind kind, uint32_t look, std::span<const Vertex> vertices, bool closed = false);
    void addArcs(uint32_t look, std::span<const PathVertex> vertices, bool closed, const Box2d& box);
    void addText(uint32_t look, PlacedText text, std::u16string_view letters, const Font& font, const Box2d& ink);
    void addBlock(uint32_t look, PlacedBlock placed, const Grid* grid, const DisplayList& contents);
    void addImage(uint32_t look, PlacedImage image);
    void addView(uint32_t look, PlacedView view);
    /// Expects so many entities.
    void reserve(size_t entities);
    /// Gives back the memory that growing took and makes the index of places; the list is complete.
    void finish();
    /// The same after some items were begun again: what they had is given up once it is more than what is there.
    void finishChange();

    const std::vector<Item>& items() const { return m_items; }
    std::span<const Primitive> primitives(const Item& item) const
    {
        return {m_primitives.data() + item.first, item.count};
    }
    std::span<const Vertex> vertices(const Primitive& primitive) const
    {
        return {m_vertices.data() + primitive.first, primitive.count};
    }
    const PlacedText& text(const Primitive& primitive) const { return m_texts[primitive.first]; }
    std::u16string_view letters(const PlacedText& text) const
    {
        return std::u16string_view{m_letters}.substr(text.firstUnit, text.units);
    }
    const Font& font(const PlacedText& text) const { return *m_fonts[text.font]; }
    const PlacedBlock& block(const Primitive& primitive) const { return m_blocks[primitive.first]; }
    /// Null for a block that stands there once.
    const Grid* grid(const PlacedBlock& block) const
    {
        return block.grid == PlacedBlock::kNoGrid ? nullptr : &m_grids[block.grid];
    }

    const PlacedImage& image(const Primitive& primitive) const { return m_images[primitive.first]; }
    const PlacedView& view(const Primitive& primitive) const { return m_views[primitive.first]; }

    const Box2d& box(uint32_t item) const { return m_places.box(item); }
    /// Around everything.
    const Box2d& box() const { return m_box; }
    /// Whether there are lines without end, which the box does not hold.
    bool isEndless() const { return !m_endless.empty(); }
    /// Whether an item may reach over its box.
    bool isScreenSized() const { return m_isScreenSized; }
    /// The items whose boxes meet `window`, in drawing order, and all lines without end.
    std::vector<uint32_t> itemsIn(const Box2d& window) const;
    /// Bytes that the list takes.
    size_t bytes() const;
    size_t vertexCount() const { return m_vertices.size(); }

private:
    void compact();
    void grow(const Box2d& box) { m_itemBox.add(box); }

    std::vector<Item> m_items;
    std::vector<Primitive> m_primitives;
    std::vector<Vertex> m_vertices;
    std::vector<PlacedText> m_texts;
    std::u16string m_letters;
    std::vector<const Font*> m_fonts;
    std::vector<PlacedBlock> m_blocks;
    std::vector<Grid> m_grids;
    std::vector<PlacedImage> m_images;
    std::vector<PlacedView> m_views;
    std::vector<uint32_t> m_endless; ///< items
    BoxTree m_places;
    Box2d m_box;
    uint32_t m_open = 0; ///< the item at hand
    Box2d m_itemBox;
    bool m_isScreenSized = false;
    size_t m_dead = 0; ///< primitives that items no longer have
};

} // namespace picture
