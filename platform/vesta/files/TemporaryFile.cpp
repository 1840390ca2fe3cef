#include "vesta/files/TemporaryFile.h"

#include "vesta/Log.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace vesta
{
namespace
{

constexpr mode_t           kPrivateFile = 0600;
constexpr std::string_view kPrefix = ".tolvan-";
constexpr std::string_view kPattern = "XXXXXX"; // The system puts letters and digits in its place.

bool IsNameOfOne(std::string_view name)
{
    const std::string_view rest = name.substr(std::min(kPrefix.size(), name.size()));
    return name.substr(0, kPrefix.size()) == kPrefix && rest.size() == kPattern.size() &&
           std::all_of(rest.begin(), rest.end(), [](unsigned char c) { return std::isalnum(c); });
}

bool IsOurs(const std::filesystem::path& file)
{
    struct stat status = {};
    return lstat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == geteuid();
}

/// Removes the files whose owners have died. One that is about to be locked by its owner may be
/// among them; the owner sees that and makes another.
void RemoveForgotten(const Path& folder)
{
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(folder.Text().c_str(), ignored), end;
         !ignored && entry != end; entry.increment(ignored))
    {
        const std::filesystem::path& file = entry->path();
        if (!IsNameOfOne(file.filename().native()) || !IsOurs(file))
        {
            continue;
        }
        const Descriptor opened = Descriptor::Open(file.native(), O_RDWR | O_NOFOLLOW | O_NONBLOCK);
        if (opened.IsOpen() && opened.TryLock() && unlink(file.c_str()) == 0)
        {
            LogDebug("Removed \"" + file.native() + "\", which a program that was killed has left");
        }
    }
}

} // namespace

Path FolderOf(const String& fileName)
{
    const Path folder = Path(fileName).Branch();
    return folder.IsEmpty() ? Path(".") : folder;
}

bool MayWrite(const String& name)
{
    return faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS) == 0;
}

void SyncFolder(const Path& folder)
{
    const Descriptor descriptor = Descriptor::Open(folder.Text(), O_RDONLY | O_DIRECTORY);
    if (descriptor.IsOpen())
    {
        fsync(descriptor.Get());
    }
}

TemporaryFile::TemporaryFile(const Path& folder)
{
    RemoveForgotten(folder);
    while (!Create(folder) && m_File.IsOpen())
    {
        m_File.Close(); // Another program took it for a forgotten one.
    }
    m_Exists = m_File.IsOpen();
}

TemporaryFile::~TemporaryFile()
{
    if (m_Exists)
    {
        unlink(m_Name.c_str());
    }
}

/// Whether the file is there to stay; false with an open file when it has been removed at once.
bool TemporaryFile::Create(const Path& folder)
{
    m_Name = (folder / String(std::string(kPrefix).append(kPattern))).Text();
    m_File = Descriptor(mkostemp(&m_Name[0], O_CLOEXEC));
    struct stat status = {};
    // Where the file system knows no locks nobody removes it either.
    return m_File.IsOpen() && m_File.LockUnlessTaken() && fstat(m_File.Get(), &status) == 0 &&
           status.st_nlink > 0;
}

bool TemporaryFile::Fill(const String& content)
{
    return m_File.IsOpen() && fchmod(m_File.Get(), kPrivateFile) == 0 &&
           m_File.WriteAll(content.data(), content.size()) && fsync(m_File.Get()) == 0;
}

bool TemporaryFile::RenameTo(const String& fileName)
{
    // Closed, and thereby unlocked, only behind this: until then the name is its own.
    m_Exists = std::rename(m_Name.c_str(), fileName.c_str()) != 0;
    return !m_Exists;
}
} // namespace vesta
