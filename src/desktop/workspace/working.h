#pragma once

#include "desktop/workspace/workspace.h"

#include <QString>

class QDialog;

namespace desktop
{

/// Shows that something is being worked on, with a way to cancel it, over the whole window; the gate is closed
/// meanwhile. What is done at once shows nothing.
class WorkingBox
{
public:
    WorkingBox(Workspace& workspace, const QString& text);
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
Outcome<Result> workOn(Workspace& workspace, const QString& text, std::function<Result(const std::stop_token&)> work)
{
    WorkingBox box{workspace, text};
    const auto outcome = std::make_shared<Outcome<Result>>();
    const Jobs::Handle job = workspace.jobs().start<Result>(std::move(work),
                                                            [outcome, &box](Outcome<Result> done)
                                                            {
                                                                *outcome = std::move(done);
                                                                box.end();
                                                            });
    box.run([job] { (*job)(); });
    return std::move(*outcome);
}

} // namespace desktop
