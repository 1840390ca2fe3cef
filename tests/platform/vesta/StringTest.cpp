#include "vesta/String.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

TEST(String, ReadsNumbers)
{
    constexpr long long kMin = std::numeric_limits<long long>::min();
    constexpr long long kMax = std::numeric_limits<long long>::max();
    const struct
    {
        const char* text;
        long long   number;
    } cases[] = {
        {"-12 pixels", -12},
        {"  007", 7},
        {"0x10", 0}, // The base is ten.
        {"-9223372036854775808", kMin},
        {"9223372036854775807", kMax},
        {"", 9},
        {"x1", 9},
        {"-", 9},
        {"99999999999999999999", 9},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(c.number, String(c.text).ToInt(9)) << c.text;
    }
    EXPECT_EQ(kMin, String::FromInt(kMin).ToInt());
}

TEST(StringTokenizer, CutsAtSeparators)
{
    const struct
    {
        const char*         text;
        std::vector<String> pieces;
    } cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a,,b", {"a", "", "b"}},
        {"a,", {"a", ""}},
        {",", {"", ""}},
        {"a;b,c", {"a", "b", "c"}},
        {"\"a,b\",c", {"a,b", "c"}},
        {"x\"a,b\"y", {"xa,by"}},
        {"\"\"", {""}},
        {"a\\,b,c", {"a,b", "c"}},
        {"\"a\\\"b\",c", {"a\"b", "c"}},
        {"\\\\", {"\\"}},
        {"\"open, end", {"open, end"}},
        {"end\\", {"end\\"}},
        {" 1, 2 ", {" 1", " 2 "}},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(c.pieces, StringTokenizer::Split(c.text, ",;")) << c.text;
    }
    StringTokenizer own("b|'|'^'", "|", '\'', '^');
    EXPECT_EQ("b", own.Next());
    EXPECT_EQ("|'", own.Next());
    EXPECT_FALSE(own.HasMore());
    EXPECT_EQ("", own.Next());
}

} // namespace
