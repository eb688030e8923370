#include "picture/look/looks.h"

#include "host/db/database.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <algorithm>
#include <cmath>

namespace picture
{

namespace
{

Color trueColorOf(const Tag& tag)
{
    return {static_cast<int32_t>(tag.integer() & 0xFFFFFF)};
}

/// What `read` gives; the default where a number in it cannot be read.
template <class T, class Read>
T orDefault(T usual, const Read& read)
{
    try
    {
        return read();
    }
    catch (const DamagedValue&)
    {
        return usual;
    }
}

bool matches(std::u16string_view pattern, std::u16string_view name)
{
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == u'*')
        return matches(pattern.substr(1), name) || (!name.empty() && matches(pattern, name.substr(1)));
    return !name.empty() && (pattern.front() == u'?' || foldCase(pattern.front()) == foldCase(name.front())) &&
           matches(pattern.substr(1), name.substr(1));
}

} // namespace

Looks::Looks(AcDbDatabase& database, Notes& notes) : m_database{database}, m_notes{notes}
{
    reload();
}

Color Looks::colorOf(int64_t index)
{
    if (index == 0)
        return {Color::kByBlock};
    if (index == 7)
        return {Color::kForeground};
    if (index < 0 || index > 255)
        return {Color::kByLayer};
    return {static_cast<int32_t>(paletteColor(static_cast<int>(index)))};
}

bool Looks::reload()
{
    const std::vector<Linetype> linetypes = m_linetypes;
    const std::vector<Layer> layers = m_layers;
    readLinetypes();
    readLayers();
    return !std::equal(linetypes.begin(), linetypes.end(), m_linetypes.begin()) ||
           !std::equal(layers.begin(), layers.end(), m_layers.begin());
}

void Looks::readLinetypes()
{
    // Numbers that looks have got stay those of their linetypes.
    m_linetypes.resize(std::max<size_t>(1, m_linetypes.size()));
    for (const AcDbObjectId id : m_database.tables().live("LTYPE"))
    {
        const auto [place, isFresh] =
            m_linetypeOf.try_emplace(nameOfRecord(*id.record()), static_cast<int32_t>(m_linetypes.size()));
        if (isFresh)
            m_linetypes.emplace_back();
        m_linetypes[static_cast<size_t>(place->second)] =
            orDefault(Linetype{}, [&] { return readLinetype(id.record()->view()); });
    }
}

Linetype Looks::readLinetype(std::string_view text)
{
    constexpr size_t kMostDashes = 64;
    constexpr int kEmbeds = 2 | 4;
    Linetype type;
    std::string name;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 2)
            name = toUtf8(m_database.encoding().decode(tag.word()));
        else if (tag.code == 49 && std::isfinite(tag.real()) && type.dashes.size() < kMostDashes)
            type.dashes.push_back(tag.real());
        else if (tag.code == 74 && (tag.integer() & kEmbeds) != 0)
            m_notes.texts.insert("linetype " + name + ": the texts and shapes in it are left out");
    for (const double dash : type.dashes)
        type.length += std::fabs(dash);
    if (!(type.length > 0.0))
        type.dashes.clear();
    return type;
}

void Looks::readLayers()
{
    if (m_layers.empty())
        addLayer({u"0"});
    for (const AcDbObjectId id : m_database.tables().live("LAYER"))
    {
        Layer layer = orDefault(Layer{nameOfRecord(*id.record())}, [&] { return readLayer(id.record()->view()); });
        const auto known = m_layerOf.find(layer.name);
        if (known != m_layerOf.end())
            m_layers[known->second] = std::move(layer);
        else
            addLayer(std::move(layer));
    }
    for (Layer& layer : m_layers)
        layer.off = layer.off || (!m_patterns.empty() &&
                                  std::none_of(m_patterns.begin(), m_patterns.end(),
                                               [&](const auto& pattern) { return matches(pattern, layer.name); }));
}

Layer Looks::readLayer(std::string_view text)
{
    Layer layer;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        switch (tag.code)
        {
        case 2:
            layer.name = m_database.encoding().decode(tag.word());
            break;
        case 6:
            layer.linetype = std::max(0, linetypeNamed(tag.word()));
            break;
        case 62:
            layer.off = tag.integer() < 0;
            layer.color = colorOf(std::abs(tag.integer()));
            break;
        case 70:
            layer.frozen = (tag.integer() & 1) != 0;
            break;
        case 370:
            layer.weight = static_cast<int32_t>(tag.integer());
            break;
        case 420:
            layer.color = trueColorOf(tag);
            break;
        default:
            break;
        }
    if (layer.color.value < 0)
        layer.color = {Color::kForeground};
    if (layer.weight < 0)
        layer.weight = Look::kDefaultWeight;
    return layer;
}

uint32_t Looks::addLayer(Layer layer)
{
    const auto index = static_cast<uint32_t>(m_layers.size());
    m_layerOf.emplace(layer.name, index);
    m_layers.push_back(std::move(layer));
    return index;
}

uint32_t Looks::layerNamed(std::string_view raw)
{
    if (const auto known = m_layerOfRaw.find(raw); known != m_layerOfRaw.end())
        return known->second;
    const std::u16string name = m_database.encoding().decode(raw);
    const auto listed = m_layerOf.find(name);
    const uint32_t index = listed != m_layerOf.end() ? listed->second : addLayer({name});
    m_layerOfRaw.emplace(raw, index);
    return index;
}

int32_t Looks::linetypeNamed(std::string_view raw)
{
    const std::u16string name = m_database.encoding().decode(raw);
    if (equalNoCase(name, u"ByLayer"))
        return Look::kByLayer;
    if (equalNoCase(name, u"ByBlock"))
        return Look::kByBlock;
    const auto listed = m_linetypeOf.find(name);
    return listed != m_linetypeOf.end() ? listed->second : 0;
}

uint32_t Looks::lookOf(std::string_view pairs, bool& isInvisible)
{
    Look look;
    isInvisible = false;
    bool isTrueColor = false;
    OwnPairs reader{pairs};
    int markers = 0;
    for (Tag tag; markers < 2 && reader.next(tag);)
        switch (tag.code)
        {
        case 6:
            look.linetype = linetypeNamed(tag.word());
            break;
        case 8:
            look.layer = layerNamed(tag.word());
            break;
        case 48:
            look.linetypeScale = tag.real();
            break;
        case 60:
            isInvisible = tag.integer() == 1;
            break;
        case 62:
            look.color = isTrueColor ? look.color : colorOf(tag.integer());
            break;
        case 100:
            ++markers;
            break;
        case 370:
            look.weight = static_cast<int32_t>(tag.integer());
            break;
        case 420:
            look.color = trueColorOf(tag);
            isTrueColor = true;
            break;
        default:
            break;
        }
    return indexOf(look);
}

uint32_t Looks::indexOf(const Look& look)
{
    if (!m_looks.empty() && m_looks.back() == look)
        return static_cast<uint32_t>(m_looks.size() - 1);
    const auto [place, fresh] = m_lookIndex.try_emplace(look, static_cast<uint32_t>(m_looks.size()));
    if (fresh)
        m_looks.push_back(look);
    return place->second;
}

Pen Looks::pen(uint32_t index, const Pen* around) const
{
    const Look& look = m_looks[index];
    const bool takesBlockLayer = look.layer == 0 && around != nullptr;
    Pen pen;
    pen.layer = takesBlockLayer ? around->layer : look.layer;
    const Layer& layer = m_layers[pen.layer];
    pen.shown = !layer.frozen && !layer.off;
    pen.frozen = layer.frozen;
    pen.color = look.color.value == Color::kByLayer   ? layer.color
                : look.color.value != Color::kByBlock ? look.color
                : around != nullptr                   ? around->color
                                                      : Color{Color::kForeground};
    pen.linetype = look.linetype == Look::kByLayer   ? layer.linetype
                   : look.linetype != Look::kByBlock ? look.linetype
                   : around != nullptr               ? around->linetype
                                                     : 0;
    pen.weight = look.weight == Look::kByLayer   ? layer.weight
                 : look.weight != Look::kByBlock ? look.weight
                 : around != nullptr             ? around->weight
                                                 : Look::kDefaultWeight;
    pen.linetypeScale = look.linetypeScale;
    return pen;
}

} // namespace picture
