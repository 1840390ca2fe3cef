#include "master/jobs/JobLog.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>

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
    m_File = Descriptor::Open(file.Text(), O_WRONLY | O_CREAT | O_TRUNC, kPrivate);
    return m_File.IsOpen() ? String() : "Cannot write " + file.Text() + ": " + std::strerror(errno);
}

size_t JobLog::Write(std::string_view bytes, String& why)
{
    const size_t done = m_File.Write(bytes.data(), bytes.size());
    if (done < bytes.size())
    {
        why = std::strerror(errno);
    }
    return done;
}
} // namespace master
