#include "logview/LineTimes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace
{
constexpr LineTime kMicros = 1'000'000;

/// In a zone an hour, in summer two, east of Greenwich.
class TimeStampTest : public testing::Test
{
protected:
    TimeStampTest()
    {
        const char* const zone = std::getenv("TZ");
        m_Zone = zone ? zone : "";
        m_HadZone = zone != nullptr;
        setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
        tzset();
    }
    ~TimeStampTest() override
    {
        m_HadZone ? setenv("TZ", m_Zone.c_str(), 1) : unsetenv("TZ");
        tzset();
    }

private:
    std::string m_Zone;
    bool        m_HadZone;
};

// "2026-11-23 17:47:27.500000", in universal time; "-" for none.
std::string Shown(const std::optional<LineTime>& time)
{
    if (!time)
    {
        return "-";
    }
    const std::time_t seconds = *time / kMicros;
    std::tm           parts = {};
    char              text[64];
    gmtime_r(&seconds, &parts);
    std::strftime(text, sizeof text, "%F %T", &parts);
    const std::string fraction = std::to_string(1'000'000 + *time % kMicros).substr(1);
    return std::string(text) + (fraction == "000000" ? "" : "." + fraction);
}

// Of a file that has that line only, and was written last at the end of that November.
std::string TimeOf(const std::string& line)
{
    LineTimes times;
    times.SetLatest(1795910400 * kMicros); // 2026-11-29
    return Shown(times.Of(line));
}
} // namespace

TEST_F(TimeStampTest, UsualFormsAreKnown)
{
    const struct
    {
        const char* line;
        const char* time;
    } rows[] = {
        {"2026-11-23T18:47:27Z x", "2026-11-23 18:47:27"},
        {"2026-11-23 18:47:27 status installed", "2026-11-23 17:47:27"},
        {"2026-07-23 18:47:27", "2026-07-23 16:47:27"},
        {"[2026-11-23T18:47:27.5+01:00] x", "2026-11-23 17:47:27.500000"},
        {"2026-11-23 18:47:27,123456789 -0530 x", "2026-11-24 00:17:27.123456"},
        {"2026-11-23 18:47:27 - x", "2026-11-23 17:47:27"},
        {"2026-11-23 18:47:27 +later", "2026-11-23 17:47:27"},
        {"2026-11-23_18:47:27 UTC x", "2026-11-23 18:47:27"},
        {"2026-11-23 18:47 x", "2026-11-23 17:47:00"},
        {"Nov 23 18:47:27 host program[7]: x", "2026-11-23 17:47:27"},
        {"Nov  3 08:47:27 host x", "2026-11-03 07:47:27"},
        {"<34>Nov 23 18:47:27 host x", "2026-11-23 17:47:27"},
        {"<165>1 2026-11-23T18:47:27.25Z host", "2026-11-23 18:47:27.250000"},
        {"Dec 24 18:00:00 host", "2025-12-24 17:00:00"},
        {"Nov 29 20:00:00 host: a clock that is ahead", "2026-11-29 19:00:00"},
        {"10.0.0.7 - - [23/Nov/2026:18:47:27 +0000] \"GET /\"", "2026-11-23 18:47:27"},
        {"2026/11/23 18:47:27 [error] x", "2026-11-23 17:47:27"},
        {"Mon Nov 23 18:47:27 2026 x", "2026-11-23 17:47:27"},
        {"Mon Nov 23 18:47:27 UTC 2026", "2026-11-23 18:47:27"},
        {"Mon, 23 Nov 2026 18:47:27 +0200", "2026-11-23 16:47:27"},
        {"42:M 23 Nov 2026 18:47:27.001 * x", "2026-11-23 17:47:27.001000"},
        {"23.11.2026 18:47:27 x", "2026-11-23 17:47:27"},
        {"20261123T184727Z x", "2026-11-23 18:47:27"},
        {"20261123 18:47:27 x", "2026-11-23 17:47:27"},
        {"1795459647 x", "2026-11-23 18:47:27"},
        {"[1795459647.25] x", "2026-11-23 18:47:27.250000"},
        {"1795459647250 x", "2026-11-23 18:47:27.250000"},
        {"Start-Date: 2026-11-23  18:47:27", "2026-11-23 17:47:27"},
        {"Log started: 2026-11-23  18:47:27", "2026-11-23 17:47:27"},
        {"update-alternatives 2026-11-23 18:47:27: run with", "2026-11-23 17:47:27"},
        {"\x1b[32m2026-11-23 18:47:27\x1b[0m x", "2026-11-23 17:47:27"},
        {"{\"time\":\"2026-11-23T18:47:27Z\"}", "2026-11-23 18:47:27"},
        {"2024-02-29 00:00:00Z", "2024-02-29 00:00:00"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.time, TimeOf(row.line)) << row.line;
    }
}

TEST_F(TimeStampTest, WhatLooksLikeOneIsNone)
{
    for (const std::string line : {"",
                                   " ",
                                   "\x1b[",
                                   "<",
                                   "<34>",
                                   "    at com.x.Y(Z.java:10)",
                                   "12345 apples",
                                   "9795459647 out of range",
                                   "1795459647th",
                                   "2026-13-01 00:00:00",
                                   "2026-11-23 25:00:00",
                                   "2026-11-23 18:60:00",
                                   "2026-11-23",
                                   "Nov 23",
                                   "Novel 23 18:47:27",
                                   "Nov 23 18:47",
                                   "18:47:27",
                                   "x2026-11-23 18:47:27",
                                   "192.168.0.1:8080",
                                   "1.2.2026",
                                   "2026-11-23 18:47:2"})
    {
        EXPECT_EQ("-", TimeOf(line)) << line;
    }
    EXPECT_EQ("-", TimeOf(std::string(k_StampReach, ' ') + "2026-11-23 18:47:27"));
}

// A text that tells of a time is not one that was written then.
TEST_F(TimeStampTest, OneElsewhereCountsOnlyWhereLinesDoNotBeginWithOne)
{
    LineTimes times;
    EXPECT_EQ("2026-01-02 02:04:05", Shown(times.Of("opened at 2026-01-02 03:04:05")));
    EXPECT_EQ("2026-01-03 02:04:05", Shown(times.Of("closed at 2026-01-03 03:04:05")));
    EXPECT_EQ("2026-11-23 17:47:27", Shown(times.Of("2026-11-23 18:47:27 x")));
    EXPECT_EQ("-", Shown(times.Of("opened at 2026-01-02 03:04:05")));
    EXPECT_EQ("2026-11-23 18:47:27", Shown(times.Of("1795459647 another form")));
}

// The zone is that of the time, not of today.
TEST_F(TimeStampTest, SummerTimeBeginsAndEnds)
{
    LineTimes times;
    EXPECT_EQ("2026-03-29 00:59:59", Shown(times.Of("2026-03-29 01:59:59")));
    EXPECT_EQ("2026-03-29 01:00:00", Shown(times.Of("2026-03-29 03:00:00")));
    EXPECT_EQ("2026-10-25 02:00:00", Shown(times.Of("2026-10-25 03:00:00")));
    EXPECT_EQ("2026-03-29 00:59:59", Shown(times.Of("2026-03-29 01:59:59")));
}
