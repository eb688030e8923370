#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace console
{

/// Says on standard error what is going on, when that is a terminal and it takes longer than a second; takes its line
/// away at the end.
class Progress
{
public:
    explicit Progress(const std::string& what);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

private:
    void show();

    std::string m_what;
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_done = false;
    std::thread m_thread;
};

} // namespace console
