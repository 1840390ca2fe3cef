#include "logview/SpoolFile.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace
{
constexpr uint64_t kFreeBytes = uint64_t{512} * 1024 * 1024; // left to others

// What is temporary and may be large lies there: the common temporary folder is often in memory.
Descriptor OpenNameless()
{
    const char* const folder = "/var/tmp";
    Descriptor        file = Descriptor::Open(folder, O_RDWR | O_TMPFILE, 0600);
    if (!file.IsOpen()) // not every file system can
    {
        String name = String(folder) + "/tolvan.XXXXXX";
        file = Descriptor(mkostemp(name.data(), O_CLOEXEC));
        if (file.IsOpen())
        {
            unlink(name.c_str());
        }
    }
    return file;
}

bool HasRoom(int file)
{
    struct statvfs disk = {};
    return fstatvfs(file, &disk) != 0 || disk.f_bavail * uint64_t{disk.f_frsize} > kFreeBytes;
}
} // namespace

bool SpoolFile::Open(String& problem)
{
    Descriptor file = OpenNameless();
    if (!file.IsOpen())
    {
        problem = std::strerror(errno);
        return false;
    }
    m_Number = file.Get();
    m_Source = std::make_shared<wxTextFile>(std::move(file));
    return true;
}

bool SpoolFile::Append(const char* bytes, size_t count, String& problem)
{
    if (!m_Source && !Open(problem))
    {
        return false;
    }
    for (size_t done = 0; done < count;)
    {
        const bool    hasRoom = HasRoom(m_Number);
        const ssize_t written =
            hasRoom ? pwrite(m_Number, bytes + done, count - done, static_cast<off_t>(m_Size)) : -1;
        if (written > 0)
        {
            done += static_cast<size_t>(written);
            m_Size += static_cast<uint64_t>(written);
        }
        else if (!hasRoom || errno != EINTR)
        {
            problem = std::strerror(hasRoom ? errno : ENOSPC);
            return false;
        }
    }
    return true;
}
