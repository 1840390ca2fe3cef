#include "master/jobs/FolderLock.h"

#include "vesta/Exception.h"
#include "vesta/File.h"

#include <fcntl.h>
#include <sys/stat.h>

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

Descriptor LockFolder(const Path& folder)
{
    const Path path = FileIn(folder);
    Descriptor file = Descriptor::Open(path.Text(), O_RDWR | O_CREAT | O_NOFOLLOW, kPrivateFile);
    if (!file.IsOpen())
    {
        Exception::ThrowErrno("FolderLock", "LockFolder", "Cannot use \"" + path.Text() + "\"");
    }
    if (!file.LockUnlessTaken())
    {
        file.Close();
    }
    return file;
}

std::vector<int> HoldersOf(const Path& folder)
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
