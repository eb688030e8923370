#pragma once

#include <csignal>
#include <string>
#include <sys/types.h>

namespace disk
{

/// From now on a signal that asks the process to end (a closed terminal, Ctrl+C, TERM ...) first takes away what
/// `Transient`s name, then ends it as it would have. One that was ignored so far stays ignored. For a program's start.
void cleanUpOnSignals();

/// Something that must not outlive the process. A few dozen may live at once; one more goes without protection.
class Transient
{
public:
    enum Kind : int
    {
        kNothing,
        kFile,
        kFolder,      ///< with the files that stand directly in it
        kProcessGroup ///< is killed, before files and folders go
    };

    Transient() = default;
    Transient(Kind kind, const std::string& path);
    explicit Transient(pid_t group);
    Transient(const Transient&) = delete;
    Transient& operator=(const Transient&) = delete;
    Transient(Transient&& other) noexcept;
    Transient& operator=(Transient&& other) noexcept;
    ~Transient() { release(); }

    /// It may stay.
    void release();

private:
    int m_slot = -1;
};

/// While it lives, those signals wait: what belongs together is done as a whole.
class SignalsHeld
{
public:
    SignalsHeld();
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
    ~SignalsHeld();

private:
    sigset_t m_before;
};

} // namespace disk
