#include "desktop/workspace/gate.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <utility>

namespace desktop
{

Gate::Hold::~Hold()
{
    if (--m_gate.m_holds == 0 && !m_gate.m_waiting.empty())
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [gate = &m_gate] { gate->flush(); }, Qt::QueuedConnection);
}

void Gate::whenOpen(std::function<void()> action)
{
    if (isOpen())
        action();
    else
        m_waiting.push_back(std::move(action));
}

/// One after the other: an action may close the gate again, then the rest goes on waiting.
void Gate::flush()
{
    while (isOpen() && !m_waiting.empty())
    {
        const std::function<void()> action = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        action();
    }
}

} // namespace desktop
