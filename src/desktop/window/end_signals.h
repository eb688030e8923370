#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace desktop
{

/// While it lives, a signal that asks the program to end (a closed terminal, Ctrl+C, TERM) is told in the event loop
/// first, then ends it as it would have; a second one ends it at once.
class EndSignals
{
public:
    explicit EndSignals(std::function<void()> onEnd);
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace desktop
