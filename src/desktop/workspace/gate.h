#pragma once

#include <functional>
#include <vector>

namespace desktop
{

/// Keeps what is done in the window apart: while something is being done (a command, a handler, a modal dialog is on
/// the stack) nothing else opens, closes, reloads, changes tab or starts a command. What comes meanwhile waits, or is
/// refused by who asks `isOpen`.
class Gate
{
public:
    /// Closes the gate while it lives.
    class Hold
    {
    public:
        explicit Hold(Gate& gate) : m_gate{gate} { ++m_gate.m_holds; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        ~Hold();

    private:
        Gate& m_gate;
    };

    bool isOpen() const { return m_holds == 0; }
    /// Does `action` now, or from the event loop when the gate is open again.
    void whenOpen(std::function<void()> action);

private:
    void flush();

    int m_holds = 0;
    std::vector<std::function<void()>> m_waiting;
};

} // namespace desktop
