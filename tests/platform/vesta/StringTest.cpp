#include "vesta/String.h"

#include <gtest/gtest.h>

namespace
{

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
