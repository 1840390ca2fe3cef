#include "master/jobs/JobLog.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace master
{
namespace
{

constexpr mode_t kPrivate = 0600; // file mode: this user only

Path LogName(const Path& folder, int age)
{
    return folder / (age == 0 ? String("output.log") : SFormat("output.%d.log", age));
}

} // namespace

JobLog::~JobLog()
{
    Close();
}

Path JobLog::MakeRoom(const Path& folder)
{
    for (int age = k_Earlier; age > 0; --age)
    {
        // Missing ones are no failure; a file that cannot be moved is overwritten, as announced.
        std::rename(LogName(folder, age - 1).Text().c_str(), LogName(folder, age).Text().c_str());
    }
    return LogName(folder, 0);
}

String JobLog::Open(const Path& file)
{
    Close();
    m_Descriptor = open(file.Text().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kPrivate);
    return m_Descriptor >= 0 ? String()
                             : "Cannot write " + file.Text() + ": " + std::strerror(errno);
}

size_t JobLog::Write(std::string_view bytes, String& why)
{
    size_t done = 0;
    while (done < bytes.size())
    {
        const ssize_t count = write(m_Descriptor, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
        {
            continue;
        }
        if (count <= 0)
        {
            why = std::strerror(errno);
            break;
        }
        done += static_cast<size_t>(count);
    }
    return done;
}

void JobLog::Close()
{
    if (m_Descriptor >= 0)
    {
        close(m_Descriptor);
        m_Descriptor = -1;
    }
}
} // namespace master
