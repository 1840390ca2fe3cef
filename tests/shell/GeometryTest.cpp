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
