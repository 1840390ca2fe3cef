#include "tolvan/SocketFolder.h"

#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Log.h"
#include "wire/LocalSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

const char* const kMasterSocket = "master";
constexpr mode_t  kPrivate = 0700; // folder mode: this user only
constexpr mode_t  kOthers = 0077;  // permission bits of everybody else

[[noreturn]] void Refuse(const Path& folder, const String& why)
{
    Exception::Throw("SocketFolder", "Get", ec_Refused,
                     "The private folder " + folder.Text() + " cannot be used: " + why);
}

/// Creates the folder if need be and makes sure that nobody else can reach into it. Works on the
/// opened folder: it cannot be exchanged between the check and the correction.
void MakePrivate(const Path& folder)
{
    if (mkdir(folder.Text().c_str(), kPrivate) != 0 && errno != EEXIST)
    {
        Refuse(folder, String("it cannot be created, ") + strerror(errno));
    }
    const Descriptor opened = Descriptor::Open(folder.Text(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (!opened.IsOpen())
    {
        const bool isOther = errno == ENOTDIR || errno == ELOOP;
        Refuse(folder, isOther ? "it is a link or no folder at all" : strerror(errno));
    }
    struct stat status = {};
    if (fstat(opened.Get(), &status) != 0)
    {
        Refuse(folder, strerror(errno));
    }
    if (status.st_uid != geteuid())
    {
        Refuse(folder, SFormat("it belongs to another user (%u)", status.st_uid));
    }
    if ((status.st_mode & kOthers) != 0)
    {
        if (fchmod(opened.Get(), kPrivate) != 0)
        {
            Refuse(folder, "others may reach into it and that cannot be changed");
        }
        LogWarning("Others could reach into " + folder.Text() + "; it is private again now");
    }
}

/// The process id in a socket's name; 0 when the name is not "<component>.<process id>".
int ProcessIdIn(const String& name, const String& component)
{
    if (!name.StartsWith(component + "."))
    {
        return 0;
    }
    const String digits = name.substr(component.size() + 1);
    const bool   isNumber =
        !digits.empty() &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? static_cast<int>(digits.ToInt(0)) : 0;
}

bool IsSocket(const Path& path)
{
    struct stat status = {};
    return lstat(path.Text().c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
}

enum class Answer
{
    kYes,
    kNo,
    kDead ///< Nobody will ever listen on it again.
};

Answer TakesConnections(const Path& path)
{
    if (wire::LocalSocket::Connect(path).IsOpen() || errno == EAGAIN)
    {
        return Answer::kYes; // EAGAIN: it is there, but has too much to do at the moment.
    }
    return errno == ECONNREFUSED ? Answer::kDead : Answer::kNo;
}

/// The folder of this user's session; null when the environment names none, one that is not there,
/// or (after a change of user) another user's, which must not get a folder of ours.
const char* RuntimeFolder()
{
    const char* const runtime = getenv("XDG_RUNTIME_DIR");
    struct stat       status = {};
    const bool        isOurs = runtime && runtime[0] == '/' && stat(runtime, &status) == 0 &&
                        S_ISDIR(status.st_mode) && status.st_uid == geteuid();
    return isOurs ? runtime : nullptr;
}

} // namespace

Path SocketFolder::Get()
{
    const char* const runtime = RuntimeFolder();
    if (!runtime)
    {
        return GetTemporary();
    }
    const Path folder = Path(runtime) / "tolvan";
    MakePrivate(folder);
    return folder;
}

Path SocketFolder::GetTemporary()
{
    const char* const temporary = getenv("TMPDIR");
    const Path        folder = Path(temporary && temporary[0] == '/' ? temporary : "/tmp") /
                        SFormat("tolvan-%u", geteuid());
    MakePrivate(folder);
    return folder;
}

Path SocketFolder::ForProgram(const String& component, int processId)
{
    return Get() / SFormat("%s.%d", component.c_str(), processId);
}

Path SocketFolder::ForMaster()
{
    return Get() / kMasterSocket;
}

std::vector<Path> SocketFolder::Find(const String& component)
{
    const Path        folder = Get();
    std::vector<Path> found;
    for (const String& name : File::List(folder))
    {
        const Path path = folder / name;
        if (ProcessIdIn(name, component) <= 0 || !IsSocket(path))
        {
            continue;
        }
        // Not the process: in another namespace a living one has another number, or none.
        const Answer answer = TakesConnections(path);
        if (answer == Answer::kYes)
        {
            found.push_back(path);
        }
        else if (answer == Answer::kDead && unlink(path.Text().c_str()) == 0)
        {
            LogDebug("Removed the socket of a program that has ended: " + path.Text());
        }
    }
    return found;
}

bool SocketFolder::MasterAnswers()
{
    // A dead master's is not removed here: the next master takes its place.
    return TakesConnections(ForMaster()) == Answer::kYes;
}
