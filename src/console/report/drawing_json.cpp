#include "console/report/drawing_json.h"

#include "console/findings/spaces.h"
#include "console/text/shown_text.h"
#include "files/dxf/version.h"
#include "host/db/database.h"
#include "store/block_index.h"
#include "store/table_index.h"
#include "store/tags.h"

namespace console
{

namespace
{

/// The layer of an entity as its pairs say; "0" when they do not.
std::string_view layerOf(const ObjectRecord& record)
{
    TagReader pairs{record.view()};
    for (Tag tag; pairs.next(tag) && tag.code < 1000;)
        if (tag.code == 8)
            return tag.word();
    return "0";
}

/// How many entities there are, by DXF name and by layer.
struct EntityCounts
{
    std::map<std::string, size_t> types;
    std::map<std::string, size_t> layers;
};

EntityCounts countEntities(AcDbDatabase& database, const AcDbObjectIdArray& entities)
{
    EntityCounts counts;
    std::map<std::string_view, size_t> layers;
    for (const AcDbObjectId id : entities)
    {
        ++counts.types[std::string{database.dxfNameOf(*id.record())}];
        ++layers[layerOf(*id.record())];
    }
    for (const auto& [layer, count] : layers)
        counts.layers[toUtf8(database.encoding().decode(layer))] += count;
    return counts;
}

Json countsJson(const EntityCounts& counts)
{
    return {{"types", counts.types}, {"layers", counts.layers}};
}

Json spaceJson(AcDbDatabase& database, const DrawingSpace& space)
{
    Json json{{"name", space.block}, {"layout", space.layout}, {"entities", space.entities.size()}};
    json.update(countsJson(countEntities(database, space.entities)));
    return json;
}

std::string listText(const Json& counts)
{
    std::string text;
    for (const auto& [name, count] : counts.items())
        text += shownLine("  " + std::to_string(count.get<size_t>()) + "  " + name);
    return text;
}

/// The layouts that are empty are left out.
std::string spacesText(const Json& spaces)
{
    std::string text;
    for (const Json& space : spaces)
        if (space["entities"] != 0)
            text += shownLine("Entities of " + space["layout"].get<std::string>() + " by type:") +
                    listText(space["types"]) + "By layer:\n" + listText(space["layers"]);
    return text;
}

} // namespace

Json drawingJson(AcDbDatabase& database)
{
    return countsJson(countEntities(database, spacesOf(database).front().entities));
}

Json infoJson(AcDbDatabase& database, const std::string& path, size_t bytes)
{
    Json blocks = Json::array();
    for (const AcDbObjectId id : database.tables().live("BLOCK_RECORD"))
        if (const std::u16string name = nameOfRecord(*id.record()); !name.starts_with(u'*'))
            blocks.push_back({{"name", toUtf8(name)}, {"entities", database.blocks().entities(*id.record()).size()}});
    Json spaces = Json::array();
    for (const DrawingSpace& space : spacesOf(database))
        spaces.push_back(spaceJson(database, space));
    return {{"drawing", path},
            {"version", files::nameOfVersion(database.version())},
            {"codePage", database.store().codePage},
            {"bytes", bytes},
            {"objects", database.store().records.size()},
            {"types", spaces.front()["types"]},
            {"layers", spaces.front()["layers"]},
            {"spaces", spaces},
            {"shownLayout", shownLayout(database)},
            {"blocks", std::move(blocks)}};
}

std::string infoText(const Json& info)
{
    std::string text =
        shownLine(info["drawing"].get<std::string>() + ": version " + info["version"].get<std::string>() + ", " +
                  std::to_string(info["bytes"].get<size_t>()) + " bytes, " +
                  std::to_string(info["objects"].get<size_t>()) + " objects");
    text += spacesText(info["spaces"]);
    if (const std::string layout = info["shownLayout"]; !layout.empty())
        text += shownLine("Saved on the layout " + layout);
    text += "Blocks (with their entities):\n";
    for (const Json& block : info["blocks"])
        text +=
            shownLine("  " + std::to_string(block["entities"].get<size_t>()) + "  " + block["name"].get<std::string>());
    return text;
}

} // namespace console
