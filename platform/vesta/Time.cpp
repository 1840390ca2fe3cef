#include "vesta/Time.h"

#include <chrono>
#include <ctime>

namespace
{

constexpr int64_t kSecond = 1000000; // microseconds

String FormatLocal(int64_t microseconds, const char* format)
{
    // Rounded down also before 1970.
    const std::time_t seconds = (microseconds - (microseconds < 0 ? kSecond - 1 : 0)) / kSecond;
    std::tm           parts{};
    char              text[64];
    if (!localtime_r(&seconds, &parts) || !std::strftime(text, sizeof text, format, &parts))
    {
        return String::FromInt(seconds);
    }
    return text;
}

} // namespace

Time Time::CurrentTime()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return Time(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
}

String Time::FormatDuration() const
{
    // Unsigned, so that the least value has a positive counterpart.
    const auto     bits = static_cast<uint64_t>(m_Microseconds);
    const uint64_t count = m_Microseconds < 0 ? ~bits + 1 : bits;
    const char*    sign = m_Microseconds < 0 ? "-" : "";

    const auto seconds = static_cast<unsigned long long>(count / kSecond);
    const auto minutes = seconds / 60;
    const auto hours = minutes / 60;
    if (seconds == 0)
    {
        return SFormat("%s0.%03us", sign, static_cast<unsigned>(count / 1000));
    }
    if (minutes == 0)
    {
        return SFormat("%s%llus", sign, seconds);
    }
    if (hours == 0)
    {
        return SFormat("%s%llum %02llus", sign, minutes, seconds % 60);
    }
    if (hours < 24)
    {
        return SFormat("%s%lluh %02llum %02llus", sign, hours, minutes % 60, seconds % 60);
    }
    return SFormat("%s%llud %02lluh %02llum", sign, hours / 24, hours % 24, minutes % 60);
}

String Time::FormatDate() const
{
    return FormatLocal(m_Microseconds, "%Y-%m-%d %H:%M:%S");
}

String Time::FormatClock() const
{
    return FormatLocal(m_Microseconds, "%H:%M:%S");
}
