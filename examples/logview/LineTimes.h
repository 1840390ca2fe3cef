#pragma once

#include "logview/TimeStamp.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// Microseconds since 1970.
using LineTime = int64_t;

/// When the lines of a file say that they were written. What the file has shown of its habits
/// counts: once a line has begun with a time stamp, one elsewhere in a line is only part of what it
/// tells. One thread.
class LineTimes
{
public:
    /// When the file was written last. Lines whose stamps have no year are not much later.
    void SetLatest(LineTime latest) { m_Latest = latest; }

    /// None: the line has no time stamp.
    std::optional<LineTime> Of(std::string_view line);

private:
    LineTime TimeOf(const TimeStamp& stamp);
    int64_t  LocalSeconds(int64_t civil);

    LineTime m_Latest = INT64_MAX;
    size_t   m_Form = 0; ///< Of the last one.
    bool     m_BeginsLines = false;

    /// @name Of the zone, in the hour that was asked for last
    /// @{
    int64_t m_Hour = INT64_MIN; ///< Since 1970, of the local clock.
    int64_t m_Offset = 0;       ///< Seconds.
    /// @}
};
