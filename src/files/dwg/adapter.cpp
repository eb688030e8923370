#include "files/dwg/adapter.h"

#include "disk/read.h"
#include "files/dwg/answer.h"
#include "files/dwg/child_process.h"
#include "files/dwg/content_hash.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <unistd.h>

namespace fs = std::filesystem;

namespace dwg
{
namespace
{

constexpr std::size_t kFilesPerChild = 100; // keeps the command line and the child's memory small
constexpr int kClockPerProcessorTime = 5;   // a busy machine is no reason to give a file up; one that sleeps is
constexpr std::string_view kScript = "dwg2dxf.mjs";
constexpr std::string_view kLibrary = "node_modules/@mlightcad/libredwg-web/wasm/libredwg-web.wasm";

fs::path programFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

fs::path findProgram(const std::string& name)
{
    if (name.find('/') != std::string::npos)
        return access(name.c_str(), X_OK) == 0 ? fs::path(name) : fs::path();
    const char* variable = std::getenv("PATH");
    std::string_view folders = variable == nullptr ? "/usr/local/bin:/usr/bin:/bin" : variable;
    while (!folders.empty())
    {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        fs::path program = fs::path(folder) / name;
        if (access(program.c_str(), X_OK) == 0)
            return program;
        folders.remove_prefix(std::min(folders.size(), folder.size() + 1));
    }
    return {};
}

/// The conversion of one list of jobs, in as many child processes as it takes.
class AdapterRun
{
public:
    AdapterRun(const Options& options, fs::path node, const std::vector<Job*>& jobs)
        : m_options(options), m_node(std::move(node)), m_jobs(jobs)
    {
    }

    void run()
    {
        while (m_next < m_jobs.size())
            runOneChild();
    }

private:
    void runOneChild()
    {
        const std::size_t first = m_next;
        const std::size_t end = std::min(m_jobs.size(), first + kFilesPerChild);
        ChildProcess child(m_node, argumentsFor(first, end), m_options.memoryLimit);
        if (read(child) != "ready")
            return giveUp(m_jobs.size(), "the DWG converter does not start (" + child.stop() + ")", false);
        while (m_next < end)
        {
            const std::optional<std::string> answer = read(child);
            if (answer)
                take(*answer);
            else if (child.exceeded() != Exceeded::Nothing)
                return giveUp(m_next + 1, whyTooLong(child.exceeded()), true);
            else if (m_next == first) // what came before cannot be to blame: it had the process to itself
            {
                const std::string how = child.stop();
                return giveUp(m_next + 1, "the DWG converter broke down on it (" + how + ")", !child.wasKilled());
            }
            else
                return;
        }
    }

    std::string whyTooLong(Exceeded exceeded) const
    {
        const auto inSeconds = [](std::chrono::milliseconds time)
        { return std::to_string((time.count() + 999) / 1000); };
        return exceeded == Exceeded::Processor
                   ? "the conversion took more than " + inSeconds(m_limits.processor) + " s of processor time"
                   : "the conversion did not end within " + inSeconds(m_limits.clock) + " s";
    }

    std::vector<std::string> argumentsFor(std::size_t first, std::size_t end) const
    {
        std::vector<std::string> arguments = {"--liftoff-only", m_options.adapter / kScript};
        for (std::size_t i = first; i < end; ++i)
            arguments.insert(arguments.end(), {m_jobs[i]->input, m_jobs[i]->output});
        return arguments;
    }

    std::optional<std::string> read(ChildProcess& child) const { return child.readLine(m_limits); }

    void take(std::string_view answer)
    {
        Job& job = *m_jobs[m_next++];
        if (std::optional<Outcome> outcome = outcomeOf(answer))
        {
            job.outcome = std::move(*outcome);
            job.isLasting = true;
        }
        else
            job.outcome.reason = "the DWG converter gave an unknown answer";
    }

    void giveUp(std::size_t end, const std::string& reason, bool isLasting)
    {
        for (; m_next < end; ++m_next)
        {
            m_jobs[m_next]->outcome.reason = reason;
            m_jobs[m_next]->isLasting = isLasting;
        }
    }

    const Options& m_options;
    TimeLimits m_limits{m_options.timeLimit, kClockPerProcessorTime* m_options.timeLimit};
    fs::path m_node;
    const std::vector<Job*>& m_jobs;
    std::size_t m_next = 0;
};

} // namespace

fs::path defaultAdapterFolder()
{
    const fs::path program = programFolder();
    for (const fs::path& folder : {program / "dwg2dxf", program.parent_path() / "share/veloxa/dwg2dxf"})
        if (std::error_code error; fs::exists(folder / kScript, error))
            return folder;
    return VELOXA_DWG2DXF_FOLDER;
}

std::string adapterVersion(const Options& options)
{
    std::vector<fs::path> sources;
    std::error_code error;
    for (fs::directory_iterator it(options.adapter, error), end; !error && it != end; it.increment(error))
        if (it->path().extension() == ".mjs" || it->path().filename() == "package-lock.json")
            sources.push_back(it->path());
    std::sort(sources.begin(), sources.end());

    std::string all = std::to_string(options.timeLimit.count()) + " " + std::to_string(options.memoryLimit);
    for (const fs::path& source : sources)
        all += contentHash(disk::readFile(source).view());
    return contentHash(all).substr(0, 16);
}

void runAdapter(const Options& options, const std::vector<Job*>& jobs)
{
    const auto refuseAll = [&](const std::string& why)
    {
        for (Job* job : jobs)
            job->outcome.reason = "DWG files cannot be read here: " + why;
    };
    const fs::path node = findProgram(options.node);
    std::error_code error;
    if (node.empty())
        refuseAll("Node.js is missing; install it (Debian's packages nodejs and npm), then run ./run once");
    else if (!fs::exists(options.adapter / kScript, error) || !fs::exists(options.adapter / kLibrary, error))
        refuseAll("the converter's package is missing; run ./run once to install it");
    else
        AdapterRun(options, node, jobs).run();
}

} // namespace dwg
