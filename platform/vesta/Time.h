#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <cstdint>

/// A point in time or a duration, in microseconds; as a point, since 1970-01-01 00:00 UTC.
class TOLVAN_API Time
{
public:
    constexpr Time() = default;
    constexpr explicit Time(int64_t microseconds) : m_Microseconds(microseconds) {}

    static Time           CurrentTime();
    static constexpr Time Milliseconds(int64_t count) { return Time(count * 1000); }
    static constexpr Time Seconds(int64_t count) { return Time(count * 1000000); }

    constexpr int64_t ToMicroseconds() const { return m_Microseconds; }
    constexpr int64_t ToMilliseconds() const { return m_Microseconds / 1000; }
    constexpr int64_t ToSeconds() const { return m_Microseconds / 1000000; }

    /// As a duration: "0.250s", "12s", "3m 05s", "2h 03m 05s", "4d 02h 03m"; a leading "-" when
    /// negative.
    String FormatDuration() const;
    /// As a point in local time: "2026-03-31 17:05:09".
    String FormatDate() const;
    String FormatClock() const; ///< As a point in local time: "17:05:09".

    friend constexpr Time operator+(Time a, Time b)
    {
        return Time(a.m_Microseconds + b.m_Microseconds);
    }
    friend constexpr Time operator-(Time a, Time b)
    {
        return Time(a.m_Microseconds - b.m_Microseconds);
    }
    friend constexpr bool operator==(Time a, Time b)
    {
        return a.m_Microseconds == b.m_Microseconds;
    }
    friend constexpr bool operator!=(Time a, Time b)
    {
        return a.m_Microseconds != b.m_Microseconds;
    }
    friend constexpr bool operator<(Time a, Time b) { return a.m_Microseconds < b.m_Microseconds; }

private:
    int64_t m_Microseconds = 0;
};
