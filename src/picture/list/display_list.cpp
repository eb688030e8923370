#include "picture/list/display_list.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace picture
{

namespace
{

/// Numbers below `end` in their order, each once: for many of them quicker than sorting.
std::vector<uint32_t> sortedByMarks(const std::vector<uint32_t>& numbers, size_t end)
{
    std::vector<uint64_t> marks(end / 64 + 1);
    for (const uint32_t number : numbers)
        marks[number / 64] |= uint64_t{1} << (number % 64);
    std::vector<uint32_t> sorted;
    sorted.reserve(numbers.size());
    for (size_t word = 0; word < marks.size(); ++word)
        for (uint64_t left = marks[word]; left != 0; left &= left - 1)
            sorted.push_back(static_cast<uint32_t>(word * 64) + static_cast<uint32_t>(std::countr_zero(left)));
    return sorted;
}

} // namespace

void DisplayList::begin(ObjectRecord& entity)
{
    m_items.push_back({&entity, 0, 0});
    beginAgain(static_cast<uint32_t>(m_items.size() - 1));
}

void DisplayList::beginAgain(uint32_t item)
{
    m_open = item;
    m_dead += m_items[item].count;
    m_items[item].first = static_cast<uint32_t>(m_primitives.size());
    m_items[item].count = 0;
    m_items[item].isScreenSized = 0;
    m_itemBox = {};
}

void DisplayList::end()
{
    Item& item = m_items[m_open];
    item.count = (static_cast<uint32_t>(m_primitives.size()) - item.first) & 0x7FFFFFFFU;
    m_places.set(m_open, m_itemBox);
    if (!m_itemBox.isEmpty())
        m_box.add(m_itemBox);
}

void DisplayList::add(Primitive::Kind kind, uint32_t look, std::span<const Vertex> vertices, bool closed)
{
    m_primitives.push_back(
        {static_cast<uint32_t>(m_vertices.size()), static_cast<uint32_t>(vertices.size()), look, kind, closed});
    m_vertices.insert(m_vertices.end(), vertices.begin(), vertices.end());
    if (kind == Primitive::kArea || kind == Primitive::kBand)
        for (size_t i = 0; i < vertices.size(); i += static_cast<size_t>(vertices[i].x) + 1)
            for (size_t k = 1; k <= static_cast<size_t>(vertices[i].x); ++k)
                m_itemBox.add(vertices[i + k].x, vertices[i + k].y);
    else if (kind == Primitive::kRay || kind == Primitive::kInfinite)
    {
        m_itemBox.add(vertices[0].x, vertices[0].y);
        m_items[m_open].isScreenSized = 1;
        m_isScreenSized = true;
        if (m_endless.empty() || m_endless.back() != m_open)
            m_endless.push_back(m_open);
    }
    else
        for (const Vertex& vertex : vertices)
            m_itemBox.add(vertex.x, vertex.y);
    if (kind == Primitive::kDot)
    {
        m_items[m_open].isScreenSized = 1;
        m_isScreenSized = true;
    }
}

void DisplayList::addArcs(uint32_t look, std::span<const PathVertex> vertices, bool closed, const Box2d& box)
{
    m_primitives.push_back({static_cast<uint32_t>(m_vertices.size()), static_cast<uint32_t>(2 * vertices.size()), look,
                            Primitive::kArcs, closed});
    for (const PathVertex& vertex : vertices)
    {
        m_vertices.push_back({vertex.x, vertex.y});
        m_vertices.push_back({vertex.bulge, 0.0});
    }
    grow(box);
}

void DisplayList::addText(uint32_t look, PlacedText text, std::u16string_view letters, const Font& font,
                          const Box2d& ink)
{
    auto known = std::find(m_fonts.begin(), m_fonts.end(), &font);
    text.font = static_cast<uint32_t>(known - m_fonts.begin());
    if (known == m_fonts.end())
        m_fonts.push_back(&font);
    text.firstUnit = static_cast<uint32_t>(m_letters.size());
    text.units = static_cast<uint32_t>(letters.size());
    m_letters += letters;
    m_primitives.push_back({static_cast<uint32_t>(m_texts.size()), 0, look, Primitive::kText});
    m_texts.push_back(text);
    if (!ink.isEmpty())
        grow(text.map().boxAround(ink));
}

void DisplayList::addBlock(uint32_t look, PlacedBlock placed, const Grid* grid, const DisplayList& contents)
{
    Box2d box = placed.map.boxAround(contents.box());
    if (contents.isScreenSized())
    {
        m_items[m_open].isScreenSized = 1;
        m_isScreenSized = true;
    }
    if (contents.isEndless() && (m_endless.empty() || m_endless.back() != m_open))
        m_endless.push_back(m_open);
    if (grid != nullptr && !box.isEmpty())
    {
        placed.grid = static_cast<uint32_t>(m_grids.size());
        m_grids.push_back(*grid);
        const Box2d first = box;
        for (const double column : {0.0, grid->columns - 1.0})
            for (const double row : {0.0, grid->rows - 1.0})
            {
                const double dx = column * grid->columnStep.x + row * grid->rowStep.x;
                const double dy = column * grid->columnStep.y + row * grid->rowStep.y;
                box.add({first.minX + dx, first.minY + dy, first.maxX + dx, first.maxY + dy});
            }
    }
    m_primitives.push_back({static_cast<uint32_t>(m_blocks.size()), 0, look, Primitive::kBlock});
    m_blocks.push_back(placed);
    if (!box.isEmpty())
        grow(box);
}

void DisplayList::addImage(uint32_t look, PlacedImage image)
{
    for (const Vertex& vertex : image.outline)
        m_itemBox.add(vertex.x, vertex.y);
    m_primitives.push_back({static_cast<uint32_t>(m_images.size()), 0, look, Primitive::kImage});
    m_images.push_back(std::move(image));
}

void DisplayList::addView(uint32_t look, PlacedView view)
{
    grow(view.frame);
    m_primitives.push_back({static_cast<uint32_t>(m_views.size()), 0, look, Primitive::kView});
    m_views.push_back(std::move(view));
}

void DisplayList::reserve(size_t entities)
{
    m_items.reserve(entities);
    m_primitives.reserve(entities + entities / 8);
    m_vertices.reserve(2 * entities);
}

void DisplayList::finish()
{
    m_items.shrink_to_fit();
    m_primitives.shrink_to_fit();
    m_vertices.shrink_to_fit();
    m_texts.shrink_to_fit();
    m_letters.shrink_to_fit();
    m_blocks.shrink_to_fit();
    m_grids.shrink_to_fit();
    m_places.prepare();
}

void DisplayList::finishChange()
{
    constexpr size_t kFewest = 1'000;
    if (m_dead > kFewest + m_primitives.size() / 2)
        compact();
    m_places.prepare();
}

/// Copies what items have, and nothing else.
void DisplayList::compact()
{
    DisplayList kept;
    const auto take = [](auto& into, const auto& from, size_t first, size_t count)
    {
        const auto begin = from.begin() + static_cast<ptrdiff_t>(first);
        into.insert(into.end(), begin, begin + static_cast<ptrdiff_t>(count));
        return static_cast<uint32_t>(into.size() - count);
    };
    for (Item& item : m_items)
    {
        const auto first = static_cast<uint32_t>(kept.m_primitives.size());
        for (Primitive primitive : primitives(item))
        {
            if (primitive.kind == Primitive::kText)
            {
                PlacedText text = m_texts[primitive.first];
                text.firstUnit = take(kept.m_letters, m_letters, text.firstUnit, text.units);
                primitive.first = take(kept.m_texts, std::span{&text, 1}, 0, 1);
            }
            else if (primitive.kind == Primitive::kBlock)
            {
                PlacedBlock block = m_blocks[primitive.first];
                if (block.grid != PlacedBlock::kNoGrid)
                    block.grid = take(kept.m_grids, m_grids, block.grid, 1);
                primitive.first = take(kept.m_blocks, std::span{&block, 1}, 0, 1);
            }
            else if (primitive.kind == Primitive::kImage)
                primitive.first = take(kept.m_images, m_images, primitive.first, 1);
            else if (primitive.kind == Primitive::kView)
                primitive.first = take(kept.m_views, m_views, primitive.first, 1);
            else
                primitive.first = take(kept.m_vertices, m_vertices, primitive.first, primitive.count);
            kept.m_primitives.push_back(primitive);
        }
        item.first = first;
    }
    m_primitives = std::move(kept.m_primitives);
    m_vertices = std::move(kept.m_vertices);
    m_texts = std::move(kept.m_texts);
    m_letters = std::move(kept.m_letters);
    m_blocks = std::move(kept.m_blocks);
    m_grids = std::move(kept.m_grids);
    m_images = std::move(kept.m_images);
    m_views = std::move(kept.m_views);
    m_dead = 0;
}

std::vector<uint32_t> DisplayList::itemsOf(const std::unordered_set<const ObjectRecord*>& entities) const
{
    std::vector<uint32_t> found;
    for (uint32_t item = 0; item < m_items.size() && !entities.empty(); ++item)
        if (entities.count(m_items[item].entity) != 0)
            found.push_back(item);
    return found;
}

std::vector<uint32_t> DisplayList::itemsIn(const Box2d& window) const
{
    std::vector<uint32_t> found;
    const auto isApart = [&window](const Box2d& box) { return box.isApart(window, 0.0); };
    const auto holds = [&window](const Box2d& box) {
        return box.minX >= window.minX && box.maxX <= window.maxX && box.minY >= window.minY && box.maxY <= window.maxY;
    };
    if (holds(m_box))
    {
        found.resize(m_items.size());
        std::iota(found.begin(), found.end(), 0U);
        return found;
    }
    m_places.search(isApart, holds, [&found](uint32_t item) { found.push_back(item); });
    found.insert(found.end(), m_endless.begin(), m_endless.end());
    if (found.size() < m_items.size() / 256)
        std::sort(found.begin(), found.end());
    else
        found = sortedByMarks(found, m_items.size());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

size_t DisplayList::bytes() const
{
    return m_items.capacity() * sizeof(Item) + m_primitives.capacity() * sizeof(Primitive) +
           m_vertices.capacity() * sizeof(Vertex) + m_texts.capacity() * sizeof(PlacedText) +
           m_letters.capacity() * sizeof(char16_t) + m_blocks.capacity() * sizeof(PlacedBlock) +
           m_grids.capacity() * sizeof(Grid) + m_places.bytes();
}

} // namespace picture
