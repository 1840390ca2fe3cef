#include "vesta/String.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

TEST(String, ChangesTheCaseOfAsciiLettersOnly)
{
    EXPECT_EQ("A\xC3\xA4Z{[@", String("a\xC3\xA4z{[@").ToUpper());
    EXPECT_EQ("a\xC3\x84z{[@", String("A\xC3\x84Z{[@").ToLower());
    EXPECT_TRUE(String("WindowBG").EqualsNoCase("windowbg"));
    EXPECT_FALSE(String("\xC3\xA4").EqualsNoCase("\xC3\x84"));
    EXPECT_FALSE(String("ab").EqualsNoCase("abc"));
}

TEST(String, OrdersWithoutCase)
{
    // In order; bytes compare without a sign.
    const String         texts[] = {"", "alpha", "BETA", "Betas", "\x7F", "\xFF"};
    const String::ciless less;
    for (const String& a : texts)
    {
        for (const String& b : texts)
        {
            EXPECT_EQ(&a < &b, less(a.ToUpper(), b.ToLower())) << a << " " << b;
        }
    }
}

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

TEST(String, ReadsTruthValues)
{
    for (const bool otherwise : {false, true})
    {
        for (const char* text : {"yes", "TRUE", "On", "1", " yes "})
        {
            EXPECT_TRUE(String(text).ToBool(otherwise)) << text;
        }
        for (const char* text : {"no", "False", "OFF", "0"})
        {
            EXPECT_FALSE(String(text).ToBool(otherwise)) << text;
        }
        for (const char* text : {"", "2", "yess", "o"})
        {
            EXPECT_EQ(otherwise, String(text).ToBool(otherwise)) << text;
        }
    }
}

TEST(SFormat, HasNoLimit)
{
    for (const size_t size : {0u, 254u, 255u, 256u, 257u, 300000u})
    {
        const String text(size, 'x');
        EXPECT_EQ("3" + text + "|", SFormat("%d%s|", 3, text.c_str())) << size;
    }
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
