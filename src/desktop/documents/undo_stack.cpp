#include "desktop/documents/undo_stack.h"

#include "host/db/database.h"

namespace desktop
{

UndoStack::UndoStack(AcDbDatabase& database) : m_database{database}, m_seen{database.changeCount()} {}

UndoStack::Recording::Recording(UndoStack& stack, QString title)
    : m_stack{stack}, m_title{std::move(title)}, m_step{std::make_unique<UndoStep>(stack.m_database)}
{
}

UndoStack::Recording::~Recording()
{
    if (m_step)
        m_step->end();
    if (m_step && !m_step->isEmpty())
        m_stack.add({std::move(m_title), std::move(m_step)});
}

void UndoStack::Recording::giveUp()
{
    m_step->takeBack();
    m_step.reset();
    m_stack.m_seen = m_stack.m_database.changeCount();
}

void UndoStack::add(Done done)
{
    constexpr size_t kMost = 200;
    if (m_savedAt != kNever && m_savedAt > m_done.size())
        m_savedAt = kNever;
    m_undone.clear();
    m_done.push_back(std::move(done));
    if (m_done.size() > kMost)
    {
        m_done.erase(m_done.begin());
        m_savedAt = m_savedAt == 0 || m_savedAt == kNever ? kNever : m_savedAt - 1;
    }
    m_seen = m_database.changeCount();
}

void UndoStack::undo()
{
    move(m_done, m_undone);
}

void UndoStack::redo()
{
    move(m_undone, m_done);
}

void UndoStack::move(std::vector<Done>& from, std::vector<Done>& to)
{
    if (from.empty())
        return;
    Done done = std::move(from.back());
    from.pop_back();
    done.step = done.step->takeBack();
    to.push_back(std::move(done));
    m_seen = m_database.changeCount();
}

bool UndoStack::isAsSaved() const
{
    return m_done.size() == m_savedAt && m_seen == m_database.changeCount();
}

void UndoStack::setSaved()
{
    m_savedAt = m_done.size();
    m_seen = m_database.changeCount();
}

} // namespace desktop
