#include "picture/list/drawing_lists.h"

#include "host/db/database.h"
#include "picture/list/entity_writer.h"
#include "picture/list/list_update.h"
#include "store/block_index.h"
#include "store/header_variables.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <cmath>

namespace picture
{

namespace
{

constexpr size_t kDeepestNesting = 250;

/// Drawing units in a metre for a value of $INSUNITS; 1 for those of other trades.
double unitsInMetre(int64_t unit)
{
    switch (unit)
    {
    case 1:
        return 1000.0 / 25.4;
    case 2:
        return 1000.0 / 304.8;
    case 4:
        return 1000.0;
    case 5:
        return 100.0;
    case 7:
        return 0.001;
    case 10:
        return 1000.0 / 914.4;
    case 14:
        return 10.0;
    default:
        return 1.0;
    }
}

/// A number of the header; the fallback where there is none that can be read.
double realOr(HeaderVariables& header, const std::string& name, double fallback)
{
    TagReader pairs{header.pairs(name)};
    try
    {
        Tag tag;
        return pairs.next(tag) ? tag.real() : fallback;
    }
    catch (const DamagedValue&)
    {
        return fallback;
    }
}

} // namespace

AcDbObjectIdArray modelSpaceOf(AcDbDatabase& database)
{
    if (const ObjectRecord* space = database.blocks().record(u"*Model_Space"))
        return database.blocks().entities(*space);
    const std::vector<Container>& containers = database.store().containers;
    for (uint32_t i = 0; i < containers.size(); ++i)
        if (containers[i].kind == Container::kEntities)
            return database.blocks().entitiesIn(i, false);
    return {};
}

DrawingLists::DrawingLists(AcDbDatabase& database, std::vector<std::string> fontFolders, Notes& notes)
    : m_database{database}, m_notes{notes}, m_looks{database, notes}, m_styles{database, std::move(fontFolders), notes},
      m_order{database}, m_seen{database.changeCount()}
{
    readHeader();
}

void DrawingLists::readHeader()
{
    HeaderVariables& header = m_database.header();
    m_linetypeScale = realOr(header, "$LTSCALE", 1.0);
    if (!(m_linetypeScale > 0.0) || !std::isfinite(m_linetypeScale))
        m_linetypeScale = 1.0;
    m_pointStyle.mode = static_cast<int>(header.integerOr("$PDMODE", 0));
    m_pointStyle.size = realOr(header, "$PDSIZE", 0.0);
    m_showsWeights = header.integerOr("$LWDISPLAY", 0) != 0;
    m_arrowSize = realOr(header, "$DIMASZ", 0.0) * realOr(header, "$DIMSCALE", 1.0);
    m_dimensionText = realOr(header, "$DIMTXT", 2.5) * realOr(header, "$DIMSCALE", 1.0);
    m_metre = unitsInMetre(header.integerOr("$INSUNITS", 0));
}

DrawingLists::Source DrawingLists::sourceOf(const ObjectRecord* space) const
{
    BlockIndex& blocks = m_database.blocks();
    if (space == nullptr)
        space = blocks.record(u"*Model_Space");
    if (space != nullptr)
        return {blocks.containerOf(*space), blocks.isPaperSpace(*space)};
    const std::vector<Container>& containers = m_database.store().containers;
    for (uint32_t i = 0; i < containers.size(); ++i)
        if (containers[i].kind == Container::kEntities)
            return {i, false};
    return {};
}

DisplayList& DrawingLists::space(const ObjectRecord* block)
{
    return m_lists[listOf(sourceOf(block))];
}

const DisplayList* DrawingLists::madeSpace(const ObjectRecord* block) const
{
    const auto made = m_made.find(sourceOf(block));
    return made != m_made.end() ? &m_lists[made->second.list] : nullptr;
}

uint32_t DrawingLists::listOf(const Source& source)
{
    if (const auto made = m_made.find(source); made != m_made.end())
        return made->second.list;
    const auto given = std::find(m_sources.begin(), m_sources.end(), source);
    const auto index = static_cast<uint32_t>(given - m_sources.begin());
    if (given == m_sources.end())
    {
        m_lists.emplace_back();
        m_sources.push_back(source);
    }
    m_made[source] = {index, true};
    fill(index);
    m_made[source].isOpen = false;
    return index;
}

void DrawingLists::fill(uint32_t index)
{
    DisplayList& list = m_lists[index];
    const Source source = m_sources[index];
    const AcDbObjectIdArray entities = m_order.sorted(m_database.blocks().entitiesIn(source.container, source.isPaper));
    EntityWriter writer{*this, list, isBlock(index)};
    list.reserve(entities.size());
    for (const AcDbObjectId id : entities)
    {
        list.begin(*id.record());
        writer.write(*id.record());
        list.end();
    }
    list.finish();
}

uint32_t DrawingLists::modelFor(const DisplayList& list)
{
    const Source model = sourceOf(nullptr);
    if (const auto made = m_made.find(model); made != m_made.end())
        return made->second.isOpen || &m_lists[made->second.list] == &list ? kNone : made->second.list;
    return listOf(model);
}

bool DrawingLists::isBlock(uint32_t list) const
{
    const uint32_t container = m_sources[list].container;
    if (container >= m_database.store().containers.size() ||
        m_database.store().containers[container].kind != Container::kBlock)
        return false;
    const std::u16string name = m_database.encoding().decode(m_database.store().containers[container].name);
    return !equalNoCase(name.substr(0, 12), u"*Paper_Space") && !equalNoCase(name, u"*Model_Space");
}

uint32_t DrawingLists::blockNamed(std::string_view raw)
{
    const Container* contents = m_database.blocks().contents(m_database.encoding().decode(raw));
    if (contents == nullptr)
        return kNone;
    const Source source{static_cast<uint32_t>(contents - m_database.store().containers.data()), false};
    if (const auto made = m_made.find(source); made != m_made.end())
    {
        if (made->second.isOpen)
            m_notes.texts.insert("blocks that contain each other are drawn up to where the circle closes");
        return made->second.isOpen ? kNone : made->second.list;
    }
    if (m_depth >= kDeepestNesting)
    {
        m_notes.texts.insert("blocks nested deeper than " + std::to_string(kDeepestNesting) + " are left out");
        return kNone;
    }
    ++m_depth;
    const uint32_t list = listOf(source);
    --m_depth;
    return list;
}

void DrawingLists::noteWrittenOut(uint32_t container, const DisplayList& list)
{
    for (uint32_t i = 0; i < m_lists.size(); ++i)
        if (&m_lists[i] == &list)
            m_writtenOut[container].emplace(i, list.openEntity());
}

std::optional<Box2d> DrawingLists::update()
{
    const std::vector<ObjectRecord*>& touched = m_database.touched();
    const std::span fresh{touched.begin() + static_cast<ptrdiff_t>(m_seen), touched.end()};
    m_seen = touched.size();
    return ListUpdate{*this}.run(fresh);
}

Box2d DrawingLists::shownBox(const DisplayList& list) const
{
    Box2d box;
    for (uint32_t i = 0; i < list.items().size(); ++i)
        for (const Primitive& primitive : list.primitives(list.items()[i]))
            if (m_looks.pen(primitive.look, nullptr).shown)
            {
                if (!list.box(i).isEmpty())
                    box.add(list.box(i));
                break;
            }
    return box;
}

size_t DrawingLists::bytes() const
{
    size_t sum = 0;
    for (const DisplayList& list : m_lists)
        sum += list.bytes();
    return sum;
}

} // namespace picture
