#include "vesta/UID.h"

#include <gtest/gtest.h>

namespace
{

TEST(UID, RoundTrips)
{
    const UID id = UID::Create();
    EXPECT_NE(UID::Create(), id);
    EXPECT_EQ(id, UID(id.ToString()));
    EXPECT_EQ(id, UID("{" + id.ToString().ToUpper() + "}"));
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
}

} // namespace
