#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace desktop
{

/// Threads that paint, a job at a time, what several views ask for. While jobs run, what they paint from does not
/// change: changes are made in `change`.
class PaintQueue
{
public:
    /// Paints something; gives up soon after the flag is raised.
    using Job = std::function<void(const std::atomic<bool>& stop)>;

    /// As many threads as the machine has cores.
    PaintQueue();
    PaintQueue(const PaintQueue&) = delete;
    PaintQueue& operator=(const PaintQueue&) = delete;
    ~PaintQueue();

    /// Takes jobs of an owner, in their order; urgent ones go before all others.
    void add(const void* owner, std::vector<Job> jobs, bool isUrgent = false);
    /// Forgets the owner's jobs; those that run give up, but may still do so when this answers.
    void cancel(const void* owner);
    /// Forgets the owner's jobs that have not begun.
    void cancelWaiting(const void* owner);
    /// Forgets the owner's jobs and waits for those that run.
    void finish(const void* owner);
    /// Makes all running jobs give up and runs `work` while none runs. The jobs that gave up are lost.
    void change(const std::function<void()>& work);

private:
    struct Entry
    {
        const void* owner;
        Job job;
    };
    struct Running
    {
        const void* owner = nullptr; ///< null: the thread is idle
        std::atomic<bool> stop = false;
    };

    void run(Running& mine);

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_wake;
    std::condition_variable m_done;
    std::deque<Entry> m_waiting;
    std::vector<std::unique_ptr<Running>> m_running; ///< one for each thread
    bool m_isEnding = false;
    bool m_isChanging = false; ///< no job begins meanwhile
    std::vector<std::thread> m_threads;
};

} // namespace desktop
