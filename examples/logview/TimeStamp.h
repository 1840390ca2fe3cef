#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// A time as a line has it.
struct TimeStamp
{
    int                year = 0; ///< 0: it says none.
    int                month = 1;
    int                day = 1;
    int                hour = 0;
    int                minute = 0;
    int                second = 0;
    int                micros = 0;
    std::optional<int> zone;      ///< Seconds east of Greenwich; none: local time.
    size_t             form = 0;  ///< In the table of those that are known.
    size_t             begin = 0; ///< Where it stands in the line.
};

/// The time stamp that the line begins with, behind brackets, blanks, a priority of syslog and
/// escape sequences, in one of the usual forms: ISO 8601 with T or blank, syslog's, those of web
/// servers and mails, `date`'s, seconds (also thousandths or millionths) since 1970. The form
/// `first` is tried before the others.
std::optional<TimeStamp> StampAtStart(std::string_view line, size_t first = 0);
/// The first one that stands at the start of a word among the line's first bytes; none in seconds
/// since 1970, which any number may be.
std::optional<TimeStamp> StampInside(std::string_view line);

/// Bytes that `StampInside` looks at.
constexpr size_t k_StampReach = 160;
