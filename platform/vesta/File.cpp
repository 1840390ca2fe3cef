#include "vesta/File.h"

#include "vesta/CallEntry.h"
#include "vesta/Descriptor.h"
#include "vesta/Exception.h"
#include "vesta/files/PrivateFolder.h"
#include "vesta/files/TemporaryFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

String File::s_UserDir = File::FindUserDir();

namespace
{

constexpr int kMaxLinks = 40; // symbolic links followed, as many as Linux follows

String HomeFolder()
{
    if (const char* home = std::getenv("HOME"))
    {
        return home; // Set but empty says that there is none.
    }
    passwd            entry{};
    passwd*           found = nullptr;
    std::vector<char> buffer(16384);
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
    {
        return found->pw_dir;
    }
    return String();
}

/// Reads to the real end: the file may grow meanwhile, and some files report no size. False when
/// there are more than `limit` bytes.
bool ReadToEnd(const Path& path, const Descriptor& file, size_t limit, String& content)
{
    char block[65536];
    while (content.size() <= limit)
    {
        const ssize_t count = read(file.Get(), block, sizeof block);
        if (count == 0)
        {
            return true;
        }
        if (count > 0)
        {
            content.append(block, static_cast<size_t>(count));
        }
        else if (errno != EINTR)
        {
            Exception::ThrowErrno("File", "Read", "Cannot read \"" + path.Text() + "\"");
        }
    }
    return false;
}

} // namespace

String File::FindUserDir()
{
    if (const char* folder = std::getenv("TOLVAN_USER_DIR"); folder && *folder)
    {
        return folder;
    }
    // A relative name there is invalid by the desktop's rules and to be ignored.
    if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config == '/')
    {
        return (Path(config) / "tolvan").Text();
    }
    const String home = HomeFolder();
    return home.empty() ? String() : (Path(home) / ".config/tolvan").Text();
}

Path File::GetUserDir()
{
    CALL_ENTRY("File::GetUserDir");
    if (s_UserDir.empty())
    {
        Exception::Throw("File", "GetUserDir", ec_NoUserDir, "No User Folder available");
    }
    return s_UserDir;
}

bool File::Exists(const Path& path)
{
    return access(path.Text().c_str(), F_OK) == 0;
}

bool File::IsFolder(const Path& path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(path.Text().c_str(), ignored);
}

void File::MakeFolder(const Path& path)
{
    CALL_ENTRY("File::MakeFolder");
    if (const String failed = vesta::MakePrivateFolder(path.Text()); !failed.empty())
    {
        Exception::ThrowErrno("File", "MakeFolder", "Cannot create the folder \"" + failed + "\"");
    }
}

bool File::Remove(const Path& path)
{
    return unlink(path.Text().c_str()) == 0;
}

String File::Read(const Path& path, size_t limit)
{
    CALL_ENTRY("File::Read");
    const String& name = path.Text();
    // Without waiting: a pipe in the file's place must not block the program.
    const Descriptor file = Descriptor::Open(name, O_RDONLY | O_NONBLOCK);
    struct stat      status
    {
    };
    if (!file.IsOpen() || fstat(file.Get(), &status) != 0)
    {
        Exception::ThrowErrno("File", "Read", "Cannot read \"" + name + "\"");
    }
    if (!S_ISREG(status.st_mode))
    {
        Exception::Throw("File", "Read", ec_BadData, "Cannot read \"" + name + "\"",
                         "It is no plain file");
    }

    String content;
    if (const auto expected = static_cast<size_t>(status.st_size); expected <= limit)
    {
        content.reserve(expected);
        if (ReadToEnd(path, file, limit, content))
        {
            return content;
        }
    }
    Exception::Throw("File", "Read", ec_TooLarge, "\"" + name + "\" is too large",
                     SFormat("The limit is %zu bytes", limit));
}

Path File::FollowLinks(const Path& path)
{
    CALL_ENTRY("File::FollowLinks");
    String result = path.Text();
    for (int i = 0; i < kMaxLinks; ++i)
    {
        std::error_code noLink; // or nothing there
        const String    target = std::filesystem::read_symlink(result.c_str(), noLink).string();
        if (noLink)
        {
            return result;
        }
        result = target[0] == '/' ? target : (Path(result).Branch() / target).Text();
    }
    errno = ELOOP;
    Exception::ThrowErrno("File", "FollowLinks", "Cannot use \"" + path.Text() + "\"");
}

void File::CheckReplaceable(const Path& path)
{
    const String& fileName = path.Text();
    const String  failure = "Cannot write \"" + fileName + "\"";
    if (!vesta::MayWrite(vesta::FolderOf(fileName).Text()))
    {
        Exception::ThrowErrno("File", "WriteAtomically", failure);
    }
    struct stat status
    {
    };
    if (stat(fileName.c_str(), &status) != 0)
    {
        return; // Nothing to protect.
    }
    if (!S_ISREG(status.st_mode))
    {
        Exception::Throw("File", "WriteAtomically", ec_System, failure, "It is no plain file");
    }
    // Renaming over a file asks only for the folder's permission, and root may write everything:
    // what the owner's mode forbids is looked up here.
    if ((status.st_mode & S_IWUSR) == 0 || !vesta::MayWrite(fileName))
    {
        Exception::Throw("File", "WriteAtomically", ec_System, failure, "It is write-protected");
    }
}

bool File::WriteAtomically(const Path& path, const String& content,
                           const std::function<bool()>& mayReplace)
{
    CALL_ENTRY("File::WriteAtomically");
    const String target = FollowLinks(path).Text();
    CheckReplaceable(target);
    const Path           folder = vesta::FolderOf(target);
    vesta::TemporaryFile file(folder);
    const bool           isFilled = file.Fill(content);
    if (isFilled && mayReplace && !mayReplace())
    {
        return false;
    }
    if (!isFilled || !file.RenameTo(target))
    {
        Exception::ThrowErrno("File", "WriteAtomically", "Cannot write \"" + target + "\"");
    }
    vesta::SyncFolder(folder);
    return true;
}

std::vector<String> File::List(const Path& folder)
{
    CALL_ENTRY("File::List");
    std::vector<String> names;
    std::error_code     ignored;
    for (std::filesystem::directory_iterator entry(folder.Text().c_str(), ignored), end;
         !ignored && entry != end; entry.increment(ignored))
    {
        names.emplace_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}
