#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

class AcDbDatabase;
struct ObjectRecord;

/// What the records of a drawing were before a command changed them, so that all of it can be taken back at once.
/// Listens to its database from when it is made until `end`; one step listens at a time. Costs what is changed.
class UndoStep
{
public:
    explicit UndoStep(AcDbDatabase& database);
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;
    ~UndoStep() { end(); }

    /// Nothing more belongs to the step.
    void end();
    /// Whether nothing was changed.
    bool isEmpty() const { return m_before.empty(); }
    /// Puts the records back as they were; answers the step that takes this back again. What was added stays in the
    /// drawing as erased. No object of the drawing may be open, and later steps must have been taken back before.
    std::unique_ptr<UndoStep> takeBack();

private:
    friend class AcDbDatabase;

    /// A record as it was.
    struct State
    {
        ObjectRecord* record;
        std::string text;            ///< when it was its own
        std::string_view textOfFile; ///< when it was not
        bool isErased = false;
        bool isNew = false; ///< it was not there
    };

    void note(ObjectRecord& record);
    void putBack(const State& state);

    AcDbDatabase& m_database;
    bool m_isListening = true;
    std::vector<State> m_before;
    std::unordered_set<const ObjectRecord*> m_noted;
};
