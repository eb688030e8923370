#pragma once

#include "host/db/table/layouts.h"
#include "picture/list/drawing_lists.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace desktop
{

/// What the views of one drawing share: its display lists. Make it on the thread that reads the drawing or later; from
/// then on it belongs to the thread of the views, and goes before the drawing does.
class Scene
{
public:
    /// `fontFolders` are searched for shape fonts before the system's fonts.
    Scene(AcDbDatabase& database, std::vector<std::string> fontFolders);
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    ~Scene();

    AcDbDatabase& database() { return m_lists.database(); }
    picture::DrawingLists& lists() { return m_lists; }
    /// What is not shown as it is.
    const picture::Notes& notes() const { return m_notes; }
    /// Model space first, then the layouts in the order of their tabs, as they are now.
    std::vector<DrawingSpace> spaces() { return spacesOf(database()); }
    /// Makes the lists of model space; before the first view shows them, on whatever thread.
    void build() { m_lists.modelSpace(); }
    /// Brings the lists up to date with the drawing, and then every view that shows them. Costs next to nothing when
    /// the drawing has not changed.
    void refresh();

    /// Calls `changed` after each refresh that found something new, until the key is taken away.
    void watch(const void* key, std::function<void()> changed);
    void unwatch(const void* key);

private:
    picture::Notes m_notes;
    picture::DrawingLists m_lists;
    std::vector<std::pair<const void*, std::function<void()>>> m_watchers;
    uint64_t m_seen = 0;
};

} // namespace desktop
