#include "desktop/view/scene.h"

#include "host/db/database.h"

#include <algorithm>

namespace desktop
{

Scene::Scene(AcDbDatabase& database, std::vector<std::string> fontFolders)
    : m_lists{database, std::move(fontFolders), m_notes}, m_seen{database.changeCount()}
{
}

Scene::~Scene() = default;

const picture::DisplayList& Scene::space(const ObjectRecord* block)
{
    if (const picture::DisplayList* made = m_lists.madeSpace(block))
        return *made;
    const picture::DisplayList* fresh = nullptr;
    m_queue.change([&] { fresh = &m_lists.space(block); });
    return *fresh;
}

void Scene::refresh()
{
    if (m_seen == database().changeCount())
        return;
    m_seen = database().changeCount();
    std::optional<Box2d> changed;
    m_queue.change([&] { changed = m_lists.update(); });
    const auto watchers = m_watchers;
    for (const auto& [key, tell] : watchers)
        tell(changed);
}

void Scene::watch(const void* key, Watcher changed)
{
    m_watchers.emplace_back(key, std::move(changed));
}

void Scene::unwatch(const void* key)
{
    std::erase_if(m_watchers, [key](const auto& watcher) { return watcher.first == key; });
}

} // namespace desktop
