#include "vesta/UID.h"

#include <gtest/gtest.h>

#include <set>

namespace
{

TEST(UID, RoundTrips)
{
    std::set<UID> seen;
    for (int i = 0; i < 1000; ++i)
    {
        const UID id = UID::Create();
        EXPECT_FALSE(id.IsNull());
        EXPECT_TRUE(seen.insert(id).second);
        EXPECT_EQ(id, UID(id.ToString()));
        EXPECT_EQ(id, UID("{" + id.ToString().ToUpper() + "}"));
    }
}

TEST(UID, AnyOtherTextIsNull)
{
    const String good = "0123abcd-4567-89ef-0123-456789abcdef";
    EXPECT_EQ(good, UID(good).ToString());
    for (const String& text :
         {String(), String("x"), String(good + "0"), String(good.substr(1)), String("{" + good),
          String(good + " "), String("0123abcd-4567-89ef-0123-456789abcdeg")})
    {
        EXPECT_TRUE(UID(text).IsNull()) << text;
    }
    EXPECT_EQ(UID::Null, UID());
    EXPECT_EQ("00000000-0000-0000-0000-000000000000", UID().ToString());
}

} // namespace
