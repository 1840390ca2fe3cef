#include "vesta/files/PrivateFolder.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>

namespace vesta
{
namespace
{

constexpr mode_t kMode = 0700;

bool IsFolder(const std::filesystem::path& folder)
{
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored);
}

} // namespace

String MakePrivateFolder(const String& name)
{
    std::filesystem::path folder;
    for (const std::filesystem::path& part : std::filesystem::path(name.c_str()))
    {
        folder /= part;
        // The standard library would make it as open as the user's mask lets it.
        if (!IsFolder(folder) && mkdir(folder.c_str(), kMode) != 0)
        {
            const int error = errno;
            if (!IsFolder(folder)) // Nobody else has just made it.
            {
                errno = error;
                return folder.string();
            }
        }
    }
    return String();
}
} // namespace vesta
