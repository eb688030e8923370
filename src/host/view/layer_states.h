#pragma once

#include <map>
#include <string>
#include <string_view>

class AcDbDatabase;
struct ObjectRecord;

/// Which layers are frozen or off, asked by the entities on them; each layer is looked up once until `forget`.
class LayerStates
{
public:
    explicit LayerStates(AcDbDatabase& database) : m_database{database} {}

    bool isFrozen(const ObjectRecord& entity) { return stateOf(entity).frozen; }
    /// Whether a view shows the entity at all: its layer is neither frozen nor off, and it is not invisible itself.
    bool isShown(const ObjectRecord& entity);
    void forget() { m_states.clear(); }

private:
    struct State
    {
        bool frozen = false;
        bool off = false;
    };
    State stateOf(const ObjectRecord& entity);

    AcDbDatabase& m_database;
    std::map<std::string, State, std::less<>> m_states; ///< by the name as entities write it
};
