#pragma once

#include "store/object_id.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

class AcDbDatabase;

namespace picture
{

/// The order in which a drawing says that entities are to be drawn, where it differs from the order they stand in.
class DrawOrder
{
public:
    explicit DrawOrder(AcDbDatabase& database) : m_database{database} {}

    /// Entities of one block or space in the order they are drawn.
    AcDbObjectIdArray sorted(AcDbObjectIdArray entities);
    /// Reads the drawing's tables anew when they are next asked for.
    void forget() { m_tables.reset(); }

private:
    void readTables();

    AcDbDatabase& m_database;
    std::optional<std::unordered_map<uint64_t, const ObjectRecord*>> m_tables; ///< by the handle of their block
};

} // namespace picture
