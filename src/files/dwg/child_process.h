#pragma once

#include "disk/signals.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace dwg
{

/// What a program may take for one line of output.
struct TimeLimits
{
    std::chrono::milliseconds processor; ///< on all processors together
    std::chrono::milliseconds clock;
};

enum class Exceeded
{
    Nothing,
    Processor,
    Clock
};

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

    /// The next line of its output, or nothing when it ended, wrote no sensible line or took longer than it may.
    std::optional<std::string> readLine(const TimeLimits& limits);

    /// Which limit the last line exceeded.
    Exceeded exceeded() const { return m_exceeded; }

    /// Ends the process if it has not ended and tells how: "exit status 1", "signal 9", "no answer in time".
    std::string stop();

    /// Whether someone else, the system when it runs out of memory for one, ended the process that was stopped.
    bool wasKilled() const;

private:
    enum class Wait
    {
        Data,
        More,
        End,
        Timeout
    };
    Wait waitForData(const TimeLimits& left);
    std::chrono::milliseconds processorTime() const;
    std::optional<std::string> takeLine();
    bool readSome();

    int m_output = -1;
    pid_t m_pid = -1;
    disk::Transient m_transient;
    int m_status;
    Exceeded m_exceeded = Exceeded::Nothing;
    std::string m_buffer;
};

} // namespace dwg
