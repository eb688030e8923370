#pragma once

#include "store/tags.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;
struct DrawingStore;
struct ObjectRecord;

namespace host
{

/// A value that ought to be a number and is none, and where it stands.
struct Damage
{
    const AcDbDatabase* database = nullptr;
    const ObjectRecord* record = nullptr; ///< null for a variable of the HEADER section
    std::string place;                    ///< see `placeOf`
    std::string text;                     ///< see `textOf`
    bool selected = false;                ///< a selection would have asked whether it meets the object
};

/// The damage that a session came across. What the work rests on is told by the first; what was only looked at in
/// passing is noted by the object, and texts are made of the first ones.
class DamageLog
{
public:
    static constexpr size_t kNamed = 20; ///< so many objects are named, the rest is counted

    void note(AcDbDatabase& database, ObjectRecord* record, const Tag& tag);
    const std::optional<Damage>& first() const { return m_first; }
    const std::vector<Damage>& met() const { return m_met; }
    /// Takes over what another session, of another thread, came across in a drawing that it read for this one.
    void take(DamageLog& other);
    /// A drawing is closed.
    void forget(const AcDbDatabase& database);

private:
    friend class InPassing;

    std::optional<Damage> m_first;
    std::vector<Damage> m_met;
    int m_passing = 0;
    int m_selecting = 0;
};

/// While it lives, what is found damaged was only looked at in passing.
class InPassing
{
public:
    enum Purpose
    {
        kLook,
        kSelection ///< what is found decides what the work goes on with
    };
    explicit InPassing(Purpose purpose = kLook);
    InPassing(const InPassing&) = delete;
    InPassing& operator=(const InPassing&) = delete;
    ~InPassing();

private:
    DamageLog* m_log;
    int m_selecting;
};

/// What is wrong with a value that ought to be a number, for a person.
std::string textOf(const Tag& tag);
/// "line 12: ", the line of a pair's value in the drawing's file; empty when it stands in no line of it.
std::string placeOf(const DrawingStore& store, const Tag& tag);

/// Notes damage in the session that runs, if any, and marks the object.
void noteDamage(ObjectRecord& record, const DamagedValue& damage);
void noteHeaderDamage(AcDbDatabase& database, const DamagedValue& damage);

/// What `read` answers of the object's text; a value without content when a number in it is damaged, which is noted.
template <class Read>
auto readOf(ObjectRecord& record, const Read& read) -> decltype(read())
{
    try
    {
        return read();
    }
    catch (const DamagedValue& damage)
    {
        noteDamage(record, damage);
        return {};
    }
}

} // namespace host
