#pragma once

#include <QObject>

#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

namespace desktop
{

/// What became of a piece of work: its result, or why there is none.
template <class Result>
struct Outcome
{
    std::optional<Result> result;
    std::string reason; ///< one line, when it failed
    bool cancelled = false;
};

/// Work that is done on a thread of its own while the window goes on. What is handed to it is its own until it is done;
/// the outcome comes from the event loop of the window's thread, once, also when the work is cancelled: then at once,
/// and whatever the work still does is thrown away.
class Jobs : public QObject
{
public:
    ~Jobs() override;

    /// Ends the work that it stands for as soon as may be.
    using Handle = std::shared_ptr<std::function<void()>>;

    template <class Result>
    Handle start(std::function<Result(const std::stop_token&)> work, std::function<void(Outcome<Result>)> done)
    {
        struct State
        {
            std::stop_source stop;
            bool told = false;
        };
        const auto state = std::make_shared<State>();
        run(
            [this, state, work = std::move(work), done]
            {
                // Shared, since what carries it to the window's thread has to be copied.
                const auto outcome = std::make_shared<Outcome<Result>>();
                try
                {
                    outcome->result.emplace(work(state->stop.get_token()));
                }
                catch (const std::exception& error)
                {
                    outcome->reason = error.what();
                }
                deliver(
                    [state, outcome, done]
                    {
                        if (!std::exchange(state->told, true))
                            done(std::move(*outcome));
                    });
            });
        return std::make_shared<std::function<void()>>(
            [this, state, done]
            {
                state->stop.request_stop();
                deliver(
                    [state, done]
                    {
                        if (!std::exchange(state->told, true))
                            done(Outcome<Result>{{}, {}, true});
                    });
            });
    }

    /// Whether any thread still works.
    bool isIdle() const { return m_threads.empty(); }
    /// Waits until all work is done; outcomes still come from the event loop.
    void wait();

private:
    void run(std::function<void()> work);
    void deliver(std::function<void()> action);

    std::list<std::thread> m_threads;
};

} // namespace desktop
