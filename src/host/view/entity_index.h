#pragma once

#include "host/view/entity_shapes.h"
#include "host/view/layer_states.h"
#include "kernel/box_tree.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;
struct ObjectRecord;

/// Finds the entities of a drawing's spaces (model space and paper spaces, not the contents of blocks) by kind and by
/// place. Lists and boxes are made when first asked for and then kept up with the drawing; boxes only of the kinds
/// that are asked for by place.
class EntityIndex
{
public:
    struct Kind
    {
        std::u16string name;                 ///< as in drawing files
        std::vector<ObjectRecord*> entities; ///< in drawing order, erased ones among them
        std::unique_ptr<BoxTree> places;     ///< boxes by position in `entities`
    };

    explicit EntityIndex(AcDbDatabase& database);

    /// The kinds, brought up to date with the drawing.
    std::vector<Kind>& kinds();
    /// Appends the entities of the kind whose boxes the region may meet, in no order, erased ones among them.
    void findNear(Kind& kind, const PlanRegion& region, std::vector<ObjectRecord*>& found);

    EntityShapes& shapes() { return m_shapes; }
    LayerStates& layers() { return m_layers; }

private:
    bool isSpace(uint32_t container) const { return container < m_isSpace.size() && m_isSpace[container]; }
    void load();
    void takeAdded();
    void append(ObjectRecord& entity);
    void update();
    void measure(Kind& kind, size_t at);
    uint64_t stampOfDefinitions() const;

    AcDbDatabase& m_database;
    EntityShapes m_shapes;
    LayerStates m_layers;
    std::vector<Kind> m_kinds; ///< by `ObjectRecord::kind`
    std::vector<bool> m_isSpace;
    std::vector<size_t> m_addedSeen; ///< by container: how many of the added ones are in the lists
    bool m_loaded = false;
    uint64_t m_seen = 0;        ///< the drawing's change count
    uint64_t m_definitions = 0; ///< stands for the state of the changed block contents
};
