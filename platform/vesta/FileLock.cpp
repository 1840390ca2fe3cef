#include "vesta/FileLock.h"

#include "vesta/CallEntry.h"
#include "vesta/Log.h"
#include "vesta/files/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <map>
#include <memory>
#include <mutex>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr mode_t kPrivateFile = 0600;

/// The thread that waits in the system's queue for one lock file, and those who wait for it.
struct Waiter
{
    explicit Waiter(int ownDescriptor) : descriptor(ownDescriptor) {}

    const Clock::time_point begin = Clock::now();
    int                     descriptor; ///< -1 once somebody has taken it over.
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

void CloseIfOpen(int& descriptor)
{
    if (descriptor >= 0)
    {
        close(descriptor);
        descriptor = -1;
    }
}

/// Takes the lock, however long it takes; 0 or the error.
int LockFor(int descriptor)
{
    while (flock(descriptor, LOCK_EX) != 0)
    {
        if (errno != EINTR)
        {
            return errno;
        }
    }
    return 0;
}

/// Ends the waiter when nobody wants its lock (any more). Under the mutex.
void Drop(Waiters& waiters, const String& name, const std::shared_ptr<Waiter>& waiter)
{
    if (waiter->done && waiter->askers == 0)
    {
        CloseIfOpen(waiter->descriptor);
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
std::shared_ptr<Waiter> FindWaiter(Waiters& waiters, const String& name, int& descriptor)
{
    std::shared_ptr<Waiter>& waiter = waiters.byName[name];
    if (!waiter)
    {
        waiter = std::make_shared<Waiter>(descriptor);
        try
        {
            std::thread(
                [&waiters, name, waiter = waiter]
                {
                    const int                         error = LockFor(waiter->descriptor);
                    const std::lock_guard<std::mutex> lock(waiters.mutex);
                    waiter->error = error;
                    waiter->done = true;
                    Drop(waiters, name, waiter);
                    waiter->changed.notify_all();
                })
                .detach();
        }
        catch (...)
        {
            waiters.byName.erase(name);
            throw;
        }
        descriptor = -1; // The waiter's from here on.
    }
    return waiter;
}

/// Waits for the lock until the deadline, but not longer than `timeout` from the time that anybody
/// began to wait for it: its holder has had its time then. `descriptor` may come back as another
/// one, the one that is locked.
Result LockUntil(const String& name, int& descriptor, Clock::time_point deadline,
                 std::chrono::milliseconds timeout)
{
    Waiters&                      waiters = GetWaiters();
    std::unique_lock<std::mutex>  lock(waiters.mutex);
    const std::shared_ptr<Waiter> waiter = FindWaiter(waiters, name, descriptor);
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
    else if (waiter->descriptor < 0)
    {
        result = Result::kTaken;
    }
    else
    {
        CloseIfOpen(descriptor);
        std::swap(descriptor, waiter->descriptor);
        result = Result::kHeld;
    }
    Drop(waiters, name, waiter);
    return result;
}

/// One try: takes the lock file if it is free, else waits for it. `descriptor` is open only when it
/// is held.
Result Take(const String& name, int& descriptor, Clock::time_point deadline,
            std::chrono::milliseconds timeout)
{
    // The lock file stays for good: removing it would let two programs lock two different files of
    // that name. A link in its place is none of ours.
    descriptor = vesta::Descriptor::Open(name, O_RDWR | O_CREAT | O_NOFOLLOW, kPrivateFile);
    if (descriptor < 0)
    {
        return Result::kFailed;
    }
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
    {
        return Result::kHeld;
    }
    Result result = Result::kFailed;
    try
    {
        result = errno == EWOULDBLOCK ? LockUntil(name, descriptor, deadline, timeout) : result;
    }
    catch (const std::system_error& e) // No further thread to be had.
    {
        errno = e.code().value();
    }
    if (result != Result::kHeld)
    {
        const int error = errno;
        CloseIfOpen(descriptor);
        errno = error;
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
        result = Take(name, m_Descriptor, deadline, timeout);
    }
    if (result == Result::kTooLate || result == Result::kFailed)
    {
        const String reason = result == Result::kTooLate
                                  ? String("another program holds it")
                                  : String(std::generic_category().message(errno));
        LogWarning("Going on without the lock file \"" + name + "\": " + reason);
    }
}

FileLock::~FileLock()
{
    if (m_Descriptor >= 0)
    {
        close(m_Descriptor);
    }
}
