#include "host/db/undo_step.h"

#include "host/db/database.h"

#include <algorithm>

UndoStep::UndoStep(AcDbDatabase& database) : m_database{database}
{
    m_database.listen(this);
}

void UndoStep::end()
{
    if (m_isListening)
        m_database.listen(nullptr);
    m_isListening = false;
    m_noted.clear();
}

/// Called before the record changes; what is noted first counts.
void UndoStep::note(ObjectRecord& record)
{
    if (!m_noted.insert(&record).second)
        return;
    State& state = m_before.emplace_back();
    state.record = &record;
    state.isErased = record.has(ObjectRecord::kErased);
    state.isNew = record.text == nullptr;
    if (record.has(ObjectRecord::kOwnText))
        state.text = record.view();
    else if (!state.isNew)
        state.textOfFile = record.view();
}

std::unique_ptr<UndoStep> UndoStep::takeBack()
{
    end();
    auto again = std::make_unique<UndoStep>(m_database);
    std::for_each(m_before.rbegin(), m_before.rend(), [this](const State& state) { putBack(state); });
    again->end();
    return again;
}

void UndoStep::putBack(const State& state)
{
    ObjectRecord& record = *state.record;
    m_database.forgetResident(record);
    if (state.isNew)
        m_database.setOnlyErased(record, true);
    else
    {
        if (state.textOfFile.data() != nullptr)
            m_database.setFileText(record, state.textOfFile);
        else
            m_database.setRecordText(record, state.text);
        m_database.setOnlyErased(record, state.isErased);
    }
}
