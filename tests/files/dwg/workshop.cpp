#include "files/dwg/workshop.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view kLibrary = "node_modules/@mlightcad/libredwg-web/wasm/libredwg-web.wasm";

constexpr std::string_view kPretendedConverter = R"(
import fs from 'node:fs';
fs.appendFileSync(new URL('started', import.meta.url), process.pid + '\n');
fs.writeSync(1, 'ready\n');
const files = process.argv.slice(2);
for (let i = 0; i < files.length; i += 2) {
  const what = fs.readFileSync(files[i], 'latin1').slice(7);
  if (what === 'crash' || (what === 'late' && i > 0)) process.abort();
  if (what === 'hang') for (;;);
  if (what === 'sleep') Atomics.wait(new Int32Array(new SharedArrayBuffer(4)), 0, 0);
  if (what === 'killed') process.kill(process.pid, 'SIGKILL');
  const lost = what === 'lossy' ? ' ACAD_TABLE 1 MULTILEADER 2' : '';
  if (what === 'eat') for (const all = []; ;) all.push(Buffer.allocUnsafeSlow(32 << 20));
  if (what === 'refuse') { fs.writeSync(1, 'refused no such thing\n'); continue; }
  fs.writeFileSync(files[i + 1], '999\n' + what + '\n0\nEOF\n');
  fs.writeSync(1, 'ok' + lost + '\n');
}
)";

} // namespace

Workshop::Workshop() : m_temporary("TMPDIR", (path() / "tmp").c_str())
{
    fs::create_directories(path() / "tmp");
    file("adapter/dwg2dxf.mjs", kPretendedConverter);
    file("adapter" / fs::path(kLibrary), "");
}

fs::path Workshop::file(const std::string& name, std::string_view content) const
{
    fs::path file = path() / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

fs::path Workshop::drawing(const std::string& name, const std::string& what) const
{
    return file(name, "AC1015 " + what);
}

dwg::Options Workshop::pretended() const
{
    dwg::Options options;
    options.adapter = path() / "adapter";
    options.cache = cache();
    return options;
}

dwg::Options Workshop::real() const
{
    dwg::Options options;
    options.cache = cache();
    return options;
}

bool Workshop::realConverterIsInstalled()
{
    return fs::exists(dwg::defaultAdapterFolder() / kLibrary);
}

int Workshop::starts() const
{
    const std::string all = contentOf(path() / "adapter" / "started");
    return static_cast<int>(std::count(all.begin(), all.end(), '\n'));
}

bool Workshop::somethingIsLeft() const
{
    const bool childLeft = waitpid(-1, nullptr, WNOHANG) >= 0 || errno != ECHILD;
    return childLeft || !fs::is_empty(path() / "tmp");
}

std::string contentOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<fs::path> filesIn(const fs::path& folder)
{
    std::vector<fs::path> files(fs::directory_iterator(folder), {});
    std::sort(files.begin(), files.end());
    return files;
}
