#include "console/drawing_json.h"

#include "console/shown_text.h"
#include "files/dxf/version.h"
#include "host/drawing/block_index.h"
#include "host/drawing/database.h"
#include "host/drawing/table_index.h"
#include "host/drawing/tags.h"

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

std::string listText(const Json& counts)
{
    std::string text;
    for (const auto& [name, count] : counts.items())
        text += shownLine("  " + std::to_string(count.get<size_t>()) + "  " + name);
    return text;
}

} // namespace

EntityCounts countEntities(AcDbDatabase& database)
{
    EntityCounts counts;
    const ObjectRecord* modelSpace = database.blocks().record(u"*Model_Space");
    if (modelSpace == nullptr)
        return counts;
    std::map<std::string_view, size_t> layers;
    for (const AcDbObjectId id : database.blocks().entities(*modelSpace))
    {
        ++counts.types[std::string{database.dxfNameOf(*id.record())}];
        ++layers[layerOf(*id.record())];
    }
    for (const auto& [layer, count] : layers)
        counts.layers[toUtf8(database.encoding().decode(layer))] += count;
    return counts;
}

Json drawingJson(AcDbDatabase& database)
{
    const EntityCounts counts = countEntities(database);
    return {{"types", counts.types}, {"layers", counts.layers}};
}

Json infoJson(AcDbDatabase& database, const std::string& path, size_t bytes)
{
    Json blocks = Json::array();
    for (const AcDbObjectId id : database.tables().live("BLOCK_RECORD"))
        if (const std::u16string name = nameOfRecord(*id.record()); !name.starts_with(u'*'))
            blocks.push_back({{"name", toUtf8(name)}, {"entities", database.blocks().entities(*id.record()).size()}});
    const EntityCounts counts = countEntities(database);
    return {{"drawing", path},
            {"version", files::nameOfVersion(database.version())},
            {"codePage", database.store().codePage},
            {"bytes", bytes},
            {"objects", database.store().records.size()},
            {"types", counts.types},
            {"layers", counts.layers},
            {"blocks", std::move(blocks)}};
}

std::string infoText(const Json& info)
{
    std::string text =
        shownLine(info["drawing"].get<std::string>() + ": version " + info["version"].get<std::string>() + ", " +
                  std::to_string(info["bytes"].get<size_t>()) + " bytes, " +
                  std::to_string(info["objects"].get<size_t>()) + " objects");
    text += "Entities of model space by type:\n" + listText(info["types"]);
    text += "By layer:\n" + listText(info["layers"]);
    text += "Blocks (with their entities):\n";
    for (const Json& block : info["blocks"])
        text +=
            shownLine("  " + std::to_string(block["entities"].get<size_t>()) + "  " + block["name"].get<std::string>());
    return text;
}

} // namespace console
