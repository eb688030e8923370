#include "files/dwg/child_process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dwg
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::size_t kLongestLine = 4096;
constexpr int kNotStarted = W_EXITCODE(127, 0);

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Our environment less what would change how Node.js runs the script.
std::vector<std::string> cleanEnvironment()
{
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable)
        if (std::strncmp(*variable, "NODE_", 5) != 0)
            variables.emplace_back(*variable);
    return variables;
}

void setLimit(int resource, std::uint64_t value)
{
    const rlimit both{value, value};
    setrlimit(resource, &both);
}

/// The child's side. Between fork and exec only async-signal-safe calls may stand here.
[[noreturn]] void becomeProgram(char* const* arguments, char* const* environment, int output, pid_t parent,
                                std::uint64_t memoryLimit)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int nothing = open("/dev/null", O_RDWR);
    if (getppid() != parent || nothing < 0 || dup2(output, STDOUT_FILENO) < 0 || dup2(nothing, STDIN_FILENO) < 0 ||
        dup2(nothing, STDERR_FILENO) < 0)
        _exit(126);
    closefrom(STDERR_FILENO + 1);
    setLimit(RLIMIT_DATA, memoryLimit);
    setLimit(RLIMIT_CORE, 0);
    execve(arguments[0], arguments, environment);
    _exit(127);
}

} // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                           std::uint64_t memoryLimit)
    : m_status(kNotStarted)
{
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = cleanEnvironment();
    const std::vector<char*> argv = pointersTo(words);
    const std::vector<char*> envp = pointersTo(variables);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    m_output = ends[0];
    const pid_t parent = getpid();
    m_pid = fork();
    if (m_pid == 0)
        becomeProgram(argv.data(), envp.data(), ends[1], parent, memoryLimit);
    close(ends[1]);
    if (m_pid <= 0)
        return;
    setpgid(m_pid, m_pid); // here too, so that stop() finds the group however early it comes
    m_transient = disk::Transient{m_pid};
}

ChildProcess::~ChildProcess()
{
    stop();
    if (m_output >= 0)
        close(m_output);
}

/// What the process has used so far; nothing for one that has ended.
std::chrono::milliseconds ChildProcess::processorTime() const
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(m_pid, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return {};
    return std::chrono::seconds(time.tv_sec) + std::chrono::milliseconds(time.tv_nsec / 1'000'000);
}

/// Waits until there is output, or a while: how much processor time passes meanwhile is not known before.
ChildProcess::Wait ChildProcess::waitForData(const TimeLimits& left)
{
    using std::chrono::milliseconds;
    constexpr milliseconds kShortest{10};
    constexpr milliseconds kLongest{250};
    if (left.processor <= milliseconds::zero() || left.clock <= milliseconds::zero())
    {
        m_exceeded = left.processor <= milliseconds::zero() ? Exceeded::Processor : Exceeded::Clock;
        return Wait::Timeout;
    }
    const milliseconds pause = std::clamp(std::min(left.processor, left.clock), kShortest, kLongest);
    pollfd output{m_output, POLLIN, 0};
    const int ready = poll(&output, 1, static_cast<int>(pause.count()));
    return ready > 0 ? Wait::Data : ready == 0 || errno == EINTR ? Wait::More : Wait::End;
}

std::optional<std::string> ChildProcess::takeLine()
{
    const std::size_t end = m_buffer.find('\n');
    if (end == std::string::npos)
        return std::nullopt;
    std::string line = m_buffer.substr(0, end);
    m_buffer.erase(0, end + 1);
    return line;
}

std::optional<std::string> ChildProcess::readLine(const TimeLimits& limits)
{
    using std::chrono::milliseconds;
    const Clock::time_point start = Clock::now();
    const milliseconds used = processorTime();
    m_exceeded = Exceeded::Nothing;
    for (;;)
    {
        if (std::optional<std::string> line = takeLine())
            return line;
        if (m_pid < 0 || m_buffer.size() > kLongestLine)
            return std::nullopt;
        const auto passed = std::chrono::duration_cast<milliseconds>(Clock::now() - start);
        const Wait wait = waitForData({limits.processor - (processorTime() - used), limits.clock - passed});
        if (wait == Wait::More)
            continue;
        if (wait != Wait::Data || !readSome())
            return std::nullopt;
    }
}

/// False at the end of the output.
bool ChildProcess::readSome()
{
    std::array<char, 1024> piece{};
    const ssize_t size = read(m_output, piece.data(), piece.size());
    m_buffer.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    return size > 0 || (size < 0 && errno == EINTR);
}

std::string ChildProcess::stop()
{
    if (m_pid > 0)
    {
        kill(-m_pid, SIGKILL); // does not change how a process that is ending already ended
        while (waitpid(m_pid, &m_status, 0) < 0 && errno == EINTR)
            continue;
        m_transient.release();
        m_pid = -1;
    }
    if (m_exceeded != Exceeded::Nothing)
        return "no answer in time";
    if (WIFSIGNALED(m_status))
        return "signal " + std::to_string(WTERMSIG(m_status));
    return "exit status " + std::to_string(WEXITSTATUS(m_status));
}

bool ChildProcess::wasKilled() const
{
    constexpr std::array kFromOutside{SIGHUP, SIGINT, SIGKILL, SIGTERM};
    return WIFSIGNALED(m_status) &&
           std::find(kFromOutside.begin(), kFromOutside.end(), WTERMSIG(m_status)) != kFromOutside.end();
}

} // namespace dwg
