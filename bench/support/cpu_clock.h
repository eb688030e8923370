#pragma once

#include <ctime>

namespace bench
{

/// Processor time of this process since the clock was made: what other programs take meanwhile does not count.
class CpuClock
{
public:
    CpuClock() : m_start(now()) {}
    double seconds() const { return now() - m_start; }

private:
    static double now()
    {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    double m_start;
};

} // namespace bench
