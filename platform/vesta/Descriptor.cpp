#include "vesta/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace
{

/// Calls it again as long as a signal interrupts it.
template <class Call> auto Uninterrupted(const Call& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
    {
        result = call();
    }
    return result;
}

} // namespace

Descriptor Descriptor::Open(const String& fileName, int flags, mode_t mode)
{
    return Descriptor(
        Uninterrupted([&] { return open(fileName.c_str(), flags | O_CLOEXEC, mode); }));
}

bool Descriptor::MakePipe(Descriptor& reading, Descriptor& writing)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
    {
        return false;
    }
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
    return true;
}

bool Descriptor::Close()
{
    const int before = errno;
    const int number = Release();
    // Linux has closed the file also when it reports an interruption.
    if (number >= 0 && close(number) != 0 && errno != EINTR)
    {
        return false;
    }
    errno = before;
    return true;
}

size_t Descriptor::Write(const char* bytes, size_t count) const
{
    size_t done = 0;
    while (done < count)
    {
        const ssize_t written =
            Uninterrupted([&] { return write(m_Number, bytes + done, count - done); });
        if (written < 0)
        {
            break;
        }
        done += static_cast<size_t>(written);
    }
    return done;
}

bool Descriptor::TryLock() const
{
    return Uninterrupted([this] { return flock(m_Number, LOCK_EX | LOCK_NB); }) == 0;
}

bool Descriptor::Lock() const
{
    return Uninterrupted([this] { return flock(m_Number, LOCK_EX); }) == 0;
}

bool Descriptor::LockUnlessTaken() const
{
    return TryLock() || errno != EWOULDBLOCK;
}
