#include "vesta/FileLock.h"

#include "vesta/CallEntry.h"
#include "vesta/Log.h"
#include "vesta/_Descriptor.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

constexpr std::chrono::milliseconds kRetry{5};
constexpr mode_t                    kPrivateFile = 0600;

/// Whether the lock was had before the deadline; errno says why not.
bool LockUntil(int descriptor, std::chrono::steady_clock::time_point deadline)
{
    while (flock(descriptor, LOCK_EX | LOCK_NB) != 0)
    {
        if ((errno != EWOULDBLOCK && errno != EINTR) ||
            std::chrono::steady_clock::now() >= deadline)
        {
            return false;
        }
        std::this_thread::sleep_for(kRetry);
    }
    return true;
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
    if (descriptor >= 0 && LockUntil(descriptor, deadline))
    {
        m_Descriptor = descriptor;
        return;
    }
    const String reason =
        errno == EWOULDBLOCK ? "another program holds it" : std::generic_category().message(errno);
    if (descriptor >= 0)
    {
        close(descriptor);
    }
    LogWarning("Going on without the lock file \"" + name + "\": " + reason);
}

FileLock::~FileLock()
{
    if (m_Descriptor >= 0)
    {
        close(m_Descriptor);
    }
}
