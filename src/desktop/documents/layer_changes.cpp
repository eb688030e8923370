#include "desktop/documents/layer_changes.h"

#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/table/symbol_tables.h"
#include "picture/look/palette.h"
#include "store/pair_edit.h"
#include "store/table_index.h"
#include "util/document_lock.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace desktop
{

namespace
{

/// The true colour that a layer has beside the one of the palette.
std::optional<unsigned> trueColor(const ObjectRecord& layer)
{
    OwnPairs pairs{layer.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 420)
            return static_cast<unsigned>(tag.integerOr(0)) & 0xFFFFFFU;
    return std::nullopt;
}

[[noreturn]] void refuse(const QString& reason)
{
    throw std::runtime_error{reason.toStdString()};
}

void forEach(const std::vector<AcDbObjectId>& layers, const std::function<void(AcDbLayerTableRecord&)>& change)
{
    const OpenForWrite lock;
    for (const AcDbObjectId id : layers)
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer{id, AcDb::kForWrite};
        if (!layer)
            refuse(msg("The layer %1 cannot be changed.").arg(toQString(nameOfRecord(*id.record()))));
        change(*layer);
    }
}

} // namespace

std::vector<LayerState> layersOf(AcDbDatabase& database)
{
    const host::InPassing inPassing;
    const AcDbObjectId current = database.clayer();
    std::vector<LayerState> layers;
    for (const AcDbObjectId id : database.tables().live("LAYER"))
        if (const AcDbObjectPointer<AcDbLayerTableRecord> layer{id})
        {
            const std::optional<unsigned> own = trueColor(*id.record());
            const int index = std::clamp(layer->color().colorIndex(), 1, 255);
            layers.push_back({id, toQString(layer->getName()), index, own.value_or(picture::paletteColor(index)),
                              own.has_value(), layer->isOff(), layer->isFrozen(), layer->isLocked(), id == current});
        }
    std::sort(layers.begin(), layers.end(),
              [](const LayerState& a, const LayerState& b)
              { return std::is_lt(compareNoCase(toHost(a.name), toHost(b.name))); });
    return layers;
}

void setLayersOff(const std::vector<AcDbObjectId>& layers, bool off)
{
    forEach(layers, [off](AcDbLayerTableRecord& layer) { layer.setIsOff(off); });
}

void setLayersFrozen(const std::vector<AcDbObjectId>& layers, bool frozen)
{
    for (const AcDbObjectId id : layers)
        if (frozen && id == id.database()->clayer())
            refuse(msg("The current layer cannot be frozen."));
    forEach(layers, [frozen](AcDbLayerTableRecord& layer) { layer.setIsFrozen(frozen); });
}

void setLayersColor(const std::vector<AcDbObjectId>& layers, int color)
{
    AcCmColor chosen;
    chosen.setColorIndex(color);
    forEach(layers, [&chosen](AcDbLayerTableRecord& layer) { layer.setColor(chosen); });
}

void showOnlyLayers(AcDbDatabase& database, const std::vector<AcDbObjectId>& layers)
{
    forEach(database.tables().live("LAYER"),
            [&layers](AcDbLayerTableRecord& layer)
            {
                const bool isMeant = std::find(layers.begin(), layers.end(), layer.objectId()) != layers.end();
                layer.setIsOff(!isMeant);
                if (isMeant)
                    layer.setIsFrozen(false);
            });
}

void showAllLayers(AcDbDatabase& database)
{
    forEach(database.tables().live("LAYER"),
            [](AcDbLayerTableRecord& layer)
            {
                layer.setIsOff(false);
                layer.setIsFrozen(false);
            });
}

} // namespace desktop
