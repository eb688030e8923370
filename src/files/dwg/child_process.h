#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace dwg
{

/// A program running in a process group of its own, without a shell, with nothing of ours but a pipe that carries its
/// standard output here. Its whole group is dead when this object is gone, and also when our process dies.
class ChildProcess
{
public:
    /// Starts it. A program that cannot be started shows as one that ended without a line.
    ChildProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                 std::uint64_t memoryLimit);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The next line of its output, or nothing when it ended, wrote no sensible line or took longer than `limit`.
    std::optional<std::string> readLine(std::chrono::milliseconds limit);

    bool timedOut() const { return m_timedOut; }

    /// Ends the process if it has not ended and tells how: "exit status 1", "signal 9", "no answer in time".
    std::string stop();

private:
    enum class Wait
    {
        Data,
        End,
        Timeout
    };
    Wait waitForData(std::chrono::steady_clock::time_point deadline) const;
    std::optional<std::string> takeLine();

    int m_output = -1;
    pid_t m_pid = -1;
    int m_status;
    bool m_timedOut = false;
    std::string m_buffer;
};

} // namespace dwg
