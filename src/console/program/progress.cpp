#include "console/program/progress.h"

#include "console/text/shown_text.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace console
{

Progress::Progress(const std::string& what) : m_what{shownText(what)}
{
    if (isatty(STDERR_FILENO) != 0)
        m_thread = std::thread{[this] { show(); }};
}

Progress::~Progress()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock{m_mutex};
        m_done = true;
    }
    m_ended.notify_one();
    m_thread.join();
}

void Progress::show()
{
    std::unique_lock lock{m_mutex};
    int seconds = 0;
    while (!m_ended.wait_for(lock, std::chrono::seconds{1}, [this] { return m_done; }))
        std::fprintf(stderr, "\r%s ... %d s", m_what.c_str(), ++seconds);
    if (seconds > 0)
        std::fprintf(stderr, "\r\033[K");
}

} // namespace console
