#include "desktop/recovery/recovery_file.h"

#include "disk/read.h"
#include "disk/replace.h"
#include "store/text/text.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <unistd.h>

namespace desktop
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view kMark = "veloxa-recovery-1";
constexpr std::string_view kComment = "999\n";
constexpr size_t kMostLines = 20;

/// Of what the system tells as if it were a file.
std::string firstLineOf(const std::string& file)
{
    std::string line;
    std::ifstream in{file};
    std::getline(in, line);
    return line;
}

std::string machineName()
{
    std::string name(256, '\0');
    return gethostname(name.data(), name.size() - 1) == 0 ? std::string{name.c_str()} : std::string{};
}

/// When the process began, in the system's own count; empty when it is gone.
std::string startOf(long process)
{
    constexpr int kStartField = 20; // behind the name, which stands in brackets and may hold anything
    const std::string status = firstLineOf("/proc/" + std::to_string(process) + "/stat");
    std::istringstream fields{status.substr(std::min(status.size(), status.rfind(')') + 1))};
    std::string field;
    for (int i = 0; i < kStartField; ++i)
        fields >> field;
    return field;
}

std::string bootOfMachine()
{
    return firstLineOf("/proc/sys/kernel/random/boot_id");
}

void addLine(std::string& text, const char* name, const std::string& value)
{
    text += kComment;
    text += std::string{name} + "=" + QByteArray::fromStdString(value).toPercentEncoding("/ ").toStdString() + "\n";
}

std::string headOf(const RecoveryNote& note)
{
    std::string head{kComment};
    head += std::string{kMark} + "\n";
    addLine(head, "path", note.path);
    addLine(head, "device", std::to_string(note.seen.device));
    addLine(head, "inode", std::to_string(note.seen.inode));
    addLine(head, "size", std::to_string(note.seen.size));
    addLine(head, "seconds", std::to_string(note.seen.modified.tv_sec));
    addLine(head, "nanoseconds", std::to_string(note.seen.modified.tv_nsec));
    addLine(head, "converted", note.isConverted ? "1" : "0");
    addLine(head, "written", std::to_string(std::time(nullptr)));
    addLine(head, "process", std::to_string(getpid()));
    addLine(head, "start", startOf(getpid()));
    addLine(head, "boot", bootOfMachine());
    addLine(head, "machine", machineName());
    addLine(head, "end", "1");
    return head;
}

template <class Number>
Number numberOf(const std::map<std::string, std::string>& values, const char* name)
{
    Number number{};
    if (const auto found = values.find(name); found != values.end())
        std::from_chars(found->second.data(), found->second.data() + found->second.size(), number);
    return number;
}

/// The values of the head by their names, and how long it is; nothing when the bytes begin otherwise.
std::optional<std::pair<std::map<std::string, std::string>, size_t>> readHead(std::string_view bytes)
{
    std::map<std::string, std::string> values;
    const std::string begin = std::string{kComment} + std::string{kMark} + "\n";
    if (!bytes.starts_with(begin))
        return std::nullopt;
    size_t at = begin.size();
    for (size_t line = 0; line < kMostLines && bytes.substr(at).starts_with(kComment); ++line)
    {
        const size_t end = bytes.find('\n', at + kComment.size());
        const std::string_view pair = bytes.substr(at + kComment.size(), end - at - kComment.size());
        const size_t equals = pair.find('=');
        if (end == std::string_view::npos || equals == std::string_view::npos)
            return std::nullopt;
        const std::string_view value = pair.substr(equals + 1);
        values[std::string{pair.substr(0, equals)}] =
            QByteArray::fromPercentEncoding(QByteArray{value.data(), static_cast<qsizetype>(value.size())})
                .toStdString();
        at = end + 1;
        if (values.contains("end"))
            return std::pair{std::move(values), at};
    }
    return std::nullopt;
}

/// Whether the process that wrote it may still be running.
bool mayLive(const RecoveryNote& note)
{
    if (note.machine != machineName())
        return true;
    return note.boot == bootOfMachine() && note.start == startOf(note.process) && !note.start.empty();
}

} // namespace

std::string recoveryFolder()
{
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && state[0] == '/')
        return std::string{state} + "/veloxa/recovery";
    const char* home = std::getenv("HOME");
    return home != nullptr && home[0] == '/' ? std::string{home} + "/.local/state/veloxa/recovery" : std::string{};
}

std::string recoveryFileOf(const std::string& path)
{
    constexpr qsizetype kDigits = 20;
    const QByteArray key = QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha1).toHex();
    return recoveryFolder() + "/" + key.left(kDigits).toStdString() + "-" + std::to_string(getpid()) + ".dxf";
}

void writeRecovery(const Snapshot& drawing, const RecoveryNote& note, disk::Faults& faults)
{
    std::error_code error;
    fs::create_directories(fs::path{note.file}.parent_path(), error);
    fs::permissions(fs::path{note.file}.parent_path(), fs::perms::owner_all, error);
    const std::string head = headOf(note);
    std::vector<std::string_view> pieces{head};
    pieces.insert(pieces.end(), drawing.pieces().begin(), drawing.pieces().end());
    disk::replaceFile(note.file, pieces, {}, faults);
}

std::optional<RecoveryNote> readRecoveryNote(const std::string& file)
{
    constexpr size_t kMost = 16'384;
    const std::string begin = disk::beginOfFile(file, kMost);
    const auto head = readHead(begin);
    if (!head)
        return std::nullopt;
    std::map<std::string, std::string> values = head->first;
    RecoveryNote note;
    note.file = file;
    note.path = values["path"];
    note.seen.device = numberOf<dev_t>(values, "device");
    note.seen.inode = numberOf<ino_t>(values, "inode");
    note.seen.size = numberOf<off_t>(values, "size");
    note.seen.modified = {numberOf<time_t>(values, "seconds"), numberOf<long>(values, "nanoseconds")};
    note.isConverted = values["converted"] == "1";
    note.written = numberOf<long>(values, "written");
    note.process = numberOf<long>(values, "process");
    note.start = values["start"];
    note.boot = values["boot"];
    note.machine = values["machine"];
    return note;
}

disk::FileText readRecovery(const std::string& file)
{
    const disk::FileText whole = disk::readFile(file);
    const auto head = readHead(whole.view());
    if (!head)
        throw disk::FileError{file, "is no recovery file"};
    const std::string_view drawing = whole.view().substr(head->second);
    // Shares the bytes of the file; the line feed behind it is behind this, too.
    return {std::shared_ptr<const char>{std::make_shared<disk::FileText>(whole), drawing.data()}, drawing.size()};
}

std::vector<RecoveryNote> abandonedRecoveries()
{
    std::vector<RecoveryNote> notes;
    std::error_code error;
    for (fs::directory_iterator each{recoveryFolder(), error}; !error && each != fs::directory_iterator{};
         each.increment(error))
        if (const auto note = readRecoveryNote(each->path().string()); note && !mayLive(*note))
            notes.push_back(*note);
    std::sort(notes.begin(), notes.end(),
              [](const RecoveryNote& a, const RecoveryNote& b) { return a.written > b.written; });
    return notes;
}

} // namespace desktop
