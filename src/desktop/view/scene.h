#pragma once

#include "desktop/view/paint_queue.h"
#include "host/db/table/layouts.h"
#include "picture/list/drawing_lists.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace desktop
{

/// What the views of one drawing share: its display lists, and the threads that paint from them. Make it on the thread
/// that reads the drawing or later; from then on it belongs to the thread of the views, and goes before the drawing
/// does.
class Scene
{
public:
    /// `fontFolders` are searched for shape fonts before the system's fonts.
    Scene(AcDbDatabase& database, std::vector<std::string> fontFolders);
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    ~Scene();

    AcDbDatabase& database() { return m_lists.database(); }
    /// Only to be read: `refresh` and `space` are what changes them.
    const picture::DrawingLists& lists() const { return m_lists; }
    /// What stands in a space, by its block record (null: model space).
    const picture::DisplayList& space(const ObjectRecord* block);
    PaintQueue& queue() { return m_queue; }
    /// What is not shown as it is.
    const picture::Notes& notes() const { return m_notes; }
    /// Takes over what was found while painting.
    void addNotes(const picture::Notes& notes) { m_notes.texts.insert(notes.texts.begin(), notes.texts.end()); }
    /// Model space first, then the layouts in the order of their tabs, as they are now.
    std::vector<DrawingSpace> spaces() { return spacesOf(database()); }
    /// Makes the lists of model space; before the first view shows them, on whatever thread.
    void build() { m_lists.modelSpace(); }
    /// Brings the lists up to date with the drawing, and then every view that shows them. Costs next to nothing when
    /// the drawing has not changed.
    void refresh();

    /// Calls `changed` after each refresh that found something new, with what the change covers (drawing units;
    /// nothing: everything may look different), until the key is taken away.
    using Watcher = std::function<void(const std::optional<Box2d>& changed)>;
    void watch(const void* key, Watcher changed);
    void unwatch(const void* key);

private:
    picture::Notes m_notes;
    picture::DrawingLists m_lists;
    std::vector<std::pair<const void*, Watcher>> m_watchers;
    uint64_t m_seen = 0;
    PaintQueue m_queue; ///< ends first
};

} // namespace desktop
