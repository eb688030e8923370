#include "disk/signals.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace disk
{

namespace
{

constexpr std::array kEndingSignals = {SIGHUP, SIGINT, SIGTERM, SIGQUIT, SIGPIPE, SIGXCPU};

/// Read by the handler, which may use nothing but what is safe in one: no memory is asked for, nothing is locked.
struct Slot
{
    volatile std::sig_atomic_t kind;
    pid_t group;
    char path[PATH_MAX];
};

constexpr int kSlots = 32;
Slot slots[kSlots];
pid_t owner; ///< a child between fork and exec has the handler, but owns nothing

sigset_t endingSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : kEndingSignals)
        sigaddset(&set, signal);
    return set;
}

void removeFolder(const char* path)
{
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return;
    alignas(dirent64) char entries[4096];
    for (ssize_t size = 0; (size = getdents64(folder, entries, sizeof entries)) > 0;)
        for (ssize_t at = 0; at < size;)
        {
            const auto* entry = reinterpret_cast<const dirent64*>(entries + at);
            unlinkat(folder, entry->d_name, 0); // refuses "." and ".."
            at += entry->d_reclen;
        }
    close(folder);
    rmdir(path);
}

void endProcessGroup(pid_t group)
{
    kill(-group, SIGKILL);
    waitpid(group, nullptr, 0);
}

void takeAway(int kind)
{
    for (const Slot& slot : slots)
    {
        if (slot.kind != kind)
            continue;
        if (kind == Transient::kProcessGroup)
            endProcessGroup(slot.group);
        else if (kind == Transient::kFile)
            unlink(slot.path);
        else
            removeFolder(slot.path);
    }
}

extern "C" void endCleanly(int signal)
{
    if (getpid() == owner)
        for (const int kind : {Transient::kProcessGroup, Transient::kFile, Transient::kFolder})
            takeAway(kind);
    struct sigaction usual = {};
    usual.sa_handler = SIG_DFL;
    sigaction(signal, &usual, nullptr);
    raise(signal); // comes when the handler returns
}

int freeSlot()
{
    const auto free = std::find_if(std::begin(slots), std::end(slots),
                                   [](const Slot& slot) { return slot.kind == Transient::kNothing; });
    return free == std::end(slots) ? -1 : static_cast<int>(free - std::begin(slots));
}

} // namespace

void cleanUpOnSignals()
{
    owner = getpid();
    struct sigaction handler = {};
    handler.sa_handler = endCleanly;
    handler.sa_mask = endingSignals();
    for (const int signal : kEndingSignals)
    {
        struct sigaction before = {};
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            sigaction(signal, &handler, nullptr);
    }
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows beyond the limit is an error that is told
}

Transient::Transient(Kind kind, const std::string& path)
{
    const int slot = path.size() < sizeof slots[0].path ? freeSlot() : -1;
    if (slot < 0)
        return;
    std::memcpy(slots[slot].path, path.c_str(), path.size() + 1);
    std::atomic_signal_fence(std::memory_order_release);
    slots[slot].kind = kind;
    m_slot = slot;
}

Transient::Transient(pid_t group) : m_slot{freeSlot()}
{
    if (m_slot < 0)
        return;
    slots[m_slot].group = group;
    std::atomic_signal_fence(std::memory_order_release);
    slots[m_slot].kind = kProcessGroup;
}

Transient::Transient(Transient&& other) noexcept : m_slot{std::exchange(other.m_slot, -1)} {}

Transient& Transient::operator=(Transient&& other) noexcept
{
    std::swap(m_slot, other.m_slot);
    return *this;
}

void Transient::release()
{
    if (m_slot >= 0)
        slots[std::exchange(m_slot, -1)].kind = kNothing;
}

SignalsHeld::SignalsHeld()
{
    const sigset_t held = endingSignals();
    sigprocmask(SIG_BLOCK, &held, &m_before);
}

SignalsHeld::~SignalsHeld()
{
    sigprocmask(SIG_SETMASK, &m_before, nullptr);
}

} // namespace disk
