#include "common/StartTime.h"

#include <fstream>
#include <sstream>
#include <string>

#include <ctime>
#include <unistd.h>

long MillisecondsSinceStart()
{
    std::ifstream stream("/proc/self/stat");
    std::string   text;
    std::getline(stream, text);
    // The program's name, in parentheses, may hold blanks; the 20th field after it is the start
    // time in clock ticks since the system started.
    constexpr int      kFieldAfterName = 20;
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string        field;
    for (int i = 0; i < kFieldAfterName; ++i)
    {
        fields >> field;
    }
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const long started = std::stol(field) * 1000 / sysconf(_SC_CLK_TCK);
    return static_cast<long>(now.tv_sec) * 1000 + now.tv_nsec / 1000000 - started;
}
