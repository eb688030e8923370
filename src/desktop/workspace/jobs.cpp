#include "desktop/workspace/jobs.h"

namespace desktop
{

Jobs::~Jobs()
{
    wait();
}

void Jobs::run(std::function<void()> work)
{
    const auto thread = m_threads.emplace(m_threads.end());
    *thread = std::thread{[this, thread, work = std::move(work)]
                          {
                              work();
                              deliver(
                                  [this, thread]
                                  {
                                      if (thread->joinable())
                                          thread->join();
                                      m_threads.erase(thread);
                                  });
                          }};
}

void Jobs::deliver(std::function<void()> action)
{
    QMetaObject::invokeMethod(this, std::move(action), Qt::QueuedConnection);
}

void Jobs::wait()
{
    for (std::thread& thread : m_threads)
        if (thread.joinable())
            thread.join();
}

} // namespace desktop
