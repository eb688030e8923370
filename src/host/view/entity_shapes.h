#pragma once

#include "kernel/extents.h"
#include "kernel/segment2d.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;
class PlanRegion;
struct InsertPlacement;
struct ObjectRecord;

/// The plan of a box.
Box2d boxInPlan(const AcGeExtents& extents);

/// What entities cover and draw, for selections: read from their text without opening them, and every block definition
/// once. A survey point stands at its position; a block reference is what it draws, or its insertion point when it
/// draws nothing; other entities are their curves, or the place they stand at. What is damaged covers and meets
/// nothing, and is noted as met in passing. Blocks that contain each other draw nothing more from where the circle
/// closes. Answers hold until `forget`.
class EntityShapes
{
public:
    explicit EntityShapes(AcDbDatabase& database);
    EntityShapes(const EntityShapes&) = delete;
    EntityShapes& operator=(const EntityShapes&) = delete;
    ~EntityShapes();

    /// A box around the entity, at most somewhat larger than need be; empty when it covers nothing.
    AcGeExtents box(ObjectRecord& entity);
    /// Whether the entity meets the region (for a window: lies in it).
    bool meets(ObjectRecord& entity, const PlanRegion& region);
    /// Block definitions have changed.
    void forget();

private:
    struct Block;
    class Walk;

    const Block* block(std::string_view name, size_t depth);
    AcGeExtents boxOf(ObjectRecord& entity);
    void load(Block& block, uint32_t container, size_t depth);
    static bool curvesMeet(ObjectRecord& entity, const PlanRegion& region);
    bool referenceMeets(const InsertPlacement& reference, const PlanRegion& region);
    AcGeExtents placedBox(const InsertPlacement& reference, size_t depth);

    AcDbDatabase& m_database;
    std::map<std::string, std::unique_ptr<Block>, std::less<>> m_blocks; ///< by the name as references write it
};
