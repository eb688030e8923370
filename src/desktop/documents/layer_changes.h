#pragma once

#include "store/object_id.h"

#include <QString>

#include <vector>

class AcDbDatabase;

namespace desktop
{

/// A layer as the user sees it.
struct LayerState
{
    AcDbObjectId id;
    QString name;
    int color = 7;    ///< of the palette
    unsigned rgb = 0; ///< what is seen of it, 0xRRGGBB
    bool isTrueColor = false;
    bool isOff = false;
    bool isFrozen = false;
    bool isLocked = false;
    bool isCurrent = false; ///< new entities go there
};

/// The layers of a drawing, by name. One that cannot be read is left out.
std::vector<LayerState> layersOf(AcDbDatabase& database);

/// Change layers of the current drawing as the host does: the document locked. Throw std::runtime_error, for the user,
/// when a layer cannot be changed; what was changed before it stays so.
void setLayersOff(const std::vector<AcDbObjectId>& layers, bool off);
void setLayersFrozen(const std::vector<AcDbObjectId>& layers, bool frozen);
void setLayersColor(const std::vector<AcDbObjectId>& layers, int color);
/// Shows these layers and none of the others.
void showOnlyLayers(AcDbDatabase& database, const std::vector<AcDbObjectId>& layers);
void showAllLayers(AcDbDatabase& database);

} // namespace desktop
