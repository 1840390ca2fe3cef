#include "vesta/files/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace vesta
{
int Descriptor::Open(const String& fileName, int flags, mode_t mode)
{
    int descriptor = -1;
    do
    {
        descriptor = open(fileName.c_str(), flags | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

bool Descriptor::Close()
{
    const int descriptor = m_Descriptor;
    m_Descriptor = -1;
    // Linux has closed the file also when it reports an interruption.
    return descriptor < 0 || close(descriptor) == 0 || errno == EINTR;
}

bool Descriptor::WriteAll(const char* bytes, size_t count) const
{
    while (count > 0)
    {
        const ssize_t written = write(m_Descriptor, bytes, count);
        if (written > 0)
        {
            bytes += written;
            count -= static_cast<size_t>(written);
        }
        else if (written < 0 && errno != EINTR)
        {
            return false;
        }
    }
    return true;
}
} // namespace vesta
