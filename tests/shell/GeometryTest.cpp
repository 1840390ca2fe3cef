#include "internal/windows/Geometry.h"

#include <gtest/gtest.h>

TEST(Geometry, TakesTheFirstFourNumbersHoweverWritten)
{
    EXPECT_EQ(wxRect(1, 2, 30, 40), internal::ParseGeometry("1,2,30,40"));
    EXPECT_EQ(wxRect(1, 2, 30, 40), internal::ParseGeometry("  1,\t2x, \"30\",40, 99, more"));
    EXPECT_EQ(wxRect(0, 0, 30, 40), internal::ParseGeometry("left,,30,40"));
}

TEST(Geometry, RejectsWhatNoWindowCanHave)
{
    for (const char* text :
         {"", "10, 20, 300", "garbage", "a, b, c, d", "10, 20, 0, 40", "10, 20, 30, -1",
          "99999999999999999999, 0, 10, 10", "0, -40000, 10, 10", "0, 0, 2000000000, 10"})
    {
        EXPECT_FALSE(internal::ParseGeometry(text)) << text;
    }
}

TEST(Geometry, AnUnknownPositionLeavesTheStoredOne)
{
    const wxRect now(0, 0, 500, 400);
    EXPECT_EQ("70, 80, 500, 400", internal::GeometryToStore("70, 80, 200, 200", now, false));
    EXPECT_EQ("0, 0, 500, 400", internal::GeometryToStore("70, 80, 200, 200", now, true));
    EXPECT_EQ("0, 0, 500, 400", internal::GeometryToStore("70, 80", now, false));
}

TEST(Geometry, CentresAndGrowsToHalfTheReference)
{
    EXPECT_EQ(wxRect(350, 300, 300, 200),
              internal::CentredOn(wxRect(0, 0, 1000, 800), wxSize(601, 400), wxSize(80, 90)));
    // Larger than the display: halves are cut towards zero.
    EXPECT_EQ(wxRect(95, 50, 111, 100),
              internal::CentredOn(wxRect(100, 50, 100, 100), wxSize(10, 10), wxSize(111, 100)));
}
