#include "logview/LineTimes.h"

#include <ctime>

namespace
{
constexpr int64_t kMicros = 1'000'000;
constexpr int64_t kHour = 3600;
constexpr int64_t kDay = 24 * kHour;

// Since 1970-01-01, in the calendar of today.
int64_t DaysOf(int64_t year, int month, int day)
{
    year -= month <= 2 ? 1 : 0; // years begin in March: the day that some have is their last one
    const int64_t era = year / 400;
    const int64_t ofEra = year - era * 400;
    const int64_t ofYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + ofEra * 365 + ofEra / 4 - ofEra / 100 + ofYear - 719468;
}

int64_t CivilSeconds(const TimeStamp& stamp, int year)
{
    return DaysOf(year, stamp.month, stamp.day) * kDay + stamp.hour * kHour + stamp.minute * 60 +
           stamp.second;
}

int YearOf(LineTime time)
{
    const std::time_t seconds = time / kMicros;
    std::tm           parts = {};
    localtime_r(&seconds, &parts);
    return parts.tm_year + 1900;
}
} // namespace

std::optional<LineTime> LineTimes::Of(std::string_view line)
{
    std::optional<TimeStamp> stamp = StampAtStart(line, m_Form);
    if (stamp)
    {
        m_BeginsLines = true;
        m_Form = stamp->form;
    }
    else if (!m_BeginsLines)
    {
        stamp = StampInside(line);
    }
    return stamp ? std::optional<LineTime>(TimeOf(*stamp)) : std::nullopt;
}

// Without a year, the last one in which it is not in the file's future; clocks may differ by hours.
LineTime LineTimes::TimeOf(const TimeStamp& stamp)
{
    const auto at = [&](int year)
    {
        const int64_t civil = CivilSeconds(stamp, year);
        return (stamp.zone ? civil - *stamp.zone : LocalSeconds(civil)) * kMicros + stamp.micros;
    };
    if (stamp.year > 0)
    {
        return at(stamp.year);
    }
    const LineTime latest =
        m_Latest == INT64_MAX ? static_cast<LineTime>(std::time(nullptr)) * kMicros : m_Latest;
    const int      year = YearOf(latest + kDay * kMicros);
    const LineTime time = at(year);
    return time > latest + kDay * kMicros ? at(year - 1) : time;
}

// Asking the system takes longer than all the rest: once for the lines of an hour.
int64_t LineTimes::LocalSeconds(int64_t civil)
{
    const int64_t hour = civil / kHour;
    if (hour != m_Hour)
    {
        const std::time_t start = hour * kHour;
        std::tm           parts = {};
        gmtime_r(&start, &parts);
        parts.tm_isdst = -1;
        m_Offset = static_cast<int64_t>(std::mktime(&parts)) - start;
        m_Hour = hour;
    }
    return civil + m_Offset;
}
