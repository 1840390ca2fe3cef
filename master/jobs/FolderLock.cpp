#include "master/jobs/FolderLock.h"

#include "vesta/Exception.h"
#include "vesta/File.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace master
{
namespace
{

constexpr mode_t kPrivateFile = 0600;

Path FileIn(const Path& folder)
{
    return folder / ".run.lock";
}

bool IsOpenAs(const Path& descriptor, const struct stat& file)
{
    struct stat status = {};
    return stat(descriptor.Text().c_str(), &status) == 0 && status.st_dev == file.st_dev &&
           status.st_ino == file.st_ino;
}

} // namespace

FolderLock::~FolderLock()
{
    if (m_Descriptor >= 0)
    {
        close(m_Descriptor);
    }
}

bool FolderLock::Take(const Path& folder)
{
    const Path file = FileIn(folder);
    const int  descriptor =
        open(file.Text().c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, kPrivateFile);
    // A file system without locks is no reason not to run anything.
    const bool isFree =
        descriptor >= 0 && (flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK);
    if (isFree)
    {
        m_Descriptor = descriptor;
        return true;
    }
    if (descriptor < 0)
    {
        Exception::ThrowErrno("FolderLock", "Take", "Cannot use \"" + file.Text() + "\"");
    }
    close(descriptor);
    return false;
}

std::vector<int> FolderLock::HoldersOf(const Path& folder)
{
    std::vector<int> holders;
    struct stat      file = {};
    if (stat(FileIn(folder).Text().c_str(), &file) != 0)
    {
        return holders;
    }
    for (const String& process : File::List("/proc"))
    {
        const auto id = static_cast<int>(process.ToInt(0));
        const Path descriptors = Path("/proc") / process / "fd";
        for (const String& descriptor : id > 0 ? File::List(descriptors) : std::vector<String>())
        {
            if (IsOpenAs(descriptors / descriptor, file))
            {
                holders.push_back(id);
                break;
            }
        }
    }
    return holders;
}
} // namespace master
