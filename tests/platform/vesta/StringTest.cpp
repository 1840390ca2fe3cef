#include "vesta/String.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace
{

TEST(String, HoldsAnyBytes)
{
    const String text("a\0\xFF"
                      "b",
                      4);
    EXPECT_EQ(4u, text.size());
    EXPECT_EQ(text, String(text).Trim());
    EXPECT_EQ(text, text.ToLower());
    EXPECT_TRUE(String(static_cast<const char*>(nullptr)).empty());
}

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
    std::map<String, int, String::ciless> map{{"Beta", 1}, {"alpha", 2}, {"\xFF", 3}};
    EXPECT_EQ(1, map["BETA"]);
    EXPECT_EQ(2, map["Alpha"]);
    EXPECT_EQ("alpha", map.begin()->first);
    EXPECT_EQ("\xFF", map.rbegin()->first); // Bytes compare without a sign.
    const String::ciless less;
    EXPECT_TRUE(less("ab", "ABC"));
    EXPECT_FALSE(less("ABC", "ab"));
    EXPECT_FALSE(less("ab", "AB"));
}

TEST(String, Trims)
{
    EXPECT_EQ("a b", String(" \t\r\na b\n ").Trim());
    EXPECT_EQ("", String(" \t ").Trim());
    EXPECT_TRUE(String("abc").StartsWith("ab"));
    EXPECT_FALSE(String("ab").StartsWith("abc"));
}

TEST(String, ReadsNumbers)
{
    EXPECT_EQ(-12, String("-12 pixels").ToInt());
    EXPECT_EQ(7, String("  007").ToInt());
    EXPECT_EQ(0, String("0x10").ToInt(9)); // The base is ten.
    for (const char* text : {"", "x1", "-", "99999999999999999999"})
    {
        EXPECT_EQ(9, String(text).ToInt(9)) << text;
    }
    for (const long long value :
         {std::numeric_limits<long long>::min(), -1LL, std::numeric_limits<long long>::max()})
    {
        EXPECT_EQ(value, String::FromInt(value).ToInt(5));
    }
}

TEST(String, ReadsTruthValues)
{
    for (const char* text : {"yes", "TRUE", "On", "1", " yes "})
    {
        EXPECT_TRUE(String(text).ToBool(false)) << text;
    }
    for (const char* text : {"no", "False", "OFF", "0"})
    {
        EXPECT_FALSE(String(text).ToBool(true)) << text;
    }
    for (const char* text : {"", "2", "yess", "o"})
    {
        EXPECT_TRUE(String(text).ToBool(true)) << text;
        EXPECT_FALSE(String(text).ToBool(false)) << text;
    }
    EXPECT_TRUE(String::FromBool(true).ToBool(false));
    EXPECT_FALSE(String::FromBool(false).ToBool(true));
}

TEST(SFormat, HasNoLimit)
{
    EXPECT_EQ("3 of 4: x", SFormat("%d of %d: %s", 3, 4, "x"));
    for (const size_t size : {254u, 255u, 256u, 257u, 300000u})
    {
        const String text(size, 'x');
        EXPECT_EQ(text + "|", SFormat("%s|", text.c_str())) << size;
    }
}

struct TokenCase
{
    const char*         text;
    std::vector<String> pieces;
};

TEST(StringTokenizer, CutsAtSeparators)
{
    const TokenCase cases[] = {
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
    for (const TokenCase& c : cases)
    {
        EXPECT_EQ(c.pieces, StringTokenizer::Split(c.text, ",;")) << c.text;
    }
}

TEST(StringTokenizer, GivesEmptyPiecesAfterTheEnd)
{
    StringTokenizer tokenizer("a|b'|'c", "|", '\'', '^');
    EXPECT_EQ("a", tokenizer.Next());
    EXPECT_EQ("b|c", tokenizer.Next());
    EXPECT_FALSE(tokenizer.HasMore());
    EXPECT_EQ("", tokenizer.Next());
}

} // namespace
