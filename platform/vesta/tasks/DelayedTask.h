#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace vesta
{
/// A task that is run some time after it is asked for, on a thread of its own (one, which the first
/// request starts). Requests that come before it runs are one run; those that come while it runs
/// are one more. Not exported.
class DelayedTask
{
public:
    explicit DelayedTask(std::function<void()> task); ///< It must not throw.
    /// Waits for a task that is running; one that is only due is not run any more.
    ~DelayedTask();
    DelayedTask(const DelayedTask&) = delete;
    DelayedTask& operator=(const DelayedTask&) = delete;

    /// Has the task run at the latest when the time is over. Never waits for it. Throws a
    /// `std::system_error` when there is no thread to be had. Any thread.
    void RunWithin(std::chrono::milliseconds time);

private:
    using Clock = std::chrono::steady_clock;

    void Work();

    const std::function<void()>      m_Task;
    std::mutex                       m_Mutex; ///< Guards what follows.
    std::condition_variable          m_Changed;
    std::optional<Clock::time_point> m_Due;
    bool                             m_IsEnding = false;
    std::thread                      m_Thread;
};
} // namespace vesta
