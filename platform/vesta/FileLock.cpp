#include "vesta/FileLock.h"

#include "vesta/CallEntry.h"
#include "vesta/Log.h"
#include "vesta/_Descriptor.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

constexpr mode_t kPrivateFile = 0600;

/// What a thread that waits for the lock shares with the one that waits for it until the deadline.
struct Waiting
{
    std::mutex              mutex;
    std::condition_variable changed;
    bool                    done = false;
    bool                    abandoned = false;
    int                     error = 0;
};

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

/// Waits in the system's queue, which is first come, first served: trying again and again would
/// starve beside a busy program. The system knows no deadline, so a thread waits there; when it
/// comes too late, it gives the lock back by itself. 0 or the error; `descriptor` then is gone.
int LockUntil(int descriptor, std::chrono::steady_clock::time_point deadline)
{
    const auto waiting = std::make_shared<Waiting>();
    std::thread(
        [waiting, descriptor]
        {
            const int                         error = LockFor(descriptor);
            const std::lock_guard<std::mutex> lock(waiting->mutex);
            waiting->error = error;
            waiting->done = true;
            waiting->changed.notify_all();
            if (waiting->abandoned || error != 0)
            {
                close(descriptor);
            }
        })
        .detach();
    std::unique_lock<std::mutex> lock(waiting->mutex);
    waiting->abandoned =
        !waiting->changed.wait_until(lock, deadline, [&waiting] { return waiting->done; });
    return waiting->abandoned ? EWOULDBLOCK : waiting->error;
}

} // namespace

FileLock::FileLock(const Path& path, int timeoutMs)
{
    CALL_ENTRY("FileLock::FileLock");
    const auto   deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    const String name = path.Text() + ".lock";
    // The lock file stays for good: removing it would let two programs lock two different files of
    // that name. A link in its place is none of ours.
    const int descriptor = _Descriptor::Open(name, O_RDWR | O_CREAT | O_NOFOLLOW, kPrivateFile);
    int       error = descriptor < 0 ? errno : 0;
    if (error == 0 && flock(descriptor, LOCK_EX | LOCK_NB) != 0)
    {
        try
        {
            error = LockUntil(descriptor, deadline);
        }
        catch (const std::system_error& e) // No further thread to be had.
        {
            error = e.code().value();
            close(descriptor);
        }
    }
    if (error == 0)
    {
        m_Descriptor = descriptor;
        return;
    }
    const String reason = error == EWOULDBLOCK ? String("another program holds it")
                                               : String(std::generic_category().message(error));
    LogWarning("Going on without the lock file \"" + name + "\": " + reason);
}

FileLock::~FileLock()
{
    if (m_Descriptor >= 0)
    {
        close(m_Descriptor);
    }
}
