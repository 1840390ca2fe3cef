#include "vesta/Time.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

constexpr int64_t kSecond = 1000000; // microseconds

TEST(Time, FormatsDurations)
{
    const struct
    {
        int64_t     microseconds;
        const char* text;
    } cases[] = {
        {0, "0.000s"},
        {250000, "0.250s"},
        {999999, "0.999s"},
        {kSecond, "1s"},
        {12 * kSecond + 999999, "12s"},
        {185 * kSecond, "3m 05s"},
        {7385 * kSecond, "2h 03m 05s"},
        {86399 * kSecond, "23h 59m 59s"},
        {(4 * 86400 + 2 * 3600 + 3 * 60 + 59) * kSecond, "4d 02h 03m"},
        {-185 * kSecond, "-3m 05s"},
        {std::numeric_limits<int64_t>::min(), "-106751991d 04h 00m"},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(c.text, Time(c.microseconds).FormatDuration());
    }
}

} // namespace
