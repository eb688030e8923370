#include "desktop/window/end_signals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace desktop
{

namespace
{

constexpr std::array kSignals{SIGHUP, SIGINT, SIGTERM};

std::array<struct sigaction, kSignals.size()> earlier;
std::array<int, 2> way{-1, -1};

void giveBack()
{
    for (size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &earlier[i], nullptr);
}

/// The next one is handled as before.
void passOn(int signal)
{
    giveBack();
    const auto number = static_cast<char>(signal);
    (void)!write(way[1], &number, 1);
}

} // namespace

EndSignals::EndSignals(std::function<void()> onEnd)
{
    if (pipe2(way.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(way[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [act = std::move(onEnd)]
                     {
                         char signal = 0;
                         if (read(way[0], &signal, 1) != 1)
                             return;
                         act();
                         raise(signal);
                     });
    struct sigaction action = {};
    action.sa_handler = passOn;
    for (size_t i = 0; i < kSignals.size(); ++i)
        if (sigaction(kSignals[i], nullptr, &earlier[i]) == 0 && earlier[i].sa_handler != SIG_IGN)
            sigaction(kSignals[i], &action, nullptr);
}

EndSignals::~EndSignals()
{
    if (!m_notifier)
        return;
    giveBack();
    m_notifier.reset();
    close(way[0]);
    close(way[1]);
}

} // namespace desktop
