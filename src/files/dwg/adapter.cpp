#include "files/dwg/adapter.h"

#include "disk/read.h"
#include "files/dwg/child_process.h"
#include "files/dwg/sha256.h"

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
            return giveUp(m_jobs.size(), "the DWG converter does not start (" + child.stop() + ")");
        while (m_next < end)
        {
            const std::optional<std::string> answer = read(child);
            if (answer)
                take(*answer);
            else if (child.timedOut())
                return giveUp(m_next + 1, "the conversion took too long");
            else if (m_next == first) // what came before cannot be to blame: it had the process to itself
                return giveUp(m_next + 1, "the DWG converter broke down on it (" + child.stop() + ")");
            else
                return;
        }
    }

    std::vector<std::string> argumentsFor(std::size_t first, std::size_t end) const
    {
        std::vector<std::string> arguments = {"--liftoff-only", m_options.adapter / kScript};
        for (std::size_t i = first; i < end; ++i)
            arguments.insert(arguments.end(), {m_jobs[i]->input, m_jobs[i]->output});
        return arguments;
    }

    std::optional<std::string> read(ChildProcess& child) const { return child.readLine(m_options.timeLimit); }

    void take(std::string_view answer)
    {
        constexpr std::string_view kRefused = "refused ";
        Job& job = *m_jobs[m_next++];
        if (answer.starts_with(kRefused))
            job.reason = answer.substr(kRefused.size());
        else if (answer != "ok")
            job.reason = "the DWG converter gave an unknown answer";
    }

    void giveUp(std::size_t end, const std::string& reason)
    {
        for (; m_next < end; ++m_next)
            m_jobs[m_next]->reason = reason;
    }

    const Options& m_options;
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

std::string adapterVersion(const fs::path& adapter)
{
    std::vector<fs::path> sources;
    std::error_code error;
    for (fs::directory_iterator it(adapter, error), end; !error && it != end; it.increment(error))
        if (it->path().extension() == ".mjs" || it->path().filename() == "package-lock.json")
            sources.push_back(it->path());
    std::sort(sources.begin(), sources.end());

    std::string all;
    for (const fs::path& source : sources)
    {
        all += sha256(disk::readFile(source).view());
    }
    return sha256(all).substr(0, 16);
}

void runAdapter(const Options& options, const std::vector<Job*>& jobs)
{
    const auto refuseAll = [&](const std::string& why)
    {
        for (Job* job : jobs)
            job->reason = "DWG files cannot be read here: " + why;
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
