#pragma once

#include "desktop/documents/jobs.h"
#include "desktop/window/gate.h"

#include <QString>

class QDialog;
class QWidget;

namespace desktop
{

/// Shows that something is being worked on, with a way to cancel it, over the whole window; the gate is closed
/// meanwhile. What is done at once shows nothing.
class WorkingBox
{
public:
    WorkingBox(QWidget& parent, Gate& gate, const QString& text);
    ~WorkingBox();
    WorkingBox(const WorkingBox&) = delete;
    WorkingBox& operator=(const WorkingBox&) = delete;

    /// Until `end` is called.
    void run(const std::function<void()>& cancel);
    void end();

private:
    Gate::Hold m_hold;
    std::unique_ptr<QDialog> m_dialog;
    bool m_ended = false;
};

/// Has work done on a thread and waits for it in front of the user.
template <class Result>
Outcome<Result> workOn(QWidget& parent, Gate& gate, Jobs& jobs, const QString& text,
                       std::function<Result(const std::stop_token&)> work)
{
    WorkingBox box{parent, gate, text};
    const auto outcome = std::make_shared<Outcome<Result>>();
    const Jobs::Handle job = jobs.start<Result>(std::move(work),
                                                [outcome, &box](Outcome<Result> done)
                                                {
                                                    *outcome = std::move(done);
                                                    box.end();
                                                });
    box.run([job] { (*job)(); });
    return std::move(*outcome);
}

} // namespace desktop
