#include "vesta/tasks/DelayedTask.h"

#include <csignal>
#include <utility>

namespace vesta
{
namespace
{

/// Signals are for the threads that wait for them.
class _SignalsBlocked
{
public:
    _SignalsBlocked()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_Before);
    }
    ~_SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_Before, nullptr); }
    _SignalsBlocked(const _SignalsBlocked&) = delete;
    _SignalsBlocked& operator=(const _SignalsBlocked&) = delete;

private:
    sigset_t m_Before;
};

} // namespace

DelayedTask::DelayedTask(std::function<void()> task) : m_Task(std::move(task))
{
}

DelayedTask::~DelayedTask()
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_IsEnding = true;
        m_Changed.notify_all();
    }
    if (m_Thread.joinable())
    {
        m_Thread.join();
    }
}

void DelayedTask::RunWithin(std::chrono::milliseconds time)
{
    const auto                        due = Clock::now() + time;
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (!m_Thread.joinable())
    {
        const _SignalsBlocked blocked; // The new thread inherits it.
        m_Thread = std::thread([this] { Work(); });
    }
    if (!m_Due || due < *m_Due)
    {
        m_Due = due;
        m_Changed.notify_all();
    }
}

void DelayedTask::Work()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    while (!m_IsEnding)
    {
        if (!m_Due)
        {
            m_Changed.wait(lock);
        }
        else if (const auto due = *m_Due; due > Clock::now())
        {
            m_Changed.wait_until(lock, due);
        }
        else
        {
            m_Due.reset();
            lock.unlock();
            m_Task();
            lock.lock();
        }
    }
}
} // namespace vesta
