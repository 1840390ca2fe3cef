#include "monitor/PictureFile.h"

#include "vesta/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr size_t kAtOnce = 1 << 20; // bytes read between two looks at whether to give up
const FileStamp  kNoFile{0, -1, 0};

FileStamp StampFrom(const struct stat& info)
{
    return {static_cast<long long>(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec,
            static_cast<long long>(info.st_size), static_cast<uint64_t>(info.st_ino)};
}

String Reason(const char* what)
{
    return String(what) + ": " + std::strerror(errno);
}
} // namespace

FileStamp StampOf(const Path& file)
{
    struct stat info;
    return stat(file.Text().c_str(), &info) == 0 && S_ISREG(info.st_mode) ? StampFrom(info)
                                                                          : kNoFile;
}

String ReadPicture(const Path& file, String& bytes, FileStamp& stamp,
                   const std::function<bool()>& isOver)
{
    bytes.clear();
    stamp = kNoFile;
    // A pipe or a device must not hold it up.
    const Descriptor descriptor = Descriptor::Open(file.Text(), O_RDONLY | O_NONBLOCK);
    struct stat      info;
    if (!descriptor.IsOpen() || fstat(descriptor.Get(), &info) != 0)
    {
        return Reason("The picture cannot be read");
    }
    if (!S_ISREG(info.st_mode))
    {
        return "That is no file.";
    }
    stamp = StampFrom(info);
    if (stamp.size > k_MostPictureBytes)
    {
        return SFormat("The file is too large to be shown here (%lld MB).", stamp.size >> 20);
    }
    while (static_cast<long long>(bytes.size()) < stamp.size && !isOver())
    {
        const size_t before = bytes.size();
        bytes.resize(std::min(before + kAtOnce, static_cast<size_t>(stamp.size)));
        const ssize_t count = read(descriptor.Get(), &bytes[before], bytes.size() - before);
        bytes.resize(before + static_cast<size_t>(std::max<ssize_t>(count, 0)));
        if (count < 0 && errno != EINTR)
        {
            return Reason("The picture cannot be read");
        }
        if (count == 0)
        {
            break; // it has become shorter meanwhile
        }
    }
    return {};
}
