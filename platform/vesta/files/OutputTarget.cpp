#include "vesta/files/OutputTarget.h"

#include "vesta/File.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace vesta
{
namespace
{

constexpr mode_t           kMode = 0666; // what the user's mask leaves of it
constexpr mode_t           kPermissions = 07777;
constexpr std::string_view kSystemsOwn = "security."; // attributes that the system gives every file

bool IsSame(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Whether the folder lets only owners rename over a file.
bool IsProtectedByFolder(const struct stat& file, const struct stat& folder)
{
    const uid_t user = geteuid();
    return (folder.st_mode & S_ISVTX) != 0 && user != 0 && user != file.st_uid &&
           user != folder.st_uid;
}

/// Files can be mounted alone, as containers do it; such a name cannot be given to another.
bool IsMountPoint(const String& name, const String& folder)
{
    struct statx own = {};
    struct statx around = {};
    return statx(AT_FDCWD, name.c_str(), 0, STATX_MNT_ID, &own) == 0 &&
           statx(AT_FDCWD, folder.c_str(), 0, STATX_MNT_ID, &around) == 0 &&
           own.stx_mnt_id != around.stx_mnt_id;
}

bool CopyAttribute(const char* name, const String& from, int to)
{
    const ssize_t size = getxattr(from.c_str(), name, nullptr, 0);
    if (size < 0)
    {
        return false;
    }
    std::vector<char> value(static_cast<size_t>(size));
    return getxattr(from.c_str(), name, value.data(), value.size()) == size &&
           fsetxattr(to, name, value.data(), value.size(), 0) == 0;
}

/// Access lists among them.
bool CopyAttributes(const String& from, int to)
{
    const ssize_t size = listxattr(from.c_str(), nullptr, 0);
    if (size <= 0)
    {
        return size == 0 || errno == ENOTSUP;
    }
    String names(static_cast<size_t>(size), '\0');
    if (listxattr(from.c_str(), &names[0], names.size()) != size)
    {
        return false;
    }
    for (const char* name = names.c_str(); *name; name += std::string_view(name).size() + 1)
    {
        const bool own = std::string_view(name).substr(0, kSystemsOwn.size()) == kSystemsOwn;
        if (!CopyAttribute(name, from, to) && !own)
        {
            return false;
        }
    }
    return true;
}

/// Makes the new file like the old one, whose content it does not have yet.
bool TakeAfter(const struct stat& old, const String& oldName, int file)
{
    struct stat status = {};
    if (fstat(file, &status) != 0)
    {
        return false;
    }
    const bool owned = status.st_uid == old.st_uid && status.st_gid == old.st_gid;
    // The mode is last: a change of the owner takes bits of it away.
    return (owned || fchown(file, old.st_uid, old.st_gid) == 0) && CopyAttributes(oldName, file) &&
           fchmod(file, old.st_mode & kPermissions) == 0;
}

} // namespace

OutputTarget::OutputTarget(const Path& path) : m_Name(File::FollowLinks(path).Text())
{
    CreateIfMissing(path);
    struct stat status = {};
    if (stat(m_Name.c_str(), &status) == 0 && MayReplace(status, path))
    {
        m_Beside = std::make_unique<TemporaryFile>(FolderOf(m_Name));
        // Without room for it there is none for the content either: the old one is not given up.
        if (!m_Beside->Opened().IsOpen() || TakeAfter(status, m_Name, m_Beside->Opened().Get()))
        {
            return;
        }
        m_Beside.reset();
    }
    OpenInPlace(path);
}

/// The empty file has the mode that every new one gets here, and keeps the name.
void OutputTarget::CreateIfMissing(const Path& path)
{
    if (File::Exists(path))
    {
        return;
    }
    const Descriptor file = Descriptor::Open(m_Name, O_WRONLY | O_CREAT | O_EXCL, kMode);
    struct stat      status = {};
    if (file.IsOpen() && fstat(file.Get(), &status) == 0)
    {
        m_Created = status;
    }
}

bool OutputTarget::MayReplace(const struct stat& status, const Path& path) const
{
    const String folderName = FolderOf(m_Name).Text();
    struct stat  folder = {};
    struct stat  named = {};
    // Some links, those to open files, do not lead where they say.
    return S_ISREG(status.st_mode) && status.st_nlink == 1 &&
           stat(path.Text().c_str(), &named) == 0 && IsSame(named, status) &&
           stat(folderName.c_str(), &folder) == 0 && !IsMountPoint(m_Name, folderName) &&
           !IsProtectedByFolder(status, folder) && MayWrite(folderName) && MayWrite(m_Name);
}

void OutputTarget::OpenInPlace(const Path& path)
{
    m_InPlace = Descriptor::Open(path.Text(), O_WRONLY | O_CREAT | O_TRUNC, kMode);
}

bool OutputTarget::Commit()
{
    if (!m_Beside)
    {
        m_Created.reset();
        return m_InPlace.IsOpen() && m_InPlace.Close();
    }
    if (!m_Beside->Opened().IsOpen() || fsync(m_Beside->Opened().Get()) != 0 ||
        !m_Beside->RenameTo(m_Name))
    {
        return false;
    }
    m_Created.reset();
    m_Beside.reset();
    SyncFolder(FolderOf(m_Name));
    return true;
}

void OutputTarget::Abandon()
{
    const int error = errno;
    m_Beside.reset();
    m_InPlace.Close();
    struct stat status = {};
    if (m_Created && stat(m_Name.c_str(), &status) == 0 && IsSame(status, *m_Created))
    {
        unlink(m_Name.c_str());
    }
    m_Created.reset();
    errno = error;
}
} // namespace vesta
