#pragma once

#include "host/db/undo_step.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

class AcDbDatabase;

namespace desktop
{

/// The commands that changed a drawing, to be taken back one by one, each as a whole.
class UndoStack
{
public:
    explicit UndoStack(AcDbDatabase& database);

    /// What is changed while it lives is one step; nothing when nothing is. One at a time.
    class Recording
    {
    public:
        Recording(UndoStack& stack, QString title);
        Recording(const Recording&) = delete;
        Recording& operator=(const Recording&) = delete;
        ~Recording();
        /// What was changed so far is put back as it was.
        void giveUp();

    private:
        UndoStack& m_stack;
        QString m_title;
        std::unique_ptr<UndoStep> m_step;
    };

    bool canUndo() const { return !m_done.empty(); }
    bool canRedo() const { return !m_undone.empty(); }
    /// What would be taken back, or done again; empty when nothing.
    QString undoTitle() const { return canUndo() ? m_done.back().title : QString{}; }
    QString redoTitle() const { return canRedo() ? m_undone.back().title : QString{}; }
    void undo();
    void redo();

    /// Whether the drawing is as it was when `setSaved` was called last, at first as it was read.
    bool isAsSaved() const;
    void setSaved();
    /// No file holds the drawing as it is.
    void setUnsaved() { m_savedAt = kNever; }

private:
    struct Done
    {
        QString title;
        std::unique_ptr<UndoStep> step;
    };

    void move(std::vector<Done>& from, std::vector<Done>& to);
    void add(Done done);

    AcDbDatabase& m_database;
    std::vector<Done> m_done;
    std::vector<Done> m_undone;
    size_t m_savedAt = 0; ///< steps done when it was saved; kNever when it cannot be reached any more
    uint64_t m_seen = 0;  ///< the drawing's change count after the last step
    static constexpr size_t kNever = static_cast<size_t>(-1);
};

} // namespace desktop
