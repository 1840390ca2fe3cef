#include "vesta/FileLock.h"

#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <map>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr mode_t kPrivateFile = 0600;

/// The thread that waits in the system's queue for one lock file, and those who wait for it.
struct Waiter
{
    explicit Waiter(Descriptor lockFile) : file(std::move(lockFile)) {}

    const Clock::time_point begin = Clock::now();
    Descriptor              file;       ///< Closed once somebody has taken it over.
    int                     askers = 0; ///< Who would take the lock.
    int                     error = 0;
    bool                    done = false;
    bool                    isReported = false; ///< That the lock is not to be had.
    std::condition_variable changed;
};

/// The waiters of this program, at most one a lock file: whoever wants it next joins the one there
/// is, or a holder that is stopped would cost a thread and a file for every try.
struct Waiters
{
    std::mutex                                mutex; ///< Guards all of them too.
    std::map<String, std::shared_ptr<Waiter>> byName;
};

Waiters& GetWaiters()
{
    // Never destroyed: a waiter may still be there at the program's end.
    static auto* const s_Waiters = new Waiters;
    return *s_Waiters;
}

enum class Result
{
    kHeld,
    kTaken, ///< By somebody else of this program, from the same waiter.
    kTooLate,
    kTooLateAgain, ///< The same, and it has been logged.
    kFailed        ///< The error is in `errno`.
};

/// Ends the waiter when nobody wants its lock (any more). Under the mutex.
void Drop(Waiters& waiters, const String& name, const std::shared_ptr<Waiter>& waiter)
{
    if (waiter->done && waiter->askers == 0)
    {
        waiter->file.Close();
    }
    const auto found = waiters.byName.find(name);
    if (waiter->done && found != waiters.byName.end() && found->second == waiter)
    {
        waiters.byName.erase(found);
    }
}

/// The waiter of the lock file, a new one if need be. The system's queue is first come, first
/// served, but knows no deadline, so a thread waits there: trying again and again would starve
/// beside a busy program. Under the mutex; throws a `std::system_error`.
std::shared_ptr<Waiter> FindWaiter(Waiters& waiters, const String& name, Descriptor& file)
{
    if (const auto found = waiters.byName.find(name); found != waiters.byName.end())
    {
        return found->second;
    }
    const auto waiter = std::make_shared<Waiter>(std::move(file));
    std::thread(
        [&waiters, name, waiter]
        {
            const int                         error = waiter->file.Lock() ? 0 : errno;
            const std::lock_guard<std::mutex> lock(waiters.mutex);
            waiter->error = error;
            waiter->done = true;
            Drop(waiters, name, waiter);
            waiter->changed.notify_all();
        })
        .detach();
    waiters.byName.emplace(name, waiter);
    return waiter;
}

/// Waits for the lock until the deadline, but not longer than `timeout` from the time that anybody
/// began to wait for it: its holder has had its time then. `file` comes back open when it is the
/// one that is locked.
Result LockUntil(const String& name, Descriptor& file, Clock::time_point deadline,
                 std::chrono::milliseconds timeout)
{
    Waiters&                      waiters = GetWaiters();
    std::unique_lock<std::mutex>  lock(waiters.mutex);
    const std::shared_ptr<Waiter> waiter = FindWaiter(waiters, name, file);
    ++waiter->askers;
    waiter->changed.wait_until(lock, std::min(deadline, waiter->begin + timeout),
                               [&waiter] { return waiter->done; });
    --waiter->askers;
    Result result = waiter->isReported ? Result::kTooLateAgain : Result::kTooLate;
    if (!waiter->done)
    {
        waiter->isReported = true;
    }
    else if (waiter->error != 0)
    {
        errno = waiter->error;
        result = Result::kFailed;
    }
    else if (!waiter->file.IsOpen())
    {
        result = Result::kTaken;
    }
    else
    {
        file = std::move(waiter->file);
        result = Result::kHeld;
    }
    Drop(waiters, name, waiter);
    return result;
}

/// One try: takes the lock file if it is free, else waits for it. `file` is open only when it is
/// held.
Result Take(const String& name, Descriptor& file, Clock::time_point deadline,
            std::chrono::milliseconds timeout)
{
    // The lock file stays for good: removing it would let two programs lock two different files of
    // that name. A link in its place is none of ours.
    file = Descriptor::Open(name, O_RDWR | O_CREAT | O_NOFOLLOW, kPrivateFile);
    if (!file.IsOpen())
    {
        return Result::kFailed;
    }
    if (file.TryLock())
    {
        return Result::kHeld;
    }
    Result result = Result::kFailed;
    try
    {
        result = errno == EWOULDBLOCK ? LockUntil(name, file, deadline, timeout) : result;
    }
    catch (const std::system_error& e) // No further thread to be had.
    {
        errno = e.code().value();
    }
    if (result != Result::kHeld)
    {
        file.Close();
    }
    return result;
}

} // namespace

FileLock::FileLock(const Path& path, int timeoutMs)
{
    CALL_ENTRY("FileLock::FileLock");
    const std::chrono::milliseconds timeout(timeoutMs);
    const auto                      deadline = Clock::now() + timeout;
    const String                    name = path.Text() + ".lock";
    Result                          result = Result::kTaken;
    while (result == Result::kTaken)
    {
        result = Take(name, m_File, deadline, timeout);
    }
    if (result == Result::kTooLate || result == Result::kFailed)
    {
        const String reason = result == Result::kTooLate
                                  ? String("another program holds it")
                                  : String(std::generic_category().message(errno));
        LogWarning("Going on without the lock file \"" + name + "\": " + reason);
    }
}
