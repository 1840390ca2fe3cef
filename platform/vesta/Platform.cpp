#include "vesta/Platform.h"

#include "vesta/Path.h"

#include <climits>
#include <pwd.h>
#include <unistd.h>
#include <vector>

extern char** environ;

String Platform::GetCurrentUserName()
{
    passwd            entry{};
    passwd*           found = nullptr;
    std::vector<char> buffer(16384);
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found &&
        found->pw_name[0])
    {
        return found->pw_name;
    }
    return String::FromInt(getuid());
}

String Platform::GetHostName()
{
    char name[HOST_NAME_MAX + 1] = {};
    if (gethostname(name, sizeof name - 1) != 0 || !name[0])
    {
        return "localhost";
    }
    return name;
}

int Platform::GetProcessId()
{
    return getpid();
}

std::map<String, String> Platform::GetLiveEnv()
{
    std::map<String, String> result;
    for (char** entry = environ; entry && *entry; ++entry)
    {
        const String text = *entry;
        const size_t equals = text.find('=');
        if (equals != String::npos && equals > 0)
        {
            result.emplace(text.substr(0, equals), text.substr(equals + 1));
        }
    }
    return result;
}

String Platform::GetProgramFolder()
{
    char          name[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", name, sizeof name);
    if (length <= 0 || static_cast<size_t>(length) >= sizeof name)
    {
        return String();
    }
    return Path(String(name, static_cast<size_t>(length))).Branch().Text();
}
