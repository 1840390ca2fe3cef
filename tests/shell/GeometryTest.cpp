#include "internal/windows/Geometry.h"

#include <gtest/gtest.h>

TEST(Geometry, TakesTheFirstFourNumbersHoweverWritten)
{
    EXPECT_EQ(wxRect(1, 2, 30, 40), internal::ParseGeometry("1,2,30,40"));
    EXPECT_EQ(wxRect(1, 2, 30, 40), internal::ParseGeometry("  1,\t2x, \"30\",40, 99, more"));
    EXPECT_EQ(wxRect(0, 0, 30, 40), internal::ParseGeometry("left,,30,40"));
}

TEST(Geometry, AnUnknownPositionLeavesTheStoredOne)
{
    const wxRect now(0, 0, 500, 400);
    EXPECT_EQ("70, 80, 500, 400", internal::GeometryToStore("70, 80, 200, 200", now, false));
    EXPECT_EQ("0, 0, 500, 400", internal::GeometryToStore("70, 80, 200, 200", now, true));
    EXPECT_EQ("0, 0, 500, 400", internal::GeometryToStore("70, 80", now, false));
}

TEST(Geometry, WindowsAreMovedIntoAnArea)
{
    const wxRect area(100, 50, 1000, 700);
    EXPECT_EQ(wxRect(200, 100, 300, 200), internal::MovedInto(area, {200, 100, 300, 200}));
    EXPECT_EQ(wxRect(800, 550, 300, 200), internal::MovedInto(area, {1000, 740, 300, 200}));
    EXPECT_EQ(wxRect(100, 50, 300, 200), internal::MovedInto(area, {-5000, 0, 300, 200}));
    EXPECT_EQ(area, internal::MovedInto(area, {500, 500, 2000, 2000}));
}
