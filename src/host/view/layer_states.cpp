#include "host/view/layer_states.h"

#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/table/symbol_tables.h"
#include "host/view/entity_text.h"
#include "store/table_index.h"

LayerStates::State LayerStates::stateOf(const ObjectRecord& entity)
{
    const std::string_view name = rawLayerOf(entity);
    if (const auto known = m_states.find(name); known != m_states.end())
        return known->second;
    State state;
    const host::InPassing inPassing;
    const AcDbObjectId id{m_database.tables().find("LAYER", m_database.encoding().decode(name))};
    if (const AcDbObjectPointer<AcDbLayerTableRecord> layer{id})
        state = {layer->isFrozen(), layer->isOff()};
    m_states.emplace(name, state);
    return state;
}

bool LayerStates::isShown(const ObjectRecord& entity)
{
    const State layer = stateOf(entity);
    return !layer.frozen && !layer.off && !isInvisible(entity);
}
