#include "vesta/Platform.h"

#include <climits>
#include <filesystem>
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
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string();
}
