#include "monitor/MachineLoad.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace
{
constexpr int64_t kKiBInMiB = 1024;

String ContentOf(const char* path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

// The number behind a name such as "MemTotal:"; -1 when the name is not there.
int64_t NumberBehind(const String& text, const char* name)
{
    const size_t found = text.find(name);
    if (found == String::npos)
    {
        return -1;
    }
    std::istringstream numbers(text.substr(found + std::char_traits<char>::length(name)));
    int64_t            number = -1;
    numbers >> number;
    return numbers ? number : -1;
}
} // namespace

bool MachineLoad::Read()
{
    return Read(ContentOf("/proc/stat"), ContentOf("/proc/meminfo"));
}

bool MachineLoad::Read(const String& stat, const String& memory)
{
    const bool isProcessorKnown = ReadProcessor(stat);
    return ReadMemory(memory) && isProcessorKnown;
}

// "cpu  user nice system idle iowait irq softirq steal ..."
bool MachineLoad::ReadProcessor(const String& stat)
{
    constexpr int      kIdle = 3;
    constexpr int      kIoWait = 4;
    constexpr int      kFields = 8; // guests' time is part of the users'
    std::istringstream line(stat);
    std::string        name;
    line >> name;
    uint64_t all = 0;
    uint64_t idle = 0;
    for (int field = 0; field < kFields; ++field)
    {
        uint64_t ticks = 0;
        line >> ticks;
        all += ticks;
        idle += field == kIdle || field == kIoWait ? ticks : 0;
    }
    if (!line || name != "cpu" || all < m_All)
    {
        return false;
    }
    const uint64_t passed = all - m_All;
    const uint64_t busy = all - idle;
    if (m_All > 0 && passed > 0)
    {
        const uint64_t worked = busy > m_Busy ? busy - m_Busy : 0;
        m_Percent = static_cast<int>(std::min<uint64_t>(100, worked * 100 / passed));
    }
    m_All = all;
    m_Busy = busy;
    return true;
}

bool MachineLoad::ReadMemory(const String& memory)
{
    const int64_t total = NumberBehind(memory, "MemTotal:");
    const int64_t available = NumberBehind(memory, "MemAvailable:");
    if (total <= 0 || available < 0)
    {
        return false;
    }
    m_Total = total / kKiBInMiB;
    m_Available = std::min(available / kKiBInMiB, m_Total);
    return true;
}
