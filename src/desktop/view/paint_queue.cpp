#include "desktop/view/paint_queue.h"

#include <sys/resource.h>

#include <algorithm>

namespace desktop
{

PaintQueue::PaintQueue()
{
    const unsigned count = std::max(1U, std::thread::hardware_concurrency());
    for (unsigned i = 0; i < count; ++i)
        m_running.push_back(std::make_unique<Running>());
    for (unsigned i = 0; i < count; ++i)
        m_threads.emplace_back([this, i] { run(*m_running[i]); });
}

PaintQueue::~PaintQueue()
{
    {
        const std::lock_guard lock{m_mutex};
        m_isEnding = true;
        m_waiting.clear();
        for (const std::unique_ptr<Running>& each : m_running)
            each->stop = true;
    }
    m_wake.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void PaintQueue::run(Running& mine)
{
    // The thread that answers the user goes first. On Linux this is the thread's own priority, not the process's.
    constexpr int kBehind = 5;
    setpriority(PRIO_PROCESS, 0, kBehind);
    std::unique_lock lock{m_mutex};
    while (true)
    {
        m_wake.wait(lock, [this] { return m_isEnding || (!m_waiting.empty() && !m_isChanging); });
        if (m_isEnding)
            return;
        const Entry entry = std::move(m_waiting.front());
        m_waiting.pop_front();
        mine.owner = entry.owner;
        mine.stop = false;
        lock.unlock();
        entry.job(mine.stop);
        lock.lock();
        mine.owner = nullptr;
        m_done.notify_all();
    }
}

void PaintQueue::add(const void* owner, std::vector<Job> jobs, bool isUrgent)
{
    {
        const std::lock_guard lock{m_mutex};
        const auto place = isUrgent ? m_waiting.begin() : m_waiting.end();
        std::vector<Entry> entries;
        for (Job& job : jobs)
            entries.push_back({owner, std::move(job)});
        m_waiting.insert(place, std::make_move_iterator(entries.begin()), std::make_move_iterator(entries.end()));
    }
    m_wake.notify_all();
}

void PaintQueue::cancelWaiting(const void* owner)
{
    const std::lock_guard lock{m_mutex};
    std::erase_if(m_waiting, [owner](const Entry& entry) { return entry.owner == owner; });
}

void PaintQueue::cancel(const void* owner)
{
    const std::lock_guard lock{m_mutex};
    std::erase_if(m_waiting, [owner](const Entry& entry) { return entry.owner == owner; });
    for (const std::unique_ptr<Running>& each : m_running)
        if (each->owner == owner)
            each->stop = true;
}

void PaintQueue::finish(const void* owner)
{
    cancel(owner);
    std::unique_lock lock{m_mutex};
    m_done.wait(lock,
                [this, owner]
                {
                    return std::none_of(m_running.begin(), m_running.end(),
                                        [owner](const auto& each) { return each->owner == owner; });
                });
}

void PaintQueue::change(const std::function<void()>& work)
{
    std::unique_lock lock{m_mutex};
    m_isChanging = true;
    for (const std::unique_ptr<Running>& each : m_running)
        each->stop = true;
    m_done.wait(lock,
                [this] {
                    return std::all_of(m_running.begin(), m_running.end(),
                                       [](const auto& each) { return each->owner == nullptr; });
                });
    lock.unlock();
    const struct Resume
    {
        PaintQueue& queue;
        ~Resume()
        {
            {
                const std::lock_guard resuming{queue.m_mutex};
                queue.m_isChanging = false;
            }
            queue.m_wake.notify_all();
        }
    } resume{*this};
    work();
}

} // namespace desktop
