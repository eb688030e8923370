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

void Scene::refresh()
{
    if (m_seen == database().changeCount())
        return;
    m_seen = database().changeCount();
    m_lists.update();
    const auto watchers = m_watchers;
    for (const auto& [key, changed] : watchers)
        changed();
}

void Scene::watch(const void* key, std::function<void()> changed)
{
    m_watchers.emplace_back(key, std::move(changed));
}

void Scene::unwatch(const void* key)
{
    std::erase_if(m_watchers, [key](const auto& watcher) { return watcher.first == key; });
}

} // namespace desktop
